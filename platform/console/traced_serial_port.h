// A serial port that writes down what passes over another one, in decimal bytes:
//
//      0 > 80 0 1 254 177
//     11 < 80 0 1 254 177 | 1 0 80 0 175
//
// A line with ">" is one write. A line with "<" is everything that came in before the next write or
// the close, including bytes that the program discards unread. It begins with the echo of the
// write, because the line loops back, and a bar ends the echo. The number in front is the time in
// milliseconds since the trace began; at a "<" it is the time of the last byte.
#pragma once

#include <cstdint>
#include <ostream>
#include <vector>

#include "platform/clock.h"
#include "platform/serial_port.h"

namespace zendor {

class TracedSerialPort final : public SerialPort {
 public:
  // All three outlive this object. An open gives its configuration to the other port.
  TracedSerialPort(SerialPort& port, const Clock& clock, std::ostream& trace);

  // Writes down what has been read until now. Without this call the next write or the close does
  // it.
  void finishLine();

  bool isOpen() const override;
  void open() override;
  void close() override;
  std::size_t bytesWaiting() override;
  std::span<const std::uint8_t> readAll() override;
  void discardWaiting() override;
  std::size_t bytesToSend() override;
  void write(std::span<const std::uint8_t> bytes) override;

 private:
  void readWaiting();
  std::int64_t elapsed() const;

  SerialPort& port_;
  const Clock& clock_;
  std::ostream& trace_;
  const std::int32_t start_;
  std::size_t echoDue_ = 0;  // bytes of the last write that have not come back yet
  std::vector<std::uint8_t> received_;
  std::int64_t receivedAt_ = 0;
};

}  // namespace zendor
