#include "serial/port_control.h"

#include <algorithm>

#include "common/conversions.h"
#include "common/string_table.h"

namespace zendor {

std::vector<int> BaudRateList() {
  return {110, 300, 600, 1200, 2400, 4800, 9600, 14400, 19200, 28800, 38400, 56000, 128000, 256000};
}

PortControl::PortControl(SerialPort& port, Desktop& desktop, ErrorReports& reports)
    : MSComm1(port), desktop_(desktop), reports_(reports) {}

bool PortControl::Port_InitialiseSerialPort(int port, const std::string& settings) {
  const std::size_t comma = settings.find(',');
  if (comma == std::string::npos) {
    reports_.Tool_ReportProgramError("Port_InitialiseSerialPort");
    return false;
  }
  const double baud = Tool_TextToNumber(settings.substr(0, comma));
  if (std::ranges::find(BaudRates, baud) == BaudRates.end()) return false;

  MSComm1.configuration.receiveThreshold = 1;
  MSComm1.configuration.sendThreshold = 0;
  MSComm1.configuration.handshaking = 0;
  MSComm1.configuration.discardNulBytes = false;
  MSComm1.configuration.inputMode = 0;
  MSComm1.configuration.inputLength = 0;
  MSComm1.configuration.portNumber = static_cast<std::int16_t>(port);
  MSComm1.configuration.settings = settings;
  return true;
}

PortStatus PortControl::Port_SetOpen(bool open, bool showErrors) {
  if (MSComm1.isOpen() == open) return open ? PortStatus::AlreadyOpen : PortStatus::AlreadyClosed;
  try {
    if (open) {
      MSComm1.open();
    } else {
      MSComm1.close();
    }
  } catch (const PortError& error) {
    if (showErrors) showRefusal(error.description);
    return PortStatus::Refused;
  }
  return PortStatus::Switched;
}

bool PortControl::Port_IsOpen() const { return MSComm1.isOpen(); }

void PortControl::Port_Shutdown() {
  if (Port_IsOpen() && Port_SetOpen(false, true) != PortStatus::Switched) {
    Tool_ShowWarning("PORT reset fail - please reset your HH PC!");
  }
  desktop_.endProgram();
}

void PortControl::Tool_ShowWarning(const std::string& text) {
  desktop_.showMessage({text, stringTableText(StringEntry::ApplicationTitle),
                        MessageIcon::Exclamation, MessageButtons::Ok});
}

void PortControl::showRefusal(const std::string& description) {
  const std::string title = stringTableText(StringEntry::ErrorOpeningClosing) + " " +
                            stringTableText(StringEntry::SerialPort) + " " +
                            Tool_FormatDecimal(MSComm1.configuration.portNumber, 0);
  const std::string text = description + kLineBreak + stringTableText(StringEntry::FreeThePort);
  desktop_.showMessage({text, title, MessageIcon::None, MessageButtons::Ok});
}

}  // namespace zendor
