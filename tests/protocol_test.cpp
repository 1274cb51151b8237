#include <gtest/gtest.h>

#include <utility>

#include "protocol/frame.h"
#include "protocol/receive_poll.h"
#include "protocol/reply_check.h"
#include "protocol/reply_text.h"
#include "protocol/transaction.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using doubles::Bytes, doubles::kDone, doubles::kPoll, doubles::operator+;

TEST(ReceivePoll, CompletesInTheCallThatStoresTheLastByte) {
  doubles::FakePlatform platform;
  platform.line.open();
  Bytes RxBuffer(1024);
  std::size_t rxCount = 0;
  const auto poll = [&] {
    return LL_DRAVO_PollReceive(platform.line, RxBuffer, kPoll.size(), rxCount);
  };
  const std::tuple<Bytes, bool, std::size_t> rows[] = {
      {{}, false, 0},
      {kPoll, false, 5},
      {{1}, false, 6},
      {{1, 80, 0, 7}, false, 10},
      {{167, 99}, true, 12},  // a surplus byte is stored and counted
      {{}, false, 12},        // the frame is there, but nothing waits
      {Bytes(2000, 3), true, 1024},
      {{4}, true, 1024}};
  for (const auto& [bytes, complete, stored] : rows) {
    platform.line.waiting = bytes;
    EXPECT_EQ(poll(), complete) << stored;
    EXPECT_EQ(rxCount, stored);
  }
  EXPECT_EQ(RxBuffer[1023], 3);
  rxCount = 0;
  platform.line.waiting = kPoll + Bytes{1, 255, 80, 0} + Bytes(255, 0);  // the longest reply
  EXPECT_FALSE(poll());
  platform.line.waiting = {0};
  EXPECT_TRUE(poll());
}

TEST(ReplyCheck, StopsAtTheFirstFaultAndLeavesTheReplyStoreAsFarAsItCame) {
  const Bytes before{7, 7};
  const std::tuple<Bytes, const char*, int, Bytes> rows[] = {
      {{}, "Error : All comms is dead", 0, before},
      {{80, 0, 1}, "Error : Some TX bytes did not loop back", 0, before},
      {kPoll, "Error : Slave is not responding", 0, before},
      {kPoll + Bytes{1, 3, 80, 0}, "Error : Some RX bytes seem to be missing", 0, before},
      {kPoll + Bytes{1, 3, 80, 0, 135, 214}, "Error : Some RX bytes seem to be missing", 3, before},
      {kPoll + Bytes{1, 1, 80, 0, 9, 165, 0}, "Error : Too many return bytes", 1, before},
      {kPoll + Bytes{1, 2, 80, 0, 10, 20, 142}, "Error : Checksum error", 2, {10, 20}},
      {kPoll + Bytes{2, 0, 81, 6, 174}, "Error : Checksum error", 0, before},
      {kPoll + Bytes{2, 0, 81, 0, 173}, "Error : Return destination address invalid", 0, before},
      {kPoll + Bytes{1, 0, 81, 6, 168}, "Error : Return source address invalid", 0, before},
      {kPoll + Bytes{1, 0, 80, 6, 169}, "Error : BUSY message", 0, before},
      {kPoll + Bytes{1, 0, 80, 5, 170}, "Error : NAK message", 0, before},
      {kPoll + Bytes{1, 1, 80, 7, 9, 158}, "Error : Return header invalid", 1, {9}},
      {Bytes(5, 0) + kDone, "", 0, before},  // the echo counts by its length
      {kPoll + Bytes{1, 2, 80, 0, 10, 20, 143}, "", 2, {10, 20}},
      {kPoll + Bytes{1, 200, 80, 0} + Bytes(200, 0) + Bytes{231}, "", 200, Bytes(200, 0)}};
  for (const auto& [received, result, count, data] : rows) {
    FrameStores stores{{}, 5, {}, received.size(), before, 2};
    stores.RxBuffer.fill(0xEE);
    std::ranges::copy(received, stores.RxBuffer.begin());
    EXPECT_EQ(LL_DRAVO_CheckReply(stores, 80, 1), result);
    EXPECT_EQ(stores.RxDataCount, count) << result;
    EXPECT_EQ(stores.RxData, data) << result;
  }
}

TEST(ReplyText, FollowsItsFormat) {
  const std::tuple<int, Bytes, std::optional<std::string>> rows[] = {
      {0, {1, 2}, "Data"},
      {1, {7, 255}, "007 255 "},
      {2, {10, 255}, "0A FF "},
      {3, {5}, "00000101 "},
      {4, {67, 117, 233}, "Cu\u00E9"},
      {5, {0x40, 0xE2, 0x01, 9}, "123,456"},
      {5, {5}, "5"},
      {9, {255, 128, 0}, "5,00 2,51 0,00 "},
      {6, {1}, std::nullopt},
      {10, {1}, std::nullopt}};
  for (const auto& [format, data, text] : rows)
    EXPECT_EQ(replyText(data, static_cast<ReplyFormat>(format), {",", "-"}), text) << format;
}

class TransactionTest : public testing::Test, protected doubles::FakePlatform {
 protected:
  TransactionTest() { line.open(); }

