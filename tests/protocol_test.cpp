#include <gtest/gtest.h>

#include "protocol/message_write.h"
#include "protocol/receive_poll.h"
#include "protocol/reply_check.h"
#include "protocol/reply_text.h"
#include "protocol/request_frame.h"
#include "protocol/transaction.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using testing::Bytes;
using testing::kDone;
using testing::kPoll;
using testing::operator+;

TEST(RequestFrame, ClosesEveryFrameWithItsChecksum) {
  struct Row {
    Bytes items;
    int destination;
    Bytes frame;
  };
  const Row rows[] = {{{242}, 80, {80, 0, 1, 242, 189}},
                      {{233, 128}, 80, {80, 1, 1, 233, 128, 69}},
                      {{253}, 2, {2, 0, 1, 253, 0}}};
  FrameStores stores;
  for (const auto& [items, destination, frame] : rows) {
    buildRequestFrame(stores, {items}, destination, 1);
    EXPECT_EQ(stores.TxBuffer, frame);
    EXPECT_EQ(stores.TxLength, frame.size());
  }
}

class MessageWrite : public ::testing::Test, protected testing::Machine {
 protected:
  MessageWrite() {
    stores.TxBuffer = {0, 13, 255};
    stores.RxCount = 7;
    line.open();
  }
  void send() { LL_Serial_SendMessage(line, stores, desktop, reports); }

  ErrorReports reports{desktop, {}};
  FrameStores stores;
};

TEST_F(MessageWrite, SendsItsBytesOnceTheQueueHasDrainedAndStaleInputIsGone) {
  line.sending = {3, 1};
  desktop.onPass = [&] {
    line.waiting.push_back(9);     // noise during the wait
    stores.TxBuffer.push_back(9);  // the bytes are taken before it
  };
  send();
  EXPECT_EQ(clock.now, 2U);
  EXPECT_EQ(stores.RxCount, 0U);
  EXPECT_TRUE(line.waiting.empty());
  EXPECT_EQ(log, (testing::Log{"open", "discard", "write"}));
  EXPECT_EQ(line.written, (std::vector<Bytes>{{0, 13, 255}}));
}

TEST_F(MessageWrite, ReportsARefusalAndReturns) {
  line.writeError = PortError{-5, "Gone."};
  send();
  EXPECT_TRUE(log.back().ends_with("Gone.\r\nOccured in LL_Serial_SendMessage"));
}

TEST(ReceivePoll, CompletesInTheCallThatStoresTheLastByte) {
  testing::Machine machine;
  testing::ScriptedLine& line = machine.line;
  line.open();
  ReceiveStore store{};
  std::size_t count = 0;
  const auto poll = [&](const Bytes& bytes) {
    line.waiting = bytes;
    return LL_DRAVO_PollReceive(line, store, 5, count);
  };
  EXPECT_FALSE(poll({}));
  EXPECT_FALSE(poll(kPoll));
  EXPECT_FALSE(poll({1}));
  EXPECT_FALSE(poll({1, 80, 0, 7}));
  EXPECT_TRUE(poll({167, 99}));  // a surplus byte is stored and counted
  EXPECT_EQ(count, 12U);
  EXPECT_FALSE(poll({}));  // nothing waits, though the frame is there
  EXPECT_TRUE(poll(Bytes(2000, 3)));
  EXPECT_EQ(count, 1024U);
  EXPECT_EQ(store[1023], 3);
  EXPECT_TRUE(poll({4}));
  EXPECT_EQ(count, 1024U);
  count = 0;
  EXPECT_TRUE(poll(kPoll + Bytes{1, 255, 80, 0} + Bytes(256, 0)));  // the longest reply
  EXPECT_EQ(count, 265U);
}

