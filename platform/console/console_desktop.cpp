#include "platform/console/console_desktop.h"

#include <cstdlib>
#include <string>
#include <thread>
#include <utility>

namespace zendor {

namespace {

std::string withPlainLineBreaks(std::string text) {
  for (std::size_t at = 0; (at = text.find(kLineBreak, at)) != std::string::npos; ++at) {
    text.replace(at, std::string_view(kLineBreak).size(), "\n");
  }
  return text;
}

}  // namespace

ConsoleDesktop::ConsoleDesktop(std::ostream& messages, std::function<void()> beforeMessage)
    : messages_(messages), beforeMessage_(std::move(beforeMessage)) {}

MessageAnswer ConsoleDesktop::showMessage(const Message& message) {
  beforeMessage_();
  messages_ << message.title << ": " << withPlainLineBreaks(message.text) << std::endl;
  return message.buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::No;
}

void ConsoleDesktop::processEvents() { std::this_thread::yield(); }

// No destructor runs, so that none can touch the port or the stores; the system frees both.
void ConsoleDesktop::endProcess() { std::_Exit(EXIT_FAILURE); }

}  // namespace zendor
