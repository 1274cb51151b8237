#include "platform/win32/win32_fonts.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "platform/shared/twips.h"
#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

constexpr double kPointsPerInch = 72;

LOGFONTW namedFont(const FormFont& font, UINT dotsPerInch) {
  LOGFONTW logical{};
  logical.lfHeight = -std::lround(font.points * dotsPerInch / kPointsPerInch);
  logical.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  logical.lfCharSet = DEFAULT_CHARSET;
  const std::wstring family = wideFromUtf8(font.family);
  const std::size_t length = std::min<std::size_t>(family.size(), LF_FACESIZE - 1);
  std::copy_n(family.begin(), length, logical.lfFaceName);
  return logical;
}

LOGFONTW messageFont(UINT dotsPerInch) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dotsPerInch);
  return metrics.lfMessageFont;
}

SIZE captionSize(const std::string& caption, HFONT font) {
  const std::wstring text = wideFromUtf8(caption);
  SIZE size{};
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ former = SelectObject(screen, font);
  GetTextExtentPoint32W(screen, text.data(), static_cast<int>(text.size()), &size);
  SelectObject(screen, former);
  ReleaseDC(nullptr, screen);
  return size;
}

bool hasRoom(const FormControl& control, HFONT font, UINT dotsPerInch) {
  const PixelRect room = pixelsFromTwips(control.rect, dotsPerInch);
  SIZE needed = captionSize(control.caption, font);
  // The circle of an option button and its gap are less wide than a line and a half is high.
  if (control.kind == ControlKind::OptionButton) needed.cx += needed.cy + needed.cy / 2;
  return needed.cx <= room.width && needed.cy <= room.height;
}

}  // namespace

FontHandle fontOf(const FormControl& control, UINT dotsPerInch) {
  LOGFONTW logical =
      control.font ? namedFont(*control.font, dotsPerInch) : messageFont(dotsPerInch);
  FontHandle font(CreateFontIndirectW(&logical));
  while (logical.lfHeight < -1 && !hasRoom(control, font.get(), dotsPerInch)) {
    ++logical.lfHeight;
    font.reset(CreateFontIndirectW(&logical));
  }
  return font;
}

}  // namespace zendor
