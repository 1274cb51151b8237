#include "protocol/send_receive.h"

#include <algorithm>
#include <span>

namespace zendor {

void LL_Serial_SendMessage(SerialPort& MSComm1, FrameStores& stores, Desktop& desktop,
                           ErrorReports& reports) {
  // Copied first, because events run during the wait.
  const auto message = stores.TxBuffer;
  while (MSComm1.bytesToSend() != 0) desktop.processEvents();
  // Discarded after the wait, so that bytes that arrived during it are discarded too.
  stores.RxCount = 0;
  MSComm1.discardWaiting();
  try {
    MSComm1.write(message);
  } catch (const PortError& error) {
    reports.Tool_ReportUnhandledError(error, "LL_Serial_SendMessage");
  }
}

bool LL_DRAVO_PollReceive(SerialPort& MSComm1, FrameStores& stores) {
  if (MSComm1.bytesWaiting() == 0) return false;
  const auto received = MSComm1.readAll();
  const auto room = std::span(stores.RxBuffer).subspan(stores.RxCount);
  const std::size_t stored = std::min(received.size(), room.size());
  std::ranges::copy(received.first(stored), room.begin());
  stores.RxCount += stored;

  const std::size_t lengthIndex = stores.TxLength + 1;
  if (stores.RxCount <= lengthIndex) return false;
  return stores.RxCount >= stores.TxLength + stores.RxBuffer[lengthIndex] + kFrameOverhead;
}

}  // namespace zendor
