#include "protocol/receive_poll.h"

#include <algorithm>

#include "protocol/frame.h"

namespace zendor {

bool LL_DRAVO_PollReceive(SerialPort& MSComm1, std::span<std::uint8_t> RxBuffer,
                          std::size_t txLength, std::size_t& rxCount) {
  if (MSComm1.bytesWaiting() == 0) return false;
  const auto received = MSComm1.readAll();
  const auto room = RxBuffer.subspan(rxCount);
  const std::size_t stored = std::min(received.size(), room.size());
  std::ranges::copy(received.first(stored), room.begin());
  rxCount += stored;

  const std::size_t lengthIndex = txLength + 1;
  if (rxCount <= lengthIndex) return false;
  return rxCount >= txLength + RxBuffer[lengthIndex] + kFrameOverhead;
}

}  // namespace zendor
