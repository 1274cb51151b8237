// How large a form is drawn: as dense as its screen, and large enough for the user's font.
#pragma once

#include <windows.h>

#include "platform/form.h"

namespace zendor {

struct FormScale {
  double dotsPerInch = 0;        // of the places, the sizes and the described fonts
  double messageFontFactor = 0;  // of the size of the user's message font
};

// The density of a screen, times what the captions in the message font need: one factor for the
// whole form, so a large font makes the form grow. A form that would not fit into the room for
// its client area is shrunk as a whole, the message font too.
FormScale scaleFor(const FormDescription& description, UINT dotsPerInch, SIZE room);

// The size that the frame needs on a screen of the given density, if it fits on its present screen.
SIZE frameSizeFor(HWND frame, const FormDescription& description, UINT dotsPerInch);

}  // namespace zendor
