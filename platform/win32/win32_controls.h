// The controls and the menu bar of a form as Windows' own windows.
#pragma once

#include <windows.h>

#include <vector>

#include "platform/form.h"
#include "platform/win32/win32_fonts.h"

namespace zendor {

// The number of controls[0] in messages; the others follow in the order of the description.
inline constexpr int kFirstControlNumber = 100;

// Makes the controls as children of the frame, without places and fonts yet, in the order in which
// the keyboard and screen readers go through them.
void createControls(HWND frame, const std::vector<FormControl>& controls);

// Puts the controls where they belong at the frame's density. Returns the fonts that they use from
// then on.
std::vector<FontHandle> layOutControls(HWND frame, const std::vector<FormControl>& controls);

// The window that takes the bar owns it. The menus stand in it as described.
HMENU createMenuBar(const std::vector<FormMenu>& menus);

}  // namespace zendor
