#include "platform/qt/qt_form.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QIcon>
#include <QMenu>
#include <QPixmap>
#include <QScreen>
#include <QStandardPaths>
#include <QStyle>
#include <algorithm>

#include "platform/qt/qt_controls.h"
#include "platform/shared/twips.h"
#include "zendor_serial_extractor.xpm"

namespace zendor {

namespace {

constexpr int kMenuMargin = 6;
constexpr int kIconSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};

QString objectName(std::string_view name) {
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

// The installed icon in all its sizes. A program that is not installed has one size within itself.
// QIcon::fromTheme would read the index of the whole theme, which takes a tenth of the start-up.
QIcon windowIcon() {
  QIcon icon;
  for (const int size : kIconSizes) {
    const QString file = QStringLiteral("icons/hicolor/%1x%1/apps/%2.png")
                             .arg(size)
                             .arg(QGuiApplication::desktopFileName());
    icon.addFile(QStandardPaths::locate(QStandardPaths::GenericDataLocation, file));
  }
  return icon.isNull() ? QIcon(QPixmap(zendor_serial_extractor_xpm)) : icon;
}

// The height of a window's frame is not known before it is shown, so the height of the style's
// title bar stands for it.
int titleBarHeight(const QWidget& window) {
  return window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
}

// Puts the window in the middle of the whole screen. The part under a panel counts as screen, too.
void centreOnScreen(QWidget& window) {
  const int titleBar = titleBarHeight(window);
  const QSize framed = window.sizeHint() + QSize(0, titleBar);
  const QRect screen = window.screen()->geometry();
  const QRect frame = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, framed, screen);
  window.setGeometry(frame.adjusted(0, titleBar, 0, 0));
}

// What a screen reader finds in place of the window. It takes a QDialog for the question of another
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

FormWindow::FormWindow(std::function<void()> onClose)
    : QDialog(nullptr, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint),
      onClose_(std::move(onClose)) {
  QAccessible::installFactory(makeSpokenWindow);
}

void FormWindow::reject() {}

void FormWindow::closeEvent(QCloseEvent* event) {
  onClose_();
  event->accept();
}

QtForm::QtForm(const FormDescription& description) : window_([this] { events_->Form_Unload(); }) {
  window_.setWindowTitle(QString::fromStdString(description.caption));
  window_.setWindowIcon(windowIcon());
  layOutWindow();
  for (const auto& menu : description.menus) addMenu(menu);
  const FormScale scale = scaleOf(window_, frameHeight(), description);
  client_.setFixedSize(pixelsFromTwips(description.width, scale.dotsPerInch),
                       pixelsFromTwips(description.height, scale.dotsPerInch));
  for (const auto& control : description.controls) addControl(control, scale);
  nameControls();
  orderFocus(description.controls);
}

void QtForm::layOutWindow() {
  layout_.setContentsMargins(0, 0, 0, 0);
  layout_.setSizeConstraint(QLayout::SetFixedSize);
  layout_.setMenuBar(&menuBar_);
  layout_.addWidget(&client_);
  window_.setLayout(&layout_);
}

void QtForm::addMenu(const FormMenu& menu) {
  QMenu* const shown = menuBar_.addMenu(QString::fromStdString(menu.caption));
  shown->setObjectName(objectName(menu.name));
  // Qt hides a separator that has nothing above it, but this menu has nothing else to show.
  shown->setSeparatorsCollapsible(false);
  shown->setContentsMargins(0, kMenuMargin, 0, kMenuMargin);
  for (int line = 0; line < menu.separators; ++line) shown->addSeparator();
}

int QtForm::frameHeight() const { return titleBarHeight(window_) + menuBar_.sizeHint().height(); }

void QtForm::addControl(const FormControl& control, const FormScale& scale) {
  auto widget = makeControl(control, client_, scale);
  connectControl(control, *widget);
  controls_.emplace(control.id, std::move(widget));
}

// A press by a helping program clicks a moment later, even if the button has been disabled since.
void QtForm::connectControl(const FormControl& control, QWidget& widget) {
  auto* const button = qobject_cast<QAbstractButton*>(&widget);
  if (control.kind == ControlKind::OptionButton) optionButtons_.addButton(button);
  if (control.kind != ControlKind::PushButton) return;
  QObject::connect(button, &QAbstractButton::clicked, [this, button, id = control.id] {
    if (button->isEnabled()) events_->Control_Click(id);
  });
}

// Screen readers and other helping programs can find a control by its name, and a control of an
// array by the array's name and the index.
void QtForm::nameControls() {
  for (const auto& [id, widget] : controls_) {
    const bool inArray = std::ranges::count_if(controls_, [name = id.name](const auto& other) {
                           return other.first.name == name;
                         }) > 1;
    widget->setObjectName(objectName(id.name) + (inArray ? QString::number(id.index) : QString()));
  }
}

void QtForm::orderFocus(std::vector<FormControl> controls) {
  std::ranges::sort(controls, {}, &FormControl::tabIndex);
  QWidget* previous = nullptr;
  for (const auto& control : controls) {
    QWidget* const next = controls_.at(control.id).get();
    if (next->focusPolicy() == Qt::NoFocus) continue;
    if (previous == nullptr) next->setFocus();
    if (previous != nullptr) QWidget::setTabOrder(previous, next);
    previous = next;
  }
}

void QtForm::show(FormEvents& events) {
  events_ = &events;
  events.Form_Load();
  centreOnScreen(window_);
  window_.show();
  events.Form_Activate();
}

void QtForm::setCaption(const std::string& caption) {
  window_.setWindowTitle(QString::fromStdString(caption));
}

void QtForm::setMenuCaption(std::string_view menu, const std::string& caption) {
  menuBar_.findChild<QMenu*>(objectName(menu))->setTitle(QString::fromStdString(caption));
}

void QtForm::setCaption(const ControlId& control, const std::string& caption) {
  zendor::setCaption(*controls_.at(control), QString::fromStdString(caption));
}

// QWidget::setEnabled would move the focus away from a disabled control, and a screen reader would
// speak each of its moves. Here the focus stays where the user left it. A widget with the attribute
// gets neither the mouse nor keys all the same, and its keys go to the window instead.
void QtForm::setEnabled(const ControlId& control, bool enabled) {
  QWidget& widget = *controls_.at(control);
  widget.setAttribute(Qt::WA_Disabled, !enabled);
  QEvent change(QEvent::EnabledChange);
  QCoreApplication::sendEvent(&widget, &change);
  if (enabled && window_.focusWidget() == &widget) widget.setFocus();
}

void QtForm::setFocus(const ControlId& control) { controls_.at(control)->setFocus(); }

std::optional<int> QtForm::selectedIndex(std::string_view array) {
  for (const auto& [id, widget] : controls_) {
    if (id.name == array && widget->property("checked").toBool()) return id.index;
  }
  return std::nullopt;
}

}  // namespace zendor
