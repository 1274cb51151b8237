// Other programs that have a device open, told by their descriptors: a program need not lock a
// device, and many do not.
#pragma once

#include <optional>
#include <string>

namespace zendor {

// "process 1234 (name)" of a process other than this one that has the device of the open line open
// too, by whatever path. An ordinary user sees own processes only, the administrator all of them.
std::optional<std::string> otherHolderOf(int line);

}  // namespace zendor
