// Doubles for the seams to the machine: a clock turned by hand, a line that plays a script, a
// desktop and a form that record what was asked of them. None of them takes real time.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/form.h"
#include "platform/serial_port.h"

namespace zendor::testing {

using Bytes = std::vector<std::uint8_t>;

inline Bytes operator+(Bytes left, const Bytes& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

class HandClock final : public Clock {
 public:
  std::int32_t GetTickCount() const override { return static_cast<std::int32_t>(now); }
  std::uint32_t now = 0;
};

// Thrown by the desktop at the end of the program, which runs nothing further.
struct ProgramEnded {};

class RecordingDesktop final : public Desktop {
 public:
  explicit RecordingDesktop(HandClock& clock) : clock_(clock) {}

  MessageAnswer showMessage(const Message& message) override {
    shown.push_back(message);
    if (message.buttons == MessageButtons::Ok) return MessageAnswer::Ok;
    const MessageAnswer answer = answers.empty() ? MessageAnswer::No : answers.front();
    if (!answers.empty()) answers.pop_front();
    return answer;
  }
  void processEvents() override {  // a pass of a wait loop takes a millisecond
    ++clock_.now;
    if (onPass) onPass();
  }
  [[noreturn]] void endProgram() override { throw ProgramEnded{}; }

  std::vector<Message> shown;
  std::deque<MessageAnswer> answers;
  std::function<void()> onPass;

 private:
  HandClock& clock_;
};

// Answers the n-th write with the n-th entry of the script, piece by piece.
class ScriptedLine : public SerialPort {
 public:
  explicit ScriptedLine(HandClock& clock) : clock_(clock) {}

  struct Piece {
    std::uint32_t afterMs = 0;
    Bytes bytes;
  };
  std::deque<std::vector<Piece>> script;
  std::vector<Bytes> written;
  std::deque<std::size_t> sending;  // what the next looks at the transmit queue find
  std::optional<PortError> openError, closeError, writeError;
  std::vector<std::string> events;  // opens, closes, discards and writes in their order
  Bytes waiting;

  bool isOpen() const override { return open_; }
  void open() override { change("open", openError, true); }
  void close() override { change("close", closeError, false); }
  std::size_t bytesWaiting() override {
    while (!coming_.empty() && clock_.now - writtenAt_ >= coming_.front().afterMs) {
      waiting = waiting + coming_.front().bytes;
      coming_.pop_front();
    }
    return waiting.size();
  }
  std::span<const std::uint8_t> readAll() override {
    read_ = std::exchange(waiting, {});
    return read_;
  }
  void discardWaiting() override {
    events.emplace_back("discard");
    waiting.clear();
    coming_.clear();
  }
  std::size_t bytesToSend() override {
    if (sending.empty()) return 0;
    const std::size_t count = sending.front();
    sending.pop_front();
    return count;
  }
  void write(std::span<const std::uint8_t> bytes) override {
    events.emplace_back("write");
    if (writeError) throw *writeError;
    written.emplace_back(bytes.begin(), bytes.end());
    writtenAt_ = clock_.now;
    if (script.empty()) return;
    coming_.assign(script.front().begin(), script.front().end());
    script.pop_front();
  }

 private:
  void change(const char* event, const std::optional<PortError>& error, bool open) {
    events.emplace_back(event);
    if (error) throw *error;
    open_ = open;
  }

  HandClock& clock_;
  bool open_ = false;
  std::uint32_t writtenAt_ = 0;
  std::deque<Piece> coming_;
  Bytes read_;
};

class RecordingForm final : public Form {
 public:
  std::string caption() const override { return windowCaption; }
  void setCaption(const std::string& caption) override { windowCaption = caption; }
  void setMenuCaption(std::string_view menu, const std::string& caption) override {
    log.push_back(std::string(menu) + ": " + caption);
  }
  void setCaption(const ControlId& control, const std::string& caption) override {
    log.push_back(std::string(control.name) + ": " + caption);
  }
  void setEnabled(const ControlId& control, bool enabled) override {
    log.push_back(std::string(control.name) + (enabled ? " enabled" : " disabled"));
  }
  void setFocus(const ControlId& control) override {
    log.push_back(std::string(control.name) + " focused");
  }
  bool isSelected(const ControlId& option) const override { return option.index == selected; }

  std::string windowCaption;
  int selected = 0;
  std::vector<std::string> log;
};

}  // namespace zendor::testing
