#include "platform/win32/win32_desktop.h"

#include <windows.h>

#include <cstdlib>

#include "platform/win32/win32_keys.h"
#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

UINT flagOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Critical:
      return MB_ICONERROR;
    case MessageIcon::Exclamation:
      return MB_ICONWARNING;
    case MessageIcon::None:
      break;
  }
  return 0;
}

}  // namespace

Win32Desktop::Win32Desktop(WindowCalls& calls) : calls_(calls) {}

MessageAnswer Win32Desktop::showMessage(const Message& message) {
  const bool isChoice = message.buttons == MessageButtons::YesNo;
  const UINT buttons = isChoice ? MB_YESNO : MB_OK;
  int answer = 0;
  calls_.callModal([&] {
    const NoHeldKeys filter;
    answer = MessageBoxW(calls_.window(), wideFromUtf8(message.text).c_str(),
                         wideFromUtf8(message.title).c_str(), buttons | flagOf(message.icon));
  });
  if (!isChoice) return MessageAnswer::Ok;
  return answer == IDYES ? MessageAnswer::Yes : MessageAnswer::No;
}

void Win32Desktop::processEvents() { SwitchToThread(); }

// An ordinary exit would have the libraries clean up, under locks that the other thread may hold.
void Win32Desktop::endProcess() { TerminateProcess(GetCurrentProcess(), EXIT_SUCCESS); }

}  // namespace zendor
