#include "protocol/receive_poll.h"

#include <algorithm>

#include "protocol/frame.h"

namespace zendor {

bool LL_DRAVO_PollReceive(SerialPort& MSComm1, std::span<std::uint8_t> RxBuffer,
                          std::size_t TxLength, std::size_t& RxCount) {
  if (MSComm1.bytesWaiting() == 0) return false;
  const auto received = MSComm1.readAll();
  const auto room = RxBuffer.subspan(RxCount);
  const std::size_t stored = std::min(received.size(), room.size());
  std::ranges::copy(received.first(stored), room.begin());
  RxCount += stored;

  const std::size_t lengthIndex = TxLength + 1;
  if (RxCount <= lengthIndex) return false;
  return RxCount >= TxLength + RxBuffer[lengthIndex] + kFrameOverhead;
}

}  // namespace zendor
