// The byte that closes a frame.
#pragma once

#include <cstdint>
#include <span>

#include "protocol/frame_stores.h"

namespace zendor {

// Makes the sum of the bytes and itself a multiple of 256.
std::uint8_t checksumOf(std::span<const std::uint8_t> bytes);

// The checksum of the frame in TxBuffer, whose last entry it does not look at.
std::uint8_t LL_DRAVO_Checksum(const FrameStores& stores);

}  // namespace zendor
