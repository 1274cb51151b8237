#include "protocol/message_write.h"

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

}  // namespace zendor
