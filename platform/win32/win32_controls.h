// The controls of a form as Windows' own windows.
#pragma once

#include <windows.h>

#include <vector>

#include "platform/form.h"
#include "platform/win32/win32_fonts.h"
#include "platform/win32/win32_scale.h"

namespace zendor {

// A described control and the window that shows it.
struct Win32Control : FormControl {
  HWND window = nullptr;
};

// Makes the controls as children of the frame, without places and fonts yet, in the order in which
// the keyboard and screen readers go through them. Returns them in the same order. The push button
// has the number IDOK.
std::vector<Win32Control> createControls(HWND frame, const std::vector<FormControl>& controls);

// Puts the controls where they belong on a screen of the given density. Returns the fonts that they
// use from then on.
std::vector<FontHandle> layOutControls(const std::vector<Win32Control>& controls,
                                       const FormScale& scale, UINT dotsPerInch);

}  // namespace zendor
