#include "simulator/fault.h"

#include <algorithm>

namespace zendor::simulator {

namespace {

constexpr FaultEntry kCatalogue[] = {
    {Fault::None, "none", "Nothing goes wrong; lets some requests pass before another fault."},
    {Fault::Dead, "dead", "Nothing comes back, neither echo nor reply."},
    {Fault::NoEcho, "no-echo", "The reply comes back without the echo."},
    {Fault::PartialEcho, "partial-echo", "Two bytes of the echo come back and nothing else."},
    {Fault::EchoOnly, "echo-only", "The echo comes back and the pod stays silent."},
    {Fault::ShortReply, "short-reply", "The reply breaks off after four bytes."},
    {Fault::TruncatedReply, "truncated-reply",
     "The reply's last byte is missing; a reply without data is given a data byte first."},
    {Fault::ExtraByte, "extra-byte", "One byte too many arrives together with the reply's last."},
    {Fault::GarbageBefore, "garbage-before", "The bytes 255 and 0 come before the reply."},
    {Fault::WrongChecksum, "wrong-checksum", "The reply's checksum is one too low."},
    {Fault::WrongDestination, "wrong-destination",
     "The reply goes to the address after the host's; its checksum is right."},
    {Fault::WrongSource, "wrong-source",
     "The reply comes from the address after the pod's; its checksum is right."},
    {Fault::Busy, "busy", "The pod does not act and replies that it is busy (6)."},
    {Fault::Nak, "nak", "The pod does not act and replies that it refuses (5)."},
    {Fault::UnknownHeader, "unknown-header",
     "The pod does not act and replies a code that means nothing (7)."},
    {Fault::LateReply, "late-reply", "The reply begins 1200 ms after the request."},
    {Fault::ByteByByte, "byte-by-byte", "Before each byte of the reply the line rests for 20 ms."},
};

}  // namespace

std::span<const FaultEntry> faultCatalogue() { return kCatalogue; }

std::optional<Fault> faultNamed(std::string_view name) {
  const auto* entry = std::ranges::find(kCatalogue, name, &FaultEntry::name);
  return entry == std::end(kCatalogue) ? std::nullopt : std::optional(entry->fault);
}

std::size_t echoLimit(Fault fault) {
  if (fault == Fault::Dead || fault == Fault::NoEcho) return 0;
  return fault == Fault::PartialEcho ? 2 : kWholeEcho;
}

}  // namespace zendor::simulator
