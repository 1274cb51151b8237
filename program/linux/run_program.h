// The program on a given serial port: the common part of everything that shows its window on Linux.
#pragma once

#include <functional>
#include <string>

#include "platform/serial_port.h"

namespace zendor {

// Shows the window and serves it until the program ends. The name is the one that the program was
// started by.
int runProgram(char* name, SerialPort& MSComm1,
               std::function<std::string(int portNumber)> describePort);

}  // namespace zendor
