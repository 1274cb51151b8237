#include "platform/win32/win32_controls.h"

#include <commctrl.h>

#include <algorithm>
#include <string>

#include "platform/shared/twips.h"
#include "platform/win32/win32_result_box.h"
#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

// A child window has its number in the place of a menu.
HMENU numberOf(const FormControl& control) {
  const UINT_PTR number = control.kind == ControlKind::PushButton ? IDOK : 0;
  return reinterpret_cast<HMENU>(number);  // NOLINT(performance-no-int-to-ptr)
}

HWND createChild(HWND frame, const FormControl& control, const wchar_t* className, DWORD style) {
  return CreateWindowExW(0, className, wideFromUtf8(control.caption).c_str(),
                         WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, frame, numberOf(control),
                         nullptr, nullptr);
}

HWND createOptionButton(HWND frame, const FormControl& control, DWORD groupStyle) {
  const DWORD stop = control.selected ? WS_TABSTOP : 0;
  const HWND button =
      createChild(frame, control, WC_BUTTONW, BS_AUTORADIOBUTTON | stop | groupStyle);
  if (control.selected) SendMessageW(button, BM_SETCHECK, BST_CHECKED, 0);
  return button;
}

HWND createControl(HWND frame, const FormControl& control, DWORD groupStyle) {
  switch (control.kind) {
    case ControlKind::Label: {
      const DWORD alignment = control.centred ? SS_CENTER : SS_LEFT;
      return createChild(frame, control, WC_STATICW, SS_NOPREFIX | alignment | groupStyle);
    }
    case ControlKind::ResultBox:
      return createResultBox(frame, control);
    case ControlKind::OptionButton:
      return createOptionButton(frame, control, groupStyle);
    case ControlKind::PushButton:
      return createChild(frame, control, WC_BUTTONW, BS_DEFPUSHBUTTON | WS_TABSTOP | groupStyle);
  }
  return nullptr;
}

bool acceptsKeys(const FormControl& control) {
  return control.kind == ControlKind::OptionButton || control.kind == ControlKind::PushButton;
}

// Labels and the result box come first and in the order of the description, because a label names
// the box after it. Then comes, by the tab index, what accepts keys.
std::vector<Win32Control> creationOrder(const std::vector<FormControl>& controls) {
  std::vector<Win32Control> order;
  order.reserve(controls.size());
  for (const FormControl& control : controls) order.push_back({control});
  std::ranges::stable_sort(order, {}, [](const Win32Control& control) {
    return acceptsKeys(control) ? control.tabIndex : -1;
  });
  return order;
}

}  // namespace

// The arrow keys move within a group. A group ends where the next one starts, so every control
// starts one, except an option button that follows another.
std::vector<Win32Control> createControls(HWND frame, const std::vector<FormControl>& controls) {
  const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&classes);
  std::vector<Win32Control> result = creationOrder(controls);
  bool isInGroup = false;
  for (Win32Control& control : result) {
    const bool isOption = control.kind == ControlKind::OptionButton;
    control.window = createControl(frame, control, isOption && isInGroup ? 0 : WS_GROUP);
    isInGroup = isOption;
  }
  return result;
}

std::vector<FontHandle> layOutControls(const std::vector<Win32Control>& controls,
                                       const FormScale& scale, UINT dotsPerInch) {
  std::vector<FontHandle> fonts;
  for (const Win32Control& control : controls) {
    const PixelRect place = pixelsFromTwips(control.rect, scale.dotsPerInch);
    fonts.push_back(control.font ? describedFont(*control.font, scale.dotsPerInch)
                                 : messageFont(scale.messageFontFactor, dotsPerInch));
    SendMessageW(control.window, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.back().get()), FALSE);
    SetWindowPos(control.window, nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
  return fonts;
}

}  // namespace zendor
