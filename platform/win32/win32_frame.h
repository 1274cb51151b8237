// The frame around a form: a dialog window of fixed size with the program's icon.
#pragma once

#include <windows.h>

#include "platform/form.h"

namespace zendor {

// Makes the frame with its menu bar, not yet shown. Its messages go to the procedure.
HWND createFrame(const FormDescription& description, WNDPROC procedure);

// The size of the frame around the described client area at the given density.
SIZE frameSize(HWND frame, const FormDescription& description, double dotsPerInch);

// Gives the frame the size that frameSize tells, and its place.
void placeFrame(HWND frame, const FormDescription& description, double dotsPerInch, POINT topLeft);

// Where the frame stands.
POINT topLeftOfFrame(HWND frame);

// Where the frame would stand in the middle of its screen.
POINT centredOnScreen(HWND frame, const FormDescription& description, double dotsPerInch);

}  // namespace zendor
