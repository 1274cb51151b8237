#include "serial/message_write.h"

#include <vector>

namespace zendor {

void LL_Serial_SendMessage(SerialPort& MSComm1, std::span<const std::uint8_t> TxBuffer,
                           std::size_t& RxCount, Desktop& desktop, ErrorReports& reports) {
  // Copied first, because events run during the wait.
  const std::vector<std::uint8_t> message(TxBuffer.begin(), TxBuffer.end());
  while (MSComm1.bytesToSend() != 0) desktop.processEvents();
  // Discarded after the wait, so that bytes that arrived during it are discarded too.
  RxCount = 0;
  MSComm1.discardWaiting();
  try {
    MSComm1.write(message);
  } catch (const PortError& error) {
    reports.Tool_ReportUnhandledError(error, "LL_Serial_SendMessage");
  }
}

}  // namespace zendor