  ErrorReports reports{desktop, {}};
  PortControl control{line, desktop, reports};
  FrameStores stores;
  Transaction transaction{stores, line, desktop, clock, control, reports, {",", "-"}};
  Command command{"254", 80, 1, 1000, "Poll"};
};

TEST_F(TransactionTest, WaitsTheWholeTimeOutAfterEachOfTwoWritesWhateverTheClockDoes) {
  desktop.onPass = [&] { line.unsent -= line.unsent > 0 ? 1 : 0; };
  command.timeoutMs = 100;
  for (const std::uint32_t start : {0xFFFFFFFFU - 50, 0x7FFFFFFFU - 50}) {  // wraps, turns negative
    clock.now = start;
    line.unsent = 7;  // milliseconds until the first write
    EXPECT_EQ(transaction.LL_DRAVO_Send(command), "Error : All comms is dead");
    EXPECT_EQ(std::exchange(line.written, {}), (std::vector<Bytes>{kPoll, kPoll}));
    EXPECT_EQ(clock.now - start, 7 + 2U * 102U);  // ends in the pass that reads 101, not 100
  }
}

TEST_F(TransactionTest, AWriteThatIsRefusedOnceCostsOneAttempt) {
  line.writeError = PortError{5, "Gone."};
  desktop.onPass = [&] { line.writeError.reset(); };
  play(5, kDone);
  EXPECT_EQ(transaction.LL_DRAVO_Send(command), "Poll = OK");
  EXPECT_EQ(line.written, (std::vector<Bytes>{kPoll}));
  const std::string box =
      "(!) [Unhandled Error] Unhandled Error number 5\r\nGone.\r\n"
      "Occured in LL_Serial_SendMessage";
  EXPECT_EQ(log, (doubles::Log{"open", "discard", "write", box, "discard", "write"}));
}

TEST_F(TransactionTest, TakesAReplyInThePassThatFindsTheTimeOutAndNoneAfterIt) {
  line.script = {{{0, kPoll}, {1002, kDone}}, {{0, kPoll}, {1001, kDone}}};
  EXPECT_EQ(transaction.LL_DRAVO_Send(command), "Poll = OK");
  EXPECT_EQ(clock.now, 2U * 1002U);
}

TEST_F(TransactionTest, EndsTheWaitWithTheLastByteOfAGoodReply) {
  line.script = {{{5, kPoll}, {10, {1, 1, 80, 0, 255}}, {20, {175}}}};
  command.replyFormat = ReplyFormat::Volts;
  EXPECT_EQ(transaction.LL_DRAVO_Send(command), "Poll = 5,00 ");
  EXPECT_EQ(clock.now, 21U);  // the pass that stores the byte serves the window once more
}

TEST_F(TransactionTest, AsksAfterEveryTwoFailedAttemptsUntilTheUserDeclines) {
  for (int i = 0; i < 3; ++i) play(5, {});
  play(5, doubles::kBusy);
  desktop.answers = {MessageAnswer::Yes, MessageAnswer::No};
  command.promptOnFailure = true;
  EXPECT_EQ(transaction.LL_DRAVO_Send(command), "Error : User aborted dravo command");
  const std::string
      title = "(!) [dravo\u00AE (serial communications) Error] ",
      question = "\r\nPlease check all connections and power supplies.\r\nDo you want to retry ?";
  EXPECT_EQ(log.at(5), title + "Error : Slave is not responding" + question);  // after two writes
  EXPECT_EQ(log.at(10), title + "Error : BUSY message" + question);
}

TEST_F(TransactionTest, ReversesTheReplyInTheStoreAndInTheText) {
  command.reverseData = true;
  command.replyFormat = ReplyFormat::Decimal;
  play(5, {1, 3, 80, 0, 1, 2, 3, 166});
  EXPECT_EQ(transaction.LL_DRAVO_Send(command), "Poll = 003 002 001 ");
  play(5, kDone);
  EXPECT_EQ(transaction.LL_DRAVO_Send(command), "Poll = OK");
  EXPECT_EQ(stores.RxDataCount, 0);
  EXPECT_EQ(stores.RxData, (Bytes{3, 2, 1}));
}

TEST_F(TransactionTest, EndsTheProgramForARequestWithoutHeaderOrAnUnknownFormat) {
  command.request = " ";
  EXPECT_THROW(transaction.LL_DRAVO_Send(command), doubles::ProgramEnded);
  line.open();
  command.request = "254";
  command.replyFormat = static_cast<ReplyFormat>(6);
  play(5, kDone);
  EXPECT_EQ(transaction.LL_DRAVO_Send(command), "Poll = OK");  // without data no format is needed
  play(5, {1, 1, 80, 0, 9, 165});
  EXPECT_THROW(transaction.LL_DRAVO_Send(command), doubles::ProgramEnded);
  const std::string report = "(x) [Program Error] Error in LL_DRAVO_Send";
  EXPECT_EQ(log, (doubles::Log{"open", report, "close", "open", "discard", "write", "discard",
                               "write", report, "close"}));
}

}  // namespace
}  // namespace zendor
