#include "protocol/frame.h"

#include <algorithm>
#include <numeric>

#include "common/conversions.h"

namespace zendor {

std::string framingError(const ByteText& items, int destination, int source) {
  if (!fitsByte(destination)) return "The destination address does not fit in one byte";
  if (!fitsByte(source)) return "The source address does not fit in one byte";
  if (items.bytes.size() > 1 + kMaximumDataLength)
    return "The request has more than 255 data bytes";
  return {};
}

void buildRequestFrame(FrameStores& stores, const ByteText& items, int destination, int source) {
  const std::size_t dataLength = items.bytes.size() - 1;
  stores.TxLength = dataLength + kFrameOverhead;
  stores.TxBuffer.assign(stores.TxLength, 0);
  stores.TxBuffer[0] = static_cast<std::uint8_t>(destination);
  stores.TxBuffer[1] = static_cast<std::uint8_t>(dataLength);
  stores.TxBuffer[2] = static_cast<std::uint8_t>(source);
  std::ranges::copy(items.bytes, stores.TxBuffer.begin() + kHeaderOffset);
  stores.TxBuffer[stores.TxLength - 1] = LL_DRAVO_Checksum(stores);
}

std::uint8_t checksumOf(std::span<const std::uint8_t> bytes) {
  return static_cast<std::uint8_t>(256U - std::accumulate(bytes.begin(), bytes.end(), 0U) % 256U);
}

std::uint8_t LL_DRAVO_Checksum(const FrameStores& stores) {
  return checksumOf(std::span(stores.TxBuffer).first(stores.TxLength - 1));
}

}  // namespace zendor
