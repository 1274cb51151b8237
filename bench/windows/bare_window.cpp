// A bare window of the program's size with the same controls at the same places and no program
// behind them. The program's start-up is compared with that of this window.
#include <windows.h>

#include <commctrl.h>

int WINAPI wWinMain(HINSTANCE program, HINSTANCE, PWSTR, int) {
  const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&classes);
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.hInstance = program;
  windowClass.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
  windowClass.lpszClassName = L"BareWindow";
  RegisterClassExW(&windowClass);
  const HMENU bar = CreateMenu();
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(CreatePopupMenu()), L"Menu");
  const HWND window =
      CreateWindowExW(WS_EX_DLGMODALFRAME, windowClass.lpszClassName, L"Bare window",
                      WS_CAPTION | WS_SYSMENU, 450, 400, 383, 241, nullptr, bar, program, nullptr);
  const struct {
    const wchar_t* kind;
    DWORD style;
    int left, top, width, height;
  } controls[] = {
      {WC_STATICW, SS_CENTER, 16, 8, 345, 25},
      {WC_EDITW, ES_CENTER | ES_READONLY | WS_BORDER, 16, 48, 345, 41},
      {WC_BUTTONW, BS_AUTORADIOBUTTON, 32, 104, 105, 25},
      {WC_BUTTONW, BS_AUTORADIOBUTTON, 32, 128, 105, 25},
      {WC_BUTTONW, BS_AUTORADIOBUTTON, 248, 104, 105, 25},
      {WC_BUTTONW, BS_AUTORADIOBUTTON, 248, 128, 105, 25},
      {WC_BUTTONW, BS_DEFPUSHBUTTON, 8, 160, 353, 33},
  };
  for (const auto& control : controls) {
    CreateWindowExW(0, control.kind, L"Bare", WS_CHILD | WS_VISIBLE | control.style, control.left,
                    control.top, control.width, control.height, window, nullptr, program, nullptr);
  }
  ShowWindow(window, SW_SHOWNORMAL);
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}
