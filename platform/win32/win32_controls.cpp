#include "platform/win32/win32_controls.h"

#include <commctrl.h>

#include <algorithm>
#include <string>

#include "platform/shared/twips.h"
#include "platform/win32/win32_result_box.h"
#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

struct ControlClass {
  const wchar_t* name = nullptr;
  DWORD style = 0;
};

ControlClass classOf(const FormControl& control) {
  switch (control.kind) {
    case ControlKind::Label:
    case ControlKind::ResultBox:  // is made in a file of its own
      return {WC_STATICW, SS_NOPREFIX | static_cast<DWORD>(control.centred ? SS_CENTER : SS_LEFT)};
    case ControlKind::OptionButton:
      return {WC_BUTTONW,
              BS_AUTORADIOBUTTON | static_cast<DWORD>(control.selected ? WS_TABSTOP : 0)};
    case ControlKind::PushButton:
      return {WC_BUTTONW, BS_DEFPUSHBUTTON | WS_TABSTOP};
  }
  return {};
}

// A child window takes its number in the place of a menu.
HMENU numberOf(const FormControl& control) {
  const UINT_PTR number = control.kind == ControlKind::PushButton ? IDOK : 0;
  return reinterpret_cast<HMENU>(number);  // NOLINT(performance-no-int-to-ptr)
}

HWND createControl(HWND frame, const FormControl& control, DWORD groupStyle) {
  if (control.kind == ControlKind::ResultBox) return createResultBox(frame, control);
  const auto [name, ownStyle] = classOf(control);
  const HWND window = CreateWindowExW(0, name, wideFromUtf8(control.caption).c_str(),
                                      WS_CHILD | WS_VISIBLE | ownStyle | groupStyle, 0, 0, 0, 0,
                                      frame, numberOf(control), nullptr, nullptr);
  if (control.selected) SendMessageW(window, BM_SETCHECK, BST_CHECKED, 0);
  return window;
}

bool takesKeyboard(const FormControl& control) {
  return control.kind == ControlKind::OptionButton || control.kind == ControlKind::PushButton;
}

// Labels come first and in the order of the description, because a label names the box after it;
// then, by the tab index, what takes the keyboard.
std::vector<Win32Control> creationOrder(const std::vector<FormControl>& controls) {
  std::vector<Win32Control> order;
  order.reserve(controls.size());
  for (const FormControl& control : controls) order.push_back({control});
  std::ranges::stable_sort(order, {}, [](const Win32Control& control) {
    return takesKeyboard(control) ? control.tabIndex : -1;
  });
  return order;
}

}  // namespace

// The arrow keys move within a group. A group ends where the next one starts, so every control but
// the later option buttons starts one.
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
                                 : messageFont(scale.messageFont, dotsPerInch));
    SendMessageW(control.window, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.back().get()), FALSE);
    SetWindowPos(control.window, nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
  return fonts;
}

HMENU createMenuBar(const std::vector<FormMenu>& menus) {
  const HMENU bar = CreateMenu();
  for (const FormMenu& menu : menus) {
    const HMENU popup = CreatePopupMenu();
    for (int line = 0; line < menu.separators; ++line) {
      AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
    }
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup),
                wideFromUtf8(menu.caption).c_str());
  }
  return bar;
}

void setMenuCaption(HMENU bar, std::size_t menu, const std::string& caption) {
  std::wstring text = wideFromUtf8(caption);
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_STRING;
  item.dwTypeData = text.data();
  SetMenuItemInfoW(bar, static_cast<UINT>(menu), TRUE, &item);
}

}  // namespace zendor
