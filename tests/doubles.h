// Doubles for the seams to the platform: a clock turned by hand, a line that plays a script, a
// desktop and a form. Line, desktop and form record in one log what is asked of them. None of the
// doubles takes real time.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/form.h"
#include "platform/serial_port.h"

namespace zendor::doubles {

using Bytes = std::vector<std::uint8_t>;
using Log = std::vector<std::string>;

template <typename T>
std::vector<T> operator+(std::vector<T> left, const std::vector<T>& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

// Whether the condition comes true within five seconds. It serves tests that take real time.
inline bool comesTrue(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  while (!condition() && std::chrono::steady_clock::now() < end) std::this_thread::yield();
  return condition();
}

// Frames between host 1 and pod 80. Their checksums were computed by hand.
inline const Bytes kPoll{80, 0, 1, 254, 177}, kBuildCode{80, 0, 1, 192, 239},
    kSerial{80, 0, 1, 242, 189}, kDone{1, 0, 80, 0, 175}, kBusy{1, 0, 80, 6, 169},
    kCustomer{1, 8, 80, 0, 67, 117, 115, 116, 111, 109, 101, 114, 85},
    kEngineer{1, 8, 80, 0, 69, 110, 103, 105, 110, 101, 101, 114, 122},
    k1234567{1, 3, 80, 0, 135, 214, 18, 61};

class HandClock final : public Clock {
 public:
  std::int32_t GetTickCount() const override { return static_cast<std::int32_t>(now); }
  std::uint32_t now = 0;
};

// The desktop throws this at the end of the program, so that nothing further runs.
struct ProgramEnded {};

class RecordingDesktop final : public Desktop {
 public:
  RecordingDesktop(HandClock& clock, Log& log) : clock_(clock), log_(log) {}

  MessageAnswer showMessage(const Message& message) override {
    const char* const icons[] = {"", "(x) ", "(!) "};
    log_.push_back(icons[static_cast<int>(message.icon)] + ("[" + message.title + "] ") +
                   message.text);
    if (message.buttons == MessageButtons::Ok) return MessageAnswer::Ok;
    if (answers.empty()) throw std::logic_error("a question without an answer");
    return std::exchange(answers, {answers.begin() + 1, answers.end()}).front();
  }
  void processEvents() override {  // a pass of a wait loop takes a millisecond
    ++clock_.now;
    if (onPass) onPass();
  }

  std::vector<MessageAnswer> answers;
  std::function<void()> onPass;

 private:
  void endProcess() override { throw ProgramEnded{}; }

  HandClock& clock_;
  Log& log_;
};

// Answers each write with the next entry of the script, piece by piece. Where respond is set, each
// write adds its result to the script first.
class ScriptedLine final : public SerialPort {
 public:
  ScriptedLine(HandClock& clock, Log& log) : clock_(clock), log_(log) {}

  using Pieces = std::multimap<double, Bytes>;  // by the milliseconds until they arrive
  std::deque<Pieces> script;
  std::function<Pieces(std::span<const std::uint8_t>)> respond;
  std::vector<Bytes> written;
  std::size_t unsent = 0;
  std::optional<PortError> openError, closeError, writeError;
  Bytes waiting;

  bool isOpen() const override { return open_; }
  void open() override { change("open", openError, true); }
  void close() override { change("close", closeError, false); }
  std::size_t bytesWaiting() override {
    for (; !coming_.empty() && coming_.begin()->first <= clock_.now; coming_.erase(coming_.begin()))
      waiting = waiting + coming_.begin()->second;
    return waiting.size();
  }
  std::span<const std::uint8_t> readAll() override {
    bytesWaiting();
    return read_ = std::exchange(waiting, {});
  }
  void discardWaiting() override {
    log_.emplace_back("discard");
    bytesWaiting();
    waiting.clear();
  }
  std::size_t bytesToSend() override { return unsent; }
  void write(std::span<const std::uint8_t> bytes) override {
    if (!open_) throw std::logic_error("a closed port");
    log_.emplace_back("write");
    if (writeError) throw *writeError;
    written.emplace_back(bytes.begin(), bytes.end());
    if (respond) script.push_back(respond(bytes));
    if (script.empty()) return;
    for (const auto& [delay, piece] : script.front()) coming_.emplace(clock_.now + delay, piece);
    script.pop_front();
  }

 private:
  void change(const char* event, const std::optional<PortError>& error, bool open) {
    log_.emplace_back(event);
    if (error) throw *error;
    open_ = open;
  }

  HandClock& clock_;
  Log& log_;
  bool open_ = false;
  Pieces coming_;  // by the millisecond of the clock
  Bytes read_;
};

class RecordingForm final : public Form {
 public:
  explicit RecordingForm(Log& log) : log_(log) {}

  void setCaption(const std::string& caption) override { windowCaption = caption; }
  void setMenuCaption(std::string_view menu, const std::string& text) override { note(menu, text); }
  void setCaption(const ControlId& id, const std::string& text) override { note(id.name, text); }
  void setEnabled(const ControlId& id, bool enabled) override {
    note(id.name, enabled ? "enabled" : "disabled");
  }
  void setFocus(const ControlId& id) override { note(id.name, "focused"); }
  std::optional<int> selectedIndex(std::string_view array) override {
    return array == "optCommPort" ? selected : std::nullopt;
  }

  std::string windowCaption;
  std::optional<int> selected = 0;

 private:
  void note(std::string_view name, const std::string& what) {
    log_.push_back(std::string(name) + ": " + what);
  }

  Log& log_;
};

// The doubles that every test of the core needs, and their log.
struct FakePlatform {
  Log log;
  HandClock clock;
  RecordingDesktop desktop{clock, log};
  ScriptedLine line{clock, log};

  // The next write is answered with an echo of that many bytes and with the reply.
  void play(std::size_t echo, const Bytes& reply) {
    line.script.push_back({{0, Bytes(echo) + reply}});
  }
};

}  // namespace zendor::doubles
