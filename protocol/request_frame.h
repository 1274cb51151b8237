// The request frame: destination, data length, source, header, data, checksum.
#pragma once

#include <string>

#include "common/byte_text.h"
#include "protocol/frame_stores.h"

namespace zendor {

// Why the items, header first, cannot be framed: an address outside 0 to 255 or more data than a
// frame carries. Empty when they can.
std::string framingError(const ByteText& items, int destination, int source);

// Builds TxBuffer and TxLength; nothing of the previous frame survives. There is at least the
// header, and framingError has nothing to say.
void buildRequestFrame(FrameStores& stores, const ByteText& items, int destination, int source);

}  // namespace zendor
