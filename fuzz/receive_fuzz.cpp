// Any bytes in any pieces through receive poll, reply check and reply text. The input is a request
// length, then pieces: a length byte and that many bytes each, or 255 and all that is left.
#include <algorithm>
#include <array>
#include <numeric>
#include <string_view>
#include <utility>

#include "fuzz/require.h"
#include "platform/serial_port.h"
#include "protocol/receive_poll.h"
#include "protocol/reply_check.h"
#include "protocol/reply_text.h"

namespace zendor {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr int kDevice = 80;
constexpr int kHost = 1;

constexpr std::array<std::string_view, 11> kFailures{"Error : All comms is dead",
                                                     "Error : Some TX bytes did not loop back",
                                                     "Error : Slave is not responding",
                                                     "Error : Some RX bytes seem to be missing",
                                                     "Error : Too many return bytes",
                                                     "Error : Checksum error",
                                                     "Error : Return destination address invalid",
                                                     "Error : Return source address invalid",
                                                     "Error : BUSY message",
                                                     "Error : NAK message",
                                                     "Error : Return header invalid"};

Bytes take(Bytes& input, std::size_t count) {
  const Bytes taken = input.first(std::min(count, input.size()));
  input = input.subspan(taken.size());
  return taken;
}

// A line on which the current piece waits.
class PieceLine final : public SerialPort {
 public:
  bool isOpen() const override { return true; }
  void open() override {}
  void close() override {}
  std::size_t bytesWaiting() override { return piece.size(); }
  Bytes readAll() override { return std::exchange(piece, {}); }
  void discardWaiting() override {}
  std::size_t bytesToSend() override { return 0; }
  void write(Bytes) override {}

  Bytes piece;
};

// The reply that the store holds, as far as its own length byte and the received count go.
void requireGoodReply(const FrameStores& stores) {
  const Bytes reply = Bytes(stores.RxBuffer).subspan(stores.TxLength);
  const std::size_t size = reply[1] + 5U;
  require(stores.RxCount == stores.TxLength + size);
  require(std::accumulate(reply.begin(), reply.begin() + static_cast<std::ptrdiff_t>(size), 0U) %
              256 ==
          0);
  require(reply[0] == kHost && reply[2] == kDevice && reply[3] == 0);
}

// Which count and which data the check leaves behind, by the failure that it stopped at.
void requireReplyStore(const FrameStores& stores, std::string_view result, Bytes before) {
  const std::size_t received = stores.RxCount - std::min(stores.RxCount, stores.TxLength);
  const Bytes reply = Bytes(stores.RxBuffer).subspan(stores.TxLength);
  const std::size_t announced = received < 5 ? 0 : reply[1];
  require(stores.RxDataCount == static_cast<int>(announced));
  const bool rightLength = received >= 5 && received == announced + 5;
  const bool lengthFailure = result == kFailures[3] || result == kFailures[4];
  require(received < 5 || rightLength != lengthFailure);
  const bool filled = rightLength && announced != 0;
  require(std::ranges::equal(stores.RxData, filled ? reply.subspan(4, announced) : before));
}

void requireText(const FrameStores& stores) {
  const Bytes data = Bytes(stores.RxData).first(static_cast<std::size_t>(stores.RxDataCount));
  for (int code = -1; code <= 10; ++code) {
    const bool known = (code >= 0 && code <= 5) || code == 9;
    require(replyText(data, static_cast<ReplyFormat>(code), {}).has_value() == known);
  }
}

void receive(Bytes input) {
  const std::array<std::uint8_t, 3> before{1, 2, 3};
  FrameStores stores;
  stores.RxData.assign(before.begin(), before.end());
  stores.TxLength = 5U + (input.empty() ? 0U : take(input, 1)[0]);
  PieceLine line;
  bool complete = false;
  while (!complete && !input.empty()) {
    const Bytes length = take(input, 1);
    line.piece = take(input, length[0] == 255 ? input.size() : length[0]);
    const std::size_t expected = std::min<std::size_t>(1024, stores.RxCount + line.piece.size());
    complete = LL_DRAVO_PollReceive(line, stores.RxBuffer, stores.TxLength, stores.RxCount);
    require(stores.RxCount == expected);
  }
  const std::string result = LL_DRAVO_CheckReply(stores, kDevice, kHost);
  require(result.empty() || std::ranges::count(kFailures, result) == 1);
  require(!result.empty() || complete);
  if (result.empty()) requireGoodReply(stores);
  requireReplyStore(stores, result, before);
  if (result.empty() && stores.RxDataCount > 0) requireText(stores);
}

}  // namespace
}  // namespace zendor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zendor::receive({data, size});
  return 0;
}
