// The rules that a fuzz target holds: a broken one ends the run with the input that broke it.
#pragma once

#include <cstdlib>

namespace zendor {

inline void require(bool rule) {
  if (!rule) std::abort();
}

}  // namespace zendor
