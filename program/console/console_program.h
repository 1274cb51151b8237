// The command that prints the serial number: the request behind the window's button, without the
// window.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/serial_port.h"

namespace zendor {

// What the command asks of a platform: its own name, and the serial ports.
struct ConsolePlatform {
  std::string name;
  std::string deviceHelp;  // what PORT can be besides a number, "the path of a device"
  std::function<bool(const std::string& port)> isDevice;

  // A port that opens the device of the configured number, and one that opens the named device
  // whatever the number is.
  std::function<std::unique_ptr<SerialPort>()> numberedPort;
  std::function<std::unique_ptr<SerialPort>(const std::string& device)> namedPort;

  // The device behind the number and what its adapter calls itself, for people.
  std::function<std::string(int portNumber)> describePort;
};

// Does what the command line asks for and returns the exit status of the program. Where the window
// would end the program, this function does not return, and the status is 1.
int runConsoleProgram(int argc, char** argv, const ConsolePlatform& platform);

}  // namespace zendor
