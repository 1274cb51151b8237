#include "platform/win32/win32_serial_port.h"

#include <algorithm>
#include <optional>
#include <string>

#include "platform/shared/line_settings.h"
#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

constexpr DWORD kQueueSize = 4096;
constexpr DWORD kWriteTimeoutMs = 1000;  // a frame of the greatest length takes 270 at 9600 baud

// The system's own text, on one line.
std::string systemText(DWORD error) {
  wchar_t text[512];
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, error, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  std::string utf8 = utf8FromWide({text, length});
  utf8.erase(utf8.find_last_not_of(" \r\n") + 1);
  return utf8.empty() ? "Error " + std::to_string(error) + "." : utf8;
}

// What a person can do about a port that does not open, where the system's text leaves that open.
std::string adviceOnOpen(DWORD error, const std::string& name) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
      return " Plug in the adapter, or give it the number " + name + " in the Device Manager.";
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
      return " Most likely another program is using " + name + ": close that program.";
    case ERROR_INVALID_FUNCTION:
      return " It is not a serial port, or its adapter has been pulled out.";
    default:
      return {};
  }
}

// Drivers differ in the error of a device that has been removed.
constexpr const char* kAdviceOnWrite = " If its adapter has been pulled out, plug it in again.";

// 8 data bits without parity, no flow control; DTR and RTS stay on, since interfaces are often fed
// from them.
DCB lineOf(int baud) {
  DCB line{};
  line.DCBlength = sizeof line;
  line.BaudRate = static_cast<DWORD>(baud);
  line.fBinary = TRUE;
  line.fParity = FALSE;
  line.fOutxCtsFlow = FALSE;
  line.fOutxDsrFlow = FALSE;
  line.fDtrControl = DTR_CONTROL_ENABLE;
  line.fDsrSensitivity = FALSE;
  line.fTXContinueOnXoff = TRUE;
  line.fOutX = FALSE;
  line.fInX = FALSE;
  line.fErrorChar = FALSE;
  line.fNull = FALSE;
  line.fRtsControl = RTS_CONTROL_ENABLE;
  line.fAbortOnError = FALSE;
  line.ByteSize = 8;
  line.Parity = NOPARITY;
  line.StopBits = ONESTOPBIT;
  line.XonChar = 0x11;  // unused, but drivers refuse equal ones
  line.XoffChar = 0x13;
  return line;
}

// Reads give what waits and end at once; a write ends even if the driver never takes the bytes.
COMMTIMEOUTS timeouts() {
  COMMTIMEOUTS result{};
  result.ReadIntervalTimeout = MAXDWORD;
  result.WriteTotalTimeoutConstant = kWriteTimeoutMs;
  return result;
}

// None on a line that is gone.
std::optional<COMSTAT> queuesOf(HANDLE device) {
  COMSTAT queues{};
  DWORD errors = 0;
  if (!ClearCommError(device, &errors, &queues)) return {};
  return queues;
}

}  // namespace

Win32SerialPort::Win32SerialPort(NameOfPort nameOfPort) : nameOfPort_(std::move(nameOfPort)) {}

Win32SerialPort::~Win32SerialPort() { close(); }

bool Win32SerialPort::isOpen() const { return device_ != nullptr; }

void Win32SerialPort::open() {
  const std::wstring path = LR"(\\.\)" + wideFromUtf8(deviceName());
  constexpr DWORD kNotShared = 0;
  const HANDLE handle = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, kNotShared, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
  if (handle == INVALID_HANDLE_VALUE) failToOpen(GetLastError());
  Handle device(handle);
  configure(handle);
  device_ = std::move(device);
}

void Win32SerialPort::configure(HANDLE device) const {
  DCB line = lineOf(baudRateOfSettings(configuration.settings, ERROR_INVALID_PARAMETER));
  SetupComm(device, kQueueSize, kQueueSize);  // a driver that refuses keeps its own queues
  if (!SetCommState(device, &line)) failToOpen(GetLastError());
  COMMTIMEOUTS limits = timeouts();
  if (!SetCommTimeouts(device, &limits)) failToOpen(GetLastError());
}

