// A serial port of Linux. A count, a read or a write is one system call on the open device. So the
// counts of bytes that wait and that are still to be sent are those of the kernel at that moment.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "platform/linux/file_descriptor.h"
#include "platform/serial_port.h"

namespace zendor {

class LinuxSerialPort final : public SerialPort {
 public:
  // The path of a port's device; none when there is no such port. Asked at every open.
  using DeviceOfPort = std::function<std::optional<std::string>(int portNumber)>;

  // The lock folder is that of claimPort().
  explicit LinuxSerialPort(DeviceOfPort deviceOfPort,
                           std::filesystem::path lockFolder = "/var/lock");
  ~LinuxSerialPort() override;

  bool isOpen() const override;
  void open() override;
  void close() override;
  std::size_t bytesWaiting() override;
  std::span<const std::uint8_t> readAll() override;
  void discardWaiting() override;
  std::size_t bytesToSend() override;
  void write(std::span<const std::uint8_t> bytes) override;

 private:
  DeviceOfPort deviceOfPort_;
  std::filesystem::path lockFolder_;
  std::string device_;  // of the last open
  FileDescriptor line_;
  bool hasSetLowLatency_ = false;              // so that a close puts it back
  std::array<std::uint8_t, 4096> received_{};  // the line discipline keeps no more
};

}  // namespace zendor
