#include "common/error_reports.h"

#include <utility>

#include "common/conversions.h"

namespace zendor {

ErrorReports::ErrorReports(Desktop& desktop, Regional regional)
    : desktop_(desktop), regional_(std::move(regional)) {}

void ErrorReports::Tool_ReportProgramError(const std::string& routineName) {
  desktop_.showMessage(
      {"Error in " + routineName, "Program Error", MessageIcon::Critical, MessageButtons::Ok});
}

void ErrorReports::Tool_ReportUnhandledError(const PortError& error,
                                             const std::string& routineName) {
  const std::string text = "Unhandled Error number " +
                           Tool_FormatDecimal(error.number, 0, regional_) + kLineBreak +
                           error.description + kLineBreak + "Occured in " + routineName;
  desktop_.showMessage({text, "Unhandled Error", MessageIcon::Exclamation, MessageButtons::Ok});
}

}  // namespace zendor
