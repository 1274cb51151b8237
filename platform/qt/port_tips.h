// Tells which device is behind each option button of a form, in the button's tooltip and, for
// screen readers, in its description. Both change when an adapter is plugged in or out.
#pragma once

#include <QFileSystemWatcher>
#include <QRadioButton>
#include <QTimer>
#include <chrono>
#include <functional>
#include <string>

namespace zendor {

class PortTips final : public QObject {
 public:
  // The device behind a port, for people, UTF-8.
  using DescribePort = std::function<std::string(int portNumber)>;

  // The first option button of the window chooses port 1, and so on. The window outlives the tips.
  PortTips(const QWidget& window, DescribePort describePort);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void refresh();

  QList<QRadioButton*> choices_;
  DescribePort describePort_;
  QFileSystemWatcher devices_;
  QTimer nextLook_;
};

}  // namespace zendor
