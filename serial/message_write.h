// The one routine that writes to the serial port.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "common/error_reports.h"
#include "platform/desktop.h"
#include "platform/serial_port.h"

namespace zendor {

// Waits until earlier output has left, discards stale input, and writes the bytes to the open port
// in one write. So what is received from then on is the echo of the bytes and the reply. RxCount,
// the number of bytes received since the last write, is 0 afterwards. A refused write is reported
// to the user and to nobody else.
void LL_Serial_SendMessage(SerialPort& MSComm1, std::span<const std::uint8_t> TxBuffer,
                           std::size_t& RxCount, Desktop& desktop, ErrorReports& reports);

}  // namespace zendor
