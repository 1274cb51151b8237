// Sends any text through the conversions. The first byte of the input is a width, the rest is the
// text.
#include <charconv>
#include <cmath>

#include "common/byte_text.h"
#include "common/command_result.h"
#include "common/conversions.h"
#include "fuzz/require.h"

namespace zendor {
namespace {

// Bytes that were read from a text come back when they are written in decimal and read again.
void requireByteList(std::string_view text, bool commas) {
  int count = 0;
  const auto bytes = Tool_DecimalToArray(text, commas, count);
  if (!bytes) return;
  require(count == static_cast<int>(bytes->size()));
  std::string written;
  for (const std::uint8_t byte : *bytes) {
    if (!written.empty()) written += commas ? ',' : ' ';
    written += Tool_FormatDecimal(byte, 0);
  }
  int again = 0;
  require(Tool_DecimalToArray(written, commas, again) == bytes);
}

void requireText(std::string_view text, std::size_t width) {
  const auto bytes = bytesOfText(text);
  require(!bytes || textOfBytes(*bytes) == text);
  require(!bytes || bytes->size() == characterCount(text));
  require(text.starts_with(firstCharacters(text, width)));
  const std::string padded = Tool_PadText(true, text, width, true);
  require(padded.ends_with(text) && characterCount(padded) >= width);

  std::string value(text);
  const bool succeeded = Tool_GetResultValue(value);
  require(succeeded != Tool_IsErrorResult(text));
  require(succeeded ? text.ends_with(value) : value == "UNKNOWN");
  const std::size_t commas = text.empty() ? 0 : (text.size() - 1) / 3;
  require(Tool_GroupThousands(text).size() == text.size() + commas);
}

// A rounded number comes back when its own digits are read again. The lenient reader has to give it
// back only as far as a double holds every whole number.
void requireNumber(std::string_view text) {
  constexpr double kEveryWholeNumber = 9007199254740992;  // 2 to the 53rd
  const double number = Tool_TextToNumber(text);
  require(!std::isnan(number));
  if (!std::isfinite(number)) return;
  const std::string whole = Tool_FormatDecimal(number, 0);
  double exact = NAN;
  require(std::from_chars(whole.data(), whole.data() + whole.size(), exact).ptr ==
          whole.data() + whole.size());
  require(exact == std::round(number));
  if (std::abs(number) >= kEveryWholeNumber) return;
  require(Tool_TextToNumber(whole) == std::round(number));
}

}  // namespace
}  // namespace zendor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  zendor::requireByteList(text, true);
  zendor::requireByteList(text, false);
  zendor::requireText(text, data[0]);
  zendor::requireNumber(text);
  return 0;
}
