// A window whose new texts a screen reader speaks, wherever the keyboard focus is.
#pragma once

#include <windows.h>

#include <string>

namespace zendor {

// Marks the window as a live region, for its whole life. Where Windows lacks the service, nothing
// is marked, and the texts can still be read.
void makeLiveRegion(HWND window);

// The text that the live region shows from now on. Screen readers can read it, and are not told
// yet.
void nameLiveRegion(HWND window, const std::wstring& text);

// Has screen readers speak the text that the live region shows.
void announceLiveRegion(HWND window);

}  // namespace zendor
