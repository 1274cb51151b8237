#include <gtest/gtest.h>

#include <limits>

#include "device/device_commands.h"
#include "device/pod.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using testing::Bytes;
using testing::operator+;

class DeviceTest : public ::testing::Test {
 protected:
  // Answers the next write with an echo of that many bytes and the reply.
  void play(std::size_t echo, const Bytes& reply) {
    line.script.push_back({{0, Bytes(echo) + reply}});
  }

  testing::HandClock clock;
  testing::RecordingDesktop desktop{clock};
  testing::ScriptedLine line{clock};
  ErrorReports reports{desktop, {}};
  PortControl control{line, desktop, reports, {}};
  Transaction transaction{line, desktop, clock, control, reports, {}};
  DeviceCommands commands{transaction};
  Pod pod{commands, transaction.stores()};
};

TEST_F(DeviceTest, EachCommandSendsItsFrameAndNamesItsReply) {
  struct Row {
    std::function<std::string()> run;
    Bytes request;  // length, source, header and data
    Bytes reply;    // the whole frame
    const char* result;
  };
  const std::vector<double> values{1, 2.5, 3.5, 254.5};
  const Bytes none{1, 0, 80, 0, 175}, ab{1, 2, 80, 0, 65, 66, 42};
  const Row rows[] = {
      {[&] { return commands.DRAVO_Poll(false, false, 80, 1); }, {0, 1, 254}, ab, "Poll = Data"},
      {[&] { return commands.DRAVO_RequestManufacturer(false, 80, 1); },
       {0, 1, 246},
       ab,
       "Manufacturer = AB"},
      {[&] { return commands.DRAVO_RequestCategory(false, 80, 1); },
       {0, 1, 245},
       ab,
       "Category = AB"},
      {[&] { return commands.DRAVO_RequestProductCode(false, 80, 1); },
       {0, 1, 244},
       ab,
       "Product code = AB"},
      {[&] { return commands.DRAVO_RequestSerialNumber(false, 80, 1); },
       {0, 1, 242},
       {1, 3, 80, 0, 135, 214, 18, 61},
       "Serial no. = 1,234,567"},
      {[&] { return commands.DRAVO_RequestSoftwareRevision(false, 80, 1); },
       {0, 1, 241},
       ab,
       "Software revision = AB"},
      {[&] { return commands.DRAVO_RequestBuildCode(false, 80, 1); },
       {0, 1, 192},
       none,
       "Build code = OK"},
      {[&] { return commands.DRAVO_RequestVariableSet(false, 80, 1); },
       {0, 1, 247},
       ab,
       "Variable set = 41 42 "},
      {[&] { return commands.DRAVO_SetVariables(false, values, 80, 1); },
       {4, 1, 165, 1, 2, 4, 254},
       none,
       "Set variables = OK"},
      {[&] { return commands.DRAVO_SetVariables(false, {}, 80, 1); },
       {0, 1, 165},
       none,
       "Set variables = OK"},
      {[&] { return commands.DRAVO_MemoryRead(false, 3, 80, 1); },
       {1, 1, 215, 3},
       ab,
       "Memory read = AB"},
      {[&] { return commands.DRAVO_MemoryWrite(false, 3, "Hi", 4, 80, 1); },
       {5, 1, 214, 3, 72, 105, 32, 32},
       none,
       "Memory write = OK"},
      {[&] { return commands.DRAVO_MemoryWrite(false, 3, "\u00E9\u20AC", 1, 80, 1); },
       {2, 1, 214, 3, 233},
       none,
       "Memory write = OK"},
      {[&] { return commands.DRAVO_MemoryWrite(false, 3, "ABC", -1, 80, 1); },
       {1, 1, 214, 3},
       none,
       "Memory write = OK"},
      {[&] { return commands.DRAVO_LatchOutputs(300, 80, 1); },
       {1, 1, 233, 44},
       none,
       "Latch outputs = OK"},
      {[&] { return commands.DRAVO_ChangeAddress(81, 80, 1); },
       {1, 1, 251, 81},
       none,
       "MDCES Change = OK"},
  };
  for (const Row& row : rows) {
    line.written.clear();
    play(row.request.size() + 2, row.reply);
    EXPECT_EQ(row.run(), row.result);
    ASSERT_EQ(line.written.size(), 1U) << row.result;
    Bytes frame = line.written[0];
    frame.pop_back();  // its checksum
    EXPECT_EQ(frame, Bytes{80} + row.request) << row.result;
  }
}

TEST_F(DeviceTest, WaitsASecondForAReplyAndATenthForAQuickPoll) {
  commands.DRAVO_Poll(false, true, 80, 1);
  EXPECT_EQ(clock.now, 2U * 102U);
  commands.DRAVO_MemoryRead(false, 1, 80, 1);
  EXPECT_EQ(clock.now, 2U * 102U + 2U * 1002U);
}

