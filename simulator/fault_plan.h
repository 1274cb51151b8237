// Which fault strikes which request.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "simulator/fault.h"

namespace zendor::simulator {

struct FaultRule {
  const Fault* fault;
  std::optional<std::uint8_t> header{};  // of the requests that it strikes; none: any header
  std::optional<unsigned> times{};       // how many more requests it strikes; none: all
};

// Reads a fault's name and what it strikes: "busy", "busy:254", "busy:254:2" or "busy:any:always".
// Throws std::invalid_argument with a sentence for people.
FaultRule parseFaultRule(std::string_view text);

class FaultPlan {
 public:
  FaultPlan() = default;
  FaultPlan(std::vector<FaultRule> rules) : rules_(std::move(rules)) {}

  // The fault that strikes the next request, which has this header: that of the first rule for the
  // header that is not used up. The call counts as a use of the rule. Without such a rule, the
  // fault is the one that spoils nothing.
  const Fault& next(std::uint8_t header);

  // Whether a request yet to come can lose its echo.
  bool canLoseEcho() const;

 private:
  std::vector<FaultRule> rules_;
};

}  // namespace zendor::simulator
