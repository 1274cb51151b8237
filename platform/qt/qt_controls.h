// The controls of a form as widgets.
#pragma once

#include <QWidget>
#include <memory>

#include "platform/form.h"

namespace zendor {

// A widget that looks as described, at its place in the client area. Whether an option button is
// selected is its property "checked".
std::unique_ptr<QWidget> makeControl(const FormControl& control, QWidget& client,
                                     double dotsPerInch);

// Sees to it that no caption is clipped, whatever fonts the desktop has: an option button may grow
// into the room at its right, then fonts get smaller.
void fitCaptions(const QWidget& client);

void setCaption(QWidget& control, const QString& caption);

}  // namespace zendor
