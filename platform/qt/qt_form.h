// A described window, drawn with Qt.
#pragma once

#include <QButtonGroup>
#include <QDialog>
#include <QMenuBar>
#include <QVBoxLayout>
#include <functional>
#include <map>
#include <memory>

#include "platform/form.h"
#include "platform/qt/qt_scale.h"

namespace zendor {

// The dialog window itself. Closing it runs the given action; Esc does nothing.
class FormWindow final : public QDialog {
 public:
  explicit FormWindow(std::function<void()> onClose);
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  std::function<void()> onClose_;
};

class QtForm final : public Form {
 public:
  explicit QtForm(const FormDescription& description);

  // Loads, shows and activates the form. The receiver of its events outlives the form.
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
  int frameHeight() const;
  void addControl(const FormControl& control, const FormScale& scale);
  void connectControl(const FormControl& control, QWidget& widget);
  void nameControls();
  void orderFocus(std::vector<FormControl> controls);

  FormEvents* events_ = nullptr;
  FormWindow window_;
  QMenuBar menuBar_;
  QWidget client_;
  QVBoxLayout layout_;
  QButtonGroup optionButtons_;
  std::map<ControlId, std::unique_ptr<QWidget>> controls_;
};

}  // namespace zendor
