// The two message boxes in which the program reports errors inside itself. Each routine returns
// when the user has closed its box; the caller decides what happens then.
#pragma once

#include <string>

#include "platform/desktop.h"
#include "platform/regional.h"
#include "platform/serial_port.h"

namespace zendor {

class ErrorReports {
 public:
  ErrorReports(Desktop& desktop, Regional regional);

  // Tells that the named routine was given an input that it cannot work with.
  void Tool_ReportProgramError(const std::string& routineName);

  // Tells that the named routine has caught an error of the platform.
  void Tool_ReportUnhandledError(const PortError& error, const std::string& routineName);

 private:
  Desktop& desktop_;
  Regional regional_;
};

}  // namespace zendor
