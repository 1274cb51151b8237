// Message boxes, pending events and the end of the program, with Qt.
#pragma once

#include <QWidget>

#include "platform/desktop.h"

namespace zendor {

class QtDesktop final : public Desktop {
 public:
  // The boxes are modal to the window, which outlives the desktop.
  explicit QtDesktop(QWidget& window);

  MessageAnswer showMessage(const Message& message) override;
  void processEvents() override;

 private:
  void endProcess() override;

  QWidget& window_;
};

}  // namespace zendor
