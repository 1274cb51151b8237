// The place and the size of a form's window and of its controls, at the density of the screen.
#pragma once

#include <windows.h>

#include <vector>

#include "platform/form.h"
#include "platform/win32/win32_controls.h"
#include "platform/win32/win32_fonts.h"

namespace zendor {

class FormLayout {
 public:
  // The description and the controls outlive this object.
  FormLayout(HWND frame, const FormDescription& description,
             const std::vector<Win32Control>& controls);

  // Lays the form out in the middle of the screen.
  void centre();

  // For WM_GETDPISCALEDSIZE: replaces the size at the address by the one that the window needs at
  // the density. Returns false when the address is not trusted.
  bool answerSize(UINT dotsPerInch, LPARAM address) const;

  // For WM_DPICHANGED, which carries the address of the place that Windows suggests.
  void followDensity(LPARAM address);

  // For another message font: lays the form out again where it is.
  void followFonts();

  // For a restored window: lays the form out if that was due while the window was minimised.
  void catchUp();

 private:
  void layOut(const RECT& place);

  const HWND frame_;
  const FormDescription& description_;
  const std::vector<Win32Control>& controls_;
  SIZE size_{};           // of the frame
  UINT dotsPerInch_ = 0;  // of the screen that the form is laid out for
  bool isDue_ = false;    // the form is to be laid out as soon as the window is restored
  std::vector<FontHandle> fonts_;
};

}  // namespace zendor
