// Prints "focus" each time the keyboard focus moves to a control, and "told" with the text of every
// live region that a program announces, as accessibility shows the text to other programs, until
// somebody ends this listener. The first line says that it listens. The text is the value of the
// region. The region's name cannot be heard under Wine, because Wine accepts no name for a window
// from a program.
#include <oleacc.h>
#include <windows.h>

#include <iostream>
#include <string>

#include "platform/win32/win32_text.h"

namespace {

std::string textOf(HWND window, LONG object, LONG child) {
  IAccessible* region = nullptr;
  VARIANT self{};
  BSTR text = nullptr;
  if (AccessibleObjectFromEvent(window, static_cast<DWORD>(object), static_cast<DWORD>(child),
                                &region, &self) == S_OK) {
    region->get_accValue(self, &text);
    region->Release();
  }
  std::string result = text != nullptr ? zendor::utf8FromWide(text) : "no text";
  SysFreeString(text);
  return result;
}

void CALLBACK speak(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD,
                    DWORD) {
  if (event == EVENT_OBJECT_LIVEREGIONCHANGED) {
    std::cout << "told ";  // at once, because other events come in while the text is asked for
    std::cout << textOf(window, object, child) << std::endl;
  } else if (event == EVENT_OBJECT_FOCUS && GetParent(window) != nullptr) {
    std::cout << "focus" << std::endl;
  }
}

}  // namespace

int main() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_LIVEREGIONCHANGED, nullptr, &speak, 0, 0,
                  WINEVENT_OUTOFCONTEXT);
  std::cout << "listening" << std::endl;
  for (MSG message{}; GetMessageW(&message, nullptr, 0, 0) > 0;) DispatchMessageW(&message);
}
