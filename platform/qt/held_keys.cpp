#include "platform/qt/held_keys.h"

#include <QCoreApplication>
#include <QKeyEvent>

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

HeldKeys::HeldKeys() { QCoreApplication::instance()->installEventFilter(this); }

// A window gets a key before the widget that has the focus. Repeats of a key are marked, except for
// the first one that reaches a new window: that one comes as a release and a press with the same
// time stamp.
bool HeldKeys::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWindowType()) return false;
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  const bool isUnmarked = event->type() == QEvent::KeyPress && key.key() == releasedKey_ &&
                          key.timestamp() == releasedAt_;
  if (event->type() == QEvent::KeyRelease) {
    releasedKey_ = key.key();
    releasedAt_ = key.timestamp();
  }
  return (key.isAutoRepeat() || isUnmarked) && !movesFocus(key.key());
}

}  // namespace zendor
