// The frame, and the stores of the protocol engine. They exist once and belong to the transaction
// that is running.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "common/byte_text.h"

namespace zendor {

// Request and reply alike: destination, data length N, source, header, N data bytes, checksum.
inline constexpr std::size_t kHeaderOffset = 3;
inline constexpr std::size_t kDataOffset = 4;
inline constexpr std::size_t kFrameOverhead = 5;  // all of a frame but its data
inline constexpr std::size_t kMaximumDataLength = 255;

inline constexpr std::size_t kReceiveStoreSize = 1024;
using ReceiveStore = std::array<std::uint8_t, kReceiveStoreSize>;

struct FrameStores {
  // The request frame, made anew for every transaction and the same for each of its attempts.
  std::vector<std::uint8_t> TxBuffer;
  std::size_t TxLength = 0;

  // What came back since the last write: the line's echo of TxLength bytes, then the reply. Bytes
  // from RxCount on belong to earlier transactions.
  ReceiveStore RxBuffer{};
  std::size_t RxCount = 0;

  // The data of the last reply that had the right length; its first RxDataCount bytes count, and
  // only after a success. A reply without data leaves the bytes of an earlier one behind.
  std::vector<std::uint8_t> RxData;
  std::int16_t RxDataCount = 0;
};

// Makes the sum of the bytes and itself a multiple of 256.
std::uint8_t checksumOf(std::span<const std::uint8_t> bytes);

// The checksum of the frame in TxBuffer, whose last entry it does not look at.
std::uint8_t LL_DRAVO_Checksum(const FrameStores& stores);

// Why the items, header first, cannot be framed: an address outside 0 to 255 or more data than a
// frame carries. Empty when they can.
std::string framingError(const ByteText& items, int destination, int source);

// Builds TxBuffer and TxLength; nothing of the previous frame survives. There is at least the
// header, and framingError has nothing to say.
void buildRequestFrame(FrameStores& stores, const ByteText& items, int destination, int source);

}  // namespace zendor
