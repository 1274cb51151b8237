// The two directions of the port: the request frame goes out, and what comes back is collected.
// Nothing else writes to the port.
#pragma once

#include <cstddef>

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

// Appends all waiting bytes to RxBuffer and advances rxCount; what does not fit is dropped. The
// line echoes the request, so the reply begins after txLength bytes. True in the call that stores
// the last byte of the reply, and in a later one that finds more; a call that finds nothing waiting
// is always false. Never blocks.
bool LL_DRAVO_PollReceive(SerialPort& MSComm1, ReceiveStore& RxBuffer, std::size_t txLength,
                          std::size_t& rxCount);

}  // namespace zendor
