// A window as data, the operations on the shown window, and the events that it raises. Positions
// and sizes are in twips (1/1440 inch) from the top-left corner of the client area, which lies
// below the menu bar; a platform scales them with the screen's density.
#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zendor {

// A control by its name and, within an array of controls, its index.
struct ControlId {
  std::string_view name;  // static storage
  int index = 0;
  auto operator<=>(const ControlId&) const = default;
};

enum class ControlKind { Label, OptionButton, PushButton };

struct TwipRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

struct FormFont {
  std::string family = {};
  double points = 0;
  bool bold = false;
};

struct FormControl {
  ControlId id;
  ControlKind kind = ControlKind::Label;
  std::string caption = {};
  std::string description = {};  // told by screen readers, where a platform's controls take one
  TwipRect rect;
  int tabIndex = 0;                   // the order of the keyboard focus; 0 has it first
  std::optional<FormFont> font = {};  // none: the platform's default dialog font
  bool centred = false;
  // A label has both or neither. With them its text can be copied, and is readable in every theme.
  bool singleBorder = false;
  bool highlightTextBackground = false;
  bool selected = false;  // option buttons: the choice at the start
  int group = 0;          // option buttons: one of each group is selected
};

struct FormMenuItem {
  ControlId id;
  std::string caption = {};  // "-" is a separator
};

struct FormMenu {
  std::string_view name;  // static storage
  std::string caption = {};
  std::vector<FormMenuItem> items = {};
};

// A fixed-size dialog window without minimise and maximise buttons, centred at its first show on
// the whole screen, a panel's share included.
struct FormDescription {
  std::string caption = {};
  int width = 0;
  int height = 0;
  std::vector<FormMenu> menus = {};
  std::vector<FormControl> controls = {};
};

// Come one after the other, but for the unload, which may come in the midst of a click and then on
// another thread: it may do nothing but end the program.
class FormEvents {
 public:
  FormEvents() = default;
  FormEvents(const FormEvents&) = delete;
  FormEvents& operator=(const FormEvents&) = delete;
  virtual ~FormEvents() = default;

  virtual void Form_Load() = 0;      // once, before the window is first shown
  virtual void Form_Activate() = 0;  // once, when it has been shown
  virtual void Form_Unload() = 0;    // when the user closes it
  virtual void Control_Click(const ControlId& control) = 0;  // push buttons only
};

class Form {
 public:
  Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  virtual std::string caption() const = 0;
  virtual void setCaption(const std::string& caption) = 0;
  virtual void setMenuCaption(std::string_view menu, const std::string& caption) = 0;
  virtual void setCaption(const ControlId& control, const std::string& caption) = 0;

  // A control that is disabled while it has the focus has it again when it is enabled, unless the
  // user has put the focus elsewhere meanwhile.
  virtual void setEnabled(const ControlId& control, bool enabled) = 0;
  virtual void setFocus(const ControlId& control) = 0;
  virtual bool isSelected(const ControlId& optionButton) const = 0;
};

}  // namespace zendor
