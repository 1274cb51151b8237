// What the system's files tell of devices and programs, for people.
#pragma once

#include <filesystem>
#include <string>

namespace zendor {

// The first line of a file, UTF-8; empty when there is no such file. A device or a program may call
// itself by any bytes. Control characters are left out, because they would work on a terminal
// instead of being shown, and so are bytes that are not UTF-8.
std::string firstLineOf(const std::filesystem::path& file);

}  // namespace zendor
