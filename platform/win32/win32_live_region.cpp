#include "platform/win32/win32_live_region.h"

#include "platform/win32/win32_accessibility.h"

namespace zendor {

namespace {

// LiveSetting_Property_GUID and the live setting "assertive" of Windows' UI Automation. The headers
// of the compiler lack both. Assertive texts are spoken at once.
constexpr GUID kLiveSettingProperty{
    0xC12BCD8E, 0x2A8E, 0x4950, {0x8A, 0xE7, 0x36, 0x25, 0x11, 0x1D, 0x58, 0xEB}};
constexpr LONG kAssertive = 2;

}  // namespace

void makeLiveRegion(HWND window) {
  VARIANT setting{};
  setting.vt = VT_I4;
  setting.lVal = kAssertive;
  if (const auto services = propertyServices()) {
    services->SetHwndProp(window, kClient, CHILDID_SELF, kLiveSettingProperty, setting);
  }
}

// A screen reader speaks the name of a live region. Without a name of its own, an edit control has
// that of the label before it.
void nameLiveRegion(HWND window, const std::wstring& text) {
  const auto services = propertyServices();
  if (!services) return;
  if (text.empty()) {
    services->ClearHwndProps(window, kClient, CHILDID_SELF, &PROPID_ACC_NAME, 1);
  } else {
    services->SetHwndPropStr(window, kClient, CHILDID_SELF, PROPID_ACC_NAME, text.c_str());
  }
}

void announceLiveRegion(HWND window) {
  NotifyWinEvent(EVENT_OBJECT_LIVEREGIONCHANGED, window, OBJID_CLIENT, CHILDID_SELF);
}

}  // namespace zendor