// A close of an open device cannot fail, not even when the adapter has been pulled out. It waits
// for no write: one that the driver has not given up by then is left to it for good.
void Win32SerialPort::close() {
  for (const auto& write : writes_) CancelIoEx(device_.get(), &write->state);
  device_.reset();
  for (auto& write : writes_) {
    if (!HasOverlappedIoCompleted(&write->state)) static_cast<void>(write.release());
  }
  writes_.clear();
}

std::size_t Win32SerialPort::bytesWaiting() {
  return queuesOf(device_.get()).value_or(COMSTAT{}).cbInQue;
}

// The time-outs have the driver answer at once, if not within the call.
std::span<const std::uint8_t> Win32SerialPort::readAll() {
  received_.resize(bytesWaiting());
  OVERLAPPED state{};
  const bool isBegun = ReadFile(device_.get(), received_.data(),
                                static_cast<DWORD>(received_.size()), nullptr, &state) ||
                       GetLastError() == ERROR_IO_PENDING;
  while (isBegun && !HasOverlappedIoCompleted(&state)) SwitchToThread();
  DWORD count = 0;
  const bool isRead = isBegun && GetOverlappedResult(device_.get(), &state, &count, FALSE);
  received_.resize(isRead ? count : 0);
  return received_;
}

void Win32SerialPort::discardWaiting() { PurgeComm(device_.get(), PURGE_RXCLEAR); }

// A driver need not count in its queue what is under way to it.
std::size_t Win32SerialPort::bytesToSend() {
  const auto queues = queuesOf(device_.get());
  if (!queues) return 0;
  std::size_t underWay = 0;
  for (const auto& write : writes_) {
    if (!HasOverlappedIoCompleted(&write->state)) underWay += write->bytes.size();
  }
  return std::max<std::size_t>(queues->cbOutQue, underWay);
}

// Windows returns at once; a driver that keeps to its time-outs has done with the bytes after
// kWriteTimeoutMs at the latest. What it could not do shows in the next write, if not already in
// this one; the bytes of this one are handed over all the same.
void Win32SerialPort::write(std::span<const std::uint8_t> bytes) {
  const DWORD earlier = settleWrites();
  Write& write = *writes_.emplace_back(std::make_unique<Write>());
  write.bytes.assign(bytes.begin(), bytes.end());
  if (!WriteFile(device_.get(), write.bytes.data(), static_cast<DWORD>(write.bytes.size()), nullptr,
                 &write.state) &&
      GetLastError() != ERROR_IO_PENDING) {
    const DWORD error = GetLastError();
    writes_.pop_back();
    fail(error, kAdviceOnWrite);
  }
  const DWORD outcome = earlier != ERROR_SUCCESS ? earlier : settleWrites();
  if (outcome != ERROR_SUCCESS) fail(outcome, kAdviceOnWrite);
}

// Lets go of the writes that have ended; the error of the first that has failed.
DWORD Win32SerialPort::settleWrites() {
  DWORD first = ERROR_SUCCESS;
  std::erase_if(writes_, [&](const auto& write) {
    if (!HasOverlappedIoCompleted(&write->state)) return false;
    const DWORD outcome = outcomeOf(*write);
    if (first == ERROR_SUCCESS) first = outcome;
    return true;
  });
  return first;
}

DWORD Win32SerialPort::outcomeOf(Write& write) const {
  DWORD count = 0;
  if (!GetOverlappedResult(device_.get(), &write.state, &count, FALSE)) return GetLastError();
  return count < write.bytes.size() ? ERROR_TIMEOUT : ERROR_SUCCESS;
}

std::string Win32SerialPort::deviceName() const { return nameOfPort_(configuration.portNumber); }

void Win32SerialPort::failToOpen(DWORD error) const {
  fail(error, adviceOnOpen(error, deviceName()));
}

void Win32SerialPort::fail(DWORD error, const std::string& advice) const {
  throw PortError{static_cast<std::int32_t>(error),
                  deviceName() + ": " + systemText(error) + advice};
}

}  // namespace zendor
