// Calls from another thread into the thread of a window.
#pragma once

#include <windows.h>

#include <functional>

#include "platform/win32/win32_handle.h"

namespace zendor {

// They are served in their order. The window's thread never waits for the other one.
class WindowCalls {
 public:
  using Function = std::function<void()>;

  // On the window's thread.
  explicit WindowCalls(HWND window);

  HWND window() const { return window_; }

  // Has the function run at once, under an open menu and while the user moves the window too, and
  // does not wait for it.
  void call(Function function) const;

  // The same for a function that shows a window and serves it: an open menu is closed and a move of
  // the window given up before. Returns when the function has run.
  void callModal(const Function& function);

  // For the window's procedure: false when the message is not such a call.
  bool serve(UINT message, LPARAM parameter);

 private:
  const HWND window_;
  const Function* modal_ = nullptr;  // the window's thread's
  Handle modalEnd_;
};

}  // namespace zendor
