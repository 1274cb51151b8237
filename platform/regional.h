// How the user's region writes numbers. The default is what stands on the wire everywhere.
#pragma once

#include <string>

namespace zendor {

struct Regional {
  std::string decimalSeparator = ".";  // UTF-8, as is the minus sign
  std::string minusSign = "-";
};

}  // namespace zendor
