// Texts on the console that a Windows program was started from.
#pragma once

#include <windows.h>

#include <ostream>
#include <streambuf>
#include <string>

namespace zendor {

// As long as this lives, what goes to the stream as UTF-8 is readable on a console, whatever code
// page the console has. A stream that leads elsewhere, to a file for example, stays as it is.
class ReadableOnConsole final : public std::streambuf {
 public:
  // The stream is one of the standard streams and outlives this object. The number is that of its
  // handle, such as STD_ERROR_HANDLE.
  ReadableOnConsole(std::ostream& stream, DWORD handleNumber);
  ReadableOnConsole(const ReadableOnConsole&) = delete;
  ReadableOnConsole& operator=(const ReadableOnConsole&) = delete;
  ~ReadableOnConsole() override;

 protected:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;

 private:
  std::ostream& stream_;
  std::streambuf* const former_;
  const HANDLE console_;
};

}  // namespace zendor
