// The dialog window of a form, without its contents.
#pragma once

#include <QDialog>
#include <functional>

namespace zendor {

// Closing it runs one of the given actions, and a change of the user's font the other. Esc does
// nothing.
class FormWindow final : public QDialog {
 public:
  FormWindow(std::function<void()> onClose, std::function<void()> onFontChange);

  // Puts the window in the middle of the whole screen, before it is shown.
  void centreOnScreen();

  // The height of a window's frame is not known before it is shown, so the height of the style's
  // title bar is used in its place.
  int titleBarHeight() const;

  void reject() override;

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  std::function<void()> onClose_;
  std::function<void()> onFontChange_;
};

}  // namespace zendor
