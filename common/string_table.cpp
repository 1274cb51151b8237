#include "common/string_table.h"

#include <algorithm>

namespace zendor {

namespace {

struct Row {
  StringEntry entry;
  const char* text;
};

constexpr Row kStringTable[] = {
    {StringEntry::ApplicationTitle, "Tarrow"},
    {StringEntry::RetryTitle, "dravo\u00AE"},
    {StringEntry::FreeThePort, "Please free the port or choose another"},
    {StringEntry::Ok, "OK"},
    {StringEntry::SerialPort, "Serial Port"},
    {StringEntry::ErrorOpeningClosing, "Error opening/closing"},
};

}  // namespace

std::string stringTableText(StringEntry entry) {
  return std::ranges::find(kStringTable, entry, &Row::entry)->text;
}

}  // namespace zendor
