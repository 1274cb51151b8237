#include "platform/win32/win32_console.h"

#include <windows.h>

#include <iostream>

#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

bool isConsole(HANDLE stream) {
  DWORD mode = 0;
  return GetConsoleMode(stream, &mode) != 0;
}

}  // namespace

ReadableErrors::ReadableErrors() : former_(std::cerr.rdbuf()) {
  if (isConsole(GetStdHandle(STD_ERROR_HANDLE))) std::cerr.rdbuf(this);
}

ReadableErrors::~ReadableErrors() { std::cerr.rdbuf(former_); }

ReadableErrors::int_type ReadableErrors::overflow(int_type character) {
  const char single = traits_type::to_char_type(character);
  xsputn(&single, 1);
  return traits_type::not_eof(character);
}

// Every text comes whole, because std::cerr keeps nothing back.
std::streamsize ReadableErrors::xsputn(const char* text, std::streamsize size) {
  const std::wstring wide = wideFromUtf8({text, static_cast<std::size_t>(size)});
  DWORD written = 0;
  WriteConsoleW(GetStdHandle(STD_ERROR_HANDLE), wide.data(), static_cast<DWORD>(wide.size()),
                &written, nullptr);
  return size;
}

}  // namespace zendor
