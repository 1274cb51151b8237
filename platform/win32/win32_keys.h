// The keys that a form obeys wherever the keyboard focus is, and keys that are held down.
#pragma once

#include <windows.h>

namespace zendor {

// The parameter of the WM_COMMAND by which Ctrl+C and Ctrl+Insert ask for a copy of the result.
inline constexpr WPARAM kCopyByKey = MAKEWPARAM(1, 1);  // command 1, by a key

// The table of these keys, which exists as long as the program.
HACCEL createKeys();

// Whether the message is another press of a Return key that is held down.
bool isRepeatOfReturn(const MSG& message);

// While this object exists, no message box of its thread hears the repeats of a key that is held
// down. So a box is answered only by a key that is pressed after the box has come.
class NoHeldKeys {
 public:
  NoHeldKeys();
  NoHeldKeys(const NoHeldKeys&) = delete;
  NoHeldKeys& operator=(const NoHeldKeys&) = delete;
  ~NoHeldKeys();

 private:
  const HHOOK filter_;
};

}  // namespace zendor
