// The keyboard focus of a form. A form that is active always has one.
#pragma once

#include <windows.h>

namespace zendor {

// A control that is disabled cannot keep the focus, because the keyboard would be dead. The frame
// has the focus in the control's place, and gives the focus back when the control is enabled. The
// same holds while the form is minimised. If the user moves the focus meanwhile, it stays there.
class FormFocus {
 public:
  // The first control has the focus when the form is shown. The result box is never noted,
  // because it has the focus only for the mouse and for its own menu.
  FormFocus(HWND frame, HWND first, HWND resultBox);

  // Notes which control has the focus. Called before something else gets the focus.
  void note();

  // Moves the focus from the frame to the control that it stands in for, if that control is
  // enabled. Called when the frame has got the focus or is restored.
  void giveBack() const;

  // Moves the focus to the control, at once or as soon as the form is active.
  void move(HWND control);

  void setEnabled(HWND control, bool enabled);

  // Whether the frame has the focus in place of a control.
  bool isWithFrame() const;

 private:
  const HWND frame_;
  const HWND resultBox_;
  HWND control_;  // has the focus, or gets the focus back from the frame
};

}  // namespace zendor
