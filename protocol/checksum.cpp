#include "protocol/checksum.h"

#include <numeric>

namespace zendor {

std::uint8_t checksumOf(std::span<const std::uint8_t> bytes) {
  return static_cast<std::uint8_t>(256U - std::accumulate(bytes.begin(), bytes.end(), 0U) % 256U);
}

std::uint8_t LL_DRAVO_Checksum(const FrameStores& stores) {
  return checksumOf(std::span(stores.TxBuffer).first(stores.TxLength - 1));
}

}  // namespace zendor
