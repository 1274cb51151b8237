// The serial port that the program asks a platform for: one object that is configured while it is
// closed and that carries bytes in both directions while it is open. Bytes are never translated.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace zendor {

// Why the platform refused to open, close or write. The number is the platform's own error code;
// the description is UTF-8, in the user's language, and says what a person can do about it.
struct PortError {
  std::int32_t number = 0;
  std::string description;
};

// The port control always writes the same values into the first six, so no platform needs to
// read them.
struct PortConfiguration {
  std::int16_t receiveThreshold = 0;  // no event handler is installed: no effect
  std::int16_t sendThreshold = 0;     // the same
  std::int32_t handshaking = 0;       // 0: neither RTS/CTS nor XON/XOFF
  bool discardNulBytes = false;
  std::int32_t inputMode = 0;    // 0: a read gives every byte as it came
  std::int16_t inputLength = 0;  // 0: a read gives all that waits
  std::int16_t portNumber = 0;   // 1 is the computer's first serial port
  std::string settings;          // baud rate, parity, data bits, stop bits: "9600,N,8,1"
};

class SerialPort {
 public:
  SerialPort() = default;
  SerialPort(const SerialPort&) = delete;
  SerialPort& operator=(const SerialPort&) = delete;
  virtual ~SerialPort() = default;

  // Written while the port is closed, and used by the next open.
  PortConfiguration configuration;

  virtual bool isOpen() const = 0;

  // Opens the configured port for this program alone. Throws PortError and stays closed when there
  // is no such port, another program holds it, this user may not use it, it is not a serial port,
  // or it does not accept the settings.
  virtual void open() = 0;

  // Throws PortError when the platform refuses. A line that is gone is closed all the same.
  virtual void close() = 0;

  // The operations below need an open port. On a line that is gone no bytes wait and none are to be
  // sent.
  virtual std::size_t bytesWaiting() = 0;

  // All bytes that wait, in the order of their arrival; they no longer wait afterwards. Never
  // blocks. The view holds until the next call.
  virtual std::span<const std::uint8_t> readAll() = 0;

  virtual void discardWaiting() = 0;

  // Bytes written that have not left for the line yet.
  virtual std::size_t bytesToSend() = 0;

  // Hands over all bytes in one write and waits no longer than the driver needs to accept
  // them. Throws PortError, also for an earlier write that has failed since.
  virtual void write(std::span<const std::uint8_t> bytes) = 0;
};

}  // namespace zendor