TEST(ReplyCheck, StopsAtTheFirstFaultAndLeavesTheReplyStoreAsFarAsItCame) {
  struct Row {
    Bytes received;
    const char* text;  // empty: success
    int dataCount;
    Bytes data;
  };
  const Bytes before{7, 7};
  const Row rows[] = {
      {{}, "All comms is dead", 0, before},
      {{80, 0, 1}, "Some TX bytes did not loop back", 0, before},
      {kPoll, "Slave is not responding", 0, before},
      {kPoll + Bytes{1, 3, 80, 0}, "Some RX bytes seem to be missing", 0, before},
      {kPoll + Bytes{1, 3, 80, 0, 135, 214}, "Some RX bytes seem to be missing", 3, before},
      {kPoll + Bytes{1, 1, 80, 0, 9, 165, 0}, "Too many return bytes", 1, before},
      {kPoll + Bytes{1, 2, 80, 0, 10, 20, 142}, "Checksum error", 2, {10, 20}},
      {kPoll + Bytes{2, 0, 81, 6, 174}, "Checksum error", 0, before},
      {kPoll + Bytes{2, 0, 81, 0, 173}, "Return destination address invalid", 0, before},
      {kPoll + Bytes{1, 0, 81, 6, 168}, "Return source address invalid", 0, before},
      {kPoll + Bytes{1, 0, 80, 6, 169}, "BUSY message", 0, before},
      {kPoll + Bytes{1, 0, 80, 5, 170}, "NAK message", 0, before},
      {kPoll + Bytes{1, 1, 80, 7, 9, 158}, "Return header invalid", 1, {9}},
      {Bytes(5, 0) + kDone, "", 0, before},  // the echo counts by its length
      {kPoll + Bytes{1, 2, 80, 0, 10, 20, 143}, "", 2, {10, 20}}};
  for (const Row& row : rows) {
    FrameStores stores;
    stores.TxLength = 5;
    stores.RxBuffer.fill(0xEE);
    std::ranges::copy(row.received, stores.RxBuffer.begin());
    stores.RxCount = row.received.size();
    stores.RxData = before;
    stores.RxDataCount = 2;
    const std::string expected = *row.text == 0 ? "" : std::string("Error : ") + row.text;
    EXPECT_EQ(LL_DRAVO_CheckReply(stores, 80, 1), expected);
    EXPECT_EQ(stores.RxDataCount, row.dataCount) << row.text;
    EXPECT_EQ(stores.RxData, row.data) << row.text;
  }
}

TEST(ReplyText, FollowsItsFormat) {
  struct Row {
    int format;
    Bytes data;
    std::optional<std::string> text;
  };
  const Row rows[] = {{0, {1, 2}, "Data"},
                      {1, {7, 255}, "007 255 "},
                      {2, {10, 255}, "0A FF "},
                      {3, {5}, "00000101 "},
                      {4, {67, 117, 233}, "Cu\u00E9"},
                      {5, {0x40, 0xE2, 0x01, 9}, "123,456"},
                      {5, {5}, "5"},
                      {9, {255, 128, 0}, "5.00 2.51 0.00 "},
                      {6, {1}, std::nullopt},
                      {10, {1}, std::nullopt}};
  for (const auto& [format, data, text] : rows)
    EXPECT_EQ(replyText(data, static_cast<ReplyFormat>(format), {}), text) << format;
  EXPECT_EQ(replyText(Bytes{255}, ReplyFormat::Volts, {",", "-"}), "5,00 ");
}

class TransactionTest : public ::testing::Test, protected testing::Machine {
 protected:
  TransactionTest() { line.open(); }

  Command poll(int timeoutMs = 1000) {
    return {.request = "254",
            .destination = 80,
            .source = 1,
            .timeoutMs = timeoutMs,
            .displayName = "Poll"};
  }

  ErrorReports reports{desktop, {}};
  PortControl control{line, desktop, reports};
  Transaction transaction{line, desktop, clock, control, reports, {",", "-"}};
};

TEST_F(TransactionTest, WaitsTheWholeTimeOutInEachOfTwoAttemptsAcrossAWrapOfTheClock) {
  clock.now = 0xFFFFFFFFU - 50;
  EXPECT_EQ(transaction.LL_DRAVO_Send(poll(100)), "Error : All comms is dead");
  EXPECT_EQ(line.written, (std::vector<Bytes>{kPoll, kPoll}));
  EXPECT_EQ(clock.now, 2U * 102U - 51U);  // left in the pass that reads 101, strictly more
  EXPECT_TRUE(desktop.shown.empty());
}