TEST_F(DeviceTest, AsksToRetryWhereTheCallerWantsItAndAlwaysForLatchAndAddress) {
  commands.DRAVO_RequestCategory(false, 80, 1);
  EXPECT_EQ(desktop.shown.size(), 0U);
  commands.DRAVO_RequestCategory(true, 80, 1);
  EXPECT_EQ(commands.DRAVO_LatchOutputs(1, 80, 1), "Error : User aborted dravo command");
  EXPECT_EQ(commands.DRAVO_ChangeAddress(1, 80, 1), "Error : User aborted dravo command");
  EXPECT_EQ(desktop.shown.size(), 3U);
}

TEST_F(DeviceTest, SendsNothingForAnArgumentThatDoesNotFit) {
  const std::vector<double> many(256, 1);
  const std::string results[] = {
      commands.DRAVO_SetVariables(false, std::vector<double>{1, 255.5}, 80, 1),
      commands.DRAVO_SetVariables(false, std::vector<double>{-0.6}, 80, 1),
      commands.DRAVO_SetVariables(
          false, std::vector<double>{std::numeric_limits<double>::quiet_NaN()}, 80, 1),
      commands.DRAVO_SetVariables(false, many, 80, 1),
      commands.DRAVO_MemoryRead(false, 256, 80, 1),
      commands.DRAVO_MemoryWrite(false, 0, "", 255, 80, 1),
      commands.DRAVO_MemoryWrite(false, 0, "a\u20AC", 2, 80, 1),
      commands.DRAVO_LatchOutputs(-1, 80, 1),
      commands.DRAVO_ChangeAddress(-1, 80, 1),
      commands.DRAVO_Poll(false, false, 300, 1)};
  for (const std::string& result : results) EXPECT_TRUE(result.starts_with("Error : ")) << result;
  EXPECT_TRUE(line.written.empty());
  EXPECT_TRUE(desktop.shown.empty());
}

const Bytes kCustomer{1, 8, 80, 0, 67, 117, 115, 116, 111, 109, 101, 114, 85};
const Bytes kEngineer{1, 8, 80, 0, 69, 110, 103, 105, 110, 101, 101, 114, 122};

TEST_F(DeviceTest, ReadsTheIdentityFromTheRawBytes) {
  struct Row {
    Bytes buildCode;
    Bytes serial;
    const char* type;
    std::int32_t number;
  };
  const Row rows[] = {
      {kCustomer, {1, 3, 80, 0, 135, 214, 18, 61}, "Customer", 1234567},
      {kEngineer, {1, 3, 80, 0, 255, 255, 255, 175}, "Engineer", 16777215},
      {kEngineer, {1, 3, 80, 0, 0, 0, 0, 172}, "Engineer", 0},
      {kCustomer, {1, 4, 80, 0, 1, 0, 0, 9, 161}, "Customer", 1},
      {kCustomer, {1, 2, 80, 0, 1, 1, 171}, "Fail", -7},  // fewer than three bytes
      {kCustomer, {1, 0, 80, 0, 175}, "Fail", -7},
  };
  for (const Row& row : rows) {
    play(5, row.buildCode);
    play(5, row.serial);
    std::int32_t number = -7;
    EXPECT_EQ(pod.Pod_ReadIdentity(number, 0, 80, 1), row.type);
    EXPECT_EQ(number, row.number);
  }
}

TEST_F(DeviceTest, StartsTheSecondReadFromTheBuildCodeAndNeverAsksAStrangerForItsNumber) {
  const Bytes lowerCase{1, 8, 80, 0, 99, 117, 115, 116, 111, 109, 101, 114, 53};
  std::int32_t number = -7;
  for (int i = 0; i < 2; ++i) play(5, lowerCase);
  EXPECT_EQ(pod.Pod_ReadIdentity(number, 2, 80, 1), "Fail");
  EXPECT_EQ(line.written, (std::vector<Bytes>(2, {80, 0, 1, 192, 239})));
  EXPECT_EQ(number, -7);

  line.written.clear();
  for (int i = 0; i < 2; ++i) play(5, kCustomer + Bytes{0});  // too many bytes, twice
  play(5, kEngineer);
  play(5, {1, 3, 80, 0, 42, 0, 0, 130});
  EXPECT_EQ(pod.Pod_ReadIdentity(number, 2, 80, 1), "Engineer");
  EXPECT_EQ(number, 42);
  EXPECT_EQ(line.written.size(), 4U);
}

}  // namespace
}  // namespace zendor
