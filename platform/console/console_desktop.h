// Messages as lines of text, for a program without a window.
#pragma once

#include <functional>
#include <ostream>

#include "platform/desktop.h"

namespace zendor {

class ConsoleDesktop final : public Desktop {
 public:
  // The messages go to the stream. Before each message the given function is called, which can
  // finish what it is writing to the same stream.
  explicit ConsoleDesktop(
      std::ostream& messages, std::function<void()> beforeMessage = [] {});

  // The title, ": " and the text. Nobody is asked: the answer is Ok, or No where the choice is Yes
  // or No.
  MessageAnswer showMessage(const Message& message) override;

  void processEvents() override;

 private:
  // Without success, because the program had something else to do.
  void endProcess() override;

  std::ostream& messages_;
  std::function<void()> beforeMessage_;
};

}  // namespace zendor
