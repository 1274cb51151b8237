#include "platform/win32/win32_layout.h"

#include "platform/win32/win32_frame.h"
#include "platform/win32/win32_pointer.h"
#include "platform/win32/win32_scale.h"

namespace zendor {

namespace {

SIZE sizeOf(const RECT& rect) { return {rect.right - rect.left, rect.bottom - rect.top}; }

SIZE clientSizeOf(HWND frame) {
  RECT rect{};
  GetClientRect(frame, &rect);
  return {rect.right, rect.bottom};
}

// A place of the given size whose top-left corner is that of the frame.
RECT atCornerOf(HWND frame, SIZE size) {
  RECT rect{};
  GetWindowRect(frame, &rect);
  return {rect.left, rect.top, rect.left + size.cx, rect.top + size.cy};
}

// A place of the given size in the middle of the frame's screen.
RECT centredOnScreen(HWND frame, SIZE size) {
  const RECT screen = screenOf(frame).rcMonitor;
  const LONG left = (screen.left + screen.right - size.cx) / 2;
  const LONG top = (screen.top + screen.bottom - size.cy) / 2;
  return {left, top, left + size.cx, top + size.cy};
}

}  // namespace

FormLayout::FormLayout(HWND frame, const FormDescription& description,
                       const std::vector<Win32Control>& controls)
    : frame_(frame), description_(description), controls_(controls) {}

void FormLayout::centre() {
  layOut(centredOnScreen(frame_, frameSizeFor(frame_, description_, GetDpiForWindow(frame_))));
}

// Windows tells the size that the window has. Windows alone would multiply that size by the
// density, but not all of a form grows by the density alone. An address where another size stands
// may come from another program, so nothing is written there.
bool FormLayout::answerSize(UINT dotsPerInch, LPARAM address) const {
  const auto told = valueAt<SIZE>(address);
  if (!told || told->cx != size_.cx || told->cy != size_.cy) return false;
  *pointerIn<SIZE*>(address) = frameSizeFor(frame_, description_, dotsPerInch);
  return true;
}

// If the density is as it was, the message comes from another program.
void FormLayout::followDensity(LPARAM address) {
  if (GetDpiForWindow(frame_) == dotsPerInch_) return;
  if (const auto suggested = valueAt<RECT>(address)) layOut(*suggested);
}

void FormLayout::followFonts() {
  const UINT dotsPerInch = GetDpiForWindow(frame_);
  layOut(atCornerOf(frame_, frameSizeFor(frame_, description_, dotsPerInch)));
}

void FormLayout::catchUp() {
  if (isDue_) followFonts();
}

// SetWindowPos may bring the window to a screen of another density. Windows then tells the change
// from within that call, and this function is called again. So the controls are laid out by the
// density and the room that there are after the call. A minimised window has no room at all, so it
// is laid out when it is restored.
void FormLayout::layOut(const RECT& place) {
  isDue_ = IsIconic(frame_) != FALSE;
  if (isDue_) return;
  size_ = sizeOf(place);
  dotsPerInch_ = GetDpiForWindow(frame_);
  SetWindowPos(frame_, nullptr, place.left, place.top, size_.cx, size_.cy,
               SWP_NOZORDER | SWP_NOACTIVATE);
  const FormScale scale = scaleFor(description_, dotsPerInch_, clientSizeOf(frame_));
  fonts_ = layOutControls(controls_, scale, dotsPerInch_);
  InvalidateRect(frame_, nullptr, TRUE);
}

}  // namespace zendor
