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
// processes to the administrator. Where they are hidden, or where one is "/dev/tty" or
// "/dev/console", the controlling terminal of the process tells: a login that waits on a serial
// port is found by that. Other processes are not asked for their terminal, because a session loses
// its terminal as soon as nobody has that device open.
std::optional<std::string> otherHolderOf(const struct stat& device,
                                         const std::filesystem::path& processes = "/proc");

}  // namespace zendor
