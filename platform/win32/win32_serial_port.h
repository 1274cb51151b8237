// The serial ports that Windows names COM1, COM2 and so on, through its communications functions.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>
#include <vector>

#include "platform/serial_port.h"

namespace zendor {

class Win32SerialPort final : public SerialPort {
 public:
  bool isOpen() const override;
  void open() override;
  void close() override;
  std::size_t bytesWaiting() override;
  std::span<const std::uint8_t> readAll() override;
  void discardWaiting() override;
  std::size_t bytesToSend() override;
  void write(std::span<const std::uint8_t> bytes) override;

 private:
  struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
  };
  using Device = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;

  std::string deviceName() const;
  void configure(HANDLE device) const;
  [[noreturn]] void failToOpen(DWORD error) const;
  [[noreturn]] void fail(DWORD error, const std::string& advice) const;

  Device device_;  // none while closed
  std::vector<std::uint8_t> received_;
};

}  // namespace zendor
