// The window of a form description, made of Windows' own controls. It scales with the density of
// the screen that it is on.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/form.h"
#include "platform/win32/win32_fonts.h"

namespace zendor {

class Win32Form final : public Form {
 public:
  explicit Win32Form(FormDescription description);
  ~Win32Form() override;

  // Loads, shows and activates the window, then serves its events until the program ends.
  void run(FormEvents& events);

  // Does not wait for events.
  void handlePendingEvents();

  HWND window() const { return window_; }

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
  bool copiesValue(const MSG& message) const;

  void click(int controlNumber);
  int defaultButtonNumber() const;
  HBRUSH colorLabel(HWND label, HDC context) const;
  void layOut(POINT topLeft);

  const FormControl& described(int controlNumber) const;
  HWND windowOf(const ControlId& control) const;

  const FormDescription description_;
  FormEvents* events_ = nullptr;  // none before run()
  HWND window_ = nullptr;
  HWND focused_ = nullptr;  // gets the keyboard back with the window's activation
  std::vector<FontHandle> fonts_;
};

}  // namespace zendor
