#include "common/byte_text.h"

#include <algorithm>

namespace zendor {

namespace {

bool isContinuation(char c) { return (static_cast<std::uint8_t>(c) & 0xC0U) == 0x80U; }

}  // namespace

std::string textOfBytes(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) {
    if (byte < 0x80) {
      text += static_cast<char>(byte);
    } else {
      text += static_cast<char>(0xC0U | (byte >> 6U));
      text += static_cast<char>(0x80U | (byte & 0x3FU));
    }
  }
  return text;
}

std::optional<std::vector<std::uint8_t>> bytesOfText(std::string_view text) {
  std::vector<std::uint8_t> bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto lead = static_cast<std::uint8_t>(text[i]);
    if (lead < 0x80) {
      bytes.push_back(lead);
    } else if ((lead == 0xC2 || lead == 0xC3) && i + 1 < text.size() &&
               isContinuation(text[i + 1])) {
      const auto low = static_cast<std::uint8_t>(text[++i]);
      bytes.push_back(static_cast<std::uint8_t>(((lead & 0x03U) << 6U) | (low & 0x3FU)));
    } else {
      return std::nullopt;
    }
  }
  return bytes;
}

std::size_t characterCount(std::string_view text) {
  return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, isContinuation));
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    if (!isContinuation(text[end]) && count-- == 0) break;
  }
  return text.substr(0, end);
}

}  // namespace zendor
