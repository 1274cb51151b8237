// The frame, and the stores of the protocol engine. The stores exist once; while a transaction
// runs, nothing else writes to them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace zendor {

// Request and reply alike: destination, data length N, source, header, N data bytes, checksum.
inline constexpr std::size_t kHeaderOffset = 3;
inline constexpr std::size_t kDataOffset = 4;
inline constexpr std::size_t kFrameOverhead = 5;  // all of a frame but its data
inline constexpr std::size_t kMaximumDataLength = 255;

struct FrameStores {
  // The request frame, made anew for every transaction and the same for each of its attempts.
  std::vector<std::uint8_t> TxBuffer;
  std::size_t TxLength = 0;

  // What came back since the last write: the line's echo of TxLength bytes, then the reply. Bytes
  // from RxCount on belong to earlier transactions.
  std::array<std::uint8_t, 1024> RxBuffer{};
  std::size_t RxCount = 0;

  // The data of the last reply that had the right length. They are valid after a success only, and
  // then only the first RxDataCount of them, because a reply without data leaves the bytes of an
  // earlier reply in place.
  std::vector<std::uint8_t> RxData;
  std::int16_t RxDataCount = 0;
};

// The checksum that follows the bytes in a frame: bytes and checksum add up to a multiple of 256.
std::uint8_t checksumOf(std::span<const std::uint8_t> bytes);

// Builds TxBuffer and TxLength from the items, header first; nothing of the previous frame
// survives. The result is empty. Where an address lies outside 0 to 255 or the data are more than a
// frame carries, the result is the reason, and nothing is changed.
std::string buildRequestFrame(FrameStores& stores, std::span<const std::uint8_t> items,
                              int destination, int source);

}  // namespace zendor
