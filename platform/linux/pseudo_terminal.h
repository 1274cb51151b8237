// Pseudo-terminals, which look like ports and have no hardware.
#pragma once

#include <linux/major.h>
#include <sys/sysmacros.h>
#include <sys/types.h>

namespace zendor {

inline bool isPseudoTerminal(dev_t device) {
  const auto kind = static_cast<int>(major(device)) - UNIX98_PTY_SLAVE_MAJOR;
  return kind >= 0 && kind < UNIX98_PTY_MAJOR_COUNT;
}

}  // namespace zendor
