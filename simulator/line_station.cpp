#include "simulator/line_station.h"

#include <algorithm>
#include <utility>

namespace zendor::simulator {

namespace {

// Much longer than the time of a byte, and much shorter than the time after which a host tries
// again.
constexpr std::chrono::milliseconds kLongestGapInRequest{50};

void append(Bytes& bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

}  // namespace

LineStation::LineStation(std::optional<Pod> pod, FaultPlan faults,
                         std::chrono::nanoseconds byteTime, Onlooker onlooker)
    : pod_(std::move(pod)),
      faults_(std::move(faults)),
      byteTime_(byteTime),
      onlooker_(std::move(onlooker)) {}

std::vector<Delivery> LineStation::receive(std::span<const std::uint8_t> bytes, TimePoint now) {
  std::vector<Delivery> deliveries;
  for (const std::uint8_t byte : bytes) {
    takeIn(byte, now);
    echo(deliveries);
    if (!isComplete(request_.bytes)) continue;
    reply(deliveries);
    request_ = {};
  }
  return deliveries;
}

void LineStation::takeIn(std::uint8_t byte, TimePoint now) {
  if (now - lineFree_ > kLongestGapInRequest) request_ = {};
  lineFree_ = std::max(lineFree_, now) + byteTime_;
  request_.bytes.push_back(byte);
  request_.ends.push_back(lineFree_);
  if (request_.bytes.size() == kHeaderOffset + 1) request_.fault = &faults_.next(byte);
}

// The header tells which fault strikes. Until the header has come, no byte is echoed if a fault
// that loses the echo may strike.
void LineStation::echo(std::vector<Delivery>& deliveries) {
  const std::size_t limitBefore = faults_.canLoseEcho() ? 0 : kWholeEcho;
  const std::size_t limit = request_.fault != nullptr ? request_.fault->echoLimit : limitBefore;
  for (std::size_t& i = request_.echoed; i < std::min(limit, request_.bytes.size()); ++i) {
    deliveries.push_back({request_.ends[i], {request_.bytes[i]}});
  }
}

void LineStation::reply(std::vector<Delivery>& deliveries) {
  if (onlooker_) onlooker_(Sender::Host, request_.bytes);
  const auto frame = decode(request_.bytes);
  if (!pod_ || !frame || frame->destination != pod_->address) return;

  const Transmission transmission = request_.fault->reply(*pod_, *frame);
  TimePoint due = lineFree_ + transmission.delay;
  Bytes sent;
  for (const Bytes& piece : transmission.pieces) {
    due += transmission.rest + byteTime_ * static_cast<long>(piece.size());
    deliveries.push_back({due, piece});
    append(sent, piece);
  }
  if (onlooker_ && !sent.empty()) onlooker_(Sender::Pod, sent);
}

}  // namespace zendor::simulator
