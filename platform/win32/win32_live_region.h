// A window whose new texts a screen reader speaks, wherever the keyboard focus is.
#pragma once

#include <windows.h>

namespace zendor {

// Marks the window as a live region, for its whole life. Where Windows lacks the service, nothing
// is marked, and the texts can still be read.
void makeLiveRegion(HWND window);

// Tells screen readers that the live region has a new text.
void announceLiveRegion(HWND window);

}  // namespace zendor
