// A described window, drawn with Qt.
#pragma once

#include <QButtonGroup>
#include <QMenuBar>
#include <QVBoxLayout>
#include <map>
#include <memory>

#include "platform/form.h"
#include "platform/qt/form_window.h"

namespace zendor {

class QtForm final : public Form {
 public:
  explicit QtForm(FormDescription description);

  // Loads, shows and activates the form. It raises events only while Qt handles events, so their
  // receiver may end before the form does.
  void show(FormEvents& events);

  QWidget& window() { return window_; }

  void setCaption(const std::string& caption) override;
  void setMenuCaption(std::string_view menu, const std::string& caption) override;
  void setCaption(const ControlId& control, const std::string& caption) override;
  void setEnabled(const ControlId& control, bool enabled) override;
  void setFocus(const ControlId& control) override;
  std::optional<int> selectedIndex(std::string_view array) override;

 private:
  void layOutWindow();
  void addMenu(const FormMenu& menu);
  void addControl(const FormControl& control);
  void connectControl(const FormControl& control, QWidget& widget);
  void layOutControls();
  void orderFocus();

  FormDescription description_;
  FormEvents* events_ = nullptr;
  FormWindow window_;
  QMenuBar menuBar_;
  QWidget client_;
  QVBoxLayout layout_;
  QButtonGroup optionButtons_;
  std::map<ControlId, std::unique_ptr<QWidget>> controls_;
};

}  // namespace zendor
