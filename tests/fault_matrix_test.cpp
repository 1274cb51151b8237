// Every fault of the simulated pod on every command of a request, once, twice and always, on a
// clock that is turned by hand: the pod and its line are the simulator's own, only time is not.
#include <gtest/gtest.h>

#include "app/frm_startup.h"
#include "simulator/line_station.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using simulator::Fault;
using simulator::TimePoint;
using testing::Bytes;

// What a person sees of a request, and the headers of the requests that went out.
struct Outcome {
  std::string shown;
  Bytes headers;
  bool hasEnded = false;
  bool isOpen = false;
  bool operator==(const Outcome&) const = default;
};

Outcome request(const simulator::FaultRule& rule) {
  testing::Machine machine;
  testing::RecordingForm form(machine.log);
  simulator::LineStation station(simulator::Pod{}, {{rule}}, simulator::kByteTime);
  machine.line.respond = [&](auto bytes) {
    const TimePoint now{std::chrono::milliseconds(machine.clock.now)};
    std::vector<testing::ScriptedLine::Piece> pieces;
    for (const auto& [due, delivered] : station.receive(bytes, now)) {
      pieces.push_back({std::chrono::duration<double, std::milli>(due - now).count(), delivered});
    }
    return pieces;
  };
  frmStartup window(form, machine.line, machine.desktop, machine.clock, {}, {});
  Outcome outcome;
  window.Form_Load();
  try {
    window.Control_Click({"cmdAccept"});
  } catch (const testing::ProgramEnded&) {
    outcome.hasEnded = true;
  }
  for (const std::string& entry : machine.log) {
    if (entry.starts_with("[") || entry.starts_with("Label1: ")) outcome.shown = entry;
  }
  for (const Bytes& frame : machine.line.written) outcome.headers.push_back(frame[3]);
  outcome.isOpen = machine.line.isOpen();
  return outcome;
}

enum class Harm { None, OneAttempt, BothAttempts, EveryAttempt };

// times: how often the fault strikes; none: always.
Harm harmOf(Fault fault, std::optional<unsigned> times) {
  if (fault == Fault::kNone || fault == Fault::kByteByByte) return Harm::None;
  // It comes within the second attempt, which takes it for its answer, as it may.
  if (fault == Fault::kLateReply) return Harm::OneAttempt;
  if (!times) return Harm::EveryAttempt;
  // The rest of the longer reply comes within the second attempt.
  return *times == 2 || fault == Fault::kGarbageBefore ? Harm::BothAttempts : Harm::OneAttempt;
}

Outcome expected(Harm harm, std::uint8_t header) {
  const Outcome noPod{"[Error] You Must Attach The Zendor!", {254, 254}};
  const auto number = [](Bytes headers) {
    return Outcome{"Label1: C-1234567", std::move(headers)};
  };
  const auto ended = [](Bytes headers) {
    return Outcome{"[Error] You Zendor maybe Faulty", std::move(headers), true, true};
  };
  if (harm == Harm::None) return number({254, 192, 242});
  const bool once = harm == Harm::OneAttempt;
  const bool twice = harm == Harm::BothAttempts;
  switch (header) {
    case 254:
      return once ? number({254, 254, 192, 242}) : noPod;
    case 192:
      if (once) return number({254, 192, 192, 242});
      return twice ? number({254, 192, 192, 192, 242}) : ended({254, 192, 192, 192, 192});
    default:
      if (once) return number({254, 192, 242, 242});
      return twice ? number({254, 192, 242, 242, 192, 242})
                   : ended({254, 192, 242, 242, 192, 242, 242});
  }
}

std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
  return stream << outcome.shown << " after " << ::testing::PrintToString(outcome.headers)
                << (outcome.hasEnded ? ", ended" : "") << (outcome.isOpen ? ", open" : "");
}

TEST(FaultMatrix, EveryFaultOnEveryCommandOnceTwiceAndAlwaysHasItsOutcome) {
  for (const auto& entry : simulator::faultCatalogue()) {
    for (const std::uint8_t header : Bytes{254, 192, 242}) {
      for (const std::optional<unsigned> times : {std::optional(1U), std::optional(2U), {}}) {
        EXPECT_EQ(request({entry.fault, header, times}),
                  expected(harmOf(entry.fault, times), header))
            << entry.name << " on " << int{header} << ", times " << times.value_or(0);
      }
    }
  }
}

}  // namespace
}  // namespace zendor
