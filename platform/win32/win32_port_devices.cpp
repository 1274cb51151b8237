#include "platform/win32/win32_port_devices.h"

#include <windows.h>
// These need windows.h before them.
#include <devguid.h>
#include <setupapi.h>

#include <memory>

#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

struct CloseDevices {
  void operator()(HDEVINFO devices) const { SetupDiDestroyDeviceInfoList(devices); }
};
using Devices = std::unique_ptr<void, CloseDevices>;

// The name of the port that the device is, "COM1"; empty when it is no serial port.
std::wstring portNameOf(const Devices& devices, SP_DEVINFO_DATA& device) {
  HKEY key = SetupDiOpenDevRegKey(devices.get(), &device, DICS_FLAG_GLOBAL, 0, DIREG_DEV, KEY_READ);
  if (key == INVALID_HANDLE_VALUE) return {};
  wchar_t name[MAX_PATH] = L"";
  DWORD size = sizeof name;
  RegGetValueW(key, nullptr, L"PortName", RRF_RT_REG_SZ, nullptr, name, &size);
  RegCloseKey(key);
  return name;
}

// The name that Windows has for the device behind the port; empty when there is none.
std::string productOf(const std::wstring& portName) {
  const Devices devices(
      SetupDiGetClassDevsW(&GUID_DEVCLASS_PORTS, nullptr, nullptr, DIGCF_PRESENT));
  SP_DEVINFO_DATA device{};
  device.cbSize = sizeof device;
  for (DWORD index = 0; SetupDiEnumDeviceInfo(devices.get(), index, &device); ++index) {
    if (portNameOf(devices, device) != portName) continue;
    wchar_t product[MAX_PATH] = L"";
    SetupDiGetDeviceRegistryPropertyW(devices.get(), &device, SPDRP_DEVICEDESC, nullptr,
                                      reinterpret_cast<BYTE*>(product),
                                      sizeof product - sizeof *product, nullptr);
    return utf8FromWide(product);
  }
  return {};
}

}  // namespace

std::string comPortOf(int portNumber) { return "COM" + std::to_string(portNumber); }

std::string describePort(int portNumber) {
  const std::string name = comPortOf(portNumber);
  const std::wstring wideName = wideFromUtf8(name);
  wchar_t device[MAX_PATH];
  if (QueryDosDeviceW(wideName.c_str(), device, MAX_PATH) == 0 &&
      GetLastError() == ERROR_FILE_NOT_FOUND) {
    return "no such port on this computer";
  }
  const std::string product = productOf(wideName);
  return product.empty() ? name : name + ", " + product;
}

}  // namespace zendor
