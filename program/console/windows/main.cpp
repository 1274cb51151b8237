// The command on the serial ports of a Windows computer.
#include <algorithm>
#include <cctype>
#include <iostream>
#include <string>
#include <string_view>

#include "platform/win32/win32_console.h"
#include "platform/win32/win32_port_devices.h"
#include "platform/win32/win32_serial_port.h"
#include "program/console/console_program.h"

namespace {

// Windows accepts the letters in either case.
bool isComPort(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return std::toupper(c); });
  return text.starts_with("COM") && text.size() > 3 && text[3] != '0' &&
         std::ranges::all_of(text.substr(3), [](unsigned char c) { return std::isdigit(c) != 0; });
}

// Commands of Windows print their help for these.
bool asksForHelp(std::string_view argument) { return argument == "/?" || argument == "-?"; }

}  // namespace

int main(int argc, char** argv) {
  using namespace zendor;
  const ReadableOnConsole output(std::cout, STD_OUTPUT_HANDLE);
  const ReadableOnConsole errors(std::cerr, STD_ERROR_HANDLE);
  char help[] = "--help";
  std::replace_if(argv, argv + argc, asksForHelp, &help[0]);
  return runConsoleProgram(
      argc, argv,
      {.name = "ZendorSerialNumber",
       .deviceHelp = "a port such as COM5",
       .isDevice = &isComPort,
       .numberedPort = [] { return std::make_unique<Win32SerialPort>(&comPortOf); },
       .namedPort =
           [](const std::string& device) {
             return std::make_unique<Win32SerialPort>([=](int) { return device; });
           },
       .describePort = &describePort});
}
