#include "protocol/reply_text.h"

#include "common/byte_text.h"
#include "common/conversions.h"

namespace zendor {

namespace {

// Converts every byte on its own, with a blank after each, after the last one too.
template <typename Convert>
std::string eachByte(std::span<const std::uint8_t> data, Convert convert) {
  std::string text;
  for (const std::uint8_t byte : data) text += convert(byte) + " ";
  return text;
}

}  // namespace

std::uint32_t numberFromBytes(std::span<const std::uint8_t> data) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < data.size() && i < 3; ++i) {
    number += static_cast<std::uint32_t>(data[i]) << (8U * i);
  }
  return number;
}

std::optional<std::string> replyText(std::span<const std::uint8_t> data, ReplyFormat format,
                                     const Regional& regional) {
  switch (format) {
    case ReplyFormat::Hidden:
      return "Data";
    case ReplyFormat::Decimal:
      return eachByte(data, Tool_ByteToDecimal);
    case ReplyFormat::Hexadecimal:
      return eachByte(data, Tool_ByteToHex);
    case ReplyFormat::Binary:
      return eachByte(data, Tool_ByteToBinary);
    case ReplyFormat::Characters:
      return textOfBytes(data);
    case ReplyFormat::Number:
      return Tool_GroupThousands(Tool_FormatDecimal(numberFromBytes(data), 0));
    case ReplyFormat::Volts:
      return eachByte(data, [&](std::uint8_t byte) {
        return Tool_FormatDecimal(byte / 255.0 * 5.0, 2, regional);
      });
  }
  return std::nullopt;
}

}  // namespace zendor
