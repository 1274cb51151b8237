#include <gtest/gtest.h>

#include "device/device_commands.h"
#include "device/pod.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using testing::Bytes;
using testing::operator+;

// The device has address 81 here and the host 7, so that no address can be a fixed one.
class DeviceTest : public ::testing::Test, protected testing::Machine {
 protected:
  DeviceTest() { line.open(); }

  ErrorReports reports{desktop, {}};
  PortControl control{line, desktop, reports};
  Transaction transaction{line, desktop, clock, control, reports, {}};
  DeviceCommands commands{transaction};
  Pod pod{commands, transaction.stores()};
};

TEST_F(DeviceTest, EachCommandSendsItsFrameNamesItsReplyAndAsksWhereItIsToAsk) {
  struct Row {
    std::function<std::string(bool prompt)> run;
    Bytes request;  // length, source, header and data
    Bytes reply;
    const char* result;
    bool alwaysAsks = false;
  };
  const auto plain = [&](auto routine) {
    return [&, routine](bool prompt) { return (commands.*routine)(prompt, 81, 7); };
  };
  const auto set = [&](const std::vector<double>& values) {
    return [&, values](bool prompt) { return commands.DRAVO_SetVariables(prompt, values, 81, 7); };
  };
  const auto write = [&](const char* text, int length) {
    return [&, text, length](bool prompt) {
      return commands.DRAVO_MemoryWrite(prompt, 3, text, length, 81, 7);
    };
  };
  const Bytes done{7, 0, 81, 0, 168}, ab{7, 2, 81, 0, 65, 66, 35};
  using Device = DeviceCommands;
  const Row rows[] = {
      {plain(&Device::DRAVO_RequestManufacturer), {0, 7, 246}, ab, "Manufacturer = AB"},
      {plain(&Device::DRAVO_RequestCategory), {0, 7, 245}, ab, "Category = AB"},
      {plain(&Device::DRAVO_RequestProductCode), {0, 7, 244}, ab, "Product code = AB"},
      {plain(&Device::DRAVO_RequestSerialNumber), {0, 7, 242}, ab, "Serial no. = 16,961"},
      {plain(&Device::DRAVO_RequestSoftwareRevision), {0, 7, 241}, ab, "Software revision = AB"},
      {plain(&Device::DRAVO_RequestBuildCode), {0, 7, 192}, done, "Build code = OK"},
      {plain(&Device::DRAVO_RequestVariableSet), {0, 7, 247}, ab, "Variable set = 41 42 "},
      {set({1, 2.5, 3.5, 255.4}), {4, 7, 165, 1, 2, 4, 255}, done, "Set variables = OK"},
      {set({}), {0, 7, 165}, done, "Set variables = OK"},
      {set(std::vector<double>(255, 9)), Bytes{255, 7, 165} + Bytes(255, 9), ab,
       "Set variables = Data"},
      {write("Hi", 4), {5, 7, 214, 3, 72, 105, 32, 32}, done, "Memory write = OK"},
      {write("\u00E9\u20AC", 1), {2, 7, 214, 3, 233}, done, "Memory write = OK"},
      {write("ABC", -1), {1, 7, 214, 3}, done, "Memory write = OK"},
      {write("", 254), Bytes{255, 7, 214, 3} + Bytes(254, 32), done, "Memory write = OK"},
      {[&](bool prompt) { return commands.DRAVO_MemoryRead(prompt, 3, 81, 7); },
       {1, 7, 215, 3},
       ab,
       "Memory read = AB"},
      {[&](bool prompt) { return commands.DRAVO_Poll(prompt, false, 81, 7); },
       {0, 7, 254},
       ab,
       "Poll = Data"},
      {[&](bool) { return commands.DRAVO_LatchOutputs(300, 81, 7); },
       {1, 7, 233, 44},
       done,
       "Latch outputs = OK",
       true},
      {[&](bool) { return commands.DRAVO_ChangeAddress(82, 81, 7); },
       {1, 7, 251, 82},
       done,
       "MDCES Change = OK",
       true}};
  for (const Row& row : rows) {
    line.written.clear();
    play(row.request.size() + 2, row.reply);
    EXPECT_EQ(row.run(true), row.result);
    ASSERT_EQ(line.written.size(), 1U) << row.result;
    line.written[0].pop_back();  // the checksum
    EXPECT_EQ(line.written[0], Bytes{81} + row.request) << row.result;
    for (const bool prompt : {false, true}) {  // nobody answers
      desktop.shown.clear();
      desktop.answers = {MessageAnswer::No};
      const std::uint32_t start = clock.now;
      EXPECT_TRUE(row.run(prompt).starts_with("Error : ")) << row.result;
      EXPECT_EQ(desktop.shown.empty(), !prompt && !row.alwaysAsks) << row.result;
      EXPECT_EQ(clock.now - start, 2U * 1002U) << row.result;
    }
  }
  const std::uint32_t start = clock.now;
  commands.DRAVO_Poll(false, true, 81, 7);
  EXPECT_EQ(clock.now - start, 2U * 102U);  // the quick one
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
  EXPECT_EQ(log, testing::Log{"open"});
}

