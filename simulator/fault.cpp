#include "simulator/fault.h"

#include <algorithm>

namespace zendor::simulator {

namespace {

constexpr FaultEntry kCatalogue[] = {
    {Fault::kNone, "none", "Nothing goes wrong; lets some requests pass before another fault."},
    {Fault::kDead, "dead", "Nothing comes back, neither echo nor reply."},
    {Fault::kNoEcho, "no-echo", "The reply comes back without the echo."},
    {Fault::kPartialEcho, "partial-echo", "Two bytes of the echo come back and nothing else."},
    {Fault::kEchoOnly, "echo-only", "The echo comes back and the pod stays silent."},
    {Fault::kShortReply, "short-reply", "The reply breaks off after four bytes."},
    {Fault::kTruncatedReply, "truncated-reply",
     "The reply's last byte is missing; a reply without data is given a data byte first."},
    {Fault::kExtraByte, "extra-byte", "One byte too many arrives together with the reply's last."},
    {Fault::kGarbageBefore, "garbage-before", "The bytes 255 and 0 come before the reply."},
    {Fault::kWrongChecksum, "wrong-checksum", "The reply's checksum is one too low."},
    {Fault::kWrongDestination, "wrong-destination",
     "The reply goes to the address after the host's; its checksum is right."},
    {Fault::kWrongSource, "wrong-source",
     "The reply comes from the address after the pod's; its checksum is right."},
    {Fault::kBusy, "busy", "The pod does not act and replies that it is busy (6)."},
    {Fault::kNak, "nak", "The pod does not act and replies that it refuses (5)."},
    {Fault::kUnknownHeader, "unknown-header",
     "The pod does not act and replies a code that means nothing (7)."},
    {Fault::kLateReply, "late-reply", "The reply begins 1200 ms after the request."},
    {Fault::kByteByByte, "byte-by-byte", "Before each byte of the reply the line rests for 20 ms."},
};

}  // namespace

std::span<const FaultEntry> faultCatalogue() { return kCatalogue; }

std::optional<Fault> faultNamed(std::string_view name) {
  const auto* entry = std::ranges::find(kCatalogue, name, &FaultEntry::name);
  return entry == std::end(kCatalogue) ? std::nullopt : std::optional(entry->fault);
}

std::size_t echoLimit(Fault fault) {
  if (fault == Fault::kDead || fault == Fault::kNoEcho) return 0;
  return fault == Fault::kPartialEcho ? 2 : kWholeEcho;
}

}  // namespace zendor::simulator
