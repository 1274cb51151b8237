// The refusals of Windows in words: the system's own text, and what a person can do where that text
// does not say so.
#pragma once

#include <windows.h>

#include <string>

#include "platform/serial_port.h"

namespace zendor {

// Why the device, such as COM1, does not open.
PortError refusedOpen(const std::string& device, DWORD error);

// Why the device does not send what was written.
PortError refusedWrite(const std::string& device, DWORD error);

}  // namespace zendor
