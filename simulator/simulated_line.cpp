#include "simulator/simulated_line.h"

#include <utility>

namespace zendor::simulator {

namespace {

using Clock = std::chrono::steady_clock;

}  // namespace

SimulatedLine::SimulatedLine(LineOptions options)
    : station_(std::move(options.pod), std::move(options.faults),
               options.isPaced ? kByteTime : std::chrono::nanoseconds{0},
               [this, onlooker = std::move(options.onlooker)](Sender sender, const Bytes& frame) {
                 if (sender == Sender::Host) {
                   const std::lock_guard lock(mutex_);
                   requests_.push_back(frame);
                 }
                 if (onlooker) onlooker(sender, frame);
               }),
      thread_([this](const std::stop_token& stop) { serve(stop); }) {}

std::vector<Bytes> SimulatedLine::requests() const {
  const std::lock_guard lock(mutex_);
  return requests_;
}

void SimulatedLine::serve(const std::stop_token& stop) {
  const std::stop_callback wake(stop, [this] { terminal_.wake(); });
  while (!stop.stop_requested()) {
    terminal_.wait(deliveries_.empty() ? std::nullopt : std::optional(deliveries_.begin()->first));
    const Bytes received = terminal_.read();
    for (auto& [due, bytes] : station_.receive(received, Clock::now())) {
      deliveries_.emplace(due, std::move(bytes));
    }
    deliverWhatIsDue();
  }
}

// All that is due goes out in one write, so that bytes that belong together arrive together.
void SimulatedLine::deliverWhatIsDue() {
  const auto end = deliveries_.upper_bound(Clock::now());
  Bytes due;
  for (auto it = deliveries_.begin(); it != end; it = deliveries_.erase(it)) {
    due.insert(due.end(), it->second.begin(), it->second.end());
  }
  if (!due.empty()) terminal_.write(due);
}

}  // namespace zendor::simulator
