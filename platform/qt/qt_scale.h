// How large a form is drawn: as dense as its screen, and large enough for the user's font.
#pragma once

#include <QWidget>

#include "platform/form.h"
#include "platform/qt/qt_controls.h"

namespace zendor {

// One factor for the whole form: the density of the window's screen, times the growth that the
// captions need in the user's font. A form that would be larger than the screen is shrunk as a
// whole, and the user's font with it. The frame is title bar and menu bar.
FormScale scaleOf(const QWidget& window, int frameHeight, const FormDescription& description);

}  // namespace zendor
