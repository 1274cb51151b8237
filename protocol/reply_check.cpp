#include "protocol/reply_check.h"

#include <span>

#include "common/command_result.h"
#include "protocol/checksum.h"

namespace zendor {

namespace {

// The header of a reply.
constexpr std::uint8_t kAcknowledge = 0;
constexpr std::uint8_t kNegativeAcknowledge = 5;
constexpr std::uint8_t kBusy = 6;

std::string fail(std::string_view text) { return std::string(kErrorPrefix).append(text); }

}  // namespace

std::string LL_DRAVO_CheckReply(FrameStores& stores, int destination, int source) {
  stores.RxDataCount = 0;
  if (stores.RxCount == 0) return fail("All comms is dead");
  if (stores.RxCount < stores.TxLength) return fail("Some TX bytes did not loop back");
  if (stores.RxCount == stores.TxLength) return fail("Slave is not responding");

  const auto reply = std::span<const std::uint8_t>(stores.RxBuffer)
                         .subspan(stores.TxLength, stores.RxCount - stores.TxLength);
  if (reply.size() < kFrameOverhead) return fail("Some RX bytes seem to be missing");

  const std::uint8_t replyDestination = reply[0];
  const std::uint8_t dataLength = reply[1];
  const std::uint8_t replySource = reply[2];
  const std::uint8_t header = reply[3];
  stores.RxDataCount = dataLength;
  if (reply.size() < dataLength + kFrameOverhead) return fail("Some RX bytes seem to be missing");
  if (reply.size() > dataLength + kFrameOverhead) return fail("Too many return bytes");

  const auto data = reply.subspan(4, dataLength);
  if (!data.empty()) stores.RxData.assign(data.begin(), data.end());
  if (checksumOf(reply.first(reply.size() - 1)) != reply.back()) return fail("Checksum error");
  if (replyDestination != source) return fail("Return destination address invalid");
  if (replySource != destination) return fail("Return source address invalid");
  if (header == kBusy) return fail("BUSY message");
  if (header == kNegativeAcknowledge) return fail("NAK message");
  if (header != kAcknowledge) return fail("Return header invalid");
  return {};
}

}  // namespace zendor
