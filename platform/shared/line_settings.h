// A settings text such as "9600,N,8,1", read the same way on every platform.
#pragma once

#include <string>

namespace zendor {

// The baud rate of a settings text that asks for no parity, 8 data bits and 1 stop bit. Throws a
// PortError with the given number, the platform's own for a wrong argument, for any other text.
int baudRateOfSettings(const std::string& settings, int errorNumber);

}  // namespace zendor
