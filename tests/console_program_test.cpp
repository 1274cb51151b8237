#include <gtest/gtest.h>

#include <algorithm>

#include "program/console/console_program.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using namespace doubles;

// Ends the process with the status of the command, on ports that do not open. The reason of a
// refusal is the device, or "numbered".
[[noreturn]] void runOnRefusedPorts(std::vector<std::string> arguments) {
  FakePlatform fake;
  const auto refused = [&](const std::string& reason) {
    auto port = std::make_unique<ScriptedLine>(fake.clock, fake.log);
    port->openError = PortError{5, reason};
    return port;
  };
  arguments.insert(arguments.begin(), "program");
  std::vector<char*> argv(arguments.size());
  std::ranges::transform(arguments, argv.begin(), [](std::string& text) { return text.data(); });
  std::exit(runConsoleProgram(
      static_cast<int>(argv.size()), argv.data(),
      {.name = "command",
       .deviceHelp = "a device",
       .isDevice = [](const std::string& port) { return port.starts_with("device"); },
       .numberedPort = [&] { return refused("numbered"); },
       .namedPort = refused,
       .describePort = [](int number) { return "device " + std::to_string(number); }}));
}

struct Row {
  std::vector<std::string> arguments;
  int status;
  const char* errors;
};

TEST(Command, AsksOnThePortThatIsNamedAndRefusesWhatItDoesNotUnderstand) {
  const Row rows[] = {
      {{}, 1, "^command: Error opening/closing Serial Port 1: numbered\nPlease free the port"},
      {{"1"}, 1, "Serial Port 1: numbered"},
      {{"--trace", "4"}, 1, "^command: Error opening/closing Serial Port 4: numbered"},
      {{"device"}, 1, "^command: Error opening/closing device: device\n"},
      {{"0"}, 2, "^command: PORT: \"0\" is neither a number from 1 to 4 nor a device\\."},
      {{"5"}, 2, "\"5\" is neither"},
      {{"11"}, 2, "\"11\" is neither"},
      {{""}, 2, "\"\" is neither"},
      {{"1", "2"}, 2, "2"},
      {{"--list", "1"}, 2, "--list"},
      {{"--list", "--trace"}, 2, "--list"},
      {{"--unknown"}, 2, "--unknown"},
      {{"--list"}, 0, "^$"},
      {{"--help"}, 0, "^$"},
      {{"--version"}, 0, "^$"},
  };
  for (const auto& [arguments, status, errors] : rows) {
    SCOPED_TRACE(testing::PrintToString(arguments));
    EXPECT_EXIT(runOnRefusedPorts(arguments), testing::ExitedWithCode(status), errors);
  }
}

}  // namespace
}  // namespace zendor
