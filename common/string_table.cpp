#include "common/string_table.h"

namespace zendor {

std::string stringTableText(StringEntry entry) {
  switch (entry) {
    case StringEntry::ApplicationTitle:
      return "Tarrow";
    case StringEntry::RetryTitle:
      return "dravo\u00AE";
    case StringEntry::FreeThePort:
      return "Please free the port or choose another";
    case StringEntry::Ok:
      return "OK";
    case StringEntry::SerialPort:
      return "Serial Port";
    case StringEntry::ErrorOpeningClosing:
      return "Error opening/closing";
  }
  return {};
}

}  // namespace zendor
