#include "platform/win32/win32_port_tips.h"

#include <algorithm>
#include <utility>

#include "platform/win32/win32_accessibility.h"
#include "platform/win32/win32_pointer.h"
#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

constexpr UINT_PTR kLook = 1;  // the timer of a look at the ports
// The window is drawn before the first look, because a look takes longer. Windows tells of one
// adapter in several messages, and one look follows them all.
constexpr UINT kDelayOfLookMs = 300;

bool isOptionButton(HWND button) {
  return (GetWindowLongPtrW(button, GWL_STYLE) & BS_TYPEMASK) == BS_AUTORADIOBUTTON;
}

void describe(HWND button, const std::wstring& text) {
  if (const auto services = propertyServices()) {
    services->SetHwndPropStr(button, kClient, CHILDID_SELF, PROPID_ACC_DESCRIPTION, text.c_str());
  }
}

}  // namespace

Win32PortTips::Win32PortTips(HWND window, DescribePort describePort)
    : window_(window), describePort_(std::move(describePort)) {
  findChoices();
  addTips();
  SetWindowSubclass(window_, &windowProcedure, 0, reinterpret_cast<DWORD_PTR>(this));
  SetTimer(window_, kLook, kDelayOfLookMs, nullptr);
}

void Win32PortTips::findChoices() {
  HWND button = nullptr;
  while ((button = FindWindowExW(window_, button, WC_BUTTONW, nullptr)) != nullptr) {
    if (isOptionButton(button)) choices_.push_back({button});
  }
}

// A tooltip asks the window for its text whenever the tooltip is to be shown.
void Win32PortTips::addTips() {
  const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES};
  InitCommonControlsEx(&classes);
  tips_ = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, 0, 0, 0, 0, window_,
                          nullptr, nullptr, nullptr);
  for (const Choice& choice : choices_) {
    TOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = window_;
    tool.uId = reinterpret_cast<UINT_PTR>(choice.button);
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  }
}

LRESULT CALLBACK Win32PortTips::windowProcedure(HWND window, UINT message, WPARAM wParam,
                                                LPARAM lParam, UINT_PTR, DWORD_PTR tips) {
  auto& self = *pointerIn<Win32PortTips*>(tips);
  if (message == WM_NOTIFY) {
    const auto notice = valueAt<NMHDR>(lParam);
    if (notice && notice->hwndFrom == self.tips_ && notice->code == TTN_GETDISPINFOW) {
      self.fill(*pointerIn<NMTTDISPINFOW*>(lParam));
    }
  } else if (message == WM_DEVICECHANGE) {
    SetTimer(window, kLook, kDelayOfLookMs, nullptr);
  } else if (message == WM_TIMER && wParam == kLook) {
    KillTimer(window, kLook);
    self.refresh();
  }
  return DefSubclassProc(window, message, wParam, lParam);
}

// Screen readers may speak a description when it is set, so the same one is not set again.
void Win32PortTips::refresh() {
  int number = 0;
  for (Choice& choice : choices_) {
    std::wstring text = wideFromUtf8(describePort_(++number));
    if (text == choice.told) continue;
    choice.told = std::move(text);
    describe(choice.button, choice.told);
  }
}

// Looks again, because the look after a change may still be to come.
void Win32PortTips::fill(NMTTDISPINFOW& tip) {
  refresh();
  const auto choice = std::ranges::find_if(choices_, [&](const Choice& candidate) {
    return reinterpret_cast<UINT_PTR>(candidate.button) == tip.hdr.idFrom;
  });
  if (choice == choices_.end()) return;
  shown_ = choice->told;
  tip.lpszText = shown_.data();
}

}  // namespace zendor
