// Message boxes, the pending events and the end of the program, for one window. A thread of its own
// serves that window, so there are no pending events to handle.
#pragma once

#include "platform/desktop.h"
#include "platform/win32/win32_calls.h"

namespace zendor {

class Win32Desktop final : public Desktop {
 public:
  explicit Win32Desktop(WindowCalls& calls);

  MessageAnswer showMessage(const Message& message) override;
  void processEvents() override;

 private:
  void endProcess() override;

  WindowCalls& calls_;
};

}  // namespace zendor
