#include "platform/shared/steady_clock.h"

#include <chrono>

namespace zendor {

std::int32_t SteadyClock::GetTickCount() const {
  const auto sinceEpoch = std::chrono::steady_clock::now().time_since_epoch();
  const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(sinceEpoch).count();
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(milliseconds));
}

}  // namespace zendor
