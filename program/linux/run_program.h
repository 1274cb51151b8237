// The program on a given serial port: what all who show its window on Linux have in common.
#pragma once

#include <functional>
#include <string>

#include "platform/serial_port.h"

namespace zendor {

// Shows the window and serves it until the program ends. It was started by the given name; the
// words tell which device is behind the port choice of an index, UTF-8.
int runProgram(char* name, SerialPort& MSComm1, std::function<std::string(int index)> words);

}  // namespace zendor
