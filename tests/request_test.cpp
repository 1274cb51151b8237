#include <gtest/gtest.h>

#include "app/frm_startup.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using testing::Bytes;
using testing::operator+;

const Bytes kPoll{80, 0, 1, 254, 177}, kBuildCode{80, 0, 1, 192, 239}, kSerial{80, 0, 1, 242, 189};
const Bytes kPollReply{1, 0, 80, 0, 175}, kSerialReply{1, 3, 80, 0, 135, 214, 18, 61};
const Bytes kCustomer{1, 8, 80, 0, 67, 117, 115, 116, 111, 109, 101, 114, 85};

class RequestTest : public ::testing::Test {
 protected:
  RequestTest() {
    form.windowCaption = frmStartup::description().caption;
    window.Form_Load();
    window.Form_Activate();
  }

  void playPod() {
    line.script = {
        {{0, kPoll + kPollReply}}, {{0, kBuildCode + kCustomer}}, {{0, kSerial + kSerialReply}}};
  }
  void click() { window.Control_Click({"cmdAccept"}); }

  testing::HandClock clock;
  testing::RecordingDesktop desktop{clock};
  testing::ScriptedLine line{clock};
  testing::RecordingForm form;
  frmStartup window{form, line, desktop, clock, {}, {1, 10, 1}};
};

TEST_F(RequestTest, StartsWithTheVersionInTheCaptionAndAnEmptyResult) {
  EXPECT_EQ(form.windowCaption, "Zendor Serial Number Extractor V1.10.1");
  EXPECT_EQ(form.log, (std::vector<std::string>{"SerialPort: Serial Port", "Label1: "}));
  EXPECT_THROW(window.Form_Unload(), testing::ProgramEnded);
}

TEST_F(RequestTest, AsksThePodOnTheChosenPortAndClosesIt) {
  playPod();
  form.selected = 2;
  form.log.clear();
  click();
  EXPECT_EQ(line.configuration.portNumber, 3);
  EXPECT_EQ(line.configuration.settings, "9600,N,8,1");
  EXPECT_EQ(line.written, (std::vector<Bytes>{kPoll, kBuildCode, kSerial}));
  EXPECT_EQ(form.log, (std::vector<std::string>{"cmdAccept disabled", "Label1: ",
                                                "Label1: C-1234567", "cmdAccept enabled"}));
  EXPECT_EQ(line.events.back(), "close");
  EXPECT_TRUE(desktop.shown.empty());
}

TEST_F(RequestTest, TellsOfAMissingPodOnceAndIsReadyForTheNextClick) {
  form.log.clear();
  click();
  ASSERT_EQ(desktop.shown.size(), 1U);
  EXPECT_EQ(desktop.shown[0].text, "You Must Attach The Zendor!");
  EXPECT_EQ(desktop.shown[0].title, "Error");
  EXPECT_EQ(desktop.shown[0].icon, MessageIcon::Critical);
  EXPECT_EQ(form.log, (std::vector<std::string>{"cmdAccept disabled", "Label1: ",
                                                "cmdAccept enabled", "cmdAccept focused"}));
  EXPECT_FALSE(line.isOpen());
  playPod();
  click();
  EXPECT_EQ(form.log[6], "Label1: C-1234567");
}

TEST_F(RequestTest, EndsTheProgramWhenThePodCannotBeRead) {
  playPod();
  line.script[1] = {{0, kBuildCode + Bytes{1, 0, 80, 0, 175}}};  // the build code "OK"
  EXPECT_THROW(click(), testing::ProgramEnded);
  ASSERT_EQ(desktop.shown.size(), 1U);
  EXPECT_EQ(desktop.shown[0].text, "You Zendor maybe Faulty");
  EXPECT_EQ(desktop.shown[0].title, "Error");
  EXPECT_EQ(desktop.shown[0].icon, MessageIcon::Critical);
}

TEST_F(RequestTest, EndsTheProgramWhenThePortDoesNotOpen) {
  line.openError = PortError{16, "Held."};
  EXPECT_THROW(click(), testing::ProgramEnded);
  ASSERT_EQ(desktop.shown.size(), 1U);
  EXPECT_EQ(desktop.shown[0].title, "Error opening/closing Serial Port 1");
  EXPECT_EQ(form.log.back(), "Label1: ");

  line.openError.reset();
  line.open();  // already open: ended without a word
  EXPECT_THROW(click(), testing::ProgramEnded);
  EXPECT_EQ(desktop.shown.size(), 1U);
}

}  // namespace
}  // namespace zendor
