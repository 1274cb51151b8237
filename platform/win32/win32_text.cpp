#include "platform/win32/win32_text.h"

#include <windows.h>

namespace zendor {

std::wstring wideFromUtf8(std::string_view text) {
  const int size = static_cast<int>(text.size());
  const int wideSize = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(wideSize), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), wideSize);
  return wide;
}

std::string utf8FromWide(std::wstring_view text) {
  const int wideSize = static_cast<int>(text.size());
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), wideSize, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), wideSize, utf8.data(), size, nullptr, nullptr);
  return utf8;
}

}  // namespace zendor
