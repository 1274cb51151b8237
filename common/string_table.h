// Texts that the program shows, by the number of their entry.
#pragma once

#include <string>

namespace zendor {

enum class StringEntry {
  ApplicationTitle = 10,
  RetryTitle = 14,
  FreeThePort = 21,
  Ok = 50,
  SerialPort = 328,
  ErrorOpeningClosing = 330,
};

// Every entry has a text.
std::string stringTableText(StringEntry entry);

}  // namespace zendor
