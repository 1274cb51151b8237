// A settings text such as "9600,N,8,1", read the same way on every platform.
#pragma once

#include <string>

namespace zendor {

// The baud rate of a settings text that asks for no parity, 8 data bits and 1 stop bit. Any other
// text throws a PortError with the given number, the one that the platform has for a wrong
// argument.
int baudRateOfSettings(const std::string& settings, int errorNumber);

}  // namespace zendor
