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

constexpr const char* kExplanation =
    R"(The path of the device is printed on a line of its own. The line is there until the program is
interrupted.

A fault is given as fault:header:times. The header is the number of the command that it strikes, for
example 254 for the poll, or "any"; times is how many requests it strikes, or "always". What is left
out at the end means any and always. Of several faults that fit a request, the first one that is not
used up strikes. Example: --fault no-echo:254:2 --fault busy:any

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

void declarePod(CLI::App& app, Arguments& arguments) {
  auto* noPod = app.add_flag("--no-pod", arguments.noPod, "The line echoes and nobody answers.");
  app.add_option(
         "--build-code", arguments.buildCode,
         "The build code that the pod reports. A genuine pod reports Customer or\nEngineer.")
      ->capture_default_str()
      ->check(complaintAboutBuildCode)
      ->excludes(noPod);
  app.add_option("--serial-number", arguments.serialNumber,
                 "The serial number that the pod reports.")
      ->type_name("0..16777215")
      ->capture_default_str()
      ->check(CLI::Range(0U, 0xFFFFFFU).description(""))
      ->excludes(noPod);
  app.add_option("--address", arguments.address, "The address at which the pod answers.")
      ->type_name("0..255")
      ->capture_default_str()
      ->check(CLI::Range(0U, 255U).description(""))
      ->excludes(noPod);
}

void declareLine(CLI::App& app, Arguments& arguments) {
  app.add_option(
         "--fault", arguments.faults,
         "What goes wrong, and with which requests; see below. It can be given\nrepeatedly.")
      ->type_name("FAULT[:HEADER[:TIMES]]")
      ->expected(1)
      ->take_all()
      ->check(complaintAboutFault);
  app.add_flag("--unpaced", arguments.unpaced,
               "Bytes pass at once instead of at the pace of 9600 baud.");
  app.add_option("--pull-out-after", arguments.pullOutAfter,
                 "The line goes away at once after so many requests, as an adapter does that is\n"
                 "pulled out.")
      ->type_name("REQUESTS");
  app.add_option("--link", arguments.link,
                 "A symbolic link to the device is made here and removed at the end. It takes\nthe "
                 "place of another symbolic link, never of a file.")
      ->type_name("PATH");
  app.add_flag("--trace", arguments.trace,
               "Each frame is printed to the standard error output as decimal bytes, a line\n"
               "a frame: after \"host:\" what was received, when it is complete, and after\n"
               "\"pod:\" what is sent back, without the echo, when it is decided.");
}

void printFrame(Sender sender, const Bytes& frame) {
  std::ostringstream line;
  line << (sender == Sender::Host ? "host:" : "pod:");
  for (const unsigned byte : frame) line << ' ' << byte;
  std::cerr << line.str() << std::endl;
}

// The signal goes to the whole process, so that the thread that waits for it takes it.
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
// and would otherwise take the signals that this one waits for.
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
  CLI::App app("A serial line with a simulated pod at its end, on a pseudo-terminal.",
               "zendor-pod-simulator");
  app.footer(footer());
  app.set_help_flag("-h,--help", "This text is printed.");
  declarePod(app, arguments);
  declareLine(app, arguments);
  CLI11_PARSE(app, argc, argv);
  try {
    serveUntilInterrupted(arguments);
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << error.what() << std::endl;
    return EXIT_FAILURE;
  }
}
