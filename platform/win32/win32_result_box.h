// The result box as an edit control: its text can be selected and copied, and is readable on the
// system's highlight-text colour.
#pragma once

#include <windows.h>

#include <string>

#include "platform/form.h"

namespace zendor {

// Makes the box as a child of the frame, without a place and a font yet. The box has the keyboard
// focus only while the mouse is at work in it, and gives the focus to the frame afterwards. WM_COPY
// copies the selection, or the whole text when nothing is selected. WM_CONTEXTMENU opens a menu
// that copies the same.
HWND createResultBox(HWND frame, const FormControl& description);

// Shows the text, which screen readers can read from then on. The box is a live region, so
// announceLiveRegion has the text spoken.
void setResult(HWND box, const std::wstring& text);

// For the box's WM_CTLCOLORSTATIC, which comes to the frame: sets the colours of the text and
// returns the brush of the background.
HBRUSH colorResultBox(HDC context);

}  // namespace zendor
