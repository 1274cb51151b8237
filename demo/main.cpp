// The program's window on four simulated ports: a customer pod, an engineer pod, a line without a
// pod, and a port that another program holds.
#include <fcntl.h>
#include <sys/file.h>

#include <array>
#include <string>

#include "platform/linux/file_descriptor.h"
#include "platform/linux/linux_serial_port.h"
#include "program/linux/run_program.h"
#include "simulator/simulated_line.h"

namespace {

using zendor::FileDescriptor;
using zendor::simulator::Pod;
using zendor::simulator::SimulatedLine;

Pod podWith(const std::string& buildCode, std::uint32_t serialNumber) {
  Pod pod;
  pod.buildCode = buildCode;
  pod.serialNumber = serialNumber;
  return pod;
}

FileDescriptor hold(const std::string& device) {
  FileDescriptor holder(::open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
  ::flock(holder.number(), LOCK_EX);
  return holder;
}

}  // namespace

int main(int, char** argv) {
  SimulatedLine customer({.pod = podWith("Customer", 1234567)});
  SimulatedLine engineer({.pod = podWith("Engineer", 42)});
  SimulatedLine empty({.pod = std::nullopt});
  SimulatedLine held;
  const FileDescriptor holder = hold(held.device());

  const std::array<std::string, 4> devices{customer.device(), engineer.device(), empty.device(),
                                           held.device()};
  const std::array<std::string, 4> words{"customer pod 1234567", "engineer pod 42", "no pod",
                                         "held by another program"};
  zendor::LinuxSerialPort port(
      [&](int number) { return std::optional(devices.at(static_cast<std::size_t>(number) - 1)); });
  return zendor::runProgram(argv[0], port, [&](int index) {
    const auto place = static_cast<std::size_t>(index);
    return devices.at(place) + ", simulated: " + words.at(place);
  });
}
