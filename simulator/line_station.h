// The line and the pod at its end, without a device. It is told which bytes a host sends at which
// time, and tells which bytes the host receives at which time. Nothing waits, because time is an
// argument.
//
// The line carries the host's bytes one after the other. Each byte comes back as its own echo when
// its time on the line is over. The pod replies to a complete request at once. A request that is
// interrupted by a gap is dropped.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "simulator/fault_plan.h"
#include "simulator/frame.h"
#include "simulator/pod.h"

namespace zendor::simulator {

using TimePoint = std::chrono::steady_clock::time_point;

// Ten bits at 9600 a second.
constexpr std::chrono::nanoseconds kByteTime{10 * 1'000'000'000LL / 9600};

// Bytes that reach the host together.
struct Delivery {
  TimePoint due;
  Bytes bytes;
};

enum class Sender { Host, Pod };

// Is told of each frame: of a frame of the host when it is complete, right or wrong, and of a frame
// of the pod when the pod has decided on it.
using Onlooker = std::function<void(Sender sender, const Bytes& frame)>;

class LineStation {
 public:
  // Without a pod the line only echoes. With a byte time of zero everything is delivered at once,
  // except for the pauses that a fault makes.
  LineStation(std::optional<Pod> pod, FaultPlan faults, std::chrono::nanoseconds byteTime,
              Onlooker onlooker = {});

  // Accepts bytes that the host hands to the line now, and returns what the host will receive
  // because of these bytes.
  std::vector<Delivery> receive(std::span<const std::uint8_t> bytes, TimePoint now);

 private:
  struct Request {
    Bytes bytes;
    std::vector<TimePoint> ends;  // when each byte has passed the line
    std::size_t echoed = 0;
    const Fault* fault = nullptr;  // known with the header
  };

  void takeIn(std::uint8_t byte, TimePoint now);
  void echo(std::vector<Delivery>& deliveries);
  void reply(std::vector<Delivery>& deliveries);

  std::optional<Pod> pod_;
  FaultPlan faults_;
  std::chrono::nanoseconds byteTime_;
  Onlooker onlooker_;
  Request request_;
  TimePoint lineFree_{};  // when the last byte of the host has passed the line
};

}  // namespace zendor::simulator
