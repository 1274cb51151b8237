// Messages as lines of text, for a program without a window.
#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "platform/desktop.h"

namespace zendor {

class ConsoleDesktop final : public Desktop {
 public:
  // The messages go to the stream and begin with the name of the command. A title may name the port
  // as a window does (portInTitles). The message then names it as the user did (askedPort). The
  // given function is called before each message, so that another writer to the same stream can
  // finish a line there first.
  ConsoleDesktop(std::ostream& messages, std::string command, std::string portInTitles,
                 std::string askedPort, std::function<void()> beforeMessage);

  // The command, the port, the title and the text, with ": " between them; the port only once.
  // Nobody is asked: the answer is that of a box that is dismissed.
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
