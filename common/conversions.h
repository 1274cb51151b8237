// Conversions between numbers, byte values and text. They keep no state, and they check their
// arguments only as far as is said here.
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

// The finite value with the given number of digits after the decimal point, without grouping. Half
// of a last digit is rounded away from zero. The value is the one that the double holds: with two
// digits 0.125 becomes 0.13, but 2.675 becomes 2.67, because the nearest double is a little less.
std::string Tool_FormatDecimal(double value, int digits, const Regional& regional = {});

// Puts "," between groups of three characters, counted from the right, in every region.
std::string Tool_GroupThousands(std::string_view digits);

std::string Tool_ByteToHex(std::uint8_t value);     // two upper-case digits
std::string Tool_ByteToBinary(std::uint8_t value);  // eight digits, most significant first
std::string Tool_ByteToDecimal(int value);          // 0 to 999 in three digits

// The type of each item of a list, by the item's index: 'B' is a byte, 'W' a word.
using ItemTable = std::span<const char>;

// Three digits for a byte item and five for a word item, or more if the value needs them. Empty for
// any other type and for an index beyond the table.
std::string Tool_FormatItemByType(double value, std::size_t index, ItemTable table);

// Fills the text to width with blanks or zeros; never cuts it.
std::string Tool_PadText(bool padLeft, std::string_view text, std::size_t width, bool zeroFill);

// Reads a number leniently, up to the first character that cannot belong to it. A text that begins
// with no number gives 0.
double Tool_TextToNumber(std::string_view text);

// The numbers of a list, each rounded to a byte, and in count how many there are. Commas separate
// them, or else blanks. An item that does not begin with a number counts as 0. There is no result
// when an item is empty or lies outside 0 to 255.
std::optional<std::vector<std::uint8_t>> Tool_DecimalToArray(std::string_view text,
                                                             bool commaSeparated, int& count);

// Rounds to the nearest whole number, and a half to the even one of its two neighbours.
double roundHalfToEven(double value);

constexpr bool fitsByte(double value) { return value >= 0 && value <= 255; }

}  // namespace zendor
