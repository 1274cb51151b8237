// The system's refusals in words: absent, busy, forbidden, not a serial port and gone are kept
// apart, and each says what to do next. For anything else the system's own text stands.
#pragma once

#include <string>

#include "platform/serial_port.h"

namespace zendor {

// No device belongs to the port number.
PortError absentPort(int portNumber);

// Another program has the device; its traces are told in words where there are any.
PortError busyPort(const std::string& device, const std::string& traces = {});

// The driver would run at another rate than the one asked for.
PortError unsupportedRate(const std::string& device, int asked, unsigned int offered);

// The device took only a part of what was to be sent.
PortError unfinishedWrite(const std::string& device);

// What a system call on the device refused with the given errno.
PortError refusedCall(const std::string& device, int errorNumber);

}  // namespace zendor
