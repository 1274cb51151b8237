// Puts the request frame of the current transaction on the line. Nothing else writes to the port.
#pragma once

#include "common/error_reports.h"
#include "platform/desktop.h"
#include "platform/serial_port.h"
#include "protocol/frame_stores.h"

namespace zendor {

// Writes TxBuffer to the open port in one write, once earlier output has left and stale input is
// discarded, so that what is received from then on is the echo and the reply. RxCount is 0
// afterwards. A refused write is reported to the user and to nobody else.
void LL_Serial_SendMessage(SerialPort& MSComm1, FrameStores& stores, Desktop& desktop,
                           ErrorReports& reports);

}  // namespace zendor
