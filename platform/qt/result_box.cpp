#include "platform/qt/result_box.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>

#include "platform/shared/readable_color.h"

namespace zendor {

namespace {

Rgb rgb(const QColor& color) {
  return {static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
          static_cast<std::uint8_t>(color.blue())};
}

QColor readableOn(const QColor& background, const QColor& wished) {
  const Rgb chosen = readableOn(rgb(background), rgb(wished));
  return {chosen.red, chosen.green, chosen.blue};
}

}  // namespace

ResultBox::ResultBox(QWidget* parent) : QLabel(parent), copy_("&Copy") {
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  setFocusPolicy(Qt::NoFocus);  // a label with text to select would take it from the button
  setBackgroundRole(QPalette::HighlightedText);
  setAutoFillBackground(true);
  keepReadable();

  copy_.setShortcuts(QKeySequence::Copy);
  connect(&copy_, &QAction::triggered, this, &ResultBox::copyResult);
  addAction(&copy_);
}

void ResultBox::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) keepReadable();
}

// Opens the menu without waiting for its end, because a request may be running.
void ResultBox::contextMenuEvent(QContextMenuEvent* event) {
  menu_ = std::make_unique<QMenu>();
  menu_->addAction(&copy_);
  menu_->popup(event->globalPos());
}

// A double click selects one word of a label. For the reader the result is one word, although it
// has a hyphen, so all of it is selected.
void ResultBox::mouseDoubleClickEvent(QMouseEvent*) {
  setSelection(0, static_cast<int>(text().size()));
  QClipboard& clipboard = *QGuiApplication::clipboard();
  if (clipboard.supportsSelection()) clipboard.setText(text(), QClipboard::Selection);
}

// An empty result box does not overwrite what the user has copied elsewhere.
void ResultBox::copyResult() const {
  const QString wanted = hasSelectedText() ? selectedText() : text();
  if (!wanted.isEmpty()) QGuiApplication::clipboard()->setText(wanted);
}

// Active, inactive and disabled windows can have different colours, so each is checked.
void ResultBox::keepReadable() {
  const QPalette& theme = parentWidget()->palette();
  QPalette own;
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    own.setColor(group, QPalette::WindowText,
                 readableOn(theme.color(group, QPalette::HighlightedText),
                            theme.color(group, QPalette::WindowText)));
  }
  setPalette(own);
}

}  // namespace zendor
