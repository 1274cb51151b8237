#include "protocol/receive_poll.h"

#include <algorithm>

namespace zendor {

bool LL_DRAVO_PollReceive(SerialPort& MSComm1, ReceiveStore& RxBuffer, std::size_t txLength,
                          std::size_t& rxCount) {
  if (MSComm1.bytesWaiting() == 0) return false;
  const auto received = MSComm1.readAll();
  const std::size_t stored = std::min(received.size(), RxBuffer.size() - rxCount);
  std::copy_n(received.begin(), stored, RxBuffer.begin() + static_cast<std::ptrdiff_t>(rxCount));
  rxCount += stored;

  const std::size_t lengthIndex = txLength + 1;
  if (rxCount <= lengthIndex) return false;
  return rxCount >= txLength + RxBuffer[lengthIndex] + kFrameOverhead;
}

}  // namespace zendor
