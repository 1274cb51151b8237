#include "platform/console/console_form.h"

#include <algorithm>
#include <utility>

namespace zendor {

ConsoleForm::ConsoleForm(FormDescription description, int optionNumber)
    : shown_(std::move(description)) {
  int number = 0;
  for (FormControl& control : shown_.controls) {
    if (control.kind != ControlKind::OptionButton) continue;
    ++number;
    control.selected = number == optionNumber;
  }
}

std::string ConsoleForm::choice() const {
  return std::ranges::find(shown_.controls, true, &FormControl::selected)->caption;
}

void ConsoleForm::loadAndPress(FormEvents& events) {
  events.Form_Load();
  events.Form_Activate();
  const auto button =
      std::ranges::find(shown_.controls, ControlKind::PushButton, &FormControl::kind);
  events.Control_Click(button->id);
}

std::string ConsoleForm::result() const {
  return std::ranges::find(shown_.controls, ControlKind::ResultBox, &FormControl::kind)->caption;
}

void ConsoleForm::setCaption(const std::string& caption) { shown_.caption = caption; }

void ConsoleForm::setMenuCaption(std::string_view menu, const std::string& caption) {
  std::ranges::find(shown_.menus, menu, &FormMenu::name)->caption = caption;
}

void ConsoleForm::setCaption(const ControlId& control, const std::string& caption) {
  std::ranges::find(shown_.controls, control, &FormControl::id)->caption = caption;
}

// Without a screen there is no user who could press a disabled button, and no keyboard focus.
void ConsoleForm::setEnabled(const ControlId&, bool) {}
void ConsoleForm::setFocus(const ControlId&) {}

std::optional<int> ConsoleForm::selectedIndex(std::string_view array) {
  for (const FormControl& control : shown_.controls) {
    if (control.id.name == array && control.selected) return control.id.index;
  }
  return std::nullopt;
}

}  // namespace zendor
