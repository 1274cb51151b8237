// A reader of other programs' windows: for every line of input it lists the visible windows of the
// desktop, each followed by its children, then an empty line. A row has, separated by tabs: level,
// class, state ("enabled", "focused", "checked"; of a whole window "resizable", "dialog"),
// left, top, right and bottom in screen pixels, and the text with its line breaks and tabs escaped.
// The line "clipboard" lists the copied text instead.
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
  constexpr LONG kResizable = WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
  if (GetAncestor(window, GA_ROOT) != window) return state;
  if (GetWindowLongW(window, GWL_STYLE) & kResizable) state += "resizable ";
  if (GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_DLGMODALFRAME) state += "dialog ";
  return state;
}

void list(HWND window, int level) {
  RECT place{};
  GetWindowRect(window, &place);
  std::cout << level << '\t' << classOf(window) << '\t' << stateOf(window) << '\t' << place.left
            << '\t' << place.top << '\t' << place.right << '\t' << place.bottom << '\t'
            << escaped(textOf(window)) << '\n';
}

BOOL CALLBACK listChild(HWND window, LPARAM) {
  list(window, 1);
  return TRUE;
}

BOOL CALLBACK listTopLevel(HWND window, LPARAM) {
  if (!IsWindowVisible(window)) return TRUE;
  list(window, 0);
  EnumChildWindows(window, &listChild, 0);
  return TRUE;
}

void listClipboard() {
  if (!OpenClipboard(nullptr)) return;
  const HANDLE text = GetClipboardData(CF_UNICODETEXT);
  if (text != nullptr) {
    std::cout << escaped(zendor::utf8FromWide(static_cast<const wchar_t*>(GlobalLock(text))));
    GlobalUnlock(text);
  }
  CloseClipboard();
  std::cout << '\n';
}

}  // namespace

int main() {
  SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
  for (std::string line; std::getline(std::cin, line);) {
    if (line.starts_with("clipboard")) {
      listClipboard();
    } else {
      EnumWindows(&listTopLevel, 0);
    }
    std::cout << std::endl;
  }
}
