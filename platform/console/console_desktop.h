// Messages as lines of text, for a program without a window.
#pragma once

#include <functional>
#include <ostream>

#include "platform/desktop.h"

namespace zendor {

class ConsoleDesktop final : public Desktop {
 public:
  // The messages go to the stream. The given function is called before each message, so that
  // whoever writes to the same stream can finish a line there first.
  explicit ConsoleDesktop(
      std::ostream& messages, std::function<void()> beforeMessage = [] {});

  // The title, ": " and the text. Nobody is asked: the answer is Ok, or No where the choice is Yes
  // or No.
  MessageAnswer showMessage(const Message& message) override;

  void processEvents() override;

 private:
  // The exit status is that of a failure, because what was asked for has not been done.
  void endProcess() override;

  std::ostream& messages_;
  std::function<void()> beforeMessage_;
};

}  // namespace zendor
