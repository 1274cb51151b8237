#include "program/console/console_program.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <sstream>

#include "app/frm_startup.h"
#include "platform/console/console_desktop.h"
#include "platform/console/console_form.h"
#include "platform/console/traced_serial_port.h"
#include "platform/shared/steady_clock.h"
#include "program/version.h"

namespace zendor {

namespace {

constexpr int kPrinted = 0;
constexpr int kNotPrinted = 1;
constexpr int kWrongUsage = 2;

// The library breaks no lines. With the line breaks of the descriptions, the help has 80 columns.
constexpr std::size_t kOptionColumns = 14;

// The library would note beside an option which others exclude it. This blank stands there instead.
constexpr const char* kNoNote = " ";

struct Arguments {
  std::string port = "1";
  bool list = false;
  bool trace = false;
};

std::string footer(const std::string& name) {
  return "Exit status: 0 if what was asked for was printed, 1 if it was not, and 2 if the\n"
         "command line was not understood. Standard error then has the reason.\n\n"
         "Examples:\n  " +
         name + "            the number of the Zendor on Serial Port 1\n  " + name +
         " 2 --trace  what passes over the line as well\n  " + name +
         " --list     which device is which port";
}

// Empty when the text names a port.
std::string complaintAboutPort(const std::string& text, const ConsolePlatform& platform) {
  const bool isNumber =
      text.size() == 1 && text[0] >= '1' && text[0] <= '0' + frmStartup::kPortChoices;
  if (isNumber || platform.isDevice(text)) return "";
  return "\"" + text + "\" is neither a number from 1 to 4 nor " + platform.deviceHelp + ".";
}

void declareTexts(CLI::App& app, const ConsolePlatform& platform) {
  app.get_formatter()->column_width(kOptionColumns);
  app.footer(footer(platform.name));
  app.failure_message([&](const CLI::App* parsed, const CLI::Error& error) {
    return platform.name + ": " + CLI::FailureMessage::simple(parsed, error);
  });
  app.set_help_flag("-h,--help", "Print this text.");
  app.set_version_flag("--version",
                       platform.name + " " + std::to_string(kVersion.majorNumber) + "." +
                           std::to_string(kVersion.minorNumber) + "." +
                           std::to_string(kVersion.revision),
                       "Print the version.");
}

void declareOptions(CLI::App& app, Arguments& arguments, const ConsolePlatform& platform) {
  auto* const port =
      app.add_option("PORT", arguments.port,
                     "The serial port: 1 to 4 as in the window, 1 when left out,\nor " +
                         platform.deviceHelp + ".")
          ->option_text(kNoNote)
          ->check([&](const std::string& text) { return complaintAboutPort(text, platform); });
  auto* const list = app.add_flag("--list", arguments.list,
                                  "Print the ports, a line each: number, device, and what its\n"
                                  "adapter calls itself. The last line tells how to name others.")
                         ->option_text(kNoNote)
                         ->excludes(port);
  app.add_flag("--trace", arguments.trace,
               "Print each frame to standard error: the milliseconds since\n"
               "the start, > and what was sent, or < and what was received.\n"
               "A | separates the echo from the reply.")
      ->option_text(kNoNote)
      ->excludes(list);
}

std::string portList(const ConsolePlatform& platform) {
  std::string lines;
  for (int number = 1; number <= frmStartup::kPortChoices; ++number) {
    lines += std::to_string(number) + ": " + platform.describePort(number) + "\n";
  }
  return lines + "other: " + platform.deviceHelp + "\n";
}

// Runs the request of the window's button on the port. The result is what the window would show as
// the serial number, or empty after a failure.
std::string request(const Arguments& arguments, const ConsolePlatform& platform) {
  const bool isDevice = platform.isDevice(arguments.port);
  const auto port = isDevice ? platform.namedPort(arguments.port) : platform.numberedPort();
  const SteadyClock clock;
  TracedSerialPort traced(*port, clock, std::cerr);
  ConsoleForm form(frmStartup::description(), isDevice ? 1 : std::stoi(arguments.port));
  const std::string choice = form.choice();
  ConsoleDesktop desktop(std::cerr, platform.name, choice, isDevice ? arguments.port : choice,
                         [&] { traced.finishLine(); });
  SerialPort& MSComm1 = arguments.trace ? traced : *port;
  frmStartup startup(form, MSComm1, desktop, clock, {}, kVersion);
  form.loadAndPress(startup);
  return form.result();
}

// If standard output fails, the user still finds the text on standard error.
int print(const std::string& text, const ConsolePlatform& platform) {
  std::cout << text << std::flush;
  if (std::cout) return kPrinted;
  std::cerr << platform.name << ": Standard output does not accept the text:\n" << text;
  return kNotPrinted;
}

}  // namespace

int runConsoleProgram(int argc, char** argv, const ConsolePlatform& platform) {
  Arguments arguments;
  CLI::App app("Print the serial number of the Zendor on a serial port.", platform.name);
  declareTexts(app, platform);
  declareOptions(app, arguments, platform);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& end) {
    std::ostringstream help;
    return app.exit(end, help, std::cerr) == 0 ? print(help.str(), platform) : kWrongUsage;
  }
  if (arguments.list) return print(portList(platform), platform);
  const std::string number = request(arguments, platform);
  return number.empty() ? kNotPrinted : print(number + "\n", platform);
}

}  // namespace zendor
