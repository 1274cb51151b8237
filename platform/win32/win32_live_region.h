// A window whose new texts a screen reader speaks, wherever the keyboard focus is.
#pragma once

#include <windows.h>

#include <string>

namespace zendor {

// Marks the window as a live region, for its whole life. Where Windows lacks the service, nothing
// is marked, and the texts can still be read.
void makeLiveRegion(HWND window);

// Tells screen readers the text that the live region shows from now on. An empty text is not
// spoken.
void announceInLiveRegion(HWND window, const std::wstring& text);

}  // namespace zendor
