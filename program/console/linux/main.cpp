// The command on the serial ports of a Linux computer.
#include <clocale>
#include <csignal>

#include "platform/linux/linux_serial_port.h"
#include "platform/linux/port_devices.h"
#include "program/console/console_program.h"

int main(int argc, char** argv) {
  using namespace zendor;
  // The system's own words come in the user's language, as in the window.
  std::setlocale(LC_CTYPE, "");
  std::setlocale(LC_MESSAGES, "");
  std::signal(SIGPIPE, SIG_IGN);  // so that a closed pipe is a failed write, as a full disk is
  const PortDevices devices;
  return runConsoleProgram(
      argc, argv,
      {.name = "zendor-serial-number",
       .deviceHelp = "the path of a device, such as /dev/ttyUSB0",
       .isDevice = [](const std::string& port) { return port.find('/') != std::string::npos; },
       .numberedPort =
           [&] {
             return std::make_unique<LinuxSerialPort>(
                 [&](int number) { return devices.deviceOfPort(number); });
           },
       .namedPort =
           [](const std::string& device) {
             return std::make_unique<LinuxSerialPort>([=](int) { return std::optional(device); });
           },
       .describePort = [&](int number) { return devices.describePort(number); }});
}
