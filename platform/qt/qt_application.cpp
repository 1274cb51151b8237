#include "platform/qt/qt_application.h"

namespace zendor {

namespace {

bool movesFocus(int key) {
  switch (key) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
      return true;
    default:
      return false;
  }
}

}  // namespace

// A key from the system reaches the window before the widget that has the focus. While a screen
// reader runs, a filter of Qt replaces the window's event by a copy without a time stamp. A filter
// of this program could come after that one, but notify() sees every event before all filters.
bool QtApplication::notify(QObject* receiver, QEvent* event) {
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
  if (isKey && event->spontaneous() && receiver->isWindowType()) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool isRepeated = isRepeat(key);
    if (key.type() == QEvent::KeyRelease) rememberRelease(key);
    if (isRepeated && !movesFocus(key.key())) return true;
  }
  return QApplication::notify(receiver, event);
}

// Repeats of a key are marked, except for the first one that reaches a new window under X11: that
// one comes as a release and a press with the same time stamp. A helping program may give all keys
// the time stamp 0, which tells nothing.
bool QtApplication::isRepeat(const QKeyEvent& key) const {
  if (key.isAutoRepeat() || key.type() == QEvent::KeyRelease) return key.isAutoRepeat();
  const bool hasTime = key.timestamp() != 0;
  return hasTime && key.key() == releasedKey_ && key.timestamp() == releasedAt_;
}

void QtApplication::rememberRelease(const QKeyEvent& key) {
  releasedKey_ = key.key();
  releasedAt_ = key.timestamp();
}

}  // namespace zendor
