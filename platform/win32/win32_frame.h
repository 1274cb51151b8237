// The frame around a form: a dialog window of fixed size with the program's icon.
#pragma once

#include <windows.h>

#include "platform/form.h"

namespace zendor {

// Makes the frame with its menu bar, not yet shown. Its messages go to the procedure.
HWND createFrame(const FormDescription& description, WNDPROC procedure);

// Gives the frame the size that leaves the described client area at its density.
void placeFrame(HWND frame, const FormDescription& description, POINT topLeft);

// The same, in the middle of the screen that the frame is on.
void centreFrame(HWND frame, const FormDescription& description);

}  // namespace zendor
