// The program's window on four simulated ports: a customer pod, an engineer pod, a line without a
// pod, and a port that another program holds.
#include <fcntl.h>
#include <sys/file.h>

#include <map>
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

  struct Line {
    std::string device;
    std::string product;
  };
  const std::map<int, Line> lines{
      {1, {customer.device(), "customer pod 1234567"}},
      {2, {engineer.device(), "engineer pod 42"}},
      {3, {empty.device(), "no pod"}},
      {4, {held.device(), "held by another program"}},
  };
  zendor::LinuxSerialPort MSComm1(
      [&](int number) { return std::optional(lines.at(number).device); });
  return zendor::runProgram(argv[0], MSComm1, [&](int number) {
    const auto& [device, product] = lines.at(number);
    return device + ", simulated: " + product;
  });
}
