// A text used as a list of bytes, and its two conversions. The character set is ISO 8859-1: byte b
// is the character U+00b. Texts are UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zendor {

struct ByteText {
  std::vector<std::uint8_t> bytes;
};

std::string textOfBytes(std::span<const std::uint8_t> bytes);

// Nothing when a character of the text has no byte or the text is not UTF-8.
std::optional<ByteText> bytesOfText(std::string_view text);

std::size_t characterCount(std::string_view text);

// The first count characters of a UTF-8 text, all of it when it has no more.
std::string_view firstCharacters(std::string_view text, std::size_t count);

}  // namespace zendor
