#include "platform/win32/win32_layout.h"

#include <utility>

#include "platform/win32/win32_frame.h"
#include "platform/win32/win32_pointer.h"
#include "platform/win32/win32_scale.h"

namespace zendor {

namespace {

SIZE sizeOf(const RECT& rect) { return {rect.right - rect.left, rect.bottom - rect.top}; }

}  // namespace

FormLayout::FormLayout(HWND frame, const FormDescription& description,
                       const std::vector<Win32Control>& controls)
    : frame_(frame), description_(description), controls_(controls) {}

void FormLayout::centre() {
  layOut(centredOnScreen(frame_, frameSizeFor(frame_, description_, GetDpiForWindow(frame_))));
}

// Windows tells the size that the window has. Of itself, it would multiply that size by the
// density, but not all of a form grows by the density alone. An address where another size stands
// may come from another program, so nothing is written there.
bool FormLayout::answerSize(UINT dotsPerInch, LPARAM address) const {
  const auto told = valueAt<SIZE>(address);
  if (!told || told->cx != size_.cx || told->cy != size_.cy) return false;
  *pointerIn<SIZE*>(address) = frameSizeFor(frame_, description_, dotsPerInch);
  return true;
}

// While the density is as it was, the message comes from another program.
void FormLayout::changeDensity(LPARAM address) {
  if (GetDpiForWindow(frame_) == dotsPerInch_) return;
  if (const auto suggested = valueAt<RECT>(address)) layOut(*suggested);
}

void FormLayout::changeFonts() {
  layOut(atCornerOf(frame_, frameSizeFor(frame_, description_, GetDpiForWindow(frame_))));
}

void FormLayout::restore() {
  if (std::exchange(isOutOfDate_, false)) changeFonts();
}

// SetWindowPos may bring the window to a screen of another density. Windows then tells the change
// from within that call, and this function is called again. So the controls are laid out by the
// density and the room that there are after the call. A minimised window has no room.
void FormLayout::layOut(const RECT& place) {
  isOutOfDate_ = IsIconic(frame_) != FALSE;
  if (isOutOfDate_) return;
  size_ = sizeOf(place);
  dotsPerInch_ = GetDpiForWindow(frame_);
  SetWindowPos(frame_, nullptr, place.left, place.top, size_.cx, size_.cy,
               SWP_NOZORDER | SWP_NOACTIVATE);
  const FormScale scale = scaleFor(description_, dotsPerInch_, clientSizeOf(frame_));
  fonts_ = layOutControls(controls_, scale, dotsPerInch_);
  InvalidateRect(frame_, nullptr, TRUE);
}

}  // namespace zendor
