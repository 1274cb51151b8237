#include "platform/win32/win32_serial_port.h"

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

// Reads give what waits and return at once; a write ends even if the driver never takes the bytes.
COMMTIMEOUTS timeouts() {
  COMMTIMEOUTS result{};
  result.ReadIntervalTimeout = MAXDWORD;
  result.WriteTotalTimeoutConstant = kWriteTimeoutMs;
  return result;
}

// Zeroes on a line that is gone.
COMSTAT queuesOf(HANDLE device) {
  COMSTAT queues{};
  DWORD errors = 0;
  if (!ClearCommError(device, &errors, &queues)) return {};
  return queues;
}

}  // namespace

bool Win32SerialPort::isOpen() const { return device_ != nullptr; }

void Win32SerialPort::open() {
  const std::wstring path = LR"(\\.\)" + wideFromUtf8(deviceName());
  constexpr DWORD kNotShared = 0;
  const HANDLE handle = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, kNotShared, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
  if (handle == INVALID_HANDLE_VALUE) failToOpen(GetLastError());
  Device device(handle);
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

// A close of an open device cannot fail, not even when the adapter has been pulled out.
void Win32SerialPort::close() { device_.reset(); }

std::size_t Win32SerialPort::bytesWaiting() { return queuesOf(device_.get()).cbInQue; }

std::span<const std::uint8_t> Win32SerialPort::readAll() {
  received_.resize(bytesWaiting());
  DWORD count = 0;
  const BOOL isRead = ReadFile(device_.get(), received_.data(),
                               static_cast<DWORD>(received_.size()), &count, nullptr);
  received_.resize(isRead ? count : 0);
  return received_;
}

void Win32SerialPort::discardWaiting() { PurgeComm(device_.get(), PURGE_RXCLEAR); }

std::size_t Win32SerialPort::bytesToSend() { return queuesOf(device_.get()).cbOutQue; }

// Windows returns when the driver has done with the bytes, after kWriteTimeoutMs at the latest.
void Win32SerialPort::write(std::span<const std::uint8_t> bytes) {
  DWORD count = 0;
  if (!WriteFile(device_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr)) {
    fail(GetLastError(), kAdviceOnWrite);
  }
  if (count < bytes.size()) fail(ERROR_TIMEOUT, kAdviceOnWrite);
}

std::string Win32SerialPort::deviceName() const {
  return "COM" + std::to_string(configuration.portNumber);
}

void Win32SerialPort::failToOpen(DWORD error) const {
  fail(error, adviceOnOpen(error, deviceName()));
}

void Win32SerialPort::fail(DWORD error, const std::string& advice) const {
  throw PortError{static_cast<std::int32_t>(error),
                  deviceName() + ": " + systemText(error) + advice};
}

}  // namespace zendor
