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
  double growth = 1;
  for (const FormControl& control : description.controls) {
    if (control.font) continue;
    const FontHandle font = messageFont(1, dotsPerInch);
    SIZE needed = captionSize(control.caption, font.get());
    // The circle of an option button and the gap behind the circle together are less wide than one
    // and a half lines are high.
    if (control.kind == ControlKind::OptionButton) needed.cx += needed.cy + needed.cy / 2;
    const PixelRect room = pixelsFromTwips(control.rect, dotsPerInch);
    growth = std::max({growth, static_cast<double>(needed.cx) / room.width,
                       static_cast<double>(needed.cy) / room.height});
  }
  return growth;
}

// At most 1: the share of the form that fits into the part of the screen that programs may use.
double shareOnScreen(HWND frame, const FormDescription& description, double dotsPerInch) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(frame, MONITOR_DEFAULTTOPRIMARY), &monitor);
  const RECT& screen = monitor.rcWork;
  const SIZE whole = frameSize(frame, description, dotsPerInch);
  const int width = pixelsFromTwips(description.width, dotsPerInch);
  const int height = pixelsFromTwips(description.height, dotsPerInch);
  const long widthLeft = screen.right - screen.left - (whole.cx - width);
  const long heightLeft = screen.bottom - screen.top - (whole.cy - height);
  return std::min(
      {1.0, static_cast<double>(widthLeft) / width, static_cast<double>(heightLeft) / height});
}

}  // namespace

FormScale scaleOf(HWND frame, const FormDescription& description) {
  const UINT dotsPerInch = GetDpiForWindow(frame);
  const double wanted = dotsPerInch * growthForMessageFont(description, dotsPerInch);
  const double share = shareOnScreen(frame, description, wanted);
  return {wanted * share, share};
}

}  // namespace zendor
