// The command transaction: send, wait, check, format, retry, prompt. The only way in which the
// program talks to a device. One runs at a time.
#pragma once

#include <string>

#include "common/error_reports.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/regional.h"
#include "platform/serial_port.h"
#include "protocol/frame.h"
#include "protocol/reply_text.h"
#include "serial/port_control.h"

namespace zendor {

struct Command {
  std::string request;  // decimal numbers joined by ",": the header, then the data in wire order
  int destination = 0;  // the device's address
  int source = 0;       // the host's own address
  int timeoutMs = 0;    // of one attempt, counted from the end of the write
  std::string displayName;
  ReplyFormat replyFormat = ReplyFormat::Hidden;
  bool reverseData = false;      // turns the reply's data round, in RxData too
  bool promptOnFailure = false;  // asks the user after every two failed attempts
};

class Transaction {
 public:
  // All that is handed in outlives the transaction.
  Transaction(FrameStores& stores, SerialPort& port, Desktop& desktop, const Clock& clock,
              PortControl& portControl, ErrorReports& reports, Regional regional);

  // The command result: "name = reply" or a text that begins with "Error : ". The port is open. A
  // request without a header and an unknown reply format end the program; a request that cannot be
  // framed is refused before anything is written.
  std::string LL_DRAVO_Send(const Command& command);

 private:
  // Returns the error text of the reply check, empty after a success.
  std::string attempt(const Command& command);
  void awaitReply(int timeoutMs);
  std::string successText(const Command& command);
  bool LL_DRAVO_AskRetry(const std::string& errorText);
  [[noreturn]] void endOnProgramError();

  FrameStores& stores_;
  SerialPort& MSComm1;
  Desktop& desktop_;
  const Clock& clock_;
  PortControl& portControl_;
  ErrorReports& reports_;
  Regional regional_;
};

}  // namespace zendor
