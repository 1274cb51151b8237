#include "platform/console/traced_serial_port.h"

#include <algorithm>
#include <iomanip>

namespace zendor {

namespace {

constexpr int kTimeWidth = 6;  // enough for a quarter of an hour

std::ostream& printBytes(std::ostream& stream, std::span<const std::uint8_t> bytes) {
  for (const unsigned byte : bytes) stream << ' ' << byte;
  return stream;
}

}  // namespace

TracedSerialPort::TracedSerialPort(SerialPort& port, const Clock& clock, std::ostream& trace)
    : port_(port), clock_(clock), trace_(trace), start_(clock.GetTickCount()) {}

void TracedSerialPort::finishLine() {
  if (received_.empty()) return;
  const std::span<const std::uint8_t> all(received_);
  const auto echo = all.first(std::min(echoDue_, all.size()));
  printBytes(trace_ << std::setw(kTimeWidth) << receivedAt_ << " <", echo);
  if (all.size() > echo.size()) printBytes(trace_ << " |", all.subspan(echo.size()));
  trace_ << std::endl;
  echoDue_ -= echo.size();
  received_.clear();
}

bool TracedSerialPort::isOpen() const { return port_.isOpen(); }

void TracedSerialPort::open() {
  port_.configuration = configuration;
  port_.open();
}

// What still waits is read, because a close discards it.
void TracedSerialPort::close() {
  readWaiting();
  finishLine();
  port_.close();
}

std::size_t TracedSerialPort::bytesWaiting() { return port_.bytesWaiting(); }

std::span<const std::uint8_t> TracedSerialPort::readAll() {
  const auto bytes = port_.readAll();
  received_.insert(received_.end(), bytes.begin(), bytes.end());
  if (!bytes.empty()) receivedAt_ = elapsed();
  return bytes;
}

// The bytes are read, so that a reply that came too late is written down.
void TracedSerialPort::discardWaiting() {
  readWaiting();
  port_.discardWaiting();
}

std::size_t TracedSerialPort::bytesToSend() { return port_.bytesToSend(); }

// The frame is written down and counted first, because a write may be refused after some of its
// bytes, or even all of them, have gone out.
void TracedSerialPort::write(std::span<const std::uint8_t> bytes) {
  finishLine();
  echoDue_ = bytes.size();
  printBytes(trace_ << std::setw(kTimeWidth) << elapsed() << " >", bytes) << std::endl;
  port_.write(bytes);
}

void TracedSerialPort::readWaiting() {
  if (port_.bytesWaiting() > 0) readAll();
}

// The difference is unsigned, so a wrap of the counter does no harm.
std::int64_t TracedSerialPort::elapsed() const {
  return static_cast<std::uint32_t>(clock_.GetTickCount()) - static_cast<std::uint32_t>(start_);
}

}  // namespace zendor
