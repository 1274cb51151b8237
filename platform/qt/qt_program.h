// The program on a given serial port: what every main on this toolkit has in common.
#pragma once

#include "platform/qt/port_tips.h"
#include "platform/serial_port.h"

namespace zendor {

// Shows the window and serves it until the program ends. The words tell which device is behind
// each port choice.
int runProgram(int argc, char** argv, SerialPort& MSComm1, PortTips::Words words);

}  // namespace zendor
