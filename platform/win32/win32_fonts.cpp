#include "platform/win32/win32_fonts.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

constexpr double kPointsPerInch = 72;

LOGFONTW logicalFont(const FormFont& font, double dotsPerInch) {
  LOGFONTW logical{};
  logical.lfHeight = -std::lround(font.points * dotsPerInch / kPointsPerInch);
  logical.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  logical.lfCharSet = DEFAULT_CHARSET;
  const std::wstring family = wideFromUtf8(font.family);
  const std::size_t length = std::min<std::size_t>(family.size(), LF_FACESIZE - 1);
  std::copy_n(family.begin(), length, logical.lfFaceName);
  return logical;
}

}  // namespace

FontHandle describedFont(const FormFont& font, double dotsPerInch) {
  const LOGFONTW logical = logicalFont(font, dotsPerInch);
  return FontHandle(CreateFontIndirectW(&logical));
}

FontHandle messageFont(double factor, UINT dotsPerInch) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dotsPerInch);
  LOGFONTW& logical = metrics.lfMessageFont;
  logical.lfHeight = std::lround(logical.lfHeight * factor);
  return FontHandle(CreateFontIndirectW(&logical));
}

}  // namespace zendor
