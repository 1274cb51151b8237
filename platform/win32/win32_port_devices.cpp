#include "platform/win32/win32_port_devices.h"

#include <windows.h>

#include "platform/win32/win32_text.h"

namespace zendor {

std::string comPortOf(int portNumber) { return "COM" + std::to_string(portNumber); }

std::string describePort(int portNumber) {
  const std::string name = comPortOf(portNumber);
  wchar_t device[MAX_PATH];
  const DWORD length = QueryDosDeviceW(wideFromUtf8(name).c_str(), device, MAX_PATH);
  return length != 0 ? name : "no such port on this computer";
}

}  // namespace zendor
