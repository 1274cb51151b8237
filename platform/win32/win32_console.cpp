#include "platform/win32/win32_console.h"

#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

bool isConsole(HANDLE stream) {
  DWORD mode = 0;
  return GetConsoleMode(stream, &mode) != 0;
}

}  // namespace

ReadableOnConsole::ReadableOnConsole(std::ostream& stream, DWORD handleNumber)
    : stream_(stream), former_(stream.rdbuf()), console_(GetStdHandle(handleNumber)) {
  if (isConsole(console_)) stream_.rdbuf(this);
}

ReadableOnConsole::~ReadableOnConsole() { stream_.rdbuf(former_); }

ReadableOnConsole::int_type ReadableOnConsole::overflow(int_type character) {
  const char single = traits_type::to_char_type(character);
  return xsputn(&single, 1) == 1 ? traits_type::not_eof(character) : traits_type::eof();
}

// Every text comes whole, because there is no buffer before this.
std::streamsize ReadableOnConsole::xsputn(const char* text, std::streamsize size) {
  const std::wstring wide = wideFromUtf8({text, static_cast<std::size_t>(size)});
  DWORD written = 0;
  const BOOL done =
      WriteConsoleW(console_, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
  return done ? size : 0;
}

}  // namespace zendor
