// Prints the text of every live region that a program announces, as a screen reader would speak it,
// until somebody ends this listener. Its first line says that it listens.
#include <windows.h>

#include <iostream>
#include <string>

#include "platform/win32/win32_text.h"

namespace {

void CALLBACK speak(HWINEVENTHOOK, DWORD, HWND window, LONG, LONG, DWORD, DWORD) {
  wchar_t text[256];
  const LRESULT length =
      SendMessageW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
  std::cout << zendor::utf8FromWide({text, static_cast<std::size_t>(length)}) << std::endl;
}

}  // namespace

int main() {
  SetWinEventHook(EVENT_OBJECT_LIVEREGIONCHANGED, EVENT_OBJECT_LIVEREGIONCHANGED, nullptr, &speak,
                  0, 0, WINEVENT_OUTOFCONTEXT);
  std::cout << "listening" << std::endl;
  for (MSG message{}; GetMessageW(&message, nullptr, 0, 0) > 0;) DispatchMessageW(&message);
}
