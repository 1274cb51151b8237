#include "platform/win32/win32_keys.h"

#include <iterator>

namespace zendor {

HACCEL createKeys() {
  ACCEL keys[] = {{FVIRTKEY | FCONTROL, 'C', kCopy}, {FVIRTKEY | FCONTROL, VK_INSERT, kCopy}};
  return CreateAcceleratorTableW(keys, std::size(keys));
}

bool isRepeatOfReturn(const MSG& message) {
  return message.message == WM_KEYDOWN && message.wParam == VK_RETURN &&
         (HIWORD(message.lParam) & KF_REPEAT) != 0;
}

}  // namespace zendor
