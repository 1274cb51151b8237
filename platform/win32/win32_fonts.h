// The fonts of controls at a screen density.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

#include "platform/form.h"

namespace zendor {

struct FontDeleter {
  void operator()(HFONT font) const { DeleteObject(font); }
};
using FontHandle = std::unique_ptr<std::remove_pointer_t<HFONT>, FontDeleter>;

FontHandle describedFont(const FormFont& font, double dotsPerInch);

// The font that the user has set for messages, at the density of a screen, times the factor.
FontHandle messageFont(double factor, UINT dotsPerInch);

}  // namespace zendor
