// The system's refusals in words. A port that is absent, busy, forbidden, no serial port or gone
// has words of its own, and these say what to do next. Any other refusal has the system's own text.
#pragma once

#include <string>

#include "platform/serial_port.h"

namespace zendor {

// No device belongs to the port number.
PortError absentPort(int portNumber);

// Another program has the device. The evidence, such as "process 1234 (name) has it open", may be
// empty.
PortError busyPort(const std::string& device, const std::string& evidence);

// The driver would run at another rate than the one asked for.
PortError unsupportedRate(const std::string& device, int asked, unsigned int offered);

// The device accepted only a part of what was to be sent.
PortError unfinishedWrite(const std::string& device);

// What a system call on the device refused with the given errno.
PortError refusedCall(const std::string& device, int errorNumber);

}  // namespace zendor
