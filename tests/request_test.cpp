#include <gtest/gtest.h>

#include "app/frm_startup.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using doubles::Bytes, doubles::Log, doubles::operator+;

class RequestTest : public testing::Test, protected doubles::FakePlatform {
 protected:
  RequestTest() {
    window.Form_Load();
    window.Form_Activate();
  }

  void playPod(const Bytes& buildCode) {
    for (const Bytes& reply : {doubles::kDone, buildCode, doubles::k1234567}) play(5, reply);
  }
  void click() { window.Control_Click({"cmdAccept"}); }

  doubles::RecordingForm form{log};
  frmStartup window{form, line, desktop, clock, {}, {3, 10, 2}};
};

const Log kLoaded{"SerialPort: Serial Port", "Label1: "};
const Log kStart = kLoaded + Log{"cmdAccept: disabled", "Label1: ", "open"};
const Log kTransaction{"discard", "write"};

TEST_F(RequestTest, StartsWithTheVersionInTheCaptionAndAnEmptyResult) {
  EXPECT_EQ(form.windowCaption, "Zendor Serial Number Extractor V3.10.2");
  window.Control_Click({"optCommPort", 1});
  EXPECT_EQ(log, kLoaded);
  EXPECT_THROW(window.Form_Unload(), doubles::ProgramEnded);
}

TEST_F(RequestTest, AsksThePodOnTheChosenPortAndClosesIt) {
  form.selected = 2;
  line.closeError = PortError{5, "Stuck."};  // nobody is told of this
  playPod(doubles::kCustomer);
  click();
  EXPECT_EQ(line.configuration.portNumber, 3);
  EXPECT_EQ(line.configuration.settings, "9600,N,8,1");
  EXPECT_EQ(line.written,
            (std::vector<Bytes>{doubles::kPoll, doubles::kBuildCode, doubles::kSerial}));
  EXPECT_EQ(log, (kStart + kTransaction + kTransaction + kTransaction +
                  Log{"Label1: C-1234567", "cmdAccept: enabled", "close"}));
}

TEST_F(RequestTest, TellsOfAMissingPodOnceAndIsReadyForTheNextClick) {
  click();
  EXPECT_EQ(clock.now, 2U * 1002U);
  EXPECT_EQ(log, (kStart + kTransaction + kTransaction +
                  Log{"(x) [Error] You Must Attach The Zendor!", "close", "cmdAccept: enabled",
                      "cmdAccept: focused"}));
  playPod(doubles::kEngineer);
  for (int i = 0; i < 2; ++i) line.script.insert(line.script.begin() + 1, {{{0, Bytes(3)}}});
  form.selected.reset();
  click();                                      // the first round for the build code fails
  EXPECT_EQ(line.configuration.portNumber, 1);  // as before, because none is selected
  EXPECT_EQ(log[log.size() - 3], "Label1: E-1234567");
}

TEST_F(RequestTest, CanBeClosedWhileTheTransmitQueueDoesNotDrain) {
  line.unsent = 1;
  desktop.onPass = [&] { window.Form_Unload(); };
  EXPECT_THROW(click(), doubles::ProgramEnded);
  EXPECT_EQ(log, kStart);
}

TEST_F(RequestTest, EndsTheProgramWhenThePortDoesNotOpen) {
  line.openError = PortError{16, "Held."};
  EXPECT_THROW(click(), doubles::ProgramEnded);
  EXPECT_EQ(log, (kStart + Log{"[Error opening/closing Serial Port 1] Held.\r\nPlease free the "
                               "port or choose another"}));
  line.openError.reset();
  line.open();
  log.clear();
  EXPECT_THROW(click(), doubles::ProgramEnded);  // already open, so no message
  EXPECT_EQ(log, (Log{"cmdAccept: disabled", "Label1: "}));
  line.closeError.reset();
  line.close();
  log.clear();
  frmStartup notLoaded{form, line, desktop, clock, {}, {}};  // knows no rate, so accepts none
  EXPECT_THROW(notLoaded.Control_Click({"cmdAccept"}), doubles::ProgramEnded);
  EXPECT_EQ(log, (Log{"cmdAccept: disabled", "Label1: "}));
}

}  // namespace
}  // namespace zendor
