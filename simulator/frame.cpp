#include "simulator/frame.h"

#include <numeric>

namespace zendor::simulator {

namespace {

constexpr std::size_t kLengthOffset = 1;
constexpr std::size_t kDataOffset = 4;
constexpr std::size_t kBytesAroundData = 5;

std::uint8_t sumOf(const Bytes& bytes) {
  return static_cast<std::uint8_t>(std::accumulate(bytes.begin(), bytes.end(), 0U));
}

}  // namespace

Bytes encode(const Frame& frame) {
  Bytes bytes{frame.destination, static_cast<std::uint8_t>(frame.data.size()), frame.source,
              frame.header};
  bytes.insert(bytes.end(), frame.data.begin(), frame.data.end());
  bytes.push_back(static_cast<std::uint8_t>(-sumOf(bytes)));
  return bytes;
}

bool isComplete(const Bytes& bytes) {
  return bytes.size() > kLengthOffset && bytes.size() == bytes[kLengthOffset] + kBytesAroundData;
}

std::optional<Frame> decode(const Bytes& bytes) {
  if (sumOf(bytes) != 0) return std::nullopt;
  return Frame{bytes[0], bytes[2], bytes[kHeaderOffset],
               Bytes(bytes.begin() + kDataOffset, bytes.end() - 1)};
}

}  // namespace zendor::simulator
