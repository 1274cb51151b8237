// An owned handle of the system.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace zendor {

struct HandleCloser {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;

}  // namespace zendor
