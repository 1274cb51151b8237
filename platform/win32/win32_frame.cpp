#include "platform/win32/win32_frame.h"

#include "platform/win32/resources.h"
#include "platform/win32/win32_menu_bar.h"
#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

constexpr const wchar_t* kClassName = L"ZendorForm";
constexpr DWORD kStyle = WS_CAPTION | WS_SYSMENU;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

void registerClass(HINSTANCE program, WNDPROC procedure) {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = procedure;
  windowClass.hInstance = program;
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
  windowClass.lpszClassName = kClassName;
  RegisterClassExW(&windowClass);
}

// A dialog frame shows no icon of its class, only one of the window itself.
void setIcon(HWND frame, WPARAM kind, int widthMetric, int heightMetric) {
  const HANDLE icon =
      LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(ZENDOR_ICON), IMAGE_ICON,
                 GetSystemMetrics(widthMetric), GetSystemMetrics(heightMetric), LR_SHARED);
  SendMessageW(frame, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon));
}

}  // namespace

HWND createFrame(const FormDescription& description, WNDPROC procedure) {
  const HINSTANCE program = GetModuleHandleW(nullptr);
  registerClass(program, procedure);
  const HWND frame = CreateWindowExW(
      kExtendedStyle, kClassName, wideFromUtf8(description.caption).c_str(), kStyle, CW_USEDEFAULT,
      CW_USEDEFAULT, 0, 0, nullptr, createMenuBar(description.menus), program, nullptr);
  setIcon(frame, ICON_BIG, SM_CXICON, SM_CYICON);
  setIcon(frame, ICON_SMALL, SM_CXSMICON, SM_CYSMICON);
  return frame;
}

// The first ShowWindow of a program follows the shortcut that has started the program, whatever the
// call asks for. A shortcut may ask for a maximised window, but the frame has a fixed size.
void showFrame(HWND frame) {
  ShowWindow(frame, SW_SHOWNORMAL);
  if (IsZoomed(frame)) ShowWindow(frame, SW_SHOWNORMAL);
}

SIZE frameAround(SIZE client, const FormDescription& description, UINT dotsPerInch) {
  RECT rect{0, 0, client.cx, client.cy};
  AdjustWindowRectExForDpi(&rect, kStyle, !description.menus.empty(), kExtendedStyle, dotsPerInch);
  return {rect.right - rect.left, rect.bottom - rect.top};
}

MONITORINFO screenOf(HWND frame) {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  GetMonitorInfoW(MonitorFromWindow(frame, MONITOR_DEFAULTTOPRIMARY), &screen);
  return screen;
}

}  // namespace zendor
