#include "platform/win32/win32_form.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "platform/win32/win32_frame.h"
#include "platform/win32/win32_keys.h"
#include "platform/win32/win32_live_region.h"
#include "platform/win32/win32_menu_bar.h"
#include "platform/win32/win32_pointer.h"
#include "platform/win32/win32_result_box.h"
#include "platform/win32/win32_text.h"

namespace zendor {

Win32Form::Win32Form(FormDescription description)
    : description_(std::move(description)),
      window_(createFrame(description_, &windowProcedure)),
      controls_(createControls(window_, description_.controls)),
      resultBox_(std::ranges::find(controls_, ControlKind::ResultBox, &Win32Control::kind)->window),
      focus_(window_, std::ranges::min_element(controls_, {}, &Win32Control::tabIndex)->window,
             resultBox_) {
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  layout_.centre();
}

void Win32Form::run(FormEvents& events) {
  events_ = &events;
  events.Form_Load();
  showFrame(window_);
  events.Form_Activate();
  std::thread([this] { raiseClicks(); }).detach();
  const HACCEL keys = createKeys();
  for (MSG message{};;) {
    if (GetMessageW(&message, nullptr, 0, 0) > 0) dispatch(message, keys);
    calls_.runModal();
  }
}

void Win32Form::setCaption(const std::string& caption) {
  SetWindowTextW(window_, wideFromUtf8(caption).c_str());
}

void Win32Form::setMenuCaption(std::string_view menu, const std::string& caption) {
  const auto found = std::ranges::find(description_.menus, menu, &FormMenu::name);
  const auto position = static_cast<std::size_t>(found - description_.menus.begin());
  zendor::setMenuCaption(GetMenu(window_), position, caption);
  DrawMenuBar(window_);
}

void Win32Form::setCaption(const ControlId& control, const std::string& caption) {
  calls_.call([=, this, text = wideFromUtf8(caption)] {
    const HWND window = controlOf(control).window;
    if (window == resultBox_) return showResult(text);
    SetWindowTextW(window, text.c_str());
  });
}

// A click on a disabled control is dropped if it has not been raised yet.
void Win32Form::setEnabled(const ControlId& control, bool enabled) {
  calls_.call([=, this] {
    focus_.setEnabled(controlOf(control).window, enabled);
    if (!enabled && pendingClick_ == &controlOf(control)) pendingClick_ = nullptr;
    tellResult();
  });
}

void Win32Form::setFocus(const ControlId& control) {
  calls_.call([=, this] { focus_.move(controlOf(control).window); });
}

std::optional<int> Win32Form::selectedIndex(std::string_view array) {
  std::optional<int> selected;
  calls_.callAndWait([&] {
    for (const Win32Control& control : controls_) {
      if (control.id.name != array) continue;
      if (SendMessageW(control.window, BM_GETCHECK, 0, 0) == BST_CHECKED)
        selected = control.id.index;
    }
  });
  return selected;
}

// The first messages come before the constructor has put the form's address into the window.
LRESULT CALLBACK Win32Form::windowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
  auto* const form = pointerIn<Win32Form*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  return form != nullptr ? form->handle(message, wParam, lParam)
                         : DefWindowProcW(window, message, wParam, lParam);
}

// A held Return presses the button once, not again and again.
void Win32Form::dispatch(MSG& message, HACCEL keys) {
  if (isRepeatOfReturn(message)) return;
  if (TranslateAcceleratorW(window_, keys, &message) || IsDialogMessageW(window_, &message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

LRESULT Win32Form::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (calls_.runWaiting(message)) return 0;
  switch (message) {
    case WM_COMMAND:
      if (wParam == kCopyByKey) SendMessageW(resultBox_, WM_COPY, 0, 0);
      if (HIWORD(wParam) == BN_CLICKED) noteClick(pointerIn<HWND>(lParam));
      return 0;
    case WM_CONTEXTMENU:
      if (lParam != -1) break;  // without a place, a key asks for the window's only context menu
      focus_.note();            // because the result box gets the focus for its menu
      return SendMessageW(resultBox_, message, reinterpret_cast<WPARAM>(resultBox_), lParam);
    case WM_CLOSE:
      if (events_ != nullptr) events_->Form_Unload();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) == WA_INACTIVE) focus_.note();
      break;
    case WM_PARENTNOTIFY:  // the mouse is pressed on a control, which may get the focus
      focus_.note();
      break;
    case WM_SETFOCUS:
      focus_.giveBack();
      return 0;
    case WM_SIZE:
      if (wParam != SIZE_RESTORED) break;
      layout_.catchUp();
      focus_.giveBack();  // no control could get the focus while the window was minimised
      tellResult();
      break;
    case DM_GETDEFID:
      return MAKELRESULT(IDOK, DC_HASDEFID);
    case WM_CTLCOLORSTATIC:
      if (pointerIn<HWND>(lParam) != resultBox_) break;
      return reinterpret_cast<LRESULT>(colorResultBox(pointerIn<HDC>(wParam)));
    case WM_GETDPISCALEDSIZE:
      return layout_.answerSize(LOWORD(wParam), lParam);
    case WM_DPICHANGED:
      layout_.followDensity(lParam);
      return 0;
    case WM_SETTINGCHANGE:
      if (wParam == SPI_SETNONCLIENTMETRICS) layout_.followFonts();
      break;
    default:
      break;
  }
  return DefWindowProcW(window_, message, wParam, lParam);
}

void Win32Form::showResult(const std::wstring& text) {
  setResult(resultBox_, text);
  isResultTold_ = text.empty();
  tellResult();
}

// A screen reader breaks off what it says when the focus moves. So it is told of the result once
// the focus has gone back from the frame to a control.
void Win32Form::tellResult() {
  if (isResultTold_ || focus_.isWithFrame()) return;
  announceLiveRegion(resultBox_);
  isResultTold_ = true;
}

// Another program can send any number in the place of the window, and can press a button that is
// disabled. So the window is looked up among the controls, and the button has to be enabled.
void Win32Form::noteClick(HWND window) {
  const auto control = std::ranges::find(controls_, window, &Win32Control::window);
  if (control == controls_.end() || control->kind != ControlKind::PushButton) return;
  if (!IsWindowEnabled(window)) return;
  pendingClick_ = &*control;
  SetEvent(clickNoted_.get());
}

// The click is taken in a call, because calls run in their order. First come those of the click
// before, and one of them may have disabled the button and dropped this click.
void Win32Form::raiseClicks() {
  for (;;) {
    WaitForSingleObject(clickNoted_.get(), INFINITE);
    const Win32Control* clicked = nullptr;
    calls_.callAndWait([&] { clicked = std::exchange(pendingClick_, nullptr); });
    if (clicked != nullptr) events_->Control_Click(clicked->id);
  }
}

const Win32Control& Win32Form::controlOf(const ControlId& id) const {
  return *std::ranges::find(controls_, id, &Win32Control::id);
}

}  // namespace zendor
