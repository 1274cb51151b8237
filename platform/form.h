// A window as data, the operations on the shown window, and the events that it raises. Positions
// and sizes are in twips (1/1440 inch). They count from the top-left corner of the client area, the
// part of the window below the menu bar. A platform scales them with the screen's density.
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

// A result box is a label with a single-line border and the system's highlight-text colour behind
// it. Its text can be copied and is readable in every theme. The label described before it is its
// heading.
enum class ControlKind { Label, ResultBox, OptionButton, PushButton };

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

// The option buttons of a form are one group, of which one is always selected. Enter presses the
// push button, wherever the keyboard focus is.
struct FormControl {
  ControlId id;
  ControlKind kind = ControlKind::Label;
  std::string caption = {};
  std::string description = {};  // told by screen readers, where a platform's controls accept one
  TwipRect rect;
  int tabIndex = 0;                   // the order of the keyboard focus; 0 has it first
  std::optional<FormFont> font = {};  // none: the platform's default dialog font
  bool centred = false;
  bool selected = false;  // option buttons: the choice at the start
};

// A menu offers nothing to choose. It holds separator lines.
struct FormMenu {
  std::string_view name;  // static storage
  std::string caption = {};
  int separators = 0;
};

// A dialog window of fixed size without minimise and maximise buttons. When it is first shown, it
// stands in the middle of the whole screen, and the part under a panel counts as screen, too.
struct FormDescription {
  std::string caption = {};
  int width = 0;
  int height = 0;
  std::vector<FormMenu> menus = {};
  std::vector<FormControl> controls = {};
};

// The form raises one event at a time, with one exception: Form_Unload may interrupt a click, even
// on another thread, so it may do nothing but end the program.
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

// The operations may be called from a thread that does not own the window.
class Form {
 public:
  Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  virtual void setCaption(const std::string& caption) = 0;
  virtual void setMenuCaption(std::string_view menu, const std::string& caption) = 0;
  virtual void setCaption(const ControlId& control, const std::string& caption) = 0;

  // A control that is disabled while it has the focus has it again when it is enabled, unless the
  // user has put the focus elsewhere meanwhile.
  virtual void setEnabled(const ControlId& control, bool enabled) = 0;
  virtual void setFocus(const ControlId& control) = 0;

  // The index of the option button that is selected in an array; none when none of them is. The
  // answer holds for one moment, even while the user chooses another one.
  virtual std::optional<int> selectedIndex(std::string_view array) = 0;
};

}  // namespace zendor
