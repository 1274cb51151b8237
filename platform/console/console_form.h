// A described window without a screen. It keeps what the window would show, and the program presses
// its button in the place of a user.
#pragma once

#include <string>
#include <string_view>

#include "platform/form.h"

namespace zendor {

class ConsoleForm final : public Form {
 public:
  // The option button of that number is selected; the first one has the number 1.
  ConsoleForm(FormDescription description, int optionNumber);

  // What the selected option button says.
  std::string choice() const;

  // Loads and activates the form, presses its push button once, and returns when that is done.
  void loadAndPress(FormEvents& events);

  // What stands in the result box.
  std::string result() const;

  void setCaption(const std::string& caption) override;
  void setMenuCaption(std::string_view menu, const std::string& caption) override;
  void setCaption(const ControlId& control, const std::string& caption) override;
  void setEnabled(const ControlId& control, bool enabled) override;
  void setFocus(const ControlId& control) override;
  std::optional<int> selectedIndex(std::string_view array) override;

 private:
  FormDescription shown_;
};

}  // namespace zendor
