#include "common/command_result.h"

#include <algorithm>

#include "common/byte_text.h"

namespace zendor {

namespace {

constexpr std::string_view kErrorPrefix = "Error : ";

}  // namespace

std::string errorResult(std::string_view reason) {
  return std::string(kErrorPrefix).append(reason);
}

bool Tool_IsErrorResult(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text.starts_with(kErrorPrefix);
}

std::string Tool_ValueAfterEquals(std::string_view text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) return std::string(text);
  const std::string_view rest = text.substr(equals + 1);
  return std::string(rest.substr(firstCharacters(rest, 1).size()));
}

bool Tool_GetResultValue(std::string& result) {
  const bool succeeded = !Tool_IsErrorResult(result);
  result = succeeded ? Tool_ValueAfterEquals(result) : "UNKNOWN";
  return succeeded;
}

}  // namespace zendor
