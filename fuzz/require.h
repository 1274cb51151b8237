// How a fuzz target holds a rule: a broken rule ends the run, and the fuzzer then saves the input.
#pragma once

#include <cstdlib>

namespace zendor {

inline void require(bool rule) {
  if (!rule) std::abort();
}

}  // namespace zendor
