// The baud rates that a settings text may ask for.
#pragma once

#include <vector>

namespace zendor {

std::vector<int> BaudRateList();

}  // namespace zendor
