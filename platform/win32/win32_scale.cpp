#include "platform/win32/win32_scale.h"

#include <algorithm>
#include <string>

#include "platform/shared/twips.h"
#include "platform/win32/win32_fonts.h"
#include "platform/win32/win32_frame.h"
#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

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

// At least 1. A caption in a described font needs nothing, because that font grows with the room of
// its control.
double growthForMessageFont(const FormDescription& description, UINT dotsPerInch) {
  const FontHandle font = messageFont(1, dotsPerInch);
  double growth = 1;
  for (const FormControl& control : description.controls) {
    if (control.font) continue;
    SIZE needed = captionSize(control.caption, font.get());
    // The circle of an option button and the gap after the circle together are less wide than one
    // and a half lines are high.
    if (control.kind == ControlKind::OptionButton) needed.cx += needed.cy + needed.cy / 2;
    const PixelRect room = pixelsFromTwips(control.rect, dotsPerInch);
    growth = std::max({growth, static_cast<double>(needed.cx) / room.width,
                       static_cast<double>(needed.cy) / room.height});
  }
  return growth;
}

SIZE clientSize(const FormDescription& description, double dotsPerInch) {
  return {pixelsFromTwips(description.width, dotsPerInch),
          pixelsFromTwips(description.height, dotsPerInch)};
}

// The part of the screen that programs may use, less the frame around a client area.
SIZE roomOnScreen(HWND frame, const FormDescription& description, UINT dotsPerInch) {
  const RECT screen = screenOf(frame).rcWork;
  const SIZE edges = frameAround({}, description, dotsPerInch);
  return {screen.right - screen.left - edges.cx, screen.bottom - screen.top - edges.cy};
}

}  // namespace

FormScale scaleFor(const FormDescription& description, UINT dotsPerInch, SIZE room) {
  const double wanted = dotsPerInch * growthForMessageFont(description, dotsPerInch);
  const SIZE whole = clientSize(description, wanted);
  const double share = std::min(
      {1.0, static_cast<double>(room.cx) / whole.cx, static_cast<double>(room.cy) / whole.cy});
  return {wanted * share, share};
}

SIZE frameSizeFor(HWND frame, const FormDescription& description, UINT dotsPerInch) {
  const SIZE room = roomOnScreen(frame, description, dotsPerInch);
  const FormScale scale = scaleFor(description, dotsPerInch, room);
  return frameAround(clientSize(description, scale.dotsPerInch), description, dotsPerInch);
}

}  // namespace zendor
