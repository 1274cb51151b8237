// The claim of this program on a serial port. While it lasts, no other program can use the port.
#pragma once

#include <filesystem>
#include <string>

#include "platform/linux/file_descriptor.h"

namespace zendor {

// Opens the device for this program alone. Throws PortError, and has set nothing, when the device
// is no serial port, may not be used or is held by another program. Other programs put a file into
// the lock folder to tell that they hold a port.
FileDescriptor claimPort(const std::string& device, const std::filesystem::path& lockFolder);

// Closes the device. A close is never refused, because the kernel also frees a device that is gone.
void releasePort(FileDescriptor line);

}  // namespace zendor
