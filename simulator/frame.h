// The layout of requests and replies. The simulator has its own code for it, so that a mistake in
// the program's code shows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace zendor::simulator {

using Bytes = std::vector<std::uint8_t>;

// On the wire: destination, data length, source, header, data, checksum. At most 255 data bytes.
struct Frame {
  std::uint8_t destination = 0;
  std::uint8_t source = 0;
  std::uint8_t header = 0;
  Bytes data;
};

constexpr std::size_t kHeaderOffset = 3;

Bytes encode(const Frame& frame);

// Whether the frame has as many bytes as its length byte announces.
bool isComplete(const Bytes& bytes);

// Takes a complete frame apart; nothing when its checksum is wrong.
std::optional<Frame> decode(const Bytes& bytes);

}  // namespace zendor::simulator
