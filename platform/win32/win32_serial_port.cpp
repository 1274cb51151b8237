#include "platform/win32/win32_serial_port.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "platform/shared/line_settings.h"
#include "platform/win32/win32_line_setup.h"
#include "platform/win32/win32_port_errors.h"
#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

constexpr ULONGLONG kReadLimitMs = 50;
constexpr DWORD kWriteMarginMs = 200;  // in which a driver ends a write that has timed out

// Nothing when the line is gone.
std::optional<COMSTAT> queuesOf(HANDLE device) {
  COMSTAT queues{};
  DWORD errors = 0;
  if (!ClearCommError(device, &errors, &queues)) return {};
  return queues;
}

// Waits for the end of the read, but hardly longer than kReadLimitMs.
bool endsInTime(const OVERLAPPED& read) {
  const ULONGLONG start = GetTickCount64();
  while (!HasOverlappedIoCompleted(&read)) {
    if (GetTickCount64() - start > kReadLimitMs) return false;
    SwitchToThread();
  }
  return true;
}

}  // namespace

Win32SerialPort::Win32SerialPort(NameOfPort nameOfPort) : nameOfPort_(std::move(nameOfPort)) {}

Win32SerialPort::~Win32SerialPort() { close(); }

bool Win32SerialPort::isOpen() const { return device_ != nullptr; }

void Win32SerialPort::open() {
  const std::string name = deviceName();
  const std::wstring path = LR"(\\.\)" + wideFromUtf8(name);
  constexpr DWORD kNotShared = 0;
  const HANDLE handle = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, kNotShared, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
  if (handle == INVALID_HANDLE_VALUE) throw refusedOpen(name, GetLastError());
  Handle device(handle);
  setUpLine(handle, name, baudRateOfSettings(configuration.settings, ERROR_INVALID_PARAMETER));
  device_ = std::move(device);
}

// The close of a device cannot fail, not even when the adapter has been pulled out. A write that is
// under way is not waited for.
void Win32SerialPort::close() {
  cancelWrites();
  failure_ = ERROR_SUCCESS;
  device_.reset();
}

void Win32SerialPort::cancelWrites() {
  for (auto& write : writes_) {
    CancelIoEx(device_.get(), &write->state);
    leaveToDriver(std::move(write));
  }
  writes_.clear();
}

// The memory of a transfer that has not ended is never freed.
void Win32SerialPort::leaveToDriver(std::unique_ptr<Transfer> transfer) {
  if (!HasOverlappedIoCompleted(&transfer->state)) static_cast<void>(transfer.release());
}

// A faulty driver may report more bytes than the queue can hold.
std::size_t Win32SerialPort::bytesWaiting() {
  return std::min(queuesOf(device_.get()).value_or(COMSTAT{}).cbInQue, kQueueSize);
}

// Because of the time-outs a driver answers at once, though it may do so after ReadFile has
// returned. But a driver can leave the read pending when the bytes that it counted are gone, so a
// read that takes too long is cancelled. The bytes read until then are given all the same.
std::span<const std::uint8_t> Win32SerialPort::readAll() {
  received_.clear();
  auto read = std::make_unique<Transfer>();
  read->bytes.resize(bytesWaiting());
  if (!ReadFile(device_.get(), read->bytes.data(), static_cast<DWORD>(read->bytes.size()), nullptr,
                &read->state) &&
      GetLastError() != ERROR_IO_PENDING) {
    return received_;
  }
  if (!endsInTime(read->state)) CancelIoEx(device_.get(), &read->state);
  if (!endsInTime(read->state)) {
    leaveToDriver(std::move(read));
    return received_;
  }
  DWORD count = 0;
  GetOverlappedResult(device_.get(), &read->state, &count, FALSE);
  received_.swap(read->bytes);
  received_.resize(count);
  return received_;
}

void Win32SerialPort::discardWaiting() { PurgeComm(device_.get(), PURGE_RXCLEAR); }

// cbOutQue may leave out the bytes of a write that is still pending, so those are counted too. A
// driver that keeps bytes for ever must not keep the program waiting for ever.
std::size_t Win32SerialPort::bytesToSend() {
  const auto queues = queuesOf(device_.get());
  if (!queues) return 0;
  std::size_t underWay = 0;
  for (const auto& write : writes_) {
    if (!HasOverlappedIoCompleted(&write->state)) underWay += write->bytes.size();
  }
  const std::size_t left = std::max<std::size_t>(queues->cbOutQue, underWay);
  const bool isOverdue = GetTickCount64() - lastWrite_ > kWriteTimeoutMs + kWriteMarginMs;
  if (left == 0 || !isOverdue) return left;
  giveUpWrites();
  return 0;
}

// What has not left by now would come amid a later frame, so it is dropped.
void Win32SerialPort::giveUpWrites() {
  const DWORD earlier = settleWrites();
  failure_ = earlier != ERROR_SUCCESS ? earlier : ERROR_TIMEOUT;
  cancelWrites();
  PurgeComm(device_.get(), PURGE_TXCLEAR);
}

// Windows returns at once. A write that fails later is reported by the next write. That next write
// hands over its own bytes all the same.
void Win32SerialPort::write(std::span<const std::uint8_t> bytes) {
  const DWORD earlier = settleWrites();
  lastWrite_ = GetTickCount64();
  Transfer& write = *writes_.emplace_back(std::make_unique<Transfer>());
  write.bytes.assign(bytes.begin(), bytes.end());
  if (!WriteFile(device_.get(), write.bytes.data(), static_cast<DWORD>(write.bytes.size()), nullptr,
                 &write.state) &&
      GetLastError() != ERROR_IO_PENDING) {
    const DWORD error = GetLastError();
    writes_.pop_back();
    throw refusedWrite(deviceName(), error);
  }
  const DWORD outcome = earlier != ERROR_SUCCESS ? earlier : settleWrites();
  if (outcome != ERROR_SUCCESS) throw refusedWrite(deviceName(), outcome);
}

// Forgets the writes that have ended. Returns the error of the first one that has failed or was
// given up.
DWORD Win32SerialPort::settleWrites() {
  DWORD first = std::exchange(failure_, DWORD{ERROR_SUCCESS});
  std::erase_if(writes_, [&](const auto& write) {
    if (!HasOverlappedIoCompleted(&write->state)) return false;
    const DWORD outcome = outcomeOf(*write);
    if (first == ERROR_SUCCESS) first = outcome;
    return true;
  });
  return first;
}

DWORD Win32SerialPort::outcomeOf(Transfer& write) const {
  DWORD count = 0;
  if (!GetOverlappedResult(device_.get(), &write.state, &count, FALSE)) return GetLastError();
  return count < write.bytes.size() ? ERROR_TIMEOUT : ERROR_SUCCESS;
}

std::string Win32SerialPort::deviceName() const { return nameOfPort_(configuration.portNumber); }

}  // namespace zendor
