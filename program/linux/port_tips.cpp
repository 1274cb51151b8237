#include "program/linux/port_tips.h"

#include <QEvent>
#include <QTextDocument>

namespace zendor {

namespace {

constexpr const char* kDeviceFolder = "/dev";
constexpr std::chrono::milliseconds kSecondLook{300};

}  // namespace

PortTips::PortTips(const QWidget& window, Words words)
    : choices_(window.findChildren<QRadioButton*>()), words_(std::move(words)) {
  for (auto* choice : choices_) choice->installEventFilter(this);
  // A device goes from its folder before the system has forgotten the port: a second look is due.
  connect(&devices_, &QFileSystemWatcher::directoryChanged, this, &PortTips::refresh);
  connect(&devices_, &QFileSystemWatcher::directoryChanged, [this] { later_.start(kSecondLook); });
  devices_.addPath(kDeviceFolder);
  // Asking the system takes longer than showing the window, which need not wait for it.
  connect(&later_, &QTimer::timeout, this, &PortTips::refresh);
  later_.setSingleShot(true);
  later_.start();
}

// Where the folder cannot be watched, the tooltip is right all the same.
bool PortTips::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ToolTip) refresh();
  return QObject::eventFilter(watched, event);
}

// A device may name itself with a "<", which is no markup. Unchanged words raise no event.
void PortTips::refresh() {
  for (int index = 0; index < choices_.size(); ++index) {
    QRadioButton& choice = *choices_[index];
    const QString words = QString::fromStdString(words_(index));
    if (words == choice.accessibleDescription()) continue;
    choice.setAccessibleDescription(words);
    choice.setToolTip(
        Qt::mightBeRichText(words) ? Qt::convertFromPlainText(words, Qt::WhiteSpaceNoWrap) : words);
  }
}

}  // namespace zendor
