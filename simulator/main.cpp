// The command that runs a simulated pod on a pseudo-terminal until it is interrupted.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iomanip>
#include <iostream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "simulator/device_link.h"
#include "simulator/simulated_line.h"

namespace zendor::simulator {
namespace {

struct Arguments {
  std::string buildCode = Pod{}.buildCode;
  unsigned serialNumber = Pod{}.serialNumber;
  unsigned address = Pod{}.address;
  bool noPod = false;
  bool unpaced = false;
  bool trace = false;
  unsigned pullOutAfter = 0;  // requests; 0 is never
  std::string link;
  std::vector<std::string> faults;
};

constexpr int kWrongUsage = 2;

constexpr const char* kName = "zendor-pod-simulator";

// The library would note beside an option which others exclude it. This blank stands there instead.
constexpr const char* kNoNote = " ";

constexpr const char* kExplanation =
    R"(The path of the device is printed on a line of its own. The line is there until
the program is interrupted.

A fault is given as fault:header:times. The header is the number of the command
that it strikes, for example 254 for the poll, or "any"; times is how many
requests it strikes, or "always". What is left out at the end means any and
always. Of several faults that fit a request, the first one that is not used up
strikes. Example: --fault no-echo:254:2 --fault busy:any

Faults:
)";

std::string footer() {
  std::ostringstream text;
  text << kExplanation;
  for (const Fault& fault : faultCatalogue()) {
    text << "  " << std::left << std::setw(19) << fault.name << fault.whatItDoes << "\n";
  }
  return text.str();
}

std::string complaintAboutBuildCode(const std::string& text) {
  return text.size() <= 255 ? "" : "A build code has at most 255 characters.";
}

std::string complaintAboutFault(const std::string& text) {
  try {
    parseFaultRule(text);
    return "";
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
}

// The library breaks no lines. With the line breaks of the descriptions, the help has 80 columns.
void declareTexts(CLI::App& app) {
  constexpr std::size_t kOptionColumns = 16;
  app.get_formatter()->column_width(kOptionColumns);
  app.footer(footer());
  app.failure_message([](const CLI::App* parsed, const CLI::Error& error) {
    return kName + (": " + CLI::FailureMessage::simple(parsed, error));
  });
  app.set_help_flag("-h,--help", "Print this text.");
  app.set_version_flag("--version", std::string(kName) + " " + ZENDOR_VERSION,
                       "Print the version.");
}

void declarePod(CLI::App& app, Arguments& arguments) {
  auto* noPod = app.add_flag("--no-pod", arguments.noPod, "Echo, and let nobody answer.")
                    ->option_text(kNoNote);
  app.add_option("--build-code", arguments.buildCode,
                 "Report this build code. A genuine pod reports Customer or\nEngineer.")
      ->option_text("TEXT=" + arguments.buildCode)
      ->check(complaintAboutBuildCode)
      ->excludes(noPod);
  app.add_option("--serial-number", arguments.serialNumber, "Report this serial number.")
      ->option_text("0..16777215=" + std::to_string(arguments.serialNumber))
      ->check(CLI::Range(0U, 0xFFFFFFU))
      ->excludes(noPod);
  app.add_option("--address", arguments.address, "Answer at this address.")
      ->option_text("0..255=" + std::to_string(arguments.address))
      ->check(CLI::Range(0U, 255U))
      ->excludes(noPod);
}

void declareLine(CLI::App& app, Arguments& arguments) {
  app.add_option("--fault", arguments.faults,
                 "Let this go wrong with these requests; see below. It can be\ngiven repeatedly.")
      ->option_text("FAULT[:HEADER[:TIMES]]")
      ->expected(1)
      ->take_all()
      ->check(complaintAboutFault);
  app.add_flag("--unpaced", arguments.unpaced,
               "Pass bytes on at once instead of at the pace of 9600 baud.");
  app.add_option("--pull-out-after", arguments.pullOutAfter,
                 "Let the line go away after so many requests, as an adapter does\n"
                 "that is pulled out.")
      ->option_text("REQUESTS");
  app.add_option("--link", arguments.link,
                 "Make a symbolic link to the device here, and remove it at the\n"
                 "end. It replaces another symbolic link, never a file.")
      ->option_text("PATH");
  app.add_flag("--trace", arguments.trace,
               "Print each frame to standard error as decimal bytes, a line a\n"
               "frame: after \"host:\" what was received, when it is complete,\n"
               "and after \"pod:\" what is sent back, without the echo, when it\n"
               "is decided.");
}

void printFrame(Sender sender, const Bytes& frame) {
  std::ostringstream line;
  line << (sender == Sender::Host ? "host:" : "pod:");
  for (const unsigned byte : frame) line << ' ' << byte;
  std::cerr << line.str() << std::endl;
}

// The signal goes to the whole process, so that the thread that waits for signals gets it.
Onlooker onlooker(const Arguments& arguments) {
  return [trace = arguments.trace, left = arguments.pullOutAfter](Sender sender,
                                                                  const Bytes& frame) mutable {
    if (trace) printFrame(sender, frame);
    if (sender == Sender::Host && left > 0 && --left == 0) ::kill(::getpid(), SIGTERM);
  };
}

LineOptions lineOptions(const Arguments& arguments) {
  std::vector<FaultRule> rules;
  for (const std::string& fault : arguments.faults) rules.push_back(parseFaultRule(fault));
  LineOptions options;
  options.faults = FaultPlan(std::move(rules));
  options.isPaced = !arguments.unpaced;
  options.onlooker = onlooker(arguments);
  if (arguments.noPod) options.pod.reset();
  if (options.pod) {
    options.pod->buildCode = arguments.buildCode;
    options.pod->serialNumber = arguments.serialNumber;
    options.pod->address = static_cast<std::uint8_t>(arguments.address);
  }
  return options;
}

// The signals are blocked before the line's thread begins, because that thread inherits the block
// and would otherwise receive the signals that this one waits for.
void serveUntilInterrupted(const Arguments& arguments) {
  sigset_t interruptions{};
  sigemptyset(&interruptions);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&interruptions, signal);
  pthread_sigmask(SIG_BLOCK, &interruptions, nullptr);

  const SimulatedLine line(lineOptions(arguments));
  std::optional<DeviceLink> link;
  if (!arguments.link.empty()) link.emplace(arguments.link, line.device());
  std::cout << line.device() << std::endl;
  int signal = 0;
  sigwait(&interruptions, &signal);
}

}  // namespace
}  // namespace zendor::simulator

int main(int argc, char** argv) {
  using namespace zendor::simulator;
  Arguments arguments;
  CLI::App app("Simulate a pod at the end of a serial line, on a pseudo-terminal.", kName);
  declareTexts(app);
  declarePod(app, arguments);
  declareLine(app, arguments);
  try {
    app.parse(argc, argv);
    serveUntilInterrupted(arguments);
    return EXIT_SUCCESS;
  } catch (const CLI::ParseError& end) {
    return app.exit(end) == 0 ? EXIT_SUCCESS : kWrongUsage;
  } catch (const std::exception& error) {
    std::cerr << kName << ": " << error.what() << std::endl;
    return EXIT_FAILURE;
  }
}
