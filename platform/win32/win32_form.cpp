#include "platform/win32/win32_form.h"

#include <commctrl.h>

#include <algorithm>
#include <thread>
#include <utility>

#include "platform/shared/readable_color.h"
#include "platform/win32/win32_controls.h"
#include "platform/win32/win32_frame.h"
#include "platform/win32/win32_text.h"

namespace zendor {

namespace {

// Messages carry handles and pointers as numbers.
template <typename Pointer, typename Parameter>
Pointer pointerIn(Parameter parameter) {
  return reinterpret_cast<Pointer>(parameter);  // NOLINT(performance-no-int-to-ptr)
}

Rgb rgbOf(COLORREF color) { return {GetRValue(color), GetGValue(color), GetBValue(color)}; }

bool isCopyKey(const MSG& message) {
  return message.message == WM_KEYDOWN && message.wParam == 'C' && GetKeyState(VK_CONTROL) < 0;
}

bool isPress(UINT message) { return message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK; }

bool isRelease(UINT message) { return message == WM_LBUTTONUP || message == WM_RBUTTONUP; }

POINT topLeftOf(const RECT& rect) { return {rect.left, rect.top}; }

POINT topLeftOf(HWND window) {
  RECT rect{};
  GetWindowRect(window, &rect);
  return topLeftOf(rect);
}

}  // namespace

Win32Form::Win32Form(FormDescription description)
    : description_(std::move(description)), window_(createFrame(description_, &windowProcedure)) {
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  createControls(window_, description_.controls);
  valueBox_ = FindWindowExW(window_, nullptr, WC_EDITW, nullptr);
  centreFrame(window_, description_);
  fonts_ = layOutControls(window_, description_.controls);
  focused_ =
      windowOf(std::ranges::min_element(description_.controls, {}, &FormControl::tabIndex)->id);
}

void Win32Form::run(FormEvents& events) {
  events_ = &events;
  events.Form_Load();
  ShowWindow(window_, SW_SHOWNORMAL);
  events.Form_Activate();
  std::thread([this] { raiseClicks(); }).detach();
  for (MSG message{};;) {
    GetMessageW(&message, nullptr, 0, 0);
    dispatch(message);
  }
}

std::string Win32Form::caption() const {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window_)) + 1, L'\0');
  const int length = GetWindowTextW(window_, text.data(), static_cast<int>(text.size()));
  return utf8FromWide({text.data(), static_cast<std::size_t>(length)});
}

void Win32Form::setCaption(const std::string& caption) {
  SetWindowTextW(window_, wideFromUtf8(caption).c_str());
}

void Win32Form::setMenuCaption(std::string_view menu, const std::string& caption) {
  const auto found = std::ranges::find(description_.menus, menu, &FormMenu::name);
  const auto position = static_cast<UINT>(found - description_.menus.begin());
  std::wstring text = wideFromUtf8(caption);
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_STRING;
  item.dwTypeData = text.data();
  SetMenuItemInfoW(GetMenu(window_), position, TRUE, &item);
  DrawMenuBar(window_);
}

void Win32Form::setCaption(const ControlId& control, const std::string& caption) {
  calls_.call([window = windowOf(control), text = wideFromUtf8(caption)] {
    SetWindowTextW(window, text.c_str());
  });
}

// While the control that had the focus is disabled, the frame has it: without any focus the Tab key
// would be dead. A focus that the user moves meanwhile stays where it is. A click that came before
// and still waits is lost.
void Win32Form::setEnabled(const ControlId& control, bool enabled) {
  calls_.call([=, this] {
    const HWND child = windowOf(control);
    const bool losesFocus = !enabled && GetFocus() == child;
    EnableWindow(child, enabled);
    if (!enabled && clicked_ == &described(GetDlgCtrlID(child))) clicked_ = nullptr;
    if (losesFocus) {
      focused_ = child;
      SetFocus(window_);
    } else if (enabled && focused_ == child && GetFocus() == window_) {
      SetFocus(child);
    }
  });
}

void Win32Form::setFocus(const ControlId& control) {
  calls_.call([=, this] {
    focused_ = windowOf(control);
    if (GetActiveWindow() == window_) SetFocus(focused_);
  });
}

