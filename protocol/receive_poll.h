// Collects what comes back after a write, and tells when the reply is there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/serial_port.h"

namespace zendor {

// Appends all waiting bytes to RxBuffer and advances RxCount; what does not fit is dropped. The
// line echoes the request, so the reply begins after TxLength bytes. The result is true in the call
// that stores the last byte of the reply and in every later call that finds more bytes. Never
// blocks.
bool LL_DRAVO_PollReceive(SerialPort& MSComm1, std::span<std::uint8_t> RxBuffer,
                          std::size_t TxLength, std::size_t& RxCount);

}  // namespace zendor
