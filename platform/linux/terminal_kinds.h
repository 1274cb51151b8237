// What the number of a device tells about the terminal behind it.
#pragma once

#include <linux/major.h>
#include <sys/sysmacros.h>
#include <sys/types.h>

namespace zendor {

// Pseudo-terminals look like ports and have no hardware.
inline bool isPseudoTerminal(dev_t device) {
  const auto kind = static_cast<int>(major(device)) - UNIX98_PTY_SLAVE_MAJOR;
  return kind >= 0 && kind < UNIX98_PTY_MAJOR_COUNT;
}

// People work at a console ("/dev/tty1", or "/dev/tty" for the one of this process). The serial
// ports under the same major numbers begin at the minor number 64.
inline bool isConsole(dev_t device) {
  const unsigned int kind = major(device);
  return (kind == TTY_MAJOR || kind == TTYAUX_MAJOR) && minor(device) < 64;
}

}  // namespace zendor
