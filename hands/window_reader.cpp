// A reader of other programs' windows: for every empty line of input it lists the visible windows
// of the desktop, each followed by its client area and its children, then an empty line. A row has,
// separated by tabs: level, class, state ("enabled", "focused", "checked"), left, top, right and
// bottom in screen pixels, and the text with its line breaks and tabs escaped. Any other line of
// input is the caption of a button in the program's window: the reader clicks that button five
// times at once and prints an empty line.
#include <windows.h>

#include <iostream>
#include <string>

#include "platform/win32/win32_text.h"

namespace {

std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '\n':
        result += "\\n";
        break;
      case '\r':
        result += "\\r";
        break;
      case '\t':
        result += "\\t";
        break;
      default:
        result += c;
    }
  }
  return result;
}

std::string classOf(HWND window) {
  wchar_t name[64];
  const int length = GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return zendor::utf8FromWide({name, static_cast<std::size_t>(length)});
}

std::string textOf(HWND window) {
  wchar_t text[1024];
  DWORD_PTR length = 0;
  SendMessageTimeoutW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text),
                      SMTO_NORMAL, 1000, &length);
  return zendor::utf8FromWide({text, length});
}

std::string stateOf(HWND window) {
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &thread);
  DWORD_PTR checked = 0;
  SendMessageTimeoutW(window, BM_GETCHECK, 0, 0, SMTO_NORMAL, 1000, &checked);
  std::string state;
  if (IsWindowEnabled(window)) state += "enabled ";
  if (thread.hwndFocus == window) state += "focused ";
  if (classOf(window) == "Button" && checked == BST_CHECKED) state += "checked ";
  return state;
}

void list(int level, const std::string& kind, const std::string& state, const RECT& place,
          const std::string& text) {
  std::cout << level << '\t' << kind << '\t' << state << '\t' << place.left << '\t' << place.top
            << '\t' << place.right << '\t' << place.bottom << '\t' << escaped(text) << '\n';
}

void listWindow(HWND window, int level) {
  RECT place{};
  GetWindowRect(window, &place);
  list(level, classOf(window), stateOf(window), place, textOf(window));
}

void listClientArea(HWND window) {
  RECT place{};
  GetClientRect(window, &place);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&place), 2);
  list(1, "client area", "", place, "");
}

BOOL CALLBACK listChild(HWND window, LPARAM) {
  listWindow(window, 1);
  return TRUE;
}

BOOL CALLBACK listTopLevel(HWND window, LPARAM) {
  if (!IsWindowVisible(window)) return TRUE;
  listWindow(window, 0);
  listClientArea(window);
  EnumChildWindows(window, &listChild, 0);
  return TRUE;
}

// Posts the clicks so fast that the last one comes before the program has taken them all.
void clickHastily(const std::wstring& caption) {
  const HWND form = FindWindowW(L"ZendorForm", nullptr);
  const HWND button = FindWindowExW(form, nullptr, L"Button", caption.c_str());
  for (int i = 0; i < 5; ++i) PostMessageW(button, BM_CLICK, 0, 0);
}

}  // namespace

int main() {
  SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
  for (std::string line; std::getline(std::cin, line);) {
    while (line.ends_with('\r')) line.pop_back();
    if (line.empty()) {
      EnumWindows(&listTopLevel, 0);
    } else {
      clickHastily(zendor::wideFromUtf8(line));
    }
    std::cout << std::endl;
  }
}
