#include "platform/win32/win32_calls.h"

#include <utility>

namespace zendor {

namespace {

constexpr UINT kWake = WM_APP;
constexpr DWORD kWakeAgainMs = 1000;

// An Escape ends the loop that Windows runs for a move, even while that loop still waits for the
// first move after a press on the title bar. The window itself does nothing on Escape. The form's
// own loop needs the Escape, too. GetMessage does not return for a message that is sent, such as
// the one that wakes. It returns for the posted Escape, and the loop then runs the modal function.
void endModes(HWND window) {
  SendMessageW(window, WM_CANCELMODE, 0, 0);
  EndMenu();
  PostMessageW(window, WM_KEYDOWN, VK_ESCAPE, 0);
}

}  // namespace

WindowCalls::WindowCalls(HWND window)
    : window_(window), done_(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}

void WindowCalls::call(Function function) {
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back(std::move(function));
  }
  wake();
}

void WindowCalls::callAndWait(const Function& function) {
  call([&] {
    function();
    SetEvent(done_.get());
  });
  waitUntilDone();
}

void WindowCalls::callModal(const Function& function) {
  call([&] { modal_ = &function; });
  waitUntilDone();
}

bool WindowCalls::runWaiting(UINT message) {
  if (message != kWake) return false;
  while (const Function function = takeFirst()) function();
  if (modal_ != nullptr) endModes(window_);
  return true;
}

void WindowCalls::runModal() {
  if (modal_ == nullptr) return;
  (*std::exchange(modal_, nullptr))();
  SetEvent(done_.get());
}

// Empty when none waits.
WindowCalls::Function WindowCalls::takeFirst() {
  const std::lock_guard lock(mutex_);
  if (waiting_.empty()) return {};
  Function first = std::move(waiting_.front());
  waiting_.pop_front();
  return first;
}

// A message that is sent reaches the window in every loop that its thread runs, also in a loop that
// Windows runs for a menu or a move.
void WindowCalls::wake() const { SendNotifyMessageW(window_, kWake, 0, 0); }

// Wakes again and again, in case a message was lost.
void WindowCalls::waitUntilDone() {
  while (WaitForSingleObject(done_.get(), kWakeAgainMs) == WAIT_TIMEOUT) wake();
}

}  // namespace zendor
