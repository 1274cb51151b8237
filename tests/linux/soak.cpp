// Clicks through as many requests as the argument says, on an unpaced simulated pod that fails at
// random. Checks every outcome, and that neither open descriptors nor memory grow.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <utility>

#include "app/frm_startup.h"
#include "platform/console/console_form.h"
#include "platform/linux/linux_serial_port.h"
#include "platform/shared/steady_clock.h"
#include "simulator/simulated_line.h"

namespace {

struct ProgramEnded {};

class SoakDesktop final : public zendor::Desktop {
 public:
  zendor::MessageAnswer showMessage(const zendor::Message& message) override {
    messages += message.text;
    return zendor::MessageAnswer::Ok;
  }
  void processEvents() override { std::this_thread::yield(); }

  std::string messages;

 private:
  void endProcess() override { throw ProgramEnded{}; }
};

// What strikes one request: a fault on a command, in one attempt or in all of them. Faults that
// make an attempt wait for its time-out are rare, so that the whole soak takes minutes.
struct Strike {
  zendor::simulator::FaultRule rule;
  std::string outcome;
};

Strike randomStrike(std::mt19937& random) {
  static constexpr const char* kQuick[] = {"extra-byte",        "wrong-checksum", "wrong-source",
                                           "wrong-destination", "busy",           "nak",
                                           "unknown-header"};
  static constexpr const char* kSlow[] = {"dead", "partial-echo", "echo-only", "short-reply",
                                          "truncated-reply"};
  static constexpr const char* kHeaders[] = {"254", "192", "242"};
  const auto oneOf = [&](const auto& choices) {
    return std::string(choices[random() % std::size(choices)]);
  };
  const std::string header = oneOf(kHeaders);
  const auto strike = [&](const std::string& fault, const char* times, const char* outcome) {
    return Strike{zendor::simulator::parseFaultRule(fault + ":" + header + ":" + times), outcome};
  };
  if (random() % 2 == 0) return strike("none", "1", "C-1234567");
  if (random() % 40 == 0) return strike(oneOf(kSlow), "1", "C-1234567");
  const std::string fault = oneOf(kQuick);
  if (random() % 2 == 0) return strike(fault, "1", "C-1234567");
  return strike(fault, "always",
                header == "254" ? "You Must Attach The Zendor!" : "You Zendor maybe Faulty");
}

// The program from its start to its end. Each request opens the device that the string then names.
struct Program {
  explicit Program(const std::string& device)
      : port([&device](int) { return std::optional(device); }) {
    window.Form_Load();
  }

  zendor::LinuxSerialPort port;
  SoakDesktop desktop;
  zendor::ConsoleForm form{zendor::frmStartup::description(), 1};
  zendor::SteadyClock clock;
  zendor::frmStartup window{form, port, desktop, clock, {}, {}};
};

class Soak {
 public:
  std::string request(const Strike& strike) {
    zendor::simulator::LineOptions options;
    options.isPaced = false;
    options.faults = zendor::simulator::FaultPlan({strike.rule});
    const zendor::simulator::SimulatedLine line(std::move(options));
    device_ = line.device();
    if (!program_) program_ = std::make_unique<Program>(device_);
    try {
      program_->window.Control_Click({"cmdAccept"});
    } catch (const ProgramEnded&) {
      return std::exchange(program_, nullptr)->desktop.messages;
    }
    if (program_->port.isOpen()) return "the port is still open";
    return program_->form.result() + std::exchange(program_->desktop.messages, "");
  }

 private:
  std::string device_;
  std::unique_ptr<Program> program_;
};

std::ptrdiff_t openDescriptors() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

long residentPages() {
  long size = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> size >> resident;
  return resident;
}

}  // namespace

int main(int argc, char** argv) {
  const int count = argc > 1 ? std::atoi(argv[1]) : 2000;
  std::mt19937 random(20260101);  // the same requests in every run
  Soak soak;
  std::map<std::string, int> outcomes;
  int wrong = 0;
  const auto run = [&](int requests) {
    for (; requests > 0; --requests) {
      const Strike strike = randomStrike(random);
      const std::string outcome = soak.request(strike);
      ++outcomes[outcome];
      if (outcome != strike.outcome) ++wrong;
    }
  };
  run(count / 10);  // after these, all that is allocated once is there
  const auto descriptors = openDescriptors();
  const long pages = residentPages();
  run(count - count / 10);

  for (const auto& [outcome, times] : outcomes) std::printf("%6d  %s\n", times, outcome.c_str());
  const auto moreDescriptors = openDescriptors() - descriptors;
  const long morePages = residentPages() - pages;
  std::printf("%6d  wrong outcomes\n%6td  more open descriptors\n%6ld  more pages of memory\n",
              wrong, moreDescriptors, morePages);
  constexpr long kTolerance = 64;  // pages that the allocator may keep
  return wrong == 0 && moreDescriptors == 0 && morePages < kTolerance ? EXIT_SUCCESS : EXIT_FAILURE;
}
