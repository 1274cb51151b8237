#include "simulator/faulty_reply.h"

#include <utility>

namespace zendor::simulator {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLateness{1200};  // a host waits for 1000
constexpr milliseconds kRest{20};

Frame carriedOut(Pod& pod, const Frame& request) {
  Reply reply = pod.answer(request.header, request.data);
  return {request.source, request.destination, reply.header, std::move(reply.data)};
}

Frame notCarriedOut(const Frame& request, std::uint8_t header) {
  return {request.source, request.destination, header, {}};
}

Transmission inSteps(const Bytes& bytes, milliseconds delay = {}, milliseconds rest = {}) {
  Transmission transmission{{}, delay, rest};
  for (const std::uint8_t byte : bytes) transmission.pieces.push_back({byte});
  return transmission;
}

Transmission shortReply(const Frame& reply) {
  Bytes bytes = encode(reply);
  bytes.resize(4);
  return inSteps(bytes);
}

Transmission truncated(Frame reply) {
  if (reply.data.empty()) reply.data.push_back(0);
  Bytes bytes = encode(reply);
  bytes.pop_back();
  return inSteps(bytes);
}

Transmission withExtraByte(const Frame& reply) {
  Transmission transmission = inSteps(encode(reply));
  transmission.pieces.back().push_back(0);
  return transmission;
}

Transmission withGarbageBefore(const Frame& reply) {
  Bytes bytes = encode(reply);
  bytes.insert(bytes.begin(), {255, 0});
  return inSteps(bytes);
}

Transmission withWrongChecksum(const Frame& reply) {
  Bytes bytes = encode(reply);
  --bytes.back();
  return inSteps(bytes);
}

Transmission toAStranger(Frame reply) {
  ++reply.destination;
  return inSteps(encode(reply));
}

Transmission fromAStranger(Frame reply) {
  ++reply.source;
  return inSteps(encode(reply));
}

}  // namespace

Transmission faultyReply(Pod& pod, const Frame& request, Fault fault) {
  constexpr std::uint8_t kMeaningless = 7;
  switch (fault) {
    case Fault::Dead:
    case Fault::PartialEcho:
    case Fault::EchoOnly:
      return {};
    case Fault::Busy:
      return inSteps(encode(notCarriedOut(request, kBusy)));
    case Fault::Nak:
      return inSteps(encode(notCarriedOut(request, kRefused)));
    case Fault::UnknownHeader:
      return inSteps(encode(notCarriedOut(request, kMeaningless)));
    case Fault::ShortReply:
      return shortReply(carriedOut(pod, request));
    case Fault::TruncatedReply:
      return truncated(carriedOut(pod, request));
    case Fault::ExtraByte:
      return withExtraByte(carriedOut(pod, request));
    case Fault::GarbageBefore:
      return withGarbageBefore(carriedOut(pod, request));
    case Fault::WrongChecksum:
      return withWrongChecksum(carriedOut(pod, request));
    case Fault::WrongDestination:
      return toAStranger(carriedOut(pod, request));
    case Fault::WrongSource:
      return fromAStranger(carriedOut(pod, request));
    case Fault::LateReply:
      return inSteps(encode(carriedOut(pod, request)), kLateness);
    case Fault::ByteByByte:
      return inSteps(encode(carriedOut(pod, request)), {}, kRest);
    case Fault::None:
    case Fault::NoEcho:
      break;
  }
  return inSteps(encode(carriedOut(pod, request)));
}

}  // namespace zendor::simulator
