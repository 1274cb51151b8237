#include "platform/win32/win32_keys.h"

#include <iterator>

#include "platform/win32/win32_pointer.h"

namespace zendor {

namespace {

bool isRepeat(const MSG& message) {
  const bool isPress = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
  return isPress && (HIWORD(message.lParam) & KF_REPEAT) != 0;
}

// Windows asks this about each message in the loop of a message box. "True" drops the message.
LRESULT CALLBACK dropRepeats(int code, WPARAM wParam, LPARAM lParam) {
  if (code == MSGF_DIALOGBOX && isRepeat(*pointerIn<const MSG*>(lParam))) return TRUE;
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

HACCEL createKeys() {
  constexpr WORD kCopy = LOWORD(kCopyByKey);
  ACCEL keys[] = {{FVIRTKEY | FCONTROL, 'C', kCopy}, {FVIRTKEY | FCONTROL, VK_INSERT, kCopy}};
  return CreateAcceleratorTableW(keys, std::size(keys));
}

bool isRepeatOfReturn(const MSG& message) {
  return isRepeat(message) && message.wParam == VK_RETURN;
}

NoHeldKeys::NoHeldKeys()
    : filter_(SetWindowsHookExW(WH_MSGFILTER, &dropRepeats, nullptr, GetCurrentThreadId())) {}

NoHeldKeys::~NoHeldKeys() { UnhookWindowsHookEx(filter_); }

}  // namespace zendor
