// The application object of Qt, with a rule of its own for keys that are held: a key acts once for
// each time that it is pressed, however long it is held. A user who holds a key a moment too long
// must not answer a message that has just come, nor start request after request. Only keys that
// move the keyboard focus repeat.
#pragma once

#include <QApplication>
#include <QKeyEvent>

namespace zendor {

class QtApplication final : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  bool isRepeat(const QKeyEvent& key) const;
  void rememberRelease(const QKeyEvent& key);

  // Of the last release: the key, and the time stamp.
  int releasedKey_ = 0;
  quint64 releasedAt_ = 0;
};

}  // namespace zendor
