// Other programs that hold a device. Many programs do not lock a device, so they are found by what
// the system shows of each process.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace zendor {

// "process 1234 (name)" of a process other than this one that has the device of the open line open
// too, by whatever path. The system shows the open files of their own processes to ordinary users,
// and of all processes to the administrator. Of a process whose open files are hidden it shows the
// controlling terminal: a login that waits on a serial port is found by that.
std::optional<std::string> otherHolderOf(int line,
                                         const std::filesystem::path& processes = "/proc");

}  // namespace zendor
