// Configures, opens and closes the one serial port, and ends a program that cannot go on.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/error_reports.h"
#include "platform/desktop.h"
#include "platform/serial_port.h"

namespace zendor {

std::vector<int> BaudRateList();

// The result of switching the port.
enum class PortStatus : std::uint8_t {
  Switched = 0,
  AlreadyOpen = 1,
  AlreadyClosed = 2,
  Refused = 3,  // by the platform; the port keeps its state
};

class PortControl {
 public:
  PortControl(SerialPort& port, Desktop& desktop, ErrorReports& reports);

  // Writes the configuration into the closed port. The result is false, and nothing is written,
  // when the settings have no comma or no accepted baud rate before the comma. A missing comma is
  // reported to the user.
  bool Port_InitialiseSerialPort(int port, const std::string& settings);

  // showErrors says whether the user is told of a refusal.
  PortStatus Port_SetOpen(bool open, bool showErrors);

  // Closes the port, warns when even that is refused, and ends the program.
  [[noreturn]] void Port_Shutdown();

  // The accepted rates; empty until the window is loaded.
  std::vector<int> BaudRates;

 private:
  bool Port_IsOpen() const;

  // A message box with the application's title.
  void Tool_ShowWarning(const std::string& text);

  void showRefusal(const std::string& description);

  SerialPort& MSComm1;
  Desktop& desktop_;
  ErrorReports& reports_;
};

}  // namespace zendor
