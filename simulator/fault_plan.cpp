#include "simulator/fault_plan.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <string>

namespace zendor::simulator {

namespace {

// Cuts a field, up to the next ":", off the front of the text; nothing when no text is left.
std::optional<std::string_view> cutField(std::optional<std::string_view>& text) {
  if (!text) return std::nullopt;
  const std::size_t end = text->find(':');
  const std::string_view field = text->substr(0, end);
  text = end == std::string_view::npos ? std::nullopt : std::optional(text->substr(end + 1));
  return field;
}

std::optional<unsigned> numberIn(std::string_view text, unsigned least, unsigned most) {
  unsigned number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  const bool fits = error == std::errc() && stop == end && number >= least && number <= most;
  return fits ? std::optional(number) : std::nullopt;
}

// A field that is missing or that holds the given word sets no limit.
std::optional<unsigned> readLimit(std::optional<std::string_view> field, std::string_view word,
                                  unsigned least, unsigned most, const std::string& complaint) {
  if (!field || *field == word) return std::nullopt;
  const auto number = numberIn(*field, least, most);
  if (!number) throw std::invalid_argument(complaint);
  return number;
}

bool isUsedUp(const FaultRule& rule) { return rule.times == 0U; }

}  // namespace

FaultRule parseFaultRule(std::string_view text) {
  const std::string quoted = "\"" + std::string(text) + "\"";
  std::optional<std::string_view> rest = text;
  const std::string_view name = *cutField(rest);
  const auto headerField = cutField(rest);
  const auto timesField = cutField(rest);
  const auto fault = std::ranges::find(faultCatalogue(), name, &Fault::name);
  if (fault == faultCatalogue().end())
    throw std::invalid_argument("There is no fault \"" + std::string(name) + "\".");
  if (rest) throw std::invalid_argument(quoted + " has more parts than fault:header:times.");

  constexpr unsigned kMostTimes = 1'000'000;
  const auto header = readLimit(headerField, "any", 0, 255,
                                "The header in " + quoted + " is neither 0 to 255 nor \"any\".");
  const auto times =
      readLimit(timesField, "always", 1, kMostTimes,
                "The times in " + quoted + " are neither 1 to 1000000 nor \"always\".");
  FaultRule rule{&*fault, std::nullopt, times};
  if (header) rule.header = static_cast<std::uint8_t>(*header);
  return rule;
}

const Fault& FaultPlan::next(std::uint8_t header) {
  const auto rule = std::ranges::find_if(rules_, [&](const FaultRule& candidate) {
    return !isUsedUp(candidate) && candidate.header.value_or(header) == header;
  });
  if (rule == rules_.end()) return faultCatalogue().front();
  if (rule->times) --*rule->times;
  return *rule->fault;
}

bool FaultPlan::canLoseEcho() const {
  return std::ranges::any_of(rules_, [](const FaultRule& rule) {
    return !isUsedUp(rule) && rule.fault->echoLimit != kWholeEcho;
  });
}

}  // namespace zendor::simulator
