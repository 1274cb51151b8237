// What the program asks of the desktop besides its window. All texts are UTF-8. A platform shows
// them letter for letter, without markup, and CR LF as one line break.
#pragma once

#include <cstdlib>
#include <string>

namespace zendor {

inline constexpr const char* kLineBreak = "\r\n";

enum class MessageIcon { None, Critical, Exclamation };  // Exclamation is that of a warning
enum class MessageButtons { Ok, YesNo };
enum class MessageAnswer { Ok, Yes, No };

struct Message {
  std::string text;
  std::string title;
  MessageIcon icon = MessageIcon::None;
  MessageButtons buttons = MessageButtons::Ok;
};

class Desktop {
 public:
  Desktop() = default;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  virtual ~Desktop() = default;

  // Shows a box that is modal to the window and returns when the user has answered it. A box that
  // is dismissed otherwise answers Ok, or No where the choice is Yes or No.
  virtual MessageAnswer showMessage(const Message& message) = 0;

  // Handles the window events that are pending, unless the platform serves the window on a thread
  // of its own. Then yields the processor to any thread that is ready. Does not wait for events.
  virtual void processEvents() = 0;

  // Ends the process at once, with the exit status of the platform. Nothing of the program runs
  // afterwards.
  [[noreturn]] void endProgram() {
    endProcess();
    std::abort();  // not reached, but a virtual call does not tell the compiler so
  }

 private:
  virtual void endProcess() = 0;
};

}  // namespace zendor
