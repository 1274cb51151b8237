#include <gtest/gtest.h>

#include "device/device_commands.h"
#include "device/pod.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using doubles::Bytes, doubles::operator+;

// Commands go to address 81 from address 7 here, so that a test fails where an address is fixed.
class DeviceTest : public testing::Test, protected doubles::FakePlatform {
 protected:
  DeviceTest() { line.open(); }

  ErrorReports reports{desktop, {}};
  PortControl control{line, desktop, reports};
  FrameStores stores;
  Transaction transaction{stores, line, desktop, clock, control, reports, {}};
  DeviceCommands commands{transaction};
  Pod pod{commands, stores};
};

TEST_F(DeviceTest, EachCommandSendsItsFrameNamesItsReplyAndAsksWhereItIsToAsk) {
  using Device = DeviceCommands;
  const auto call = [&](auto routine, auto... arguments) {
    return [=, this](bool prompt) { return (commands.*routine)(prompt, arguments..., 81, 7); };
  };
  const auto latch = [&](bool) { return commands.DRAVO_LatchOutputs(300, 81, 7); };
  const auto change = [&](bool) { return commands.DRAVO_ChangeAddress(82, 81, 7); };
  const auto set = &Device::DRAVO_SetVariables;
  const auto write = &Device::DRAVO_MemoryWrite;
  using Values = std::vector<double>;
  const Bytes ok{7, 0, 81, 0, 168}, ab{7, 2, 81, 0, 65, 66, 35};
  const std::tuple<std::function<std::string(bool prompt)>, Bytes, Bytes, const char*> rows[] = {
      {call(&Device::DRAVO_Poll, false), {81, 0, 7, 254, 170}, ab, "Poll = Data"},
      {call(&Device::DRAVO_RequestManufacturer), {81, 0, 7, 246, 178}, ab, "Manufacturer = AB"},
      {call(&Device::DRAVO_RequestCategory), {81, 0, 7, 245, 179}, ab, "Category = AB"},
      {call(&Device::DRAVO_RequestProductCode), {81, 0, 7, 244, 180}, ab, "Product code = AB"},
      {call(&Device::DRAVO_RequestSerialNumber), {81, 0, 7, 242, 182}, ab, "Serial no. = 16,961"},
      {call(&Device::DRAVO_RequestSoftwareRevision),
       {81, 0, 7, 241, 183},
       ab,
       "Software revision = AB"},
      {call(&Device::DRAVO_RequestBuildCode), {81, 0, 7, 192, 232}, ok, "Build code = OK"},
      {call(&Device::DRAVO_RequestVariableSet), {81, 0, 7, 247, 177}, ab, "Variable set = 41 42 "},
      {call(set, Values{2.5, 254.6}), {81, 2, 7, 165, 2, 255, 0}, ok, "Set variables = OK"},
      {call(set, Values{}), {81, 0, 7, 165, 3}, ok, "Set variables = OK"},
      {call(set, Values(255, 9)), Bytes{81, 255, 7, 165} + Bytes(255, 9) + Bytes{13}, ab,
       "Set variables = Data"},
      {call(write, 3, "Hi", 4), {81, 5, 7, 214, 3, 72, 105, 32, 32, 217}, ok, "Memory write = OK"},
      {call(write, 3, "\u00E9\u20AC", 1), {81, 2, 7, 214, 3, 233, 228}, ok, "Memory write = OK"},
      {call(write, 3, "ABC", -1), {81, 1, 7, 214, 3, 206}, ok, "Memory write = OK"},
      {call(write, 3, "", 254), Bytes{81, 255, 7, 214, 3} + Bytes(254, 32) + Bytes{16}, ok,
       "Memory write = OK"},
      {call(&Device::DRAVO_MemoryRead, 208), {81, 1, 7, 215, 208, 0}, ab, "Memory read = AB"},
      {latch, {81, 1, 7, 233, 44, 146}, ok, "Latch outputs = OK"},
      {change, {81, 1, 7, 251, 82, 90}, ok, "MDCES Change = OK"}};
  for (const auto& [run, request, reply, result] : rows) {
    line.written.clear();
    play(request.size(), reply);
    EXPECT_EQ(run(true), result);
    EXPECT_EQ(line.written, std::vector<Bytes>{request}) << result;
    const bool alwaysAsks = request[3] == 233 || request[3] == 251;
    for (const bool prompt : {false, true}) {  // nobody answers
      desktop.answers = {MessageAnswer::No};
      const std::uint32_t start = clock.now;
      EXPECT_EQ(run(prompt), prompt || alwaysAsks ? "Error : User aborted dravo command"
                                                  : "Error : All comms is dead");
      EXPECT_EQ(clock.now - start, 2U * 1002U) << result;
    }
  }
  const std::uint32_t start = clock.now;
  commands.DRAVO_Poll(false, true, 81, 7);
  EXPECT_EQ(clock.now - start, 2U * 102U);  // the quick poll
}

