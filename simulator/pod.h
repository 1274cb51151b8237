// A pod without a line: its properties, its memory, and its answers to requests. It answers at once
// and knows no faults.
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

  // Carries the request out. A request is refused, and changes nothing, when the pod does not know
  // its header or when its data do not fit the header.
  Reply answer(std::uint8_t header, const Bytes& data);
};

}  // namespace zendor::simulator
