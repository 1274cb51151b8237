// Between the program's UTF-8 and the UTF-16 of Windows. Malformed input becomes U+FFFD.
#pragma once

#include <string>
#include <string_view>

namespace zendor {

std::wstring wideFromUtf8(std::string_view text);
std::string utf8FromWide(std::wstring_view text);

}  // namespace zendor
