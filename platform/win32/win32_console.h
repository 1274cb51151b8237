// Messages for people on the console that a Windows program was started from.
#pragma once

#include <ostream>
#include <streambuf>
#include <string>

namespace zendor {

// As long as this lives, what goes to std::cerr as UTF-8 is readable on a console, whatever code
// page the console has. A stream that leads elsewhere, to a file for example, stays as it is.
class ReadableErrors final : public std::streambuf {
 public:
  ReadableErrors();
  ReadableErrors(const ReadableErrors&) = delete;
  ReadableErrors& operator=(const ReadableErrors&) = delete;
  ~ReadableErrors() override;

 protected:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;

 private:
  std::streambuf* const former_;
};

}  // namespace zendor
