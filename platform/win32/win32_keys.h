// The keys that a form obeys wherever the keyboard focus is.
#pragma once

#include <windows.h>

namespace zendor {

// The parameter of the WM_COMMAND by which Ctrl+C and Ctrl+Insert ask for a copy of the result.
inline constexpr WORD kCopy = 1;
inline constexpr WPARAM kCopyByKey = MAKEWPARAM(kCopy, 1);  // 1 says that a key asks

// The table of these keys, which exists as long as the program.
HACCEL createKeys();

// Whether the message is another press of a Return key that is held down.
bool isRepeatOfReturn(const MSG& message);

}  // namespace zendor
