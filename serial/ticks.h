// Tick readings as plain milliseconds.
#pragma once

#include <cstdint>

namespace zendor {

// The unsigned value, 0 to 4294967295, of a tick count that was delivered as a signed number.
constexpr std::int64_t Tool_TicksToUnsigned(std::int32_t ticks) {
  return ticks < 0 ? ticks + (std::int64_t{1} << 32) : ticks;
}

// Milliseconds from one unsigned reading to a later one. The counter may have wrapped in between.
constexpr std::int64_t elapsedTicks(std::int64_t start, std::int64_t now) {
  return static_cast<std::uint32_t>(now - start);
}

}  // namespace zendor
