// The catalogue of what can go wrong between a host and a pod.
#pragma once

#include <chrono>
#include <cstddef>
#include <limits>
#include <span>
#include <string_view>
#include <vector>

#include "simulator/frame.h"
#include "simulator/pod.h"

namespace zendor::simulator {

// Bytes that follow each other on the line. Those of one piece arrive together.
struct Transmission {
  std::vector<Bytes> pieces;
  std::chrono::milliseconds delay{0};  // before the first piece
  std::chrono::milliseconds rest{0};   // before each piece
};

constexpr std::size_t kWholeEcho = std::numeric_limits<std::size_t>::max();

struct Fault {
  std::string_view name;
  std::string_view whatItDoes;  // a sentence
  std::size_t echoLimit;        // how many bytes of the request come back as its echo

  // What the pod sends. The pod acts only where the fault lets the request through. A transmission
  // without pieces is silence.
  Transmission (*reply)(Pod& pod, const Frame& request);
};

// Every fault once, beginning with the one that spoils nothing.
std::span<const Fault> faultCatalogue();

}  // namespace zendor::simulator
