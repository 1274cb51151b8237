// Sends any bytes in any pieces through receive poll, reply check and reply text. The first byte of
// the input is how many data bytes the request has; then come the pieces. A piece is a length byte
// and that many bytes, or 255 and all that is left.
#include <algorithm>
#include <numeric>

#include "fuzz/require.h"
#include "protocol/receive_poll.h"
#include "protocol/reply_check.h"
#include "protocol/reply_text.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr int kDevice = 80, kHost = 1;

Bytes take(Bytes& input, std::size_t count) {
  const Bytes taken = input.first(std::min(count, input.size()));
  input = input.subspan(taken.size());
  return taken;
}

// Lets the pieces arrive until one of them completes the reply; false when none does.
bool poll(Bytes pieces, FrameStores& stores) {
  doubles::FakePlatform platform;
  platform.line.open();
  bool complete = false;
  while (!complete && !pieces.empty()) {
    const Bytes length = take(pieces, 1);
    const Bytes piece = take(pieces, length[0] == 255 ? pieces.size() : length[0]);
    platform.line.waiting.assign(piece.begin(), piece.end());
    const std::size_t expected = std::min<std::size_t>(1024, stores.RxCount + piece.size());
    complete =
        LL_DRAVO_PollReceive(platform.line, stores.RxBuffer, stores.TxLength, stores.RxCount);
    require(stores.RxCount == expected);
    const Bytes reply =
        Bytes(stores.RxBuffer).first(expected).subspan(std::min(expected, stores.TxLength));
    require(complete == (!piece.empty() && reply.size() >= 2 && reply.size() >= 5U + reply[1]));
  }
  return complete;
}

void receive(Bytes input) {
  const std::vector<std::uint8_t> before{1, 2, 3};
  FrameStores stores;
  stores.RxData = before;
  stores.TxLength = 5U + (input.empty() ? 0U : take(input, 1)[0]);
  const bool complete = poll(input, stores);
  const std::string result = LL_DRAVO_CheckReply(stores, kDevice, kHost);

  const std::size_t echo = std::min(stores.RxCount, stores.TxLength);
  const Bytes reply = Bytes(stores.RxBuffer).subspan(echo, stores.RxCount - echo);
  const std::size_t announced = reply.size() < 5 ? 0 : reply[1];
  const bool isWhole = reply.size() >= 5 && reply.size() == announced + 5;
  require(stores.RxDataCount == static_cast<int>(announced));
  require(std::ranges::equal(stores.RxData,
                             isWhole && announced != 0 ? reply.subspan(4, announced) : before));

  const bool isGood = isWhole && std::accumulate(reply.begin(), reply.end(), 0U) % 256 == 0 &&
                      reply[0] == kHost && reply[2] == kDevice && reply[3] == 0;
  require(isGood ? complete && result.empty() : result.starts_with("Error : "));
  for (int code = -1; isGood && code <= 10; ++code) {
    const bool isKnown = (code >= 0 && code <= 5) || code == 9;
    const auto text = replyText(reply.subspan(4, announced), static_cast<ReplyFormat>(code), {});
    require(text.has_value() == isKnown);
  }
}

}  // namespace
}  // namespace zendor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zendor::receive({data, size});
  return 0;
}
