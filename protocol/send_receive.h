// The two directions of the port: the request frame goes out, and what comes back is collected.
// Nothing else writes to the port.
#pragma once

#include "common/error_reports.h"
#include "platform/desktop.h"
#include "platform/serial_port.h"
#include "protocol/frame.h"

namespace zendor {

// Writes TxBuffer to the open port in one write, once earlier output has left and stale input is
// discarded, so that what is received from then on is the echo and the reply. RxCount is 0
// afterwards. A refused write is reported to the user and to nobody else.
void LL_Serial_SendMessage(SerialPort& MSComm1, FrameStores& stores, Desktop& desktop,
                           ErrorReports& reports);

// Appends all waiting bytes to RxBuffer and advances RxCount; what does not fit is dropped. The
// line echoes the request, so the reply begins after TxLength bytes. The result is true in the call
// that stores the last byte of the reply and in every later call that finds more bytes. Never
// blocks.
bool LL_DRAVO_PollReceive(SerialPort& MSComm1, FrameStores& stores);

}  // namespace zendor
