#include "simulator/fault.h"

#include <utility>

namespace zendor::simulator {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLateness{1200};  // a host waits for 1000
constexpr milliseconds kRest{20};
constexpr std::uint8_t kMeaningless = 7;

Frame replyTo(Pod& pod, const Frame& request) {
  Reply reply = pod.answer(request.header, request.data);
  return {request.source, request.destination, reply.header, std::move(reply.data)};
}

Transmission oneByOne(const Bytes& bytes, milliseconds delay = {}, milliseconds rest = {}) {
  Transmission transmission{{}, delay, rest};
  for (const std::uint8_t byte : bytes) transmission.pieces.push_back({byte});
  return transmission;
}

Transmission nothing(Pod&, const Frame&) { return {}; }

Transmission wholeReply(Pod& pod, const Frame& request) {
  return oneByOne(encode(replyTo(pod, request)));
}

Transmission shortReply(Pod& pod, const Frame& request) {
  Bytes bytes = encode(replyTo(pod, request));
  bytes.resize(4);
  return oneByOne(bytes);
}

Transmission truncatedReply(Pod& pod, const Frame& request) {
  Frame reply = replyTo(pod, request);
  if (reply.data.empty()) reply.data.push_back(0);
  Bytes bytes = encode(reply);
  bytes.pop_back();
  return oneByOne(bytes);
}

Transmission extraByte(Pod& pod, const Frame& request) {
  Transmission transmission = wholeReply(pod, request);
  transmission.pieces.back().push_back(0);
  return transmission;
}

Transmission garbageBefore(Pod& pod, const Frame& request) {
  Transmission transmission = wholeReply(pod, request);
  transmission.pieces.insert(transmission.pieces.begin(), {{255}, {0}});
  return transmission;
}

Transmission wrongChecksum(Pod& pod, const Frame& request) {
  Bytes bytes = encode(replyTo(pod, request));
  --bytes.back();
  return oneByOne(bytes);
}

Transmission wrongDestination(Pod& pod, const Frame& request) {
  Frame reply = replyTo(pod, request);
  ++reply.destination;
  return oneByOne(encode(reply));
}

Transmission wrongSource(Pod& pod, const Frame& request) {
  Frame reply = replyTo(pod, request);
  ++reply.source;
  return oneByOne(encode(reply));
}

template <std::uint8_t header>
Transmission headerAlone(Pod&, const Frame& request) {
  return oneByOne(encode({request.source, request.destination, header, {}}));
}

Transmission lateReply(Pod& pod, const Frame& request) {
  return oneByOne(encode(replyTo(pod, request)), kLateness);
}

Transmission byteByByte(Pod& pod, const Frame& request) {
  return oneByOne(encode(replyTo(pod, request)), {}, kRest);
}

constexpr Fault kCatalogue[] = {
    {"none", "Nothing goes wrong. Lets requests pass before a fault.", kWholeEcho, wholeReply},
    {"dead", "Nothing comes back, neither echo nor reply.", 0, nothing},
    {"no-echo", "The reply comes back without the echo.", 0, wholeReply},
    {"partial-echo", "Two bytes of the echo come back and nothing else.", 2, nothing},
    {"echo-only", "The echo comes back and the pod stays silent.", kWholeEcho, nothing},
    {"short-reply", "The reply breaks off after four bytes.", kWholeEcho, shortReply},
    {"truncated-reply", "The reply lacks its last byte, and has data in any case.", kWholeEcho,
     truncatedReply},
    {"extra-byte", "One byte too many arrives together with the reply's last.", kWholeEcho,
     extraByte},
    {"garbage-before", "The bytes 255 and 0 come before the reply.", kWholeEcho, garbageBefore},
    {"wrong-checksum", "The reply's checksum is one too low.", kWholeEcho, wrongChecksum},
    {"wrong-destination", "A correct reply goes to the address after the host's.", kWholeEcho,
     wrongDestination},
    {"wrong-source", "A correct reply comes from the address after the pod's.", kWholeEcho,
     wrongSource},
    {"busy", "The pod does not act and replies that it is busy (6).", kWholeEcho,
     headerAlone<kBusy>},
    {"nak", "The pod does not act and replies that it refuses (5).", kWholeEcho,
     headerAlone<kRefused>},
    {"unknown-header", "The pod does not act and replies a meaningless code (7).", kWholeEcho,
     headerAlone<kMeaningless>},
    {"late-reply", "The reply begins 1200 ms after the request.", kWholeEcho, lateReply},
    {"byte-by-byte", "Before each byte of the reply the line rests for 20 ms.", kWholeEcho,
     byteByByte},
};

}  // namespace

std::span<const Fault> faultCatalogue() { return kCatalogue; }

}  // namespace zendor::simulator
