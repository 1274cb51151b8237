#include "platform/win32/win32_menu_bar.h"

#include "platform/win32/win32_text.h"

namespace zendor {

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

void setMenuCaption(HMENU bar, std::size_t position, const std::string& caption) {
  std::wstring text = wideFromUtf8(caption);
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_STRING;
  item.dwTypeData = text.data();
  SetMenuItemInfoW(bar, static_cast<UINT>(position), TRUE, &item);
}

}  // namespace zendor
