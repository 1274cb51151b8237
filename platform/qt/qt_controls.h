// The controls of a form as widgets.
#pragma once

#include <QWidget>
#include <memory>

#include "platform/form.h"
#include "platform/qt/qt_scale.h"

namespace zendor {

// A widget that looks as described, at its place in the client area. The property "checked" of an
// option button tells whether it is selected.
std::unique_ptr<QWidget> makeControl(const FormControl& control, QWidget& client,
                                     const FormScale& scale);

void setCaption(QWidget& control, const QString& caption);

}  // namespace zendor
