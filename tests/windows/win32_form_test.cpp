// The window of the Windows program on screens whose density the test plays, because Wine has one
// density for all screens.
#include "platform/win32/win32_form.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include "app/frm_startup.h"

namespace {

UINT density = 96;

UINT WINAPI playedDensity(HWND) { return density; }

}  // namespace

// A program calls what it imports from Windows through such a pointer, so this file can put a
// function of its own there.
extern "C" {
// NOLINTNEXTLINE(clang-diagnostic-reserved-identifier)
decltype(&GetDpiForWindow) __imp_GetDpiForWindow = &playedDensity;
}

namespace zendor {
namespace {

constexpr ControlId kButton{"cmdAccept"};
constexpr ULONG_PTR kNested = 192;

RECT placeOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return place;
}

SIZE sizeOf(HWND window) {
  const RECT place = placeOf(window);
  return {place.right - place.left, place.bottom - place.top};
}

class ShownForm : public testing::Test {
 protected:
  ShownForm() { ShowWindow(frame, SW_SHOWNORMAL); }
  void TearDown() override {
    SetWindowLongPtrW(frame, GWLP_USERDATA, 0);
    DestroyWindow(frame);
    density = 96;
  }

  // As Windows does: asks for the size at the density, and suggests a place of that size.
  RECT suggestedPlace(UINT dotsPerInch) const {
    SIZE size = sizeOf(frame);
    EXPECT_TRUE(SendMessageW(frame, WM_GETDPISCALEDSIZE, dotsPerInch, LPARAM(&size)));
    return {20, 30, 20 + size.cx, 30 + size.cy};
  }

  void change(UINT dotsPerInch, const RECT& place) const {
    density = dotsPerInch;
    SendMessageW(frame, WM_DPICHANGED, MAKEWPARAM(density, density), LPARAM(&place));
  }

  void expectLaidOut(UINT dotsPerInch, const RECT& place) const {
    const RECT now = placeOf(frame);
    EXPECT_TRUE(EqualRect(&place, &now)) << now.left << ' ' << now.right - now.left;
    EXPECT_NEAR(sizeOf(button).cx, 5292 * dotsPerInch / 1440.0, 1);
    EXPECT_LE(placeOf(button).bottom, place.bottom);
  }

  Win32Form form{frmStartup::description()};
  const HWND frame = form.calls().window();
  const HWND button = FindWindowExW(frame, nullptr, L"Button", L"Get Serial Number");
};

TEST_F(ShownForm, GrowsWithTheDensityIntoThePlaceThatWindowsSuggests) {
  for (const UINT dotsPerInch : {144U, 192U, 96U}) {
    RECT place = suggestedPlace(dotsPerInch);
    place.right += 9;  // whatever Windows may have in mind
    change(dotsPerInch, place);
    expectLaidOut(dotsPerInch, place);
  }
}

TEST_F(ShownForm, FitsIntoAPlaceThatIsTooSmall) {
  change(144, {20, 30, 420, 230});
  EXPECT_LE(placeOf(button).right, 420);
  EXPECT_LE(placeOf(button).bottom, 230);
}

TEST_F(ShownForm, IsLaidOutForTheChangeThatComesWithinAnother) {
  const RECT outer = suggestedPlace(144);
  static RECT inner;
  inner = suggestedPlace(kNested);
  const SUBCLASSPROC nest = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                               DWORD_PTR) {
    if (message == WM_WINDOWPOSCHANGED && density != kNested) {
      density = kNested;
      SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(density, density), LPARAM(&inner));
    }
    return DefSubclassProc(window, message, wParam, lParam);
  };
  SetWindowSubclass(frame, nest, 0, 0);
  change(144, outer);
  RemoveWindowSubclass(frame, nest, 0);
  expectLaidOut(kNested, inner);
}

TEST_F(ShownForm, TrustsNoAddressInAMessageOfAnotherProgram) {
  const RECT place = placeOf(frame);
  SIZE other{sizeOf(frame).cx, 7};
  for (const LPARAM address : {LPARAM(0), LPARAM(1), LPARAM(&other)}) {
    EXPECT_FALSE(SendMessageW(frame, WM_GETDPISCALEDSIZE, 192, address));
  }
  EXPECT_EQ(other.cy, 7);
  change(96, {0, 0, 9, 9});
  density = 192;
  SendMessageW(frame, WM_DPICHANGED, MAKEWPARAM(density, density), 1);
  expectLaidOut(96, place);
}

TEST_F(ShownForm, FollowsTheFontThatTheUserSetsMeanwhile) {
  NONCLIENTMETRICSW usual{};
  usual.cbSize = sizeof usual;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof usual, &usual, 0);
  NONCLIENTMETRICSW large = usual;
  large.lfMessageFont.lfHeight *= 3;
  const SIZE size = sizeOf(frame);
  SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof large, &large, 0);
  SendMessageW(frame, WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0);
  EXPECT_GT(sizeOf(frame).cx, size.cx * 5 / 4);
  SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof usual, &usual, 0);
  SendMessageW(frame, WM_SETTINGCHANGE, SPI_SETNONCLIENTMETRICS, 0);
  EXPECT_EQ(sizeOf(frame).cx, size.cx);
}

TEST_F(ShownForm, IsLaidOutWhenRestoredForTheChangeThatCameWhileItWasMinimised) {
  const RECT place = placeOf(frame), suggested = suggestedPlace(144);
  ShowWindow(frame, SW_MINIMIZE);
  change(144, suggested);
  ShowWindow(frame, SW_RESTORE);
  expectLaidOut(144, {place.left, place.top, place.left + suggested.right - suggested.left,
                      place.top + suggested.bottom - suggested.top});
}

TEST_F(ShownForm, HasTheFocusOnTheButtonWhenABoxWasAnsweredWhileItWasMinimised) {
  form.setEnabled(kButton, false);
  const HWND box = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, frame,
                                   nullptr, nullptr, nullptr);
  ShowWindow(frame, SW_MINIMIZE);
  SetForegroundWindow(box);
  DestroyWindow(box);  // which activates the frame
  form.setEnabled(kButton, true);
  form.setFocus(kButton);
  ShowWindow(frame, SW_RESTORE);
  EXPECT_EQ(GetFocus(), button);
}

}  // namespace
}  // namespace zendor
