// A serial line between this process and whoever opens its path: what one side writes the other
// reads, unchanged. Throws std::system_error when the system gives none.
//
// As on a real port, bytes that come while nobody has the path open are lost, and who opens it
// finds it empty.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/file_descriptor.h"

namespace zendor::simulator {

class PseudoTerminal {
 public:
  PseudoTerminal();

  const std::string& path() const { return path_; }

  // Sleeps until the other side has done something, the time has come or wake() was called. All
  // that waits has to be read before the next call.
  void wait(std::optional<std::chrono::steady_clock::time_point> until);

  // From any thread, for good: no wait() sleeps any more.
  void wake();

  // All bytes that wait.
  std::vector<std::uint8_t> read();

  // What the other side's full queue does not take is lost.
  void write(const std::vector<std::uint8_t>& bytes);

 private:
  bool isHeard() const;

  FileDescriptor master_;
  FileDescriptor timer_;
  FileDescriptor waker_;
  FileDescriptor events_;
  std::string path_;
  bool isSoiled_ = false;  // there may be unread bytes on the other side
};

}  // namespace zendor::simulator
