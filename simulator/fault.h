// The catalogue of what can go wrong between a host and a pod.
#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <string_view>

namespace zendor::simulator {

enum class Fault {
  None,
  Dead,
  NoEcho,
  PartialEcho,
  EchoOnly,
  ShortReply,
  TruncatedReply,
  ExtraByte,
  GarbageBefore,
  WrongChecksum,
  WrongDestination,
  WrongSource,
  Busy,
  Nak,
  UnknownHeader,
  LateReply,
  ByteByByte,
};

struct FaultEntry {
  Fault fault;
  std::string_view name;
  std::string_view whatItDoes;  // a sentence
};

// Every fault once.
std::span<const FaultEntry> faultCatalogue();

std::optional<Fault> faultNamed(std::string_view name);

constexpr std::size_t kWholeEcho = std::numeric_limits<std::size_t>::max();

// How many bytes of the request come back as its echo.
std::size_t echoLimit(Fault fault);

}  // namespace zendor::simulator
