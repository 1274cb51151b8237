// Calls from another thread into the thread of a window.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <mutex>

#include "platform/win32/win32_handle.h"

namespace zendor {

// One other thread calls, and its calls run in their order. They wait in a queue. The message that
// wakes the window's thread carries nothing, so that another program may send the same message at
// any time, and a call whose message is lost runs with the next one. Only the other thread may wait
// for a call: one at a time can wait, and the window's thread would wait for its own loop.
class WindowCalls {
 public:
  using Function = std::function<void()>;

  // Made on the window's thread.
  explicit WindowCalls(HWND window);

  HWND window() const { return window_; }

  // Has the function run at once, even while a menu is open or the user moves the window, and does
  // not wait for it. The window's thread may call this, too.
  void call(Function function);

  // Like call, but returns when the function has run.
  void callAndWait(const Function& function);

  // Like callAndWait, for a function that shows and serves a box of its own. An open menu is closed
  // first, and a move of the window is given up.
  void callModal(const Function& function);

  // For the window's procedure: runs the calls that wait if the message is the one that wakes, and
  // returns whether it is.
  bool runWaiting(UINT message);

  // Runs the function of callModal, if one waits. The message loop calls this after each message,
  // so that the function does not run within a loop that Windows runs for a menu or a move.
  void runModal();

 private:
  Function takeFirst();
  void wake() const;
  void waitUntilDone();

  const HWND window_;
  std::mutex mutex_;
  std::deque<Function> waiting_;     // guarded by the mutex
  const Function* modal_ = nullptr;  // used on the window's thread alone
  Handle done_;
};

}  // namespace zendor
