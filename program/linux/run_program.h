// The program on a given serial port: what all who show its window on this machine have in common.
#pragma once

#include <functional>
#include <string>

#include "platform/serial_port.h"

namespace zendor {

// Tells which device is behind the port choice of the given index, UTF-8.
using WordsOfPort = std::function<std::string(int index)>;

// Shows the window and serves it until the program ends. It was started by the given name.
int runProgram(char* name, SerialPort& MSComm1, WordsOfPort words);

}  // namespace zendor
