#include "platform/win32/win32_controls.h"

#include <commctrl.h>

#include <algorithm>
#include <numeric>
#include <string>

#include "platform/shared/twips.h"
#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

struct ControlClass {
  const wchar_t* name = nullptr;
  DWORD style = 0;
};

// A bordered label is a box for a value: a read-only edit field, so that the value can be selected
// and copied and is read out under the name of the label before it. The Tab key passes it by, and
// what is selected shows without the keyboard's focus.
ControlClass classOfLabel(const FormControl& label) {
  if (label.kind == ControlKind::ResultBox) {
    const DWORD alignment = label.centred ? ES_CENTER : ES_LEFT;
    return {WC_EDITW, WS_BORDER | ES_READONLY | ES_AUTOHSCROLL | ES_NOHIDESEL | alignment};
  }
  const DWORD alignment = label.centred ? SS_CENTER : SS_LEFT;
  return {WC_STATICW, SS_NOPREFIX | alignment};
}

ControlClass classOf(const FormControl& control) {
  switch (control.kind) {
    case ControlKind::Label:
    case ControlKind::ResultBox:
      return classOfLabel(control);
    case ControlKind::OptionButton:
      return {WC_BUTTONW,
              BS_AUTORADIOBUTTON | static_cast<DWORD>(control.selected ? WS_TABSTOP : 0)};
    case ControlKind::PushButton:
      return {WC_BUTTONW, BS_DEFPUSHBUTTON | WS_TABSTOP};
  }
  return {};
}

bool takesKeyboard(const FormControl& control) {
  return control.kind == ControlKind::OptionButton || control.kind == ControlKind::PushButton;
}

// Labels come first and as described, since a label names what follows it; then, by the tab index,
// what takes the keyboard.
std::vector<std::size_t> creationOrder(const std::vector<FormControl>& controls) {
  std::vector<std::size_t> order(controls.size());
  std::iota(order.begin(), order.end(), 0U);
  std::ranges::stable_sort(order, {}, [&](std::size_t position) {
    const FormControl& control = controls[position];
    return takesKeyboard(control) ? control.tabIndex : -1;
  });
  return order;
}

// A child window takes its number in the place of a menu.
HMENU controlNumber(std::size_t position) {
  const UINT_PTR number = position + kFirstControlNumber;
  return reinterpret_cast<HMENU>(number);  // NOLINT(performance-no-int-to-ptr)
}

// The arrow keys move within a group, which ends where the next one starts.
bool startsGroup(const FormControl& control, const FormControl* former) {
  return control.kind != ControlKind::OptionButton || former == nullptr ||
         former->kind != ControlKind::OptionButton;
}

}  // namespace

void createControls(HWND frame, const std::vector<FormControl>& controls) {
  const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&classes);
  const FormControl* former = nullptr;
  for (const std::size_t position : creationOrder(controls)) {
    const FormControl& control = controls[position];
    const auto [name, ownStyle] = classOf(control);
    const DWORD style = WS_CHILD | WS_VISIBLE | ownStyle;
    const DWORD groupStyle = startsGroup(control, former) ? WS_GROUP : 0;
    const HWND window =
        CreateWindowExW(0, name, wideFromUtf8(control.caption).c_str(), style | groupStyle, 0, 0, 0,
                        0, frame, controlNumber(position), nullptr, nullptr);
    if (control.selected) SendMessageW(window, BM_SETCHECK, BST_CHECKED, 0);
    former = &control;
  }
}

std::vector<FontHandle> layOutControls(HWND frame, const std::vector<FormControl>& controls) {
  const UINT dotsPerInch = GetDpiForWindow(frame);
  std::vector<FontHandle> fonts;
  int number = kFirstControlNumber;
  for (const FormControl& control : controls) {
    const HWND window = GetDlgItem(frame, number++);
    const PixelRect place = pixelsFromTwips(control.rect, dotsPerInch);
    fonts.push_back(fontOf(control, dotsPerInch));
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.back().get()), FALSE);
    SetWindowPos(window, nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
  return fonts;
}

HMENU createMenuBar(const std::vector<FormMenu>& menus) {
  const HMENU bar = CreateMenu();
  for (const FormMenu& menu : menus) {
    const HMENU popup = CreatePopupMenu();
    for (const std::string& item : menu.items) {
      const UINT kind = item == "-" ? MF_SEPARATOR : MF_STRING;
      AppendMenuW(popup, kind, 0, wideFromUtf8(item).c_str());
    }
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup),
                wideFromUtf8(menu.caption).c_str());
  }
  return bar;
}

}  // namespace zendor
