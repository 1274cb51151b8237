#include "platform/win32/win32_calls.h"

#include <memory>
#include <utility>

namespace zendor {

namespace {

constexpr UINT kCall = WM_APP;
constexpr UINT kModal = WM_APP + 1;

// For the thread of the window, in the midst of such a mode.
void endModes(HWND window) {
  SendMessageW(window, WM_CANCELMODE, 0, 0);
  EndMenu();
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  GetGUIThreadInfo(GetCurrentThreadId(), &thread);
  if (thread.flags & GUI_INMOVESIZE) PostMessageW(window, WM_KEYDOWN, VK_ESCAPE, 0);
}

}  // namespace

WindowCalls::WindowCalls(HWND window)
    : window_(window), modalEnd_(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}

// A thread takes what is sent to its windows in every loop that it runs, those of Windows included.
void WindowCalls::call(Function function) const {
  auto owned = std::make_unique<Function>(std::move(function));
  const auto parameter = reinterpret_cast<LPARAM>(owned.get());
  if (SendNotifyMessageW(window_, kCall, 0, parameter)) static_cast<void>(owned.release());
}

// Called within the loop of a menu, the function would hold that loop, and with it the menu on the
// screen. What is posted behind the end of the mode comes when its loop is over.
void WindowCalls::callModal(const Function& function) {
  if (GetWindowThreadProcessId(window_, nullptr) == GetCurrentThreadId()) {
    function();
    return;
  }
  call([&] {
    modal_ = &function;
    endModes(window_);
    PostMessageW(window_, kModal, 0, 0);
  });
  WaitForSingleObject(modalEnd_.get(), INFINITE);
}

bool WindowCalls::serve(UINT message, LPARAM parameter) {
  if (message == kCall) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    const std::unique_ptr<const Function> function(reinterpret_cast<const Function*>(parameter));
    (*function)();
    return true;
  }
  if (message != kModal || modal_ == nullptr) return false;
  (*std::exchange(modal_, nullptr))();
  SetEvent(modalEnd_.get());
  return true;
}

}  // namespace zendor
