// How large a form is drawn: as dense as its screen, and large enough for the user's font.
#pragma once

#include <QWidget>

#include "platform/form.h"

namespace zendor {

struct FormScale {
  double dotsPerInch = 0;  // of the places and the sizes
  double growth = 0;       // what the sizes of the described fonts are multiplied by
  double defaultFont = 0;  // what the size of the user's font is multiplied by
};

// The density of the window's screen, times what the captions in the user's font need: one factor
// for the whole form, so that a large font makes the form grow. A form that would not fit on the
// screen is shrunk as a whole, the user's font too. What the window shows around the client area is
// as high as the frame.
FormScale scaleOf(const QWidget& window, int frameHeight, const FormDescription& description);

}  // namespace zendor