TEST_F(TransactionTest, TakesAReplyInThePassThatFindsTheTimeOutAndNoneAfterIt) {
  line.script = {{{0, kPoll}, {1002, kDone}}, {{0, kPoll}, {1001, kDone}}};
  EXPECT_EQ(transaction.LL_DRAVO_Send(poll()), "Poll = OK");
  EXPECT_EQ(line.written.size(), 2U);
  EXPECT_EQ(clock.now, 2U * 1002U);
}

TEST_F(TransactionTest, EndsTheWaitWithTheLastByteOfAGoodReply) {
  line.script = {{{5, kPoll}, {10, {1, 1, 80, 0, 255}}, {20, {175}}}};
  Command command = poll();
  command.replyFormat = ReplyFormat::Volts;
  EXPECT_EQ(transaction.LL_DRAVO_Send(command), "Poll = 5,00 ");
  EXPECT_EQ(clock.now, 21U);  // the pass that stores the byte serves the window once more
}

TEST_F(TransactionTest, AsksAfterEveryTwoFailedAttemptsUntilTheUserDeclines) {
  for (int i = 0; i < 3; ++i) play(5, {});
  play(5, testing::kBusy);
  desktop.answers = {MessageAnswer::Yes, MessageAnswer::No};
  Command command = poll();
  command.promptOnFailure = true;
  EXPECT_EQ(transaction.LL_DRAVO_Send(command), "Error : User aborted dravo command");
  EXPECT_EQ(line.written.size(), 4U);
  ASSERT_EQ(desktop.shown.size(), 2U);
  EXPECT_EQ(desktop.shown[0].title, "dravo\u00AE (serial communications) Error");
  EXPECT_EQ(desktop.shown[0].text,
            "Error : Slave is not responding\r\nPlease check all connections and power "
            "supplies.\r\nDo you want to retry ?");
  EXPECT_EQ(desktop.shown[0].icon, MessageIcon::Exclamation);
  EXPECT_TRUE(desktop.shown[1].text.starts_with("Error : BUSY message\r\n"));
}

TEST_F(TransactionTest, ReversesTheReplyInTheStoreAndInTheText) {
  Command command = poll();
  command.reverseData = true;
  command.replyFormat = ReplyFormat::Decimal;
  play(5, {1, 3, 80, 0, 1, 2, 3, 166});
  EXPECT_EQ(transaction.LL_DRAVO_Send(command), "Poll = 003 002 001 ");
  play(5, kDone);
  EXPECT_EQ(transaction.LL_DRAVO_Send(command), "Poll = OK");
  EXPECT_EQ(transaction.stores().RxDataCount, 0);
  EXPECT_EQ(transaction.stores().RxData, (Bytes{3, 2, 1}));
}

TEST_F(TransactionTest, EndsTheProgramForARequestWithoutHeaderOrAnUnknownFormat) {
  Command command = poll();
  command.request = " ";
  EXPECT_THROW(transaction.LL_DRAVO_Send(command), testing::ProgramEnded);
  EXPECT_EQ(log, (testing::Log{"open", "[Program Error] Error in LL_DRAVO_Send", "close"}));

  log.clear();
  line.open();
  command = poll();
  command.replyFormat = static_cast<ReplyFormat>(6);
  play(5, kDone);
  EXPECT_EQ(transaction.LL_DRAVO_Send(command), "Poll = OK");  // no data, no format
  play(5, {1, 1, 80, 0, 9, 165});
  EXPECT_THROW(transaction.LL_DRAVO_Send(command), testing::ProgramEnded);
  EXPECT_EQ(log, (testing::Log{"open", "discard", "write", "discard", "write",
                               "[Program Error] Error in LL_DRAVO_Send", "close"}));
}

}  // namespace
}  // namespace zendor
