// The frame around a form: a dialog window of fixed size with the program's icon.
#pragma once

#include <windows.h>

#include "platform/form.h"

namespace zendor {

// Makes the frame with its menu bar, not yet shown. Its messages go to the procedure.
HWND createFrame(const FormDescription& description, WNDPROC procedure);

// Shows and activates the frame.
void showFrame(HWND frame);

// The size of the frame around a client area, on a screen of the given density.
SIZE frameAround(SIZE client, const FormDescription& description, UINT dotsPerInch);

// The screen that the frame is on.
MONITORINFO screenOf(HWND frame);

}  // namespace zendor
