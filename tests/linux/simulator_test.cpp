#include "simulator/simulated_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "platform/linux/linux_serial_port.h"
#include "tests/doubles.h"

namespace zendor::simulator {
namespace {

using namespace std::chrono_literals;
using doubles::k1234567, doubles::kDone, doubles::kPoll, doubles::kSerial, doubles::operator+;

const Bytes kRefusal{1, 0, 80, 5, 170};

Bytes received(const std::vector<Delivery>& deliveries) {
  Bytes bytes;
  for (const Delivery& delivery : deliveries) bytes = bytes + delivery.bytes;
  return bytes;
}

LineStation stationWith(const std::vector<const char*>& faults) {
  std::vector<FaultRule> rules;
  std::ranges::transform(faults, std::back_inserter(rules), parseFaultRule);
  return {Pod{}, rules, kByteTime};
}

TEST(SimulatorTest, EachCommandIsAnsweredFromWhatThePodIsAndRemembers) {
  const std::pair<Bytes, Bytes> rows[] = {
      {kPoll, kDone},
      {{80, 0, 1, 246, 185}, {1, 6, 80, 0, 90, 101, 110, 100, 111, 114, 55}},  // "Zendor"
      {{80, 0, 1, 245, 186}, {1, 3, 80, 0, 80, 111, 100, 137}},                // "Pod"
      {{80, 0, 1, 244, 187}, {1, 5, 80, 0, 90, 80, 45, 56, 48, 107}},          // "ZP-80"
      {{80, 0, 1, 241, 190}, {1, 3, 80, 0, 49, 46, 52, 25}},                   // "1.4"
      {{80, 0, 1, 192, 239}, {1, 8, 80, 0, 67, 117, 115, 116, 111, 109, 101, 114, 85}},
      {kSerial, k1234567},
      {{80, 0, 1, 247, 184}, {1, 3, 80, 0, 10, 255, 16, 147}},
      {{80, 2, 1, 165, 7, 9, 248}, kDone},  // set variables
      {{80, 0, 1, 247, 184}, {1, 2, 80, 0, 7, 9, 157}},
      {{80, 0, 1, 165, 10}, kDone},
      {{80, 0, 1, 247, 184}, kDone},
      {{80, 5, 1, 214, 3, 72, 105, 32, 32, 224}, kDone},  // write memory
      {{80, 1, 1, 215, 3, 212}, {1, 4, 80, 0, 72, 105, 32, 32, 186}},
      {{80, 1, 1, 215, 15, 200}, kDone},
      {{80, 1, 1, 215, 16, 199}, kRefusal},  // no such block
      {{80, 2, 1, 214, 16, 65, 134}, kRefusal},
      {{80, 0, 1, 214, 217}, kRefusal},     // data missing
      {{80, 1, 1, 254, 0, 176}, kRefusal},  // data too many
      {{80, 0, 1, 253, 178}, kRefusal},     // no such command
      {{80, 1, 1, 233, 128, 69}, kDone},
      {{80, 1, 1, 251, 81, 98}, kDone},  // change address
      {kPoll, {}},
      {{81, 0, 7, 254, 170}, {7, 0, 81, 0, 168}},
      {{81, 0, 1, 254, 177}, {}},  // wrong checksum
  };
  LineStation station = stationWith({});
  for (const auto& [request, reply] : rows)
    EXPECT_EQ(received(station.receive(request, {})), request + reply);
  Pod pod;
  pod.answer(233, {44});
  EXPECT_EQ(pod.latchedOutputs, 44);
}

TEST(SimulatorTest, EachFaultSpoilsTheExchangeByItsOwnBytesAndTimes) {
  const Bytes cut{1, 3, 80, 0, 135, 214, 18}, toTwo{2, 3, 80, 0, 135, 214, 18, 60},
      from81{1, 3, 81, 0, 135, 214, 18, 60};
  // The fault, what comes back, how many bytes of that are the reply, and how long the line rests.
  const std::tuple<const char*, Bytes, int, std::chrono::milliseconds> rows[] = {
      {"none", kSerial + k1234567, 8, 0ms},
      {"dead", {}, 0, 0ms},
      {"no-echo", k1234567, 8, 0ms},
      {"partial-echo", {80, 0}, 0, 0ms},
      {"echo-only", kSerial, 0, 0ms},
      {"short-reply", kSerial + Bytes{1, 3, 80, 0}, 4, 0ms},
      {"truncated-reply", kSerial + cut, 7, 0ms},
      {"extra-byte", kSerial + k1234567 + Bytes{0}, 9, 0ms},
      {"garbage-before", kSerial + Bytes{255, 0} + k1234567, 10, 0ms},
      {"wrong-checksum", kSerial + cut + Bytes{60}, 8, 0ms},
      {"wrong-destination", kSerial + toTwo, 8, 0ms},
      {"wrong-source", kSerial + from81, 8, 0ms},
      {"busy", kSerial + doubles::kBusy, 5, 0ms},
      {"nak", kSerial + kRefusal, 5, 0ms},
      {"unknown-header", kSerial + Bytes{1, 0, 80, 7, 168}, 5, 0ms},
      {"late-reply", kSerial + k1234567, 8, 1200ms},
      {"byte-by-byte", kSerial + k1234567, 8, 8 * 20ms}};
  ASSERT_EQ(std::size(rows), faultCatalogue().size());
  for (const auto& [fault, bytes, replyBytes, pause] : rows) {
    LineStation station = stationWith({fault});
    const auto deliveries = station.receive(kSerial, {});
    EXPECT_EQ(received(deliveries), bytes) << fault;
    if (replyBytes == 0) continue;
    EXPECT_EQ(deliveries.back().due, TimePoint{pause + kByteTime * (5 + replyBytes)}) << fault;
    EXPECT_EQ(deliveries.back().bytes.size(), replyBytes == 9 ? 2U : 1U);  // the extra byte
  }
  LineStation station = stationWith({"truncated-reply"});
  EXPECT_EQ(received(station.receive(kPoll, {})), (kPoll + Bytes{1, 1, 80, 0, 0}));
}

TEST(SimulatorTest, AFaultStrikesItsHeaderAsOftenAsToldAndTheNextRuleFollows) {
  LineStation station = stationWith({"none:254:1", "busy:254:2", "no-echo:254:1", "nak:251"});
  const Bytes changeAddress{80, 1, 1, 251, 81, 98};  // refused, and so not carried out
  for (const Bytes& expected :
       {kPoll + kDone, kPoll + doubles::kBusy, kPoll + doubles::kBusy, kDone, kPoll + kDone}) {
    EXPECT_EQ(received(station.receive(kSerial, {})), kSerial + k1234567);
    EXPECT_EQ(received(station.receive(changeAddress, {})), changeAddress + kRefusal);
    EXPECT_EQ(received(station.receive(kPoll, {})), expected);
  }
}

TEST(SimulatorTest, AFaultThatCannotBeReadIsRefused) {
  for (const char* text : {"", "bussy", "busy:", "busy:256", "busy:-1", "busy:1x", "busy:1:0",
                           "busy:1:", "busy:1:1000001", "busy:any:always:"})
    EXPECT_THROW(parseFaultRule(text), std::invalid_argument) << text;
}

TEST(SimulatorTest, EveryByteTakesItsTimeOnTheLineHoweverItIsHandedOver) {
  LineStation station = stationWith({"no-echo:242:1"});
  EXPECT_EQ(station.receive(kPoll, {})[0].due, TimePoint{kByteTime});  // the echo was held back
  station.receive(kSerial, {});                                        // uses the fault up
  const TimePoint start{1s};
  for (std::size_t i = 0; i < kPoll.size(); ++i) {  // echoed one by one, before the frame is whole
    const auto echo = station.receive(std::span(kPoll).subspan(i, 1), start + 40ms * i);
    EXPECT_EQ(echo.at(0).due, start + 40ms * i + kByteTime);
  }
  const auto deliveries = station.receive(kPoll + kPoll, start + 1s);
  ASSERT_EQ(deliveries.size(), 20U);
  EXPECT_EQ(deliveries[9].due, start + 1s + 10 * kByteTime);  // the first reply
  EXPECT_EQ(deliveries[10].due, start + 1s + 6 * kByteTime);  // meets the second request
  EXPECT_EQ(deliveries[19].due, start + 1s + 15 * kByteTime);
}

TEST(SimulatorTest, AGapEndsARequestThatIsNotWhole) {
  const Bytes noise{7, 80, 3};
  for (const char* fault : {"none", "no-echo:1"}) {
    LineStation station = stationWith({fault});
    station.receive(noise, TimePoint{1s});
    EXPECT_EQ(received(station.receive(kPoll, TimePoint{1s + 90ms})), kPoll + kDone) << fault;
    const Bytes before = received(station.receive(noise, TimePoint{2s}));
    const Bytes after = received(station.receive(kPoll, TimePoint{2s + 20ms}));
    EXPECT_EQ(before + after, noise + kPoll) << fault;
  }
}

TEST(SimulatedLineTest, KeepsThePaceOfTheLineAndRecordsTheRequests) {
  const SimulatedLine line;
  LinuxSerialPort port{[&](int) { return line.device(); }};
  port.configuration.settings = "9600,N,8,1";
  port.open();
  const auto start = std::chrono::steady_clock::now();
  port.write(kSerial);
  EXPECT_TRUE(doubles::comesTrue([&] { return port.bytesWaiting() == 13; }));
  EXPECT_GE(std::chrono::steady_clock::now() - start, 13 * kByteTime);
  EXPECT_TRUE(std::ranges::equal(port.readAll(), kSerial + k1234567));
  const Bytes wrongChecksum{80, 0, 1, 254, 0};
  port.write(wrongChecksum);
  EXPECT_TRUE(doubles::comesTrue([&] { return line.requests().size() == 2; }));
  EXPECT_EQ(line.requests(), (std::vector<Bytes>{kSerial, wrongChecksum}));
}

}  // namespace
}  // namespace zendor::simulator
