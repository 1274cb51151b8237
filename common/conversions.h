// Conversions between numbers, byte values and text. Free of state; they check no argument beyond
// what is said here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/regional.h"

namespace zendor {

// The finite value with exactly that many digits after the decimal point, no grouping. What is
// rounded is the value that the double holds, half of a last digit away from zero: 0.125 is a half,
// while the double nearest to 2.675 lies below one. The default region is the one of the wire.
std::string Tool_FormatDecimal(double value, int digits, const Regional& regional = {});

// "," between groups of three characters, counted from the right, in every region.
std::string Tool_GroupThousands(std::string_view digits);

std::string Tool_ByteToHex(std::uint8_t value);     // two upper-case digits
std::string Tool_ByteToBinary(std::uint8_t value);  // eight digits, most significant first
std::string Tool_ByteToDecimal(int value);          // 0 to 999 in three digits

// An item table lists item types by item number: 'B' is a byte, 'W' a word.
using ItemTable = std::span<const char>;

// Three digits for a byte item, five for a word item, more where the value needs them. Empty for
// any other type and for an index beyond the table.
std::string Tool_FormatItemByType(double value, std::size_t index, ItemTable table);

// Fills the text to width with blanks or zeros; never cuts it.
std::string Tool_PadText(bool padLeft, std::string_view text, std::size_t width, bool zeroFill);

// Reads a number leniently, up to the first character that ends it; 0 where there is none.
double Tool_TextToNumber(std::string_view text);

// The numbers of a list, rounded to bytes; count is how many there are. An item that holds no
// number reads as 0. Nothing when an item is empty or lies outside 0 to 255.
std::optional<std::vector<std::uint8_t>> Tool_DecimalToArray(std::string_view text,
                                                             bool commaSeparated, int& count);

// To the nearest whole number, a half to the even one.
double roundHalfToEven(double value);

constexpr bool fitsByte(double value) { return value >= 0 && value <= 255; }

}  // namespace zendor
