// A key acts once for each time that it is pressed, however long it is held, because a user who
// holds a key a moment too long must not answer a message that has just come, nor start request
// after request. Only keys that move the keyboard focus repeat.
#pragma once

#include <QObject>

namespace zendor {

// Sees to it for all windows of the application, as long as this object lives.
class HeldKeys final : public QObject {
 public:
  HeldKeys();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Of the last release: the key, and the time stamp.
  int releasedKey_ = 0;
  quint64 releasedAt_ = 0;
};

}  // namespace zendor
