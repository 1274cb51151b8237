// Messages as lines of text, for a program without a window.
#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "platform/desktop.h"

namespace zendor {

class ConsoleDesktop final : public Desktop {
 public:
  // The messages go to the stream and begin with the name of the command. Where a title has the
  // port under one name, the message has it under the name that the user has asked for. The given
  // function is called before each message, so that whoever writes to the same stream can finish a
  // line there first.
  ConsoleDesktop(std::ostream& messages, std::string command, std::string portInTitles,
                 std::string askedPort, std::function<void()> beforeMessage);

  // The command, the port, the title and the text, with ": " between them; the port only once.
  // Nobody is asked: the answer is Ok, or No where the choice is Yes or No.
  MessageAnswer showMessage(const Message& message) override;

  void processEvents() override;

 private:
  // The exit status is that of a failure, because what was asked for has not been done.
  void endProcess() override;

  std::ostream& messages_;
  const std::string command_;
  const std::string portInTitles_;
  const std::string askedPort_;
  std::function<void()> beforeMessage_;
};

}  // namespace zendor
