// Bytes as text and text as bytes. A text is UTF-8 and each of its characters is one byte,
// as in the character set ISO 8859-1: the character U+00E9 is the byte E9.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zendor {

std::string textOfBytes(std::span<const std::uint8_t> bytes);

// Nothing when a character of the text has no byte or the text is not UTF-8.
std::optional<std::vector<std::uint8_t>> bytesOfText(std::string_view text);

std::size_t characterCount(std::string_view text);

// The first count characters of a UTF-8 text, all of it when it has no more.
std::string_view firstCharacters(std::string_view text, std::size_t count);

}  // namespace zendor
