#include "serial/message_write.h"

namespace zendor {

MessageWrite::MessageWrite(SerialPort& port, FrameStores& stores, Desktop& desktop,
                           ErrorReports& reports)
    : MSComm1(port), stores_(stores), desktop_(desktop), reports_(reports) {}

void MessageWrite::LL_Serial_SendMessage() {
  while (MSComm1.bytesToSend() != 0) desktop_.processEvents();
  // Only now, so that bytes that arrived during the wait are discarded as well.
  stores_.RxCount = 0;
  MSComm1.discardWaiting();
  try {
    MSComm1.write(stores_.TxBuffer);
  } catch (const PortError& error) {
    reports_.Tool_ReportUnhandledError(error, "LL_Serial_SendMessage");
  }
}

}  // namespace zendor
