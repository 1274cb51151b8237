// Message boxes, the pending events and the end of the program, for one window.
#pragma once

#include "platform/desktop.h"
#include "platform/win32/win32_form.h"

namespace zendor {

class Win32Desktop final : public Desktop {
 public:
  explicit Win32Desktop(Win32Form& form);

  MessageAnswer showMessage(const Message& message) override;
  void processEvents() override;

 private:
  void endProcess() override;

  Win32Form& form_;
};

}  // namespace zendor
