#include <gtest/gtest.h>

#include <tuple>

#include "serial/message_write.h"
#include "serial/port_control.h"
#include "serial/ticks.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using doubles::Bytes, doubles::Log;

const std::string kAdvice = "\r\nPlease free the port or choose another";

class SerialTest : public testing::Test, protected doubles::FakePlatform {
 protected:
  SerialTest() { control.BaudRates = BaudRateList(); }

  ErrorReports reports{desktop, {}};
  PortControl control{line, desktop, reports};
};

auto fieldsOf(const PortConfiguration& c) {
  return std::tie(c.receiveThreshold, c.sendThreshold, c.handshaking, c.discardNulBytes,
                  c.inputMode, c.inputLength, c.portNumber, c.settings);
}

TEST_F(SerialTest, WritesTheWholeConfigurationForAnAcceptedRateAndNothingForOthers) {
  const PortConfiguration spoiled{9, 9, 9, true, 9, 9, 9, "spoiled"};
  const std::pair<const char*, bool> rows[] = {
      {"9600,N,8,1", true},    {"110,N,8,1", true},    {"14400,N,8,1", true},
      {"256000,E,7,2", true},  {"57600,N,8,1", false}, {"115200,N,8,1", false},
      {"9600.5,N,8,1", false}, {",N,8,1", false},      {"9600", false}};
  for (const auto& [settings, accepted] : rows) {
    line.configuration = spoiled;
    EXPECT_EQ(control.Port_InitialiseSerialPort(3, settings), accepted) << settings;
    const PortConfiguration written{1, 0, 0, false, 0, 0, 3, settings};
    EXPECT_EQ(fieldsOf(line.configuration), fieldsOf(accepted ? written : spoiled)) << settings;
  }
  EXPECT_EQ(log, Log{"(x) [Program Error] Error in Port_InitialiseSerialPort"});  // no comma
}

TEST_F(SerialTest, SwitchesThePortOnceAndShowsARefusalOnlyWhenAskedTo) {
  EXPECT_EQ(control.Port_SetOpen(false, true), PortStatus::AlreadyClosed);
  EXPECT_EQ(control.Port_SetOpen(true, true), PortStatus::Switched);
  EXPECT_EQ(control.Port_SetOpen(true, true), PortStatus::AlreadyOpen);
  EXPECT_EQ(control.Port_SetOpen(false, true), PortStatus::Switched);
  line.openError = PortError{2, "No such port."};
  control.Port_InitialiseSerialPort(4, "9600,N,8,1");
  EXPECT_EQ(control.Port_SetOpen(true, false), PortStatus::Refused);
  EXPECT_EQ(control.Port_SetOpen(true, true), PortStatus::Refused);
  const std::string box = "[Error opening/closing Serial Port 4] No such port." + kAdvice;
  EXPECT_EQ(log, (Log{"open", "close", "open", "open", box}));
}

TEST_F(SerialTest, ShutsDownPastAPortThatWillNotClose) {
  EXPECT_THROW(control.Port_Shutdown(), doubles::ProgramEnded);
  line.open();
  EXPECT_THROW(control.Port_Shutdown(), doubles::ProgramEnded);
  line.open();
  line.closeError = PortError{5, "Stuck."};
  EXPECT_THROW(control.Port_Shutdown(), doubles::ProgramEnded);
  const std::string box = "[Error opening/closing Serial Port 0] Stuck." + kAdvice;
  const std::string warning = "(!) [Tarrow] PORT reset fail - please reset your HH PC!";
  EXPECT_EQ(log, (Log{"open", "close", "open", "close", box, warning}));
}

TEST_F(SerialTest, WritesAMessageOnceTheQueueHasDrainedAndStaleInputIsGone) {
  Bytes message{0, 13, 255};
  std::size_t RxCount = 7;
  line.open();
  line.unsent = 2;
  desktop.onPass = [&] {
    --line.unsent;
    line.waiting.push_back(9);  // noise during the wait
    message.push_back(9);       // too late to be sent
  };
  LL_Serial_SendMessage(line, message, RxCount, desktop, reports);
  EXPECT_EQ(clock.now, 2U);
  EXPECT_EQ(RxCount, 0U);
  EXPECT_TRUE(line.waiting.empty());
  EXPECT_EQ(log, (Log{"open", "discard", "write"}));
  EXPECT_EQ(line.written, (std::vector<Bytes>{{0, 13, 255}}));
  line.writeError = PortError{-5, "Gone."};  // only a report follows
  LL_Serial_SendMessage(line, message, RxCount, desktop, reports);
  EXPECT_TRUE(log.back().ends_with("Gone.\r\nOccured in LL_Serial_SendMessage"));
}

TEST(Ticks, AreUnsigned) {
  const std::pair<std::int32_t, std::int64_t> rows[] = {
      {0, 0}, {2147483647, 2147483647}, {INT32_MIN, 2147483648}, {-1, 4294967295}};
  for (const auto& [ticks, value] : rows) EXPECT_EQ(Tool_TicksToUnsigned(ticks), value);
}

}  // namespace
}  // namespace zendor
