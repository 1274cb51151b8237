// The tick counter of every platform that has the standard library.
#pragma once

#include "platform/clock.h"

namespace zendor {

class SteadyClock final : public Clock {
 public:
  std::int32_t GetTickCount() const override;
};

}  // namespace zendor