TEST_F(DeviceTest, SendsNothingForAnArgumentThatDoesNotFit) {
  const std::vector<double> big{1, 255.5}, negative{-0.6}, many(256, 1);
  Command notOfBytes;
  notOfBytes.request = "215,256";
  const std::string block = "The block number does not fit in one byte";
  const std::pair<std::string, std::string> refusals[] = {
      {commands.DRAVO_SetVariables(false, big, 81, 7), "A variable does not fit in one byte"},
      {commands.DRAVO_SetVariables(false, negative, 81, 7), "A variable does not fit in one byte"},
      {commands.DRAVO_SetVariables(false, many, 81, 7), "The request has more than 255 data bytes"},
      {commands.DRAVO_MemoryRead(false, 256, 81, 7), block},
      {commands.DRAVO_MemoryWrite(false, -1, "", 0, 81, 7), block},
      {commands.DRAVO_MemoryWrite(false, 0, "", 255, 81, 7),
       "More than 254 characters cannot be written"},
      {commands.DRAVO_MemoryWrite(false, 0, "a\u20AC", 2, 81, 7),
       "The text holds a character that has no byte"},
      {commands.DRAVO_LatchOutputs(-256, 81, 7), "The latch value is negative"},
      {commands.DRAVO_ChangeAddress(256, 81, 7), "The new address does not fit in one byte"},
      {commands.DRAVO_Poll(false, false, 300, 7),
       "The destination address does not fit in one byte"},
      {commands.DRAVO_Poll(false, false, 81, -1), "The source address does not fit in one byte"},
      {transaction.LL_DRAVO_Send(notOfBytes),
       "The request holds an item that is not a number from 0 to 255"}};
  for (const auto& [result, reason] : refusals) EXPECT_EQ(result, "Error : " + reason);
  EXPECT_EQ(log, doubles::Log{"open"});
}

TEST_F(DeviceTest, ReadsTheIdentityFromTheRawBytesAndStartsTheSecondReadFromTheBuildCode) {
  const Bytes customer{7, 8, 81, 0, 67, 117, 115, 116, 111, 109, 101, 114, 78},
      engineer{7, 8, 81, 0, 69, 110, 103, 105, 110, 101, 101, 114, 115},
      stranger{7, 9, 81, 0, 67, 117, 115, 116, 111, 109, 101, 114, 32, 45},  // a blank follows
      tooLong = customer + Bytes{0}, wrongSum{7, 3, 81, 0, 1, 0, 0, 0};
  const std::tuple<int, std::vector<Bytes>, const char*, std::int32_t> rows[] = {
      {INT32_MIN, {customer, {7, 3, 81, 0, 135, 214, 18, 54}}, "Customer", 1234567},
      {1, {engineer, {7, 3, 81, 0, 255, 255, 255, 168}}, "Engineer", 16777215},
      {1, {customer, {7, 4, 81, 0, 1, 0, 0, 9, 154}}, "Customer", 1},
      {1, {customer, {7, 2, 81, 0, 1, 1, 164}}, "Fail", -9},  // fewer than three bytes
      {1, {customer, {7, 0, 81, 0, 168}}, "Fail", -9},  // none; those of the build code are stored
      {0, {customer, wrongSum, wrongSum}, "Fail", -9},
      {2, {stranger, stranger}, "Fail", -9},  // is not asked for a number
      {2, {tooLong, tooLong, engineer, {7, 3, 81, 0, 42, 0, 0, 123}}, "Engineer", 42}};
  for (const auto& [attempts, replies, type, expected] : rows) {
    for (const Bytes& reply : replies) play(5, reply);
    std::int32_t number = -9;
    EXPECT_EQ(pod.Pod_ReadIdentity(number, attempts, 81, 7), type);
    EXPECT_EQ(number, expected);
    EXPECT_EQ(std::exchange(line.written, {}).size(), replies.size());
  }
}

TEST_F(DeviceTest, APodIsAttachedWhateverItsGoodAnswerToAPollHolds) {
  play(5, {1, 1, 80, 0, 9, 165});
  EXPECT_TRUE(pod.Pod_IsAttached());
  play(5, doubles::kDone);
  EXPECT_TRUE(pod.Pod_IsAttached());
  for (int attempt = 0; attempt < 2; ++attempt) play(5, doubles::kBusy);
  EXPECT_FALSE(pod.Pod_IsAttached());
}

}  // namespace
}  // namespace zendor
