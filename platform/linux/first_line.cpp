#include "platform/linux/first_line.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/linux/file_descriptor.h"

namespace zendor {

namespace {

// A byte that is not UTF-8 counts as the control character 0.
struct Character {
  char32_t code = 0;
  std::size_t length = 1;  // in bytes
};

bool isControl(char32_t code) { return code < U' ' || (code >= 0x7F && code < 0xA0); }

bool isSurrogate(char32_t code) { return code >= 0xD800 && code < 0xE000; }

// The first character of a text that is not empty. The first byte begins with as many set bits as
// the character has bytes, and with none when the byte is a character by itself. A code that would
// fit into fewer bytes is not UTF-8, and a character that is cut off has such a code.
Character firstCharacterOf(std::string_view text) {
  constexpr std::array<char32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<std::uint8_t>(text.front());
  const auto length = static_cast<std::size_t>(std::countl_one(lead));
  if (length == 0) return {lead, 1};
  if (length == 1 || length > 4) return {};
  char32_t code = lead & (0x7FU >> length);
  for (const char next : text.substr(1, length - 1)) {
    const auto byte = static_cast<std::uint8_t>(next);
    if ((byte & 0xC0U) != 0x80U) return {};
    code = (code << 6U) | (byte & 0x3FU);
  }
  if (code < kSmallest[length] || code > 0x10FFFF || isSurrogate(code)) return {};
  return {code, length};
}

std::string shownCharactersOf(std::string_view text) {
  std::string shown;
  while (!text.empty()) {
    const auto [code, length] = firstCharacterOf(text);
    if (!isControl(code)) shown += text.substr(0, length);
    text.remove_prefix(length);
  }
  return shown;
}

}  // namespace

std::string firstLineOf(const std::filesystem::path& file) {
  // A stream of the library would bring its tables of languages into memory as soon as the window
  // describes its ports.
  const FileDescriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
  std::array<char, 1024> bytes{};
  const ssize_t count = ::read(opened.number(), bytes.data(), bytes.size());
  const std::string_view read(bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
  return shownCharactersOf(read.substr(0, read.find('\n')));
}

}  // namespace zendor
