// The controls of a form as widgets.
#pragma once

#include <QWidget>
#include <memory>

#include "platform/form.h"

namespace zendor {

// A widget that looks as described, at its place in the client area. Its caption is its property
// "text"; an option button's choice is its property "checked".
std::unique_ptr<QWidget> makeControl(const FormControl& control, QWidget& client,
                                     double dotsPerInch);

// Sees to it that no caption is clipped, whatever fonts the desktop has: an option button may grow
// into the room at its right, then fonts get smaller.
void fitCaptions(const QWidget& client);

// Lets a screen reader tell by its heading what stands in a bordered label.
void relateHeadings(const QWidget& client);

}  // namespace zendor
