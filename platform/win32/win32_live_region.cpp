#include "platform/win32/win32_live_region.h"

#include <oleacc.h>

// The library of the compiler knows the service by this name, its header by another one.
extern "C" const CLSID CLSID_AccPropServices;

namespace zendor {

namespace {

// LiveSetting_Property_GUID and the live setting "assertive" of Windows' UI Automation, which the
// headers of the compiler lack. Assertive texts are spoken at once.
constexpr GUID kLiveSettingProperty{
    0xC12BCD8E, 0x2A8E, 0x4950, {0x8A, 0xE7, 0x36, 0x25, 0x11, 0x1D, 0x58, 0xEB}};
constexpr LONG kAssertive = 2;

}  // namespace

void makeLiveRegion(HWND window) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  IAccPropServices* services = nullptr;
  if (CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                       reinterpret_cast<void**>(&services)) != S_OK) {
    return;
  }
  VARIANT setting{};
  setting.vt = VT_I4;
  setting.lVal = kAssertive;
  services->SetHwndProp(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                        kLiveSettingProperty, setting);
  services->Release();
}

void announceLiveRegion(HWND window) {
  NotifyWinEvent(EVENT_OBJECT_LIVEREGIONCHANGED, window, OBJID_CLIENT, CHILDID_SELF);
}

}  // namespace zendor
