// The message boxes of the Windows program, answered by another thread as by a user.
#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <thread>

#include "platform/win32/win32_desktop.h"
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

TEST(Win32Desktop, ShowsTextsBeyondTheCodePageAndReturnsTheUsersAnswer) {
  const std::tuple<MessageButtons, WPARAM, MessageAnswer> rows[] = {
      {MessageButtons::YesNo, IDYES, MessageAnswer::Yes},
      {MessageButtons::YesNo, IDNO, MessageAnswer::No},
      {MessageButtons::Ok, IDOK, MessageAnswer::Ok}};
  WindowCalls calls(
      CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr));
  Win32Desktop desktop(calls);
  for (const auto& [buttons, command, answer] : rows) {
    std::string shown;
    std::thread user([&, command = command] { shown = answerBox(command); });
    EXPECT_EQ(desktop.showMessage({kText, kTitle, MessageIcon::None, buttons}), answer);
    user.join();
    EXPECT_EQ(shown, kText);
  }
}

}  // namespace
}  // namespace zendor
