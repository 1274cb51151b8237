// An open file of this process, closed when this object ends.
#pragma once

#include <unistd.h>

#include <utility>

namespace zendor {

class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int number) : number_(number) {}  // negative: none
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~FileDescriptor() {
    if (isOpen()) ::close(number_);
  }

  bool isOpen() const { return number_ >= 0; }
  int number() const { return number_; }

 private:
  int number_ = -1;
};

}  // namespace zendor
