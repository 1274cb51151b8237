// The program on the devices that its arguments name, the first one as Serial Port 1, in place of
// the real ports of the computer.
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/linux_serial_port.h"
#include "program/linux/run_program.h"

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv, argv + argc);
  const auto deviceOfPort = [&](int port) -> std::optional<std::string> {
    const auto place = static_cast<std::size_t>(port);  // place 0 has the program's name
    return place < arguments.size() ? std::optional(arguments[place]) : std::nullopt;
  };
  zendor::LinuxSerialPort MSComm1(deviceOfPort);
  return zendor::runProgram(argv[0], MSComm1, [&](int number) {
    const auto device = deviceOfPort(number);
    return device && std::filesystem::exists(*device) ? *device : "no such port on this computer";
  });
}
