// A symbolic link, at a path of the user's choice, that leads to a device as long as this object
// lives.
#pragma once

#include <filesystem>

namespace zendor::simulator {

class DeviceLink {
 public:
  // Replaces another symbolic link. Throws std::runtime_error when anything else is there
  // or when the folder cannot be written.
  DeviceLink(std::filesystem::path link, std::filesystem::path device);
  DeviceLink(const DeviceLink&) = delete;
  DeviceLink& operator=(const DeviceLink&) = delete;
  ~DeviceLink();

 private:
  std::filesystem::path link_;
  std::filesystem::path device_;
};

}  // namespace zendor::simulator
