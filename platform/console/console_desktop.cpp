#include "platform/console/console_desktop.h"

#include <cstdlib>
#include <string_view>
#include <thread>
#include <utility>

namespace zendor {

namespace {

std::string replaced(std::string text, std::string_view part, std::string_view by) {
  for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += by.size()) {
    text.replace(at, part.size(), by);
  }
  return text;
}

}  // namespace

ConsoleDesktop::ConsoleDesktop(std::ostream& messages, std::string command,
                               std::string portInTitles, std::string askedPort,
                               std::function<void()> beforeMessage)
    : messages_(messages),
      command_(std::move(command)),
      portInTitles_(std::move(portInTitles)),
      askedPort_(std::move(askedPort)),
      beforeMessage_(std::move(beforeMessage)) {}

MessageAnswer ConsoleDesktop::showMessage(const Message& message) {
  beforeMessage_();
  const std::string title = replaced(message.title, portInTitles_, askedPort_);
  messages_ << command_ << ": ";
  if (title.find(askedPort_) == std::string::npos) messages_ << askedPort_ << ": ";
  messages_ << title << ": " << replaced(message.text, kLineBreak, "\n") << std::endl;
  return message.buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::No;
}

void ConsoleDesktop::processEvents() { std::this_thread::yield(); }

// No destructor runs, so none can touch the port or the stores; the system frees both.
void ConsoleDesktop::endProcess() { std::_Exit(EXIT_FAILURE); }

}  // namespace zendor
