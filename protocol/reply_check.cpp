#include "protocol/reply_check.h"

#include <span>

#include "common/command_result.h"
#include "protocol/frame.h"

namespace zendor {

namespace {

// The codes that can stand in the header of a reply.
constexpr std::uint8_t kAcknowledge = 0;
constexpr std::uint8_t kNegativeAcknowledge = 5;
constexpr std::uint8_t kBusy = 6;

}  // namespace

std::string LL_DRAVO_CheckReply(FrameStores& stores, int destination, int source) {
  stores.RxDataCount = 0;
  if (stores.RxCount == 0) return errorResult("All comms is dead");
  if (stores.RxCount < stores.TxLength) return errorResult("Some TX bytes did not loop back");
  if (stores.RxCount == stores.TxLength) return errorResult("Slave is not responding");

  const auto reply = std::span<const std::uint8_t>(stores.RxBuffer)
                         .subspan(stores.TxLength, stores.RxCount - stores.TxLength);
  if (reply.size() < kFrameOverhead) return errorResult("Some RX bytes seem to be missing");

  const std::uint8_t replyDestination = reply[0];
  const std::uint8_t dataLength = reply[1];
  const std::uint8_t replySource = reply[2];
  const std::uint8_t header = reply[kHeaderOffset];
  stores.RxDataCount = dataLength;
  if (reply.size() < dataLength + kFrameOverhead)
    return errorResult("Some RX bytes seem to be missing");
  if (reply.size() > dataLength + kFrameOverhead) return errorResult("Too many return bytes");

  const auto data = reply.subspan(kDataOffset, dataLength);
  if (!data.empty()) stores.RxData.assign(data.begin(), data.end());
  if (checksumOf(reply.first(reply.size() - 1)) != reply.back())
    return errorResult("Checksum error");
  if (replyDestination != source) return errorResult("Return destination address invalid");
  if (replySource != destination) return errorResult("Return source address invalid");
  if (header == kBusy) return errorResult("BUSY message");
  if (header == kNegativeAcknowledge) return errorResult("NAK message");
  if (header != kAcknowledge) return errorResult("Return header invalid");
  return {};
}

}  // namespace zendor
