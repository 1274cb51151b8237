#include "protocol/frame.h"

#include <algorithm>
#include <numeric>

#include "common/conversions.h"

namespace zendor {

namespace {

constexpr std::size_t kBytesAroundItems = 4;  // all of a frame but its header and data

// The last byte of TxBuffer is left out, because the checksum itself belongs there.
std::uint8_t LL_DRAVO_Checksum(const FrameStores& stores) {
  return checksumOf(std::span(stores.TxBuffer).first(stores.TxLength - 1));
}

}  // namespace

std::uint8_t checksumOf(std::span<const std::uint8_t> bytes) {
  return static_cast<std::uint8_t>(256U - std::accumulate(bytes.begin(), bytes.end(), 0U) % 256U);
}

std::string buildRequestFrame(FrameStores& stores, std::span<const std::uint8_t> items,
                              int destination, int source) {
  if (!fitsByte(destination)) return "The destination address does not fit in one byte";
  if (!fitsByte(source)) return "The source address does not fit in one byte";
  if (items.size() > 1 + kMaximumDataLength) return "The request has more than 255 data bytes";

  stores.TxLength = items.size() + kBytesAroundItems;
  stores.TxBuffer.assign(stores.TxLength, 0);
  stores.TxBuffer[0] = static_cast<std::uint8_t>(destination);
  stores.TxBuffer[1] = static_cast<std::uint8_t>(items.size() - 1);
  stores.TxBuffer[2] = static_cast<std::uint8_t>(source);
  std::ranges::copy(items, stores.TxBuffer.begin() + kHeaderOffset);
  stores.TxBuffer[stores.TxLength - 1] = LL_DRAVO_Checksum(stores);
  return {};
}

}  // namespace zendor
