// The keyboard focus of a form, which has one as long as the form is active.
#pragma once

#include <windows.h>

namespace zendor {

// A control that is disabled cannot keep the focus, because the keyboard would be dead. The frame
// has the focus in its place, and gives it back when the control is enabled. The same holds while
// the form is minimised. If the user moves the focus meanwhile, it stays there.
class FormFocus {
 public:
  // The first control has the focus when the form is shown. The result box has it only for the
  // mouse and its menu.
  FormFocus(HWND frame, HWND first, HWND resultBox);

  // Notes which control has the focus. Called before something else gets the focus.
  void note();

  // Moves the focus from the frame to its control if that is enabled. Called when the frame has got
  // the focus or is restored.
  void giveBack() const;

  // Moves the focus to the control, at once or as soon as the form is active.
  void move(HWND control);

  void setEnabled(HWND control, bool enabled);

  // Whether the frame has the focus in place of a control.
  bool isWithFrame() const;

 private:
  const HWND frame_;
  const HWND resultBox_;
  HWND control_;  // gets the focus when the frame has it; waits for that while it is disabled
};

}  // namespace zendor
