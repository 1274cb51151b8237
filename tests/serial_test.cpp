#include <gtest/gtest.h>

#include "serial/baud_rates.h"
#include "serial/message_write.h"
#include "serial/port_control.h"
#include "serial/ticks.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using testing::Bytes;

class SerialTest : public ::testing::Test {
 protected:
  SerialTest() { control.BaudRates = BaudRateList(); }

  testing::HandClock clock;
  testing::RecordingDesktop desktop{clock};
  testing::ScriptedLine line{clock};
  ErrorReports reports{desktop, {}};
  PortControl control{line, desktop, reports, {}};
};

TEST_F(SerialTest, TakesTheAcceptedRatesAndTouchesNothingForOthers) {
  const std::pair<const char*, bool> rows[] = {
      {"110,N,8,1", true},     {"9600,N,8,1", true},   {"128000,N,8,1", true},
      {"256000,E,7,2", true},  {"57600,N,8,1", false}, {"115200,N,8,1", false},
      {"9600.5,N,8,1", false}, {",N,8,1", false},      {"x,N,8,1", false}};
  for (const auto& [settings, accepted] : rows) {
    line.configuration = {};
    EXPECT_EQ(control.Port_InitialiseSerialPort(3, settings), accepted) << settings;
    EXPECT_EQ(line.configuration.settings, accepted ? settings : "") << settings;
    EXPECT_EQ(line.configuration.portNumber, accepted ? 3 : 0) << settings;
    EXPECT_EQ(line.configuration.receiveThreshold, accepted ? 1 : 0) << settings;
  }
  EXPECT_FALSE(control.Port_IsOpen());
  EXPECT_TRUE(desktop.shown.empty());
  EXPECT_FALSE(control.Port_InitialiseSerialPort(1, "9600"));
  ASSERT_EQ(desktop.shown.size(), 1U);
  EXPECT_EQ(desktop.shown[0].text, "Error in Port_InitialiseSerialPort");
}

TEST_F(SerialTest, SwitchesThePortOnceAndSaysWhatHappened) {
  EXPECT_EQ(control.Port_SetOpen(false, true), PortStatus::AlreadyClosed);
  EXPECT_EQ(control.Port_SetOpen(true, true), PortStatus::Switched);
  EXPECT_EQ(control.Port_SetOpen(true, true), PortStatus::AlreadyOpen);
  EXPECT_EQ(control.Port_SetOpen(false, true), PortStatus::Switched);
  EXPECT_EQ(line.events, (std::vector<std::string>{"open", "close"}));
  EXPECT_TRUE(desktop.shown.empty());
}

TEST_F(SerialTest, ShowsARefusalOnlyWhenAskedTo) {
  line.openError = PortError{2, "No such port."};
  control.Port_InitialiseSerialPort(4, "9600,N,8,1");
  EXPECT_EQ(control.Port_SetOpen(true, false), PortStatus::Refused);
  EXPECT_TRUE(desktop.shown.empty());
  EXPECT_EQ(control.Port_SetOpen(true, true), PortStatus::Refused);
  EXPECT_FALSE(control.Port_IsOpen());
  ASSERT_EQ(desktop.shown.size(), 1U);
  EXPECT_EQ(desktop.shown[0].title, "Error opening/closing Serial Port 4");
  EXPECT_EQ(desktop.shown[0].text, "No such port.\r\nPlease free the port or choose another");
  EXPECT_EQ(desktop.shown[0].icon, MessageIcon::None);
}

TEST_F(SerialTest, ShutsDownPastAPortThatWillNotClose) {
  EXPECT_THROW(control.Port_Shutdown(), testing::ProgramEnded);
  EXPECT_TRUE(line.events.empty());
  line.open();
  EXPECT_THROW(control.Port_Shutdown(), testing::ProgramEnded);
  EXPECT_FALSE(line.isOpen());
  EXPECT_TRUE(desktop.shown.empty());
  line.open();
  line.closeError = PortError{5, "Stuck."};
  EXPECT_THROW(control.Port_Shutdown(), testing::ProgramEnded);
  ASSERT_EQ(desktop.shown.size(), 2U);
  EXPECT_EQ(desktop.shown[0].text, "Stuck.\r\nPlease free the port or choose another");
  EXPECT_EQ(desktop.shown[1].text, "PORT reset fail - please reset your HH PC!");
  EXPECT_EQ(desktop.shown[1].title, "Tarrow");
  EXPECT_EQ(desktop.shown[1].icon, MessageIcon::Exclamation);
}

TEST_F(SerialTest, WritesAfterTheQueueHasDrainedAndStaleInputIsGone) {
  FrameStores stores;
  stores.TxBuffer = {0, 13, 255};
  stores.RxCount = 7;
  line.sending = {3, 1};
  desktop.onPass = [&] { line.waiting.push_back(9); };  // noise during the wait
  MessageWrite writer(line, stores, desktop, reports);
  writer.LL_Serial_SendMessage();
  EXPECT_EQ(clock.now, 2U);
  EXPECT_EQ(stores.RxCount, 0U);
  EXPECT_TRUE(line.waiting.empty());
  EXPECT_EQ(line.events, (std::vector<std::string>{"discard", "write"}));
  EXPECT_EQ(line.written, (std::vector<Bytes>{{0, 13, 255}}));
}

TEST(Ticks, AreUnsignedAndSurviveTheWrap) {
  const std::pair<std::int32_t, std::int64_t> rows[] = {
      {0, 0}, {2147483647, 2147483647}, {INT32_MIN, 2147483648}, {-1, 4294967295}};
  for (const auto& [ticks, value] : rows) EXPECT_EQ(Tool_TicksToUnsigned(ticks), value);
  EXPECT_EQ(elapsedTicks(4294967290, 5), 11);
}

}  // namespace
}  // namespace zendor
