#include "platform/qt/qt_form.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QMenu>
#include <algorithm>

#include "platform/qt/qt_controls.h"
#include "platform/qt/qt_scale.h"
#include "platform/shared/twips.h"

namespace zendor {

namespace {

constexpr int kMenuMargin = 6;  // pixels

}  // namespace

QtForm::QtForm(FormDescription description)
    : description_(std::move(description)),
      window_([this] { events_->Form_Unload(); }, [this] { layOutControls(); }) {
  window_.setWindowTitle(QString::fromStdString(description_.caption));
  layOutWindow();
  for (const auto& menu : description_.menus) addMenu(menu);
  for (const auto& control : description_.controls) addControl(control);
  layOutControls();
  orderFocus();
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
  shown->setObjectName(QString::fromUtf8(menu.name));
  // Qt hides a separator that has nothing above it, but this menu has nothing else to show.
  shown->setSeparatorsCollapsible(false);
  shown->setContentsMargins(0, kMenuMargin, 0, kMenuMargin);
  for (int line = 0; line < menu.separators; ++line) shown->addSeparator();
}

void QtForm::addControl(const FormControl& control) {
  auto widget = makeControl(control, client_);
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

void QtForm::layOutControls() {
  const int frameHeight = window_.titleBarHeight() + menuBar_.sizeHint().height();
  const FormScale scale = scaleOf(window_, frameHeight, description_);
  client_.setFixedSize(pixelsFromTwips(description_.width, scale.dotsPerInch),
                       pixelsFromTwips(description_.height, scale.dotsPerInch));
  for (const auto& control : description_.controls) {
    placeControl(*controls_.at(control.id), control, scale);
  }
}

void QtForm::orderFocus() {
  std::vector<FormControl> controls = description_.controls;
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
  window_.centreOnScreen();
  window_.show();
  events.Form_Activate();
}

void QtForm::setCaption(const std::string& caption) {
  window_.setWindowTitle(QString::fromStdString(caption));
}

void QtForm::setMenuCaption(std::string_view menu, const std::string& caption) {
  menuBar_.findChild<QMenu*>(QString::fromUtf8(menu))->setTitle(QString::fromStdString(caption));
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
