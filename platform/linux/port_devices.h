// Tells which device is "Serial Port n". The numbers count the computer's real ports in the order
// in which a person counts them. Nothing is remembered between two questions, so an adapter that is
// plugged in later is found.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace zendor {

class PortDevices {
 public:
  explicit PortDevices(std::filesystem::path sysfs = "/sys");

  // "/dev/ttyUSB0"; none when the computer has fewer ports. The first port is number 1.
  std::optional<std::string> deviceOfPort(int portNumber) const;

  // For people: "/dev/ttyUSB0, USB-Serial Controller", or that there is no such port.
  std::string describePort(int portNumber) const;

 private:
  std::filesystem::path terminals_;
};

}  // namespace zendor
