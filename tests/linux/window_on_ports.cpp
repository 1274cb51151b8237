// The program on the devices that its arguments name, the first one as Serial Port 1, in place of
// the computer's own.
#include <filesystem>
#include <string>
#include <vector>

#include "platform/linux/linux_serial_port.h"
#include "program/linux/run_program.h"

int main(int argc, char** argv) {
  const std::vector<std::string> devices(argv + 1, argv + argc);
  zendor::LinuxSerialPort port([&](int number) -> std::optional<std::string> {
    const auto index = static_cast<std::size_t>(number) - 1;
    return index < devices.size() ? std::optional(devices[index]) : std::nullopt;
  });
  return zendor::runProgram(argv[0], port, [&](int index) {
    const auto place = static_cast<std::size_t>(index);
    const bool isThere = place < devices.size() && std::filesystem::exists(devices[place]);
    return isThere ? devices[place] : "no such port on this computer";
  });
}
