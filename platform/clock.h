// The millisecond tick counter of a platform.
#pragma once

#include <cstdint>

namespace zendor {

class Clock {
 public:
  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  virtual ~Clock() = default;

  // An unsigned 32-bit count of milliseconds, delivered as a signed number. So it turns negative
  // after 24.9 days, and it wraps to 0 after 49.7 days.
  virtual std::int32_t GetTickCount() const = 0;
};

}  // namespace zendor
