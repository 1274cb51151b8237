#include "platform/win32/win32_focus.h"

namespace zendor {

FormFocus::FormFocus(HWND frame, HWND first, HWND resultBox)
    : frame_(frame), resultBox_(resultBox), control_(first) {}

void FormFocus::note() {
  const HWND focus = GetFocus();
  if (focus != resultBox_ && IsChild(frame_, focus)) control_ = focus;
}

// Does nothing while the frame is minimised, because none of its children can get the focus then.
void FormFocus::giveBack() const {
  if (isWithFrame() && IsWindowEnabled(control_)) SetFocus(control_);
}

void FormFocus::move(HWND control) {
  control_ = control;
  if (GetActiveWindow() == frame_) SetFocus(control);
}

void FormFocus::setEnabled(HWND control, bool enabled) {
  note();
  const bool losesFocus = !enabled && GetFocus() == control;
  EnableWindow(control, enabled);
  if (losesFocus) SetFocus(frame_);
  if (enabled) giveBack();
}

bool FormFocus::isWithFrame() const { return GetFocus() == frame_; }

}  // namespace zendor
