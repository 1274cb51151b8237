// The serial ports of a Windows computer by their numbers.
#pragma once

#include <string>

namespace zendor {

// "COM1" is the port with the number 1.
std::string comPortOf(int portNumber);

// For people: "COM1", with the name of its device where Windows knows one, or that there is no such
// port.
std::string describePort(int portNumber);

}  // namespace zendor
