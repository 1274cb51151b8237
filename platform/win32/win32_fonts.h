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

// The control's own font or the system's message font, at most as large as the control has room for
// its caption: the message font has whatever size the user has set.
FontHandle fontOf(const FormControl& control, UINT dotsPerInch);

}  // namespace zendor
