// The window of a form description, made of Windows' own controls. It scales with the density of
// the screen that it is on.
#pragma once

#include <windows.h>

#include <atomic>
#include <string>
#include <string_view>
#include <vector>

#include "platform/form.h"
#include "platform/win32/win32_calls.h"
#include "platform/win32/win32_fonts.h"
#include "platform/win32/win32_handle.h"

namespace zendor {

// Two threads. The window belongs to the one that makes and runs the form, which does nothing but
// serve it. Clicks are events of a thread of their own: Windows serves an open menu and a held
// title bar in loops that it does not leave, and a driver may take its time over a port, so whoever
// waited for a reply on the window's thread would stand still there, or make it stand still. A
// fiber would save the thread, but it could run in those loops only as often as a timer fires,
// could not leave a driver, and would swap stacks amid the calls that those loops make into the
// window.
//
// All that changes here belongs to the window's thread, but for the click that one hands the other.
// What else the events use belongs to theirs, so Form_Unload, which comes on the window's thread at
// any time, may do nothing but end the program.
class Win32Form final : public Form {
 public:
  explicit Win32Form(FormDescription description);

  // Loads, shows and activates the window, then serves it until the program ends.
  [[noreturn]] void run(FormEvents& events);

  WindowCalls& calls() { return calls_; }

  std::string caption() const override;
  void setCaption(const std::string& caption) override;
  void setMenuCaption(std::string_view menu, const std::string& caption) override;
  void setCaption(const ControlId& control, const std::string& caption) override;
  void setEnabled(const ControlId& control, bool enabled) override;
  void setFocus(const ControlId& control) override;
  bool isSelected(const ControlId& optionButton) const override;

 private:
  static LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  void dispatch(MSG& message);
  void noteFocus();
  bool copiesValue(const MSG& message) const;

  void click(int controlNumber);
  [[noreturn]] void raiseClicks();
  int defaultButtonNumber() const;
  HBRUSH colorLabel(HWND label, HDC context) const;
  void layOut(POINT topLeft);

  const FormControl& described(int controlNumber) const;
  HWND windowOf(const ControlId& control) const;

  const FormDescription description_;
  const HWND window_;
  WindowCalls calls_{window_};
  FormEvents* events_ = nullptr;  // none before run()
  HWND valueBox_ = nullptr;       // the bordered label
  HWND focused_ = nullptr;        // gets the keyboard back with the window's activation
  std::vector<FontHandle> fonts_;

  std::atomic<const FormControl*> clicked_ = nullptr;                 // its event is still to come
  const Handle click_{CreateEventW(nullptr, FALSE, FALSE, nullptr)};  // wakes who raises it
};

}  // namespace zendor
