#include "platform/win32/win32_result_box.h"

#include <commctrl.h>

#include "platform/shared/readable_color.h"
#include "platform/win32/win32_live_region.h"
#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

Rgb rgbOf(COLORREF color) { return {GetRValue(color), GetGValue(color), GetBValue(color)}; }

struct Selection {
  DWORD start = 0;
  DWORD end = 0;
};

Selection selectionOf(HWND box) {
  Selection selection;
  SendMessageW(box, EM_GETSEL, reinterpret_cast<WPARAM>(&selection.start),
               reinterpret_cast<LPARAM>(&selection.end));
  return selection;
}

// Has the edit control handle a message that works on the selection. If nothing is selected, the
// whole text is selected meanwhile.
void handleWithSelection(HWND box, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto [start, end] = selectionOf(box);
  if (start == end) SendMessageW(box, EM_SETSEL, 0, -1);
  DefSubclassProc(box, message, wParam, lParam);
  if (start == end) SendMessageW(box, EM_SETSEL, start, static_cast<LPARAM>(end));
}

void giveFocusBack(HWND box) {
  if (GetFocus() == box) SetFocus(GetParent(box));
}

// An edit control needs the focus to select with the mouse, so it gets the focus for the press. It
// gives the focus back at the release, and when its context menu has been closed.
LRESULT CALLBACK boxProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                              DWORD_PTR) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      SetFocus(box);
      break;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
      DefSubclassProc(box, message, wParam, lParam);
      giveFocusBack(box);
      return 0;
    case WM_CONTEXTMENU:  // "Copy" in the menu can be chosen only while something is selected
      handleWithSelection(box, message, wParam, lParam);
      giveFocusBack(box);
      return 0;
    case WM_COPY:
      handleWithSelection(box, message, wParam, lParam);
      return 0;
    default:
      break;
  }
  return DefSubclassProc(box, message, wParam, lParam);
}

}  // namespace

// ES_NOHIDESEL shows the selection also while the box does not have the focus.
HWND createResultBox(HWND frame, const FormControl& description) {
  const DWORD alignment = description.centred ? ES_CENTER : ES_LEFT;
  const DWORD style = WS_BORDER | ES_READONLY | ES_AUTOHSCROLL | ES_NOHIDESEL | alignment;
  const HWND box =
      CreateWindowExW(0, WC_EDITW, wideFromUtf8(description.caption).c_str(),
                      WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, frame, nullptr, nullptr, nullptr);
  SetWindowSubclass(box, &boxProcedure, 0, 0);
  makeLiveRegion(box);
  return box;
}

void setResult(HWND box, const std::wstring& text) {
  SetWindowTextW(box, text.c_str());
  nameLiveRegion(box, text);
}

HBRUSH colorResultBox(HDC context) {
  const COLORREF background = GetSysColor(COLOR_HIGHLIGHTTEXT);
  const Rgb text = readableOn(rgbOf(background), rgbOf(GetSysColor(COLOR_WINDOWTEXT)));
  SetBkColor(context, background);
  SetTextColor(context, RGB(text.red, text.green, text.blue));
  return GetSysColorBrush(COLOR_HIGHLIGHTTEXT);
}

}  // namespace zendor
