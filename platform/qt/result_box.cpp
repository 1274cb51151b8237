#include "platform/qt/result_box.h"

#include <QAccessibleWidget>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>

#include "platform/shared/readable_color.h"

namespace zendor {

namespace {

// What a screen reader finds in place of the result box. A screen reader follows the keyboard focus
// and ignores a label elsewhere that changes, but it speaks a notification wherever one is shown.
// It would speak a description with every result, so only an empty box has one.
class SpokenResult final : public QAccessibleWidget {
 public:
  explicit SpokenResult(ResultBox& box)
      : QAccessibleWidget(&box, QAccessible::Notification), box_(box) {}

  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Name) return box_.text();
    return box_.text().isEmpty() ? QAccessibleWidget::text(kind) : QString();
  }

 private:
  const ResultBox& box_;
};

QAccessibleInterface* makeSpokenResult(const QString&, QObject* object) {
  auto* const box = dynamic_cast<ResultBox*>(object);
  return box == nullptr ? nullptr : std::make_unique<SpokenResult>(*box).release();
}

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
  setFocusPolicy(Qt::NoFocus);  // otherwise a click on the text would move the focus
  setBackgroundRole(QPalette::HighlightedText);
  setAutoFillBackground(true);
  keepReadable();
  QAccessible::installFactory(makeSpokenResult);

  copy_.setShortcuts(QKeySequence::Copy);
  connect(&copy_, &QAction::triggered, this, [this] {
    QGuiApplication::clipboard()->setText(hasSelectedText() ? selectedText() : text());
  });
  addAction(&copy_);

  // The keys for a context menu. No other control has one, so the keys mean this one from anywhere
  // in the window.
  menuKeys_.setShortcuts({Qt::Key_Menu, Qt::SHIFT | Qt::Key_F10});
  connect(&menuKeys_, &QAction::triggered, this,
          [this] { openMenu(mapToGlobal(rect().center())); });
  addAction(&menuKeys_);
}

void ResultBox::showResult(const QString& result) {
  setText(result);
  copy_.setEnabled(!result.isEmpty());
  if (result.isEmpty()) return;
  QAccessibleEvent shown(this, QAccessible::ObjectShow);
  QAccessible::updateAccessibility(&shown);
}

// Returns while the menu is open, because a request may be running that must go on.
void ResultBox::openMenu(const QPoint& place) {
  menu_ = std::make_unique<QMenu>();
  menu_->addAction(&copy_);
  menu_->popup(place);
}

void ResultBox::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) keepReadable();
}

void ResultBox::contextMenuEvent(QContextMenuEvent* event) { openMenu(event->globalPos()); }

// A double click selects one word of a label. For the reader the result is one word, although it
// has a hyphen, so all of it is selected.
void ResultBox::mouseDoubleClickEvent(QMouseEvent*) {
  setSelection(0, static_cast<int>(text().size()));
  QClipboard& clipboard = *QGuiApplication::clipboard();
  if (clipboard.supportsSelection()) clipboard.setText(text(), QClipboard::Selection);
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
