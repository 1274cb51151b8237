// Every fault of the simulated pod on every command of a request, once, twice and always. The pod
// and its line are those of the simulator, but the clock is turned by hand.
#include <gtest/gtest.h>

#include <map>

#include "app/frm_startup.h"
#include "simulator/line_station.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using simulator::TimePoint, doubles::Bytes;

// The headers that a request sends, the last thing that it shows to a person, and whether it ends
// the program and leaves the port open.
std::string request(const simulator::FaultRule& rule) {
  doubles::FakePlatform platform;
  doubles::RecordingForm form(platform.log);
  simulator::LineStation station(simulator::Pod{}, {{rule}}, simulator::kByteTime);
  platform.line.respond = [&](auto bytes) {
    const TimePoint now{std::chrono::milliseconds(platform.clock.now)};
    doubles::ScriptedLine::Pieces pieces;
    for (const auto& [due, delivered] : station.receive(bytes, now))
      pieces.emplace(std::chrono::duration<double, std::milli>(due - now).count(), delivered);
    return pieces;
  };
  frmStartup window(form, platform.line, platform.desktop, platform.clock, {}, {});
  window.Form_Load();
  std::string end;
  try {
    window.Control_Click({"cmdAccept"});
  } catch (const doubles::ProgramEnded&) {
    end = ", ended";
  }
  if (platform.line.isOpen()) end += ", open";
  std::string headers, shown;
  for (const Bytes& frame : platform.line.written) headers += std::to_string(frame[3]) + " ";
  for (const std::string& entry : platform.log) {
    if (entry.starts_with("(x) ") || entry.starts_with("Label1: ")) shown = entry;
  }
  return headers + shown + end;
}

enum Harm { NoAttempt, OneAttempt, BothAttempts, EveryAttempt };

// Without times the fault always strikes.
Harm harmOf(std::string_view fault, std::optional<unsigned> times) {
  if (fault == "none" || fault == "byte-by-byte") return NoAttempt;
  // The late reply comes during the second attempt, and is a good answer to that one too.
  if (fault == "late-reply") return OneAttempt;
  if (!times) return EveryAttempt;
  // After garbage, the end of the reply comes during the second attempt and spoils that one too.
  return *times == 2 || fault == "garbage-before" ? BothAttempts : OneAttempt;
}

const char* const kGood = "254 192 242 Label1: C-1234567";
const char* const kNoPod = "254 254 (x) [Error] You Must Attach The Zendor!";

// For the command that is struck, what comes of each harm.
const std::map<std::uint8_t, std::vector<std::string>> kOutcomes{
    {254, {kGood, "254 254 192 242 Label1: C-1234567", kNoPod, kNoPod}},
    {192,
     {kGood, "254 192 192 242 Label1: C-1234567", "254 192 192 192 242 Label1: C-1234567",
      "254 192 192 192 192 (x) [Error] You Zendor maybe Faulty, ended, open"}},
    {242,
     {kGood, "254 192 242 242 Label1: C-1234567", "254 192 242 242 192 242 Label1: C-1234567",
      "254 192 242 242 192 242 242 (x) [Error] You Zendor maybe Faulty, ended, open"}}};

TEST(FaultMatrix, EveryFaultOnEveryCommandOnceTwiceAndAlwaysHasItsOutcome) {
  for (const auto& fault : simulator::faultCatalogue()) {
    for (const auto& [header, outcomes] : kOutcomes) {
      for (const std::optional<unsigned> times : {std::optional(1U), std::optional(2U), {}}) {
        EXPECT_EQ(request({&fault, header, times}), outcomes[harmOf(fault.name, times)])
            << fault.name << " on " << int{header} << ", times " << times.value_or(0);
      }
    }
  }
}

}  // namespace
}  // namespace zendor
