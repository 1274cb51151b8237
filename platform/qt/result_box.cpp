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
  setFocusPolicy(Qt::NoFocus);  // the copy key works from where the focus is
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

// Opens the menu and returns: a request that is running goes on.
void ResultBox::contextMenuEvent(QContextMenuEvent* event) {
  menu_ = std::make_unique<QMenu>();
  menu_->addAction(&copy_);
  menu_->popup(event->globalPos());
}

// A result is one word to its reader, letter and hyphen included.
void ResultBox::mouseDoubleClickEvent(QMouseEvent*) {
  setSelection(0, static_cast<int>(text().size()));
  QClipboard& clipboard = *QGuiApplication::clipboard();
  if (clipboard.supportsSelection()) clipboard.setText(text(), QClipboard::Selection);
}

// An empty box leaves alone what the user copied elsewhere.
void ResultBox::copyResult() const {
  const QString wanted = hasSelectedText() ? selectedText() : text();
  if (!wanted.isEmpty()) QGuiApplication::clipboard()->setText(wanted);
}

// The groups differ in some themes: a box that can be read must stay so in an inactive window.
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
