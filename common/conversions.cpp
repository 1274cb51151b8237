#include "common/conversions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

#include "common/byte_text.h"

namespace zendor {

namespace {

std::string_view trimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// Removes the last digit, and rounds the number up if that digit was 5 or more.
std::string withoutLastDigit(std::string digits) {
  const bool isRoundedUp = digits.back() >= '5';
  digits.pop_back();
  if (!isRoundedUp) return digits;
  const auto last = std::find_if(digits.rbegin(), digits.rend(), [](char c) { return c != '9'; });
  std::fill(digits.rbegin(), last, '0');
  if (last == digits.rend()) return "1" + digits;
  ++*last;
  return digits;
}

// All digits of a value that is not negative, the given number of them after the decimal point. The
// point itself is left out.
std::string roundedDigits(double value, int digits) {
  // Most numbers are whole. They are written without the library's large tables for exact digits,
  // so the window starts without reading those tables.
  constexpr double kWholeNumberLimit = 1e15;
  if (digits == 0 && value < kWholeNumberLimit && value == std::floor(value)) {
    return std::to_string(static_cast<std::uint64_t>(value));
  }
  // No double has more digits after the point, so this many write every value exactly.
  constexpr int kAllDigits = 1074;
  std::array<char, std::numeric_limits<double>::max_exponent10 + 2 + kAllDigits> exact{};
  const auto [end, error] = std::to_chars(exact.data(), exact.data() + exact.size(), value,
                                          std::chars_format::fixed, kAllDigits);
  std::string text(exact.data(), end);
  const std::size_t point = text.size() - kAllDigits - 1;
  text.erase(point, 1);
  text.resize(point + static_cast<std::size_t>(digits) + 1, '0');
  return withoutLastDigit(std::move(text));
}

}  // namespace

std::string Tool_FormatDecimal(double value, int digits, const Regional& regional) {
  std::string text = roundedDigits(std::abs(value), digits);
  const bool isZero = text.find_first_not_of('0') == std::string::npos;
  if (digits > 0) {
    text.insert(text.size() - static_cast<std::size_t>(digits), regional.decimalSeparator);
  }
  return value < 0 && !isZero ? regional.minusSign + text : text;
}

std::string Tool_GroupThousands(std::string_view digits) {
  std::string grouped;
  while (digits.size() > 3) {
    grouped.insert(0, "," + std::string(digits.substr(digits.size() - 3)));
    digits.remove_suffix(3);
  }
  return std::string(digits) + grouped;
}

std::string Tool_ByteToHex(std::uint8_t value) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  return {kDigits[value / 16U], kDigits[value % 16U]};
}

std::string Tool_ByteToBinary(std::uint8_t value) {
  std::string text;
  for (unsigned mask = 128; mask > 0; mask /= 2) text += (value & mask) != 0 ? '1' : '0';
  return text;
}

std::string Tool_ByteToDecimal(int value) {
  return Tool_PadText(true, Tool_FormatDecimal(value, 0), 3, true);
}

std::string Tool_FormatItemByType(double value, std::size_t index, ItemTable table) {
  const char type = index < table.size() ? table[index] : '\0';
  if (type != 'B' && type != 'W') return {};
  return Tool_PadText(true, Tool_FormatDecimal(value, 0), type == 'B' ? 3 : 5, true);
}

std::string Tool_PadText(bool padLeft, std::string_view text, std::size_t width, bool zeroFill) {
  const std::size_t length = characterCount(text);
  const std::string pad(width > length ? width - length : 0, zeroFill ? '0' : ' ');
  return padLeft ? pad + std::string(text) : std::string(text) + pad;
}

double Tool_TextToNumber(std::string_view text) {
  double value = 0;
  bool negative = false;
  double scale = 0;  // of the digits after the decimal point; 0 until there is one
  for (const char c : text) {
    if (c >= '0' && c <= '9') {
      const int digit = c - '0';
      value = scale > 0 ? value + digit / (scale *= 10) : value * 10 + digit;
    } else if (c == ' ' || c == '$' || c == '#') {
      if (value > 0) break;
    } else if (c == '+' || c == '-') {
      negative = c == '-';
    } else if (c == '.') {
      if (scale > 0) break;
      scale = 1;
    } else if (c != ',') {
      break;
    }
  }
  return negative ? -value : value;
}

std::optional<std::vector<std::uint8_t>> Tool_DecimalToArray(std::string_view text,
                                                             bool commaSeparated, int& count) {
  const char separator = commaSeparated ? ',' : ' ';
  std::string_view rest = trimBlanks(text);
  std::vector<std::uint8_t> bytes;
  count = 0;
  if (rest.empty()) return bytes;
  for (;;) {
    const std::size_t end = rest.find(separator);
    const std::string_view item = rest.substr(0, end);
    const double number = roundHalfToEven(Tool_TextToNumber(item));
    if (item.empty() || !fitsByte(number)) return std::nullopt;
    bytes.push_back(static_cast<std::uint8_t>(number));
    ++count;
    if (end == std::string_view::npos) return bytes;
    rest.remove_prefix(end + 1);
  }
}

double roundHalfToEven(double value) { return std::nearbyint(value); }

}  // namespace zendor
