// The result of a device command is a text: the command's display name, " = " and the reply text,
// or after a failure a text that begins with "Error : ".
#pragma once

#include <string>
#include <string_view>

namespace zendor {

std::string errorResult(std::string_view reason);

// Blanks in front of a failure do not count.
bool Tool_IsErrorResult(std::string_view text);

// What follows the first "=" and the one character after it; the whole text if it has no "=".
std::string Tool_ValueAfterEquals(std::string_view text);

// Replaces a command result by its value and says true, or a failure by "UNKNOWN" and says false.
bool Tool_GetResultValue(std::string& result);

}  // namespace zendor