TEST_F(DeviceTest, ReadsTheIdentityFromTheRawBytes) {
  struct Row {
    Bytes buildCode;
    Bytes serial;
    const char* type;
    std::int32_t number;
  };
  const Bytes customer{7, 8, 81, 0, 67, 117, 115, 116, 111, 109, 101, 114, 78};
  const Bytes engineer{7, 8, 81, 0, 69, 110, 103, 105, 110, 101, 101, 114, 115};
  const Row rows[] = {{customer, {7, 3, 81, 0, 135, 214, 18, 54}, "Customer", 1234567},
                      {engineer, {7, 3, 81, 0, 255, 255, 255, 168}, "Engineer", 16777215},
                      {customer, {7, 4, 81, 0, 1, 0, 0, 9, 154}, "Customer", 1},
                      {customer, {7, 2, 81, 0, 1, 1, 164}, "Fail", -9},    // fewer than three bytes
                      {customer, {7, 3, 81, 0, 1, 0, 0, 0}, "Fail", -9}};  // a wrong checksum
  for (const Row& row : rows) {
    play(5, row.buildCode);
    play(5, row.serial);
    play(5, row.serial);
    std::int32_t number = -9;
    EXPECT_EQ(pod.Pod_ReadIdentity(number, INT32_MIN, 81, 7), row.type);
    EXPECT_LE(std::exchange(line.written, {}).size(), 3U);  // of a single read
    EXPECT_EQ(number, row.number);
    line.script.clear();
  }
  EXPECT_TRUE(desktop.shown.empty());
}

TEST_F(DeviceTest, StartsTheSecondReadFromTheBuildCodeAndNeverAsksAStrangerForItsNumber) {
  const Bytes trailingBlank{1, 9, 80, 0, 67, 117, 115, 116, 111, 109, 101, 114, 32, 52};
  std::int32_t number = -9;
  for (int i = 0; i < 2; ++i) play(5, trailingBlank);
  EXPECT_EQ(pod.Pod_ReadIdentity(number, 2, 80, 1), "Fail");
  EXPECT_EQ(line.written, (std::vector<Bytes>(2, testing::kBuildCode)));
  EXPECT_EQ(number, -9);

  line.written.clear();
  for (int i = 0; i < 2; ++i) play(5, testing::kCustomer + Bytes{0});  // too many bytes, twice
  play(5, testing::kEngineer);
  play(5, {1, 3, 80, 0, 42, 0, 0, 130});
  EXPECT_EQ(pod.Pod_ReadIdentity(number, 2, 80, 1), "Engineer");
  EXPECT_EQ(number, 42);
  EXPECT_EQ(line.written.size(), 4U);
  EXPECT_TRUE(desktop.shown.empty());
}

}  // namespace
}  // namespace zendor
