#include <gtest/gtest.h>

#include "common/byte_text.h"
#include "common/command_result.h"
#include "common/conversions.h"
#include "common/error_reports.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

using doubles::Bytes;

TEST(TextToNumber, ReadsLenientlyUpToWhatEndsTheNumber) {
  const std::pair<const char*, double> rows[] = {
      {"9600", 9600}, {"  $1,234.50", 1234.5}, {"-12", -12}, {"12abc", 12},   {"1.2.3", 1.2},
      {"0 5", 5},     {"12 34", 12},           {"-5 ", -5},  {"abc", 0},      {"5-", -5},
      {"+5", 5},      {"5.5.5", 5.5},          {"$ 12", 12}, {"1 000", 1},    {".5", 0.5},
      {"-", 0},       {"2.75", 2.75},          {"-+7", 7},   {"0.0#5", 0.05}, {"0#7$8", 7}};
  for (const auto& [text, number] : rows) EXPECT_DOUBLE_EQ(Tool_TextToNumber(text), number) << text;
}

TEST(DecimalToArray, GivesOneByteForEachItemAndRefusesWhatIsNone) {
  const std::tuple<const char*, bool, std::optional<Bytes>> rows[] = {
      {"233,128", true, Bytes{233, 128}},
      {" 165,1,2 ", true, Bytes{165, 1, 2}},
      {"7", true, Bytes{7}},
      {"   ", true, Bytes{}},
      {" 1 2 ", false, Bytes{1, 2}},
      {"2.5,3.5,254.6", true, Bytes{2, 4, 255}},
      {"0,255", true, Bytes{0, 255}},
      {"1,,2", true, std::nullopt},
      {"1,", true, std::nullopt},
      {"256", true, std::nullopt},
      {"-1", true, std::nullopt}};
  for (const auto& [text, commas, bytes] : rows) {
    int count = -1;
    const auto result = Tool_DecimalToArray(text, commas, count);
    EXPECT_EQ(result, bytes) << text;
    EXPECT_TRUE(!bytes || count == std::ssize(*bytes)) << text;
  }
}

TEST(FormatDecimal, WritesPlainDigitsInTheRegionOfTheReader) {
  const Regional region{",", "\u2212"};
  EXPECT_EQ(Tool_FormatDecimal(-1234.5, 2, region), "\u22121234,50");
  const std::tuple<double, int, std::string> rows[] = {
      {233, 0, "233"},
      {-0.4, 0, "0"},
      {-0.5, 2, "-0.50"},
      {2.5, 0, "3"},
      {0.125, 2, "0.13"},
      {2.675, 2, "2.67"},  // a little less than the half
      {0.49999999999999994, 0, "0"},
      {99.995, 2, "100.00"},
      {4503599627370495.5, 0, "4503599627370496"},
      {1000000000000000.25, 2, "1000000000000000.25"},
      {1e23, 0, "99999999999999991611392"},
      {0x1p-20, 30, "0.000000953674316406250000000000"},
      {0.1, 25, "0.1000000000000000055511151"},
      {1, 2000, "1." + std::string(2000, '0')}};
  for (const auto& [value, digits, text] : rows)
    EXPECT_EQ(Tool_FormatDecimal(value, digits), text) << value;
  EXPECT_TRUE(Tool_FormatDecimal(5e-324, 1074).ends_with("682506419718265533447265625"))
      << "the least";
}

TEST(Formatting, FillsAndGroupsWithoutCutting) {
  const std::pair<const char*, const char*> groups[] = {
      {"1234567", "1,234,567"}, {"123456", "123,456"}, {"1000", "1,000"}, {"123", "123"}, {"", ""}};
  for (const auto& [digits, grouped] : groups) EXPECT_EQ(Tool_GroupThousands(digits), grouped);
  std::string hex = Tool_ByteToHex(10);
  for (int i = 0; i < 16; ++i) hex += Tool_ByteToHex(static_cast<std::uint8_t>(i * 17));
  EXPECT_EQ(hex, "0A00112233445566778899AABBCCDDEEFF");
  EXPECT_EQ(Tool_ByteToBinary(5) + Tool_ByteToBinary(128), "0000010110000000");
  EXPECT_EQ(Tool_ByteToDecimal(7) + Tool_ByteToDecimal(42) + Tool_ByteToDecimal(255), "007042255");
  EXPECT_EQ(Tool_PadText(true, "1234", 3, true), "1234");
  EXPECT_EQ(Tool_PadText(false, "7", 3, false), "7  ");
  EXPECT_EQ(Tool_PadText(true, "\u00E9", 2, false), " \u00E9");
  const std::string_view table = "BWX";
  EXPECT_EQ(Tool_FormatItemByType(7, 0, table), "007");
  EXPECT_EQ(Tool_FormatItemByType(300, 1, table), "00300");
  EXPECT_EQ(Tool_FormatItemByType(123456, 1, table), "123456");
  EXPECT_EQ(Tool_FormatItemByType(7, 2, table) + Tool_FormatItemByType(7, 3, table), "");
}

TEST(CommandResult, TellsFailuresAndTakesValuesOut) {
  for (const char* failure : {"Error : Checksum error", "  Error : x", "Error : "})
    EXPECT_TRUE(Tool_IsErrorResult(failure)) << failure;
  for (const char* success : {"error : x", "Error: x", "Poll = OK", "", "   ", "x Error : "})
    EXPECT_FALSE(Tool_IsErrorResult(success)) << success;
  const std::pair<const char*, const char*> values[] = {
      {"Build code = Customer", "Customer"}, {"a = b = c", "b = c"}, {"abc", "abc"}, {"a=", ""}};
  for (const auto& [result, value] : values) EXPECT_EQ(Tool_ValueAfterEquals(result), value);
  std::string result = "Product code = ABC";
  EXPECT_TRUE(Tool_GetResultValue(result));
  EXPECT_EQ(result, "ABC");
  result = "Error : Checksum error";
  EXPECT_FALSE(Tool_GetResultValue(result));
  EXPECT_EQ(result, "UNKNOWN");
}

TEST(ByteText, CarriesEveryByteThereAndBackAndRefusesOtherCharacters) {
  Bytes all(256);
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<std::uint8_t>(i);
  const std::string text = textOfBytes(all);
  EXPECT_EQ(characterCount(text), 256U);
  EXPECT_EQ(bytesOfText(text), all);
  EXPECT_EQ(firstCharacters("a\u00E9b", 2), "a\u00E9");
  for (const char* stranger : {"\u20AC", "\u0100", "\xC3", "\xC3x", "\x80", "\xC0\x80"})
    EXPECT_FALSE(bytesOfText(stranger)) << stranger;
}

TEST(ErrorReports, NameTheRoutineAndTheErrorInTheRegionOfTheReader) {
  doubles::FakePlatform platform;
  ErrorReports reports(platform.desktop, {",", "\u2212"});
  reports.Tool_ReportProgramError("LL_DRAVO_Send");
  reports.Tool_ReportUnhandledError({-12345, ""}, "LL_Serial_SendMessage");
  EXPECT_EQ(platform.log,
            (doubles::Log{"(x) [Program Error] Error in LL_DRAVO_Send",
                          "(!) [Unhandled Error] Unhandled Error number \u221212345\r\n\r\n"
                          "Occured in LL_Serial_SendMessage"}));
}

}  // namespace
}  // namespace zendor
