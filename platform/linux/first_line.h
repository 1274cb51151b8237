// What the system's files tell of devices and programs, for people.
#pragma once

#include <filesystem>
#include <string>

namespace zendor {

// The first line of a file, UTF-8; empty when there is no such file. A device or a program may call
// itself by any bytes. Bytes that are not UTF-8 are left out. So are control characters, because a
// terminal would obey them instead of showing them.
std::string firstLineOf(const std::filesystem::path& file);

}  // namespace zendor
