// Pointers and handles in messages, which carry them as numbers.
#pragma once

#include <windows.h>

#include <optional>

namespace zendor {

template <typename Pointer, typename Parameter>
Pointer pointerIn(Parameter parameter) {
  return reinterpret_cast<Pointer>(parameter);  // NOLINT(performance-no-int-to-ptr)
}

// What a message of Windows points to; none when there is nothing. When another program sends such
// a message, Windows copies what it points to into this program, but Wine hands on any number.
template <typename Value>
std::optional<Value> valueAt(LPARAM address) {
  Value value{};
  const bool isThere = ReadProcessMemory(GetCurrentProcess(), pointerIn<const void*>(address),
                                         &value, sizeof value, nullptr) != FALSE;
  return isThere ? std::optional(value) : std::nullopt;
}

}  // namespace zendor
