#include "platform/qt/form_window.h"

#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>
#include <QScreen>
#include <QStandardPaths>
#include <QStyle>
#include <memory>

#include "zendor_serial_extractor.xpm"

namespace zendor {

namespace {

constexpr int kIconSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};

// The installed icon in all its sizes. A program that is not installed has one size within itself.
// QIcon::fromTheme would read the index of the whole theme, which needs a tenth of the start-up.
QIcon programIcon() {
  QIcon icon;
  for (const int size : kIconSizes) {
    const QString file = QStringLiteral("icons/hicolor/%1x%1/apps/%2.png")
                             .arg(size)
                             .arg(QGuiApplication::desktopFileName());
    icon.addFile(QStandardPaths::locate(QStandardPaths::GenericDataLocation, file));
  }
  return icon.isNull() ? QIcon(QPixmap(zendor_serial_extractor_xpm)) : icon;
}

// What a screen reader finds in place of the window. It treats a QDialog as the question of another
// window, reads out all that stands in it, and says its title before every result.
class SpokenWindow final : public QAccessibleWidget {
 public:
  explicit SpokenWindow(FormWindow& window) : QAccessibleWidget(&window, QAccessible::Window) {}
};

QAccessibleInterface* makeSpokenWindow(const QString&, QObject* object) {
  auto* const window = dynamic_cast<FormWindow*>(object);
  return window == nullptr ? nullptr : std::make_unique<SpokenWindow>(*window).release();
}

}  // namespace

FormWindow::FormWindow(std::function<void()> onClose, std::function<void()> onFontChange)
    : QDialog(nullptr, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint),
      onClose_(std::move(onClose)),
      onFontChange_(std::move(onFontChange)) {
  QAccessible::installFactory(makeSpokenWindow);
  setWindowIcon(programIcon());
}

void FormWindow::centreOnScreen() {
  const QSize framed = sizeHint() + QSize(0, titleBarHeight());
  const QRect whole = screen()->geometry();
  const QRect frame = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, framed, whole);
  setGeometry(frame.adjusted(0, titleBarHeight(), 0, 0));
}

int FormWindow::titleBarHeight() const { return style()->pixelMetric(QStyle::PM_TitleBarHeight); }

void FormWindow::reject() {}

// The event comes when the widgets in the window have the new font already.
void FormWindow::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::FontChange) onFontChange_();
}

void FormWindow::closeEvent(QCloseEvent* event) {
  onClose_();
  event->accept();
}

}  // namespace zendor
