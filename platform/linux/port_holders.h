// Other programs that hold a device. Many programs do not lock a device, so they are found by what
// the system shows of each process.
#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <string>

namespace zendor {

// "process 1234 (name)" of a process other than this one that has the device open, by whatever
// path. The evidence is
// - an open file of the process. The system shows an ordinary user the files of the user's own
//   processes, and the administrator the files of all processes;
// - the controlling terminal of a process, when the system hides a file of that process or when a
//   file is "/dev/tty" or "/dev/console". A login that waits on a serial port is found by this.
// The terminal tells nothing of a process whose files are all known: the device may be open in
// another process of the session only, and then the search finds that other process.
std::optional<std::string> otherHolderOf(const struct stat& device,
                                         const std::filesystem::path& processes = "/proc");

}  // namespace zendor
