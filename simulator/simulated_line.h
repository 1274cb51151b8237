// A serial line with a pod at its end, served by a thread of its own from construction to
// destruction. Throws std::system_error when the system gives no pseudo-terminal.
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

#include "simulator/line_station.h"
#include "simulator/pseudo_terminal.h"

namespace zendor::simulator {

struct LineOptions {
  std::optional<Pod> pod = Pod{};  // none: the line echoes and nobody answers
  FaultPlan faults{};
  bool isPaced = true;  // as 9600 baud allow; otherwise at once
  Onlooker onlooker{};  // called on the line's thread
};

class SimulatedLine {
 public:
  explicit SimulatedLine(LineOptions options = {});

  // The device to open: "/dev/pts/3". It can be opened and closed any number of times.
  const std::string& device() const { return terminal_.path(); }

  // The complete frames that hosts have sent so far, oldest first.
  std::vector<Bytes> requests() const;

 private:
  void serve(const std::stop_token& stop);
  void deliverWhatIsDue();

  mutable std::mutex mutex_;
  std::vector<Bytes> requests_;  // guarded by the mutex
  PseudoTerminal terminal_;
  LineStation station_;
  std::multimap<TimePoint, Bytes> deliveries_;  // those of one moment keep their order
  std::jthread thread_;  // the last member, so that the thread ends before what it uses
};

}  // namespace zendor::simulator