bool Win32Form::isSelected(const ControlId& optionButton) const {
  return SendMessageW(windowOf(optionButton), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

// The first messages come before the constructor has put the form in its window.
LRESULT CALLBACK Win32Form::windowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
  auto* const form = pointerIn<Win32Form*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  return form != nullptr ? form->handle(message, wParam, lParam)
                         : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT Win32Form::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (calls_.serve(message, lParam)) return 0;
  switch (message) {
    case WM_COMMAND:
      if (lParam != 0 && HIWORD(wParam) == BN_CLICKED) click(LOWORD(wParam));
      return 0;
    case WM_CLOSE:
      if (events_ != nullptr) events_->Form_Unload();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) == WA_INACTIVE) noteFocus();
      break;
    case WM_SETFOCUS:
      if (IsWindowEnabled(focused_)) SetFocus(focused_);
      return 0;
    case DM_GETDEFID:
      return MAKELRESULT(defaultButtonNumber(), DC_HASDEFID);
    case WM_CTLCOLORSTATIC:
      if (const HBRUSH brush = colorLabel(pointerIn<HWND>(lParam), pointerIn<HDC>(wParam))) {
        return reinterpret_cast<LRESULT>(brush);
      }
      break;
    case WM_DPICHANGED:
      layOut(topLeftOf(*pointerIn<const RECT*>(lParam)));
      return 0;
    case WM_SETTINGCHANGE:
      if (wParam == SPI_SETNONCLIENTMETRICS) layOut(topLeftOf(window_));
      break;
    default:
      break;
  }
  return DefWindowProcW(window_, message, wParam, lParam);
}

// The box of the value has the keyboard only while the mouse selects in it, which it cannot
// without.
void Win32Form::dispatch(MSG& message) {
  if (copiesValue(message)) return;
  const bool isForValue = message.hwnd == valueBox_;
  if (isForValue) noteFocus();
  if (isForValue && isPress(message.message)) SetFocus(valueBox_);
  if (!IsDialogMessageW(window_, &message)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  if (isForValue && isRelease(message.message)) SetFocus(window_);  // which hands it on
}

void Win32Form::noteFocus() {
  const HWND focus = GetFocus();
  if (focus != valueBox_ && IsChild(window_, focus)) focused_ = focus;
}

// From wherever the keyboard is, the copy key takes what is selected of the value, or the whole.
bool Win32Form::copiesValue(const MSG& message) const {
  if (!isCopyKey(message)) return false;
  DWORD start = 0;
  DWORD end = 0;
  SendMessageW(valueBox_, EM_GETSEL, reinterpret_cast<WPARAM>(&start),
               reinterpret_cast<LPARAM>(&end));
  if (start == end) SendMessageW(valueBox_, EM_SETSEL, 0, -1);
  SendMessageW(valueBox_, WM_COPY, 0, 0);
  SendMessageW(valueBox_, EM_SETSEL, start, static_cast<LPARAM>(end));
  return true;
}

// A program that operates windows for its user can press a button that is disabled.
void Win32Form::click(int controlNumber) {
  const FormControl& control = described(controlNumber);
  if (control.kind != ControlKind::PushButton || !IsWindowEnabled(windowOf(control.id))) return;
  clicked_ = &control;
  SetEvent(click_.get());
}

// What a click has called for is done before the next one is taken: it may have disabled the
// button.
void Win32Form::raiseClicks() {
  for (;;) {
    WaitForSingleObject(click_.get(), INFINITE);
    if (const FormControl* const control = clicked_.exchange(nullptr)) {
      events_->Control_Click(control->id);
      SendMessageW(window_, WM_NULL, 0, 0);  // comes behind the calls
    }
  }
}

int Win32Form::defaultButtonNumber() const {
  const auto button =
      std::ranges::find(description_.controls, ControlKind::PushButton, &FormControl::kind);
  return static_cast<int>(button - description_.controls.begin()) + kFirstControlNumber;
}

// None: the colours of every label.
HBRUSH Win32Form::colorLabel(HWND label, HDC context) const {
  if (label != valueBox_) return nullptr;
  const COLORREF background = GetSysColor(COLOR_HIGHLIGHTTEXT);
  const Rgb text = readableOn(rgbOf(background), rgbOf(GetSysColor(COLOR_WINDOWTEXT)));
  SetBkColor(context, background);
  SetTextColor(context, RGB(text.red, text.green, text.blue));
  return GetSysColorBrush(COLOR_HIGHLIGHTTEXT);
}

void Win32Form::layOut(POINT topLeft) {
  placeFrame(window_, description_, topLeft);
  fonts_ = layOutControls(window_, description_.controls);
  InvalidateRect(window_, nullptr, TRUE);
}

const FormControl& Win32Form::described(int controlNumber) const {
  return description_.controls[static_cast<std::size_t>(controlNumber - kFirstControlNumber)];
}

HWND Win32Form::windowOf(const ControlId& control) const {
  const auto found = std::ranges::find(description_.controls, control, &FormControl::id);
  const auto position = static_cast<int>(found - description_.controls.begin());
  return GetDlgItem(window_, position + kFirstControlNumber);
}

}  // namespace zendor
