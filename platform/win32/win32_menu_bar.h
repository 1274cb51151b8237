// The menu bar of a form.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

#include "platform/form.h"

namespace zendor {

// The menus stand in the bar as described. A window that gets the bar owns the bar from then on.
HMENU createMenuBar(const std::vector<FormMenu>& menus);

void setMenuCaption(HMENU bar, std::size_t position, const std::string& caption);

}  // namespace zendor
