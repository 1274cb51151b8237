// The serial ports that Windows names COM1, COM2 and so on, through its communications functions.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/serial_port.h"
#include "platform/win32/win32_handle.h"

namespace zendor {

class Win32SerialPort final : public SerialPort {
 public:
  // The name of a port, such as "COM1".
  using NameOfPort = std::function<std::string(int portNumber)>;

  explicit Win32SerialPort(NameOfPort nameOfPort);
  ~Win32SerialPort() override;

  bool isOpen() const override;
  void open() override;
  void close() override;
  std::size_t bytesWaiting() override;
  std::span<const std::uint8_t> readAll() override;
  void discardWaiting() override;
  std::size_t bytesToSend() override;
  void write(std::span<const std::uint8_t> bytes) override;

 private:
  // Bytes on their way to or from the driver. The driver uses both members until the transfer has
  // ended.
  struct Transfer {
    std::vector<std::uint8_t> bytes;
    OVERLAPPED state{};
  };

  static void leaveToDriver(std::unique_ptr<Transfer> transfer);
  void cancelWrites();
  void giveUpWrites();
  DWORD settleWrites();
  DWORD outcomeOf(Transfer& write) const;

  std::string deviceName() const;

  const NameOfPort nameOfPort_;
  Handle device_;                                  // none while the port is closed
  std::vector<std::unique_ptr<Transfer>> writes_;  // whose outcome nobody has asked for yet
  ULONGLONG lastWrite_ = 0;                        // when the last write was handed over
  DWORD failure_ = ERROR_SUCCESS;                  // of a write that was given up
  std::vector<std::uint8_t> received_;
};

}  // namespace zendor
