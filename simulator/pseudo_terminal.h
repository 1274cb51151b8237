// A serial line between this process and a program that opens its path. Each side reads, unchanged,
// what the other side writes. Throws std::system_error when the system gives no pseudo-terminal.
//
// As on a real port, what is written while no program has the path open is lost. So a program that
// opens the path finds no old bytes.
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
  // bytes that wait have to be read before the next call.
  void wait(std::optional<std::chrono::steady_clock::time_point> until);

  // From then on no wait() sleeps. May be called from any thread.
  void wake();

  // All bytes that wait.
  std::vector<std::uint8_t> read();

  // Bytes for which the queue of the other side has no room are lost.
  void write(const std::vector<std::uint8_t>& bytes);

 private:
  bool isOtherSideOpen() const;

  FileDescriptor master_;
  FileDescriptor timer_;
  FileDescriptor waker_;
  FileDescriptor events_;
  std::string path_;
  bool mayHoldUnread_ = false;  // whether bytes may wait unread on the other side
};

}  // namespace zendor::simulator
