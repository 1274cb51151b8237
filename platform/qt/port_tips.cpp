#include "platform/qt/port_tips.h"

#include <QEvent>
#include <QTextDocument>

namespace zendor {

namespace {

constexpr const char* kDeviceFolder = "/dev";
constexpr std::chrono::milliseconds kSecondLookDelay{300};

}  // namespace

PortTips::PortTips(const QWidget& window, DescribePort describePort)
    : choices_(window.findChildren<QRadioButton*>()), describePort_(std::move(describePort)) {
  for (auto* choice : choices_) choice->installEventFilter(this);
  // A device disappears from its folder before the system has forgotten the port, so a second look
  // follows the first.
  connect(&devices_, &QFileSystemWatcher::directoryChanged, this, &PortTips::refresh);
  connect(&devices_, &QFileSystemWatcher::directoryChanged,
          [this] { nextLook_.start(kSecondLookDelay); });
  devices_.addPath(kDeviceFolder);
  connect(&nextLook_, &QTimer::timeout, this, &PortTips::refresh);
  nextLook_.setSingleShot(true);
}

// The first look needs longer than drawing the window, so the look follows the drawing. Another
// look comes before a tooltip shows, because some systems cannot watch the folder.
bool PortTips::eventFilter(QObject* watched, QEvent* event) {
  const bool isFirstLook = choices_[0]->accessibleDescription().isEmpty();
  if (event->type() == QEvent::Paint && isFirstLook) nextLook_.start();
  if (event->type() == QEvent::ToolTip) refresh();
  return QObject::eventFilter(watched, event);
}

// Screen readers speak a description when it is set, so the same one is not set again. A device
// may have a "<" in its name; a tooltip would read that as markup.
void PortTips::refresh() {
  for (int index = 0; index < choices_.size(); ++index) {
    QRadioButton& choice = *choices_[index];
    const QString port = QString::fromStdString(describePort_(index + 1));
    if (port == choice.accessibleDescription()) continue;
    choice.setAccessibleDescription(port);
    choice.setToolTip(
        Qt::mightBeRichText(port) ? Qt::convertFromPlainText(port, Qt::WhiteSpaceNoWrap) : port);
  }
}

}  // namespace zendor
