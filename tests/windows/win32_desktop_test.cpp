// The calls into the window of the Windows program, the message boxes, which another thread answers
// as a user would, and the texts on a console.
#include <gtest/gtest.h>
#include <windows.h>
// This needs windows.h before it.
#include <commctrl.h>

#include <array>
#include <functional>
#include <iostream>
#include <thread>
#include <utility>

#include "platform/win32/win32_console.h"
#include "platform/win32/win32_desktop.h"
#include "platform/win32/win32_pointer.h"
#include "platform/win32/win32_text.h"

namespace zendor {
namespace {

const std::string kText = "\u00C4\u20AC \u2212 \u65E5";  // partly outside of the code page
const std::string kTitle = "dravo\u00AE \u0416";

constexpr int kTextOfBox = 0xFFFF;

// Waits for the box, gives it the command, and returns the text that it showed.
std::string answerBox(WPARAM command) {
  HWND box = nullptr;
  while ((box = FindWindowW(nullptr, wideFromUtf8(kTitle).c_str())) == nullptr) Sleep(10);
  std::array<wchar_t, 64> text{};
  GetDlgItemTextW(box, kTextOfBox, text.data(), static_cast<int>(text.size()));
  PostMessageW(box, WM_COMMAND, command, 0);
  return utf8FromWide(text.data());
}

bool losesNextMessage = false;

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                           DWORD_PTR calls) {
  if (message == WM_APP && std::exchange(losesNextMessage, false)) return 0;
  if (pointerIn<WindowCalls*>(calls)->runWaiting(message)) return 0;
  return DefSubclassProc(window, message, wParam, lParam);
}

// Runs the function on another thread. Its calls are served as by the form.
void serve(const std::function<void(WindowCalls&)>& function) {
  WindowCalls calls(
      CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr));
  SetWindowSubclass(calls.window(), &procedure, 0, reinterpret_cast<DWORD_PTR>(&calls));
  std::thread other([&, thread = GetCurrentThreadId()] {
    function(calls);
    PostThreadMessageW(thread, WM_QUIT, 0, 0);
  });
  for (MSG message{}; GetMessageW(&message, nullptr, 0, 0) > 0; calls.runModal()) {
    DispatchMessageW(&message);
  }
  other.join();
  DestroyWindow(calls.window());
}

TEST(WindowCalls, RunsACallWhoseMessageIsLost) {
  losesNextMessage = true;
  bool hasRun = false;
  serve([&](WindowCalls& calls) { calls.callAndWait([&] { hasRun = true; }); });
  EXPECT_TRUE(hasRun);
}

TEST(Win32Desktop, ShowsTextsBeyondTheCodePageAndReturnsTheUsersAnswer) {
  const std::tuple<MessageButtons, WPARAM, MessageAnswer> rows[] = {
      {MessageButtons::YesNo, IDYES, MessageAnswer::Yes},
      {MessageButtons::YesNo, IDNO, MessageAnswer::No},
      {MessageButtons::Ok, IDOK, MessageAnswer::Ok}};
  serve([&](WindowCalls& calls) {
    for (const auto& [buttons, command, answer] : rows) {
      std::string shown;
      std::thread user([&, command = command] { shown = answerBox(command); });
      const Message message{kText, kTitle, MessageIcon::None, buttons};
      EXPECT_EQ(Win32Desktop(calls).showMessage(message), answer);
      user.join();
      EXPECT_EQ(shown, kText);
    }
  });
}

TEST(Win32Console, ShowsTextsBeyondTheCodePageAndTellsThatItIsGone) {
  FreeConsole();
  AllocConsole();
  const HANDLE console = CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE,
                                     nullptr, OPEN_EXISTING, 0, nullptr);
  const HANDLE before = GetStdHandle(STD_OUTPUT_HANDLE);
  SetStdHandle(STD_OUTPUT_HANDLE, console);
  {
    const ReadableOnConsole output(std::cout, STD_OUTPUT_HANDLE);
    std::cout << kText << std::flush;
    std::array<wchar_t, 7> shown{};
    DWORD count = 0;
    ReadConsoleOutputCharacterW(console, shown.data(), shown.size() - 1, {}, &count);
    EXPECT_EQ(utf8FromWide(shown.data()), kText);
    CloseHandle(console);
    EXPECT_FALSE(std::cout << "lost");
    std::cout.clear();
  }
  SetStdHandle(STD_OUTPUT_HANDLE, before);
}

}  // namespace
}  // namespace zendor
