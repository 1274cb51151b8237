#include "protocol/send_receive.h"

#include <algorithm>

namespace zendor {

void LL_Serial_SendMessage(SerialPort& MSComm1, FrameStores& stores, Desktop& desktop,
                           ErrorReports& reports) {
  // Taken before the wait, in which events run.
  const auto message = stores.TxBuffer;
  while (MSComm1.bytesToSend() != 0) desktop.processEvents();
  // Only now, so that bytes that arrived during the wait are discarded as well.
  stores.RxCount = 0;
  MSComm1.discardWaiting();
  try {
    MSComm1.write(message);
  } catch (const PortError& error) {
    reports.Tool_ReportUnhandledError(error, "LL_Serial_SendMessage");
  }
}

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
