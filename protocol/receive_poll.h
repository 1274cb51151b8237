// Collects what comes back from the line and tells when the reply frame is there in full.
#pragma once

#include <cstddef>

#include "platform/serial_port.h"
#include "protocol/frame_stores.h"

namespace zendor {

// Appends all waiting bytes to RxBuffer and advances rxCount; what does not fit is dropped. The
// line echoes the request, so the reply begins after txLength bytes. True in the call that stores
// the last byte of the reply, and in a later one that finds more; a call that finds nothing waiting
// is always false. Never blocks.
bool LL_DRAVO_PollReceive(SerialPort& MSComm1, ReceiveStore& RxBuffer, std::size_t txLength,
                          std::size_t& rxCount);

}  // namespace zendor
