// How the user's region writes numbers. Texts that go over the wire are written with the defaults.
#pragma once

#include <string>

namespace zendor {

struct Regional {
  std::string decimalSeparator = ".";  // UTF-8, as is the minus sign
  std::string minusSign = "-";
};

}  // namespace zendor
