// The window of a form description, made of Windows' own controls. It scales with the density of
// the screen that it is on.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/form.h"
#include "platform/win32/win32_calls.h"
#include "platform/win32/win32_controls.h"
#include "platform/win32/win32_focus.h"
#include "platform/win32/win32_handle.h"
#include "platform/win32/win32_layout.h"

namespace zendor {

// Two threads. The window belongs to the thread that makes and runs the form. That thread does
// nothing but serve the window. While a menu is open or the title bar is held, Windows runs a loop
// of its own. A request on the window's thread would freeze in that loop, and a slow driver would
// freeze the window. So clicks are raised on a second thread. (A fiber in place of the second
// thread could run in those loops only as often as a timer fires. A slow driver would freeze the
// window all the same.)
//
// The members that change after run() has begun are used on the window's thread alone. Form_Unload
// is raised on that thread, even while a click is being served on the other one.
class Win32Form final : public Form {
 public:
  explicit Win32Form(FormDescription description);

  // Loads, shows and activates the window, then serves it until the program ends.
  [[noreturn]] void run(FormEvents& events);

  WindowCalls& calls() { return calls_; }

  void setCaption(const std::string& caption) override;
  void setMenuCaption(std::string_view menu, const std::string& caption) override;
  void setCaption(const ControlId& control, const std::string& caption) override;
  void setEnabled(const ControlId& control, bool enabled) override;
  void setFocus(const ControlId& control) override;
  std::optional<int> selectedIndex(std::string_view array) override;

 private:
  static LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void dispatch(MSG& message, HACCEL keys);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  void showResult(const std::wstring& text);
  void tellResult();

  void noteClick(HWND window);
  [[noreturn]] void raiseClicks();

  const Win32Control& controlOf(const ControlId& id) const;

  const FormDescription description_;
  const HWND window_;
  WindowCalls calls_{window_};
  const std::vector<Win32Control> controls_;
  const HWND resultBox_;
  FormEvents* events_ = nullptr;  // none before run()
  FormFocus focus_;
  FormLayout layout_{window_, description_, controls_};
  bool isResultTold_ = true;  // to screen readers

  const Win32Control* pendingClick_ = nullptr;  // the click on it is still to be raised
  const Handle clickNoted_{CreateEventW(nullptr, FALSE, FALSE, nullptr)};  // wakes raiseClicks
};

}  // namespace zendor
