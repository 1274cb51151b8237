// The controls of a form as widgets.
#pragma once

#include <QWidget>
#include <memory>

#include "platform/form.h"

namespace zendor {

// How large the controls of a form are drawn.
struct FormScale {
  double dotsPerInch = 0;          // of the places and the sizes
  double describedFontFactor = 0;  // what the sizes of the described fonts are multiplied by
  double userFontFactor = 0;       // what the size of the user's font is multiplied by
};

// The widget has no place yet. Its property "checked" tells whether an option button is selected.
std::unique_ptr<QWidget> makeControl(const FormControl& control, QWidget& client);

// Gives the widget its place in the client area, and its font.
void placeControl(QWidget& widget, const FormControl& control, const FormScale& scale);

void setCaption(QWidget& control, const QString& caption);

}  // namespace zendor
