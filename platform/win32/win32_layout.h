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

  // For WM_GETDPISCALEDSIZE: puts the size that the window needs at the density in the place of the
  // size at the address. Returns false when the address is not trusted.
  bool answerSize(UINT dotsPerInch, LPARAM address) const;

  // For WM_DPICHANGED, which carries the address of the place that Windows suggests.
  void changeDensity(LPARAM address);

  // Lays the form out again where it is.
  void changeFonts();

 private:
  void layOut(const RECT& place);

  const HWND frame_;
  const FormDescription& description_;
  const std::vector<Win32Control>& controls_;
  SIZE size_{};           // of the frame
  UINT dotsPerInch_ = 0;  // of the screen that the form is laid out for
  std::vector<FontHandle> fonts_;
};

}  // namespace zendor
