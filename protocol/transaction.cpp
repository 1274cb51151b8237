#include "protocol/transaction.h"

#include <algorithm>
#include <span>
#include <utility>

#include "common/command_result.h"
#include "common/conversions.h"
#include "common/string_table.h"
#include "protocol/frame.h"
#include "protocol/receive_poll.h"
#include "protocol/reply_check.h"
#include "serial/message_write.h"
#include "serial/ticks.h"

namespace zendor {

namespace {

constexpr int kAttemptsOfASeries = 2;

}  // namespace

Transaction::Transaction(FrameStores& stores, SerialPort& port, Desktop& desktop,
                         const Clock& clock, PortControl& portControl, ErrorReports& reports,
                         Regional regional)
    : stores_(stores),
      MSComm1(port),
      desktop_(desktop),
      clock_(clock),
      portControl_(portControl),
      reports_(reports),
      regional_(std::move(regional)) {}

std::string Transaction::LL_DRAVO_Send(const Command& command) {
  int count = 0;
  const auto items = Tool_DecimalToArray(command.request, true, count);
  if (!items) return errorResult("The request holds an item that is not a number from 0 to 255");
  if (count < 1) endOnProgramError();
  const std::string reason =
      buildRequestFrame(stores_, *items, command.destination, command.source);
  if (!reason.empty()) return errorResult(reason);

  for (;;) {
    std::string errorText;
    for (int attemptsLeft = kAttemptsOfASeries; attemptsLeft > 0; --attemptsLeft) {
      errorText = attempt(command);
      if (errorText.empty()) return command.displayName + " = " + successText(command);
    }
    if (!command.promptOnFailure) return errorText;
    if (!LL_DRAVO_AskRetry(errorText)) return errorResult("User aborted dravo command");
  }
}

std::string Transaction::attempt(const Command& command) {
  LL_Serial_SendMessage(MSComm1, stores_.TxBuffer, stores_.RxCount, desktop_, reports_);
  awaitReply(command.timeoutMs);
  return LL_DRAVO_CheckReply(stores_, command.destination, command.source);
}

void Transaction::awaitReply(int timeoutMs) {
  const std::int64_t start = Tool_TicksToUnsigned(clock_.GetTickCount());
  bool timedOut = false;
  bool complete = false;
  while (!complete && !timedOut) {
    const std::int64_t now = Tool_TicksToUnsigned(clock_.GetTickCount());
    timedOut = elapsedTicks(start, now) > timeoutMs;
    // The pass that finds the time-out polls as well, so that a reply that is just in time is
    // accepted.
    complete = LL_DRAVO_PollReceive(MSComm1, stores_.RxBuffer, stores_.TxLength, stores_.RxCount);
    desktop_.processEvents();
  }
}

std::string Transaction::successText(const Command& command) {
  if (stores_.RxDataCount == 0) return stringTableText(StringEntry::Ok);
  const auto data = std::span(stores_.RxData).first(static_cast<std::size_t>(stores_.RxDataCount));
  if (command.reverseData) std::ranges::reverse(data);
  const auto text = replyText(data, command.replyFormat, regional_);
  if (!text) endOnProgramError();
  return *text;
}

bool Transaction::LL_DRAVO_AskRetry(const std::string& errorText) {
  const std::string title =
      stringTableText(StringEntry::RetryTitle) + " (serial communications) Error";
  const std::string text = errorText + kLineBreak +
                           "Please check all connections and power supplies." + kLineBreak +
                           "Do you want to retry ?";
  return desktop_.showMessage({text, title, MessageIcon::Exclamation, MessageButtons::YesNo}) ==
         MessageAnswer::Yes;
}

void Transaction::endOnProgramError() {
  reports_.Tool_ReportProgramError("LL_DRAVO_Send");
  portControl_.Port_Shutdown();
}

}  // namespace zendor
