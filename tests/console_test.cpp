#include <gtest/gtest.h>

#include <sstream>

#include "app/frm_startup.h"
#include "platform/console/console_desktop.h"
#include "platform/console/console_form.h"
#include "platform/console/traced_serial_port.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using namespace doubles;

TEST(Trace, WritesDownARequestAsTheDescriptionOfTheLineDoes) {
  FakePlatform platform;
  platform.clock.now = 0x7FFFFFFE;  // two ms before the clock tells negative numbers
  platform.line.script = {{{2, kPoll}, {5, Bytes{1, 0}}, {7, Bytes{80, 0, 175}}},
                          {{1, kBuildCode + kCustomer}},
                          {{3, kSerial + k1234567}}};
  std::ostringstream trace;
  TracedSerialPort port(platform.line, platform.clock, trace);
  ConsoleForm form(frmStartup::description(), 3);
  frmStartup window(form, port, platform.desktop, platform.clock, {}, {});
  form.loadAndPress(window);
  EXPECT_EQ(form.result(), "C-1234567");
  EXPECT_FALSE(platform.line.isOpen());
  EXPECT_EQ(platform.line.configuration.portNumber, 3);
  EXPECT_EQ(platform.line.configuration.settings, "9600,N,8,1");
  EXPECT_EQ(trace.str(),
            "     0 > 80 0 1 254 177\n"
            "     7 < 80 0 1 254 177 | 1 0 80 0 175\n"
            "     8 > 80 0 1 192 239\n"
            "     9 < 80 0 1 192 239 | 1 8 80 0 67 117 115 116 111 109 101 114 85\n"
            "    10 > 80 0 1 242 189\n"
            "    13 < 80 0 1 242 189 | 1 3 80 0 135 214 18 61\n");
}

TEST(Trace, ShowsWhatCameBeforeAMessageWhatCameLateAndAFrameThatIsRefused) {
  FakePlatform platform;
  std::ostringstream errors;
  TracedSerialPort port(platform.line, platform.clock, errors);
  ConsoleDesktop desktop(errors, "command", "Port 1", "COM5", [&] { port.finishLine(); });
  port.open();
  platform.line.script = {{{0, Bytes(2)}, {3, Bytes{0, 0, 0, 7}}}};
  port.write(kPoll);
  port.readAll();
  desktop.showMessage({"gone\r\nagain?", "Title of Port 1", MessageIcon::None, MessageButtons::Ok});
  platform.clock.now = 3;
  port.discardWaiting();
  EXPECT_EQ(platform.log.back(), "discard");
  platform.clock.now = 4;
  port.readAll();
  port.write(kPoll);
  platform.line.unsent = 3;
  EXPECT_EQ(port.bytesToSend(), 3U);
  platform.line.writeError = PortError{5, "gone"};
  EXPECT_THROW(port.write(kSerial), PortError);
  platform.line.waiting = {9};
  port.close();
  EXPECT_EQ(errors.str(),
            "     0 > 80 0 1 254 177\n     0 < 0 0\ncommand: Title of COM5: gone\nagain?\n     3 < "
            "0 0 0 | 7\n"
            "     4 > 80 0 1 254 177\n     4 > 80 0 1 242 189\n     4 < 9\n");
}

TEST(ConsoleDesktop, AsksNobody) {
  std::ostringstream errors;
  ConsoleDesktop desktop(errors, "command", "Port 1", "COM5", [] {});
  EXPECT_EQ(desktop.showMessage({.text = "text", .title = "Title"}), MessageAnswer::Ok);
  EXPECT_EQ(errors.str(), "command: COM5: Title: text\n");
  EXPECT_EQ(desktop.showMessage({"", "", MessageIcon::None, MessageButtons::YesNo}),
            MessageAnswer::No);
  EXPECT_EXIT(desktop.endProgram(), testing::ExitedWithCode(1), "");
}

}  // namespace
}  // namespace zendor
