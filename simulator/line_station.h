// The line and the pod at its end, without a device: takes what a host sends and when, and says
// what the host receives and when. Time is an argument, nothing waits.
//
// The line carries the host's bytes one after the other and brings each back as its echo at the end
// of its time; the pod replies to a complete request at once. A gap within a request ends it.
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

// Is told a host's frame when it is complete, right or wrong, and a pod's when it is decided.
using Onlooker = std::function<void(Sender sender, const Bytes& frame)>;

class LineStation {
 public:
  // Without a pod the line only echoes. A byte time of zero delivers everything at once but for the
  // pauses of a fault.
  LineStation(std::optional<Pod> pod, FaultPlan faults, std::chrono::nanoseconds byteTime,
              Onlooker onlooker = {});

  // Bytes that the host handed to the line at that moment.
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
  TimePoint lineFree_{};  // when the host's last byte has passed
};

}  // namespace zendor::simulator
