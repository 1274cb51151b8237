// A pod without a line: what it is, what it remembers, and what it answers to a request. It takes
// no time and meets no faults.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "simulator/frame.h"

namespace zendor::simulator {

constexpr std::uint8_t kDone = 0;
constexpr std::uint8_t kRefused = 5;
constexpr std::uint8_t kBusy = 6;

struct Reply {
  std::uint8_t header = kDone;
  Bytes data;
};

// Texts hold one byte a character and at most 255 characters.
struct Pod {
  static constexpr std::size_t kMemoryBlocks = 16;

  std::uint8_t address = 80;
  std::string manufacturer = "Zendor";
  std::string category = "Pod";
  std::string productCode = "ZP-80";
  std::string softwareRevision = "1.4";
  std::string buildCode = "Customer";
  std::uint32_t serialNumber = 1234567;  // three bytes on the wire
  Bytes variables{10, 255, 16};
  std::array<Bytes, kMemoryBlocks> memory{};  // a block is as long as what was last written to it
  std::uint8_t latchedOutputs = 0;

  // Carries the request out. A header that the pod does not know, or data that do not fit it, is
  // refused and changes nothing.
  Reply answer(std::uint8_t header, const Bytes& data);
};

}  // namespace zendor::simulator
