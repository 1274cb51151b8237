// Other programs that hold a device. Many programs do not lock a device, so they are found by what
// the system shows of each process.
#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <string>

namespace zendor {

// "process 1234 (name)" of a process other than this one that has the device open, by whatever
// path. The system shows the open files of their own processes to ordinary users, and of all
// processes to the administrator. Of a process whose open files are hidden it shows the controlling
// terminal: a login that waits on a serial port is found by that. A session loses its terminal when
// nobody has the device open any longer, so that the terminal of a process whose files are shown
// would tell nothing more.
std::optional<std::string> otherHolderOf(const struct stat& device,
                                         const std::filesystem::path& processes = "/proc");

}  // namespace zendor
