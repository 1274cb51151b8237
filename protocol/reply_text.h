// Turns the data of a reply into the text that follows the command's name.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/regional.h"

namespace zendor {

enum class ReplyFormat {
  Hidden = 0,  // the word "Data"
  Decimal = 1,
  Hexadecimal = 2,
  Binary = 3,
  Characters = 4,
  Number = 5,  // three bytes, least significant first
  Volts = 9,   // 0 to 255 as "0.00" to "5.00"
};

// The number in the first three bytes, the least significant one first. Where there are fewer
// bytes, all of them count.
std::uint32_t numberFromBytes(std::span<const std::uint8_t> data);

// Nothing for a code that is no reply format.
std::optional<std::string> replyText(std::span<const std::uint8_t> data, ReplyFormat format,
                                     const Regional& regional);

}  // namespace zendor
