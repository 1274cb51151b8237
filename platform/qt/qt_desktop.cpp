#include "platform/qt/qt_desktop.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGuiApplication>
#include <QMessageBox>
#include <QShortcut>
#include <cstdlib>
#include <thread>

namespace zendor {

namespace {

constexpr int kWindowButtonsWidth = 120;  // pixels

QMessageBox::Icon iconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Critical:
      return QMessageBox::Critical;
    case MessageIcon::Exclamation:
      return QMessageBox::Warning;
    case MessageIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

// Qt shows CR LF as two line breaks.
QString textOf(const std::string& text) {
  return QString::fromStdString(text).replace(kLineBreak, "\n");
}

// Qt makes a box as wide as its title in the box's own font. The title bars of some desktops have a
// bold font and wide buttons, and would cut the title off.
void makeRoomForTitle(QMessageBox& box) {
  QFont titleFont = box.font();
  titleFont.setBold(true);
  const int width =
      QFontMetrics(titleFont).horizontalAdvance(box.windowTitle()) + kWindowButtonsWidth;
  if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
    grid->setColumnMinimumWidth(grid->columnCount() - 1, width);
  }
}

}  // namespace

QtDesktop::QtDesktop(QWidget& window) : window_(window) {}

MessageAnswer QtDesktop::showMessage(const Message& message) {
  QMessageBox box(&window_);
  box.setWindowTitle(QString::fromStdString(message.title));
  box.setTextFormat(Qt::PlainText);
  box.setText(textOf(message.text));
  box.setIcon(iconOf(message.icon));
  // The text may hold a command that the user wants to copy. The mouse copies a part of the text,
  // the copy keys copy all of it.
  box.setTextInteractionFlags(Qt::TextSelectableByMouse);
  const QShortcut copy(QKeySequence::Copy, &box,
                       [&box] { QGuiApplication::clipboard()->setText(box.text()); });
  makeRoomForTitle(box);
  if (message.buttons == MessageButtons::Ok) {
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return MessageAnswer::Ok;
  }
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes ? MessageAnswer::Yes : MessageAnswer::No;
}

void QtDesktop::processEvents() {
  QCoreApplication::processEvents();
  std::this_thread::yield();
}

// No destructor runs, so none can touch the port or the stores. The system frees both and
// closes the windows.
void QtDesktop::endProcess() { std::_Exit(EXIT_SUCCESS); }

}  // namespace zendor
