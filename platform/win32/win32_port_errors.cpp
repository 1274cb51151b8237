#include "platform/win32/win32_port_errors.h"

#include <iterator>

#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

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

std::string adviceOnOpen(const std::string& device, DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
      return " Plug in the adapter, or give it the number " + device + " in the Device Manager.";
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
      return " Most likely another program is using " + device + ": close that program.";
    case ERROR_SEM_TIMEOUT:
      return " If " + device + " is a Bluetooth port, switch its device on and bring it near.";
    case ERROR_INVALID_FUNCTION:
      return " It is not a serial port, or its adapter has been pulled out.";
    default:
      return {};
  }
}

PortError refusal(const std::string& device, DWORD error, const std::string& advice) {
  return {static_cast<std::int32_t>(error), device + ": " + systemText(error) + advice};
}

}  // namespace

PortError refusedOpen(const std::string& device, DWORD error) {
  return refusal(device, error, adviceOnOpen(device, error));
}

// Drivers differ in the error of a device that has been pulled out, so the advice is always given.
PortError refusedWrite(const std::string& device, DWORD error) {
  return refusal(device, error, " If its adapter has been pulled out, plug it in again.");
}

}  // namespace zendor
