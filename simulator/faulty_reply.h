// What a pod replies to a request that a fault strikes.
#pragma once

#include <chrono>
#include <vector>

#include "simulator/fault.h"
#include "simulator/frame.h"
#include "simulator/pod.h"

namespace zendor::simulator {

// Bytes that follow each other on the line. Those of one piece arrive together.
struct Transmission {
  std::vector<Bytes> pieces;
  std::chrono::milliseconds delay{0};  // before the first piece
  std::chrono::milliseconds rest{0};   // before each piece
};

// Lets the pod act where the request gets through to it; no pieces when nothing is sent.
Transmission faultyReply(Pod& pod, const Frame& request, Fault fault);

}  // namespace zendor::simulator
