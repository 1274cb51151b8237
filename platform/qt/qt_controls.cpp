#include "platform/qt/qt_controls.h"

#include <QButtonGroup>
#include <QFontInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "platform/qt/result_box.h"
#include "platform/shared/twips.h"

namespace zendor {

namespace {

std::unique_ptr<QWidget> makeLabel(const FormControl& control, QWidget& client) {
  auto label = control.kind == ControlKind::ResultBox ? std::make_unique<ResultBox>(&client)
                                                      : std::make_unique<QLabel>(&client);
  label->setTextFormat(Qt::PlainText);
  if (control.centred) label->setAlignment(Qt::AlignCenter);
  return label;
}

// All four arrow keys walk through the group in its order and round. Qt would look for a neighbour
// in the direction of the arrow and stop where there is none.
class OptionButton final : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool isBack = event->key() == Qt::Key_Up || event->key() == Qt::Key_Left;
    const bool isForth = event->key() == Qt::Key_Down || event->key() == Qt::Key_Right;
    if (!isBack && !isForth) return QRadioButton::keyPressEvent(event);
    const QList<QAbstractButton*> all = group()->buttons();
    const qsizetype step = isForth ? 1 : all.size() - 1;
    QAbstractButton* const next = all[(all.indexOf(this) + step) % all.size()];
    next->setFocus(Qt::TabFocusReason);
    next->click();
  }
};

std::unique_ptr<QWidget> makeOptionButton(const FormControl& control, QWidget& client) {
  auto button = std::make_unique<OptionButton>(&client);
  button->setChecked(control.selected);
  return button;
}

std::unique_ptr<QWidget> makePushButton(QWidget& client) {
  auto button = std::make_unique<QPushButton>(&client);
  button->setDefault(true);
  return button;
}

std::unique_ptr<QWidget> makeWidget(const FormControl& control, QWidget& client) {
  switch (control.kind) {
    case ControlKind::OptionButton:
      return makeOptionButton(control, client);
    case ControlKind::PushButton:
      return makePushButton(client);
    case ControlKind::Label:
    case ControlKind::ResultBox:
      break;
  }
  return makeLabel(control, client);
}

QFont describedFont(const FormFont& font, double growth) {
  QFont result(QString::fromStdString(font.family));
  result.setPointSizeF(font.points * growth);
  result.setBold(font.bold);
  return result;
}

QFont defaultFont(const QWidget& widget, double factor) {
  QFont font = widget.font();
  font.setPointSizeF(QFontInfo(font).pointSizeF() * factor);
  return font;
}

}  // namespace

std::unique_ptr<QWidget> makeControl(const FormControl& control, QWidget& client,
                                     const FormScale& scale) {
  auto widget = makeWidget(control, client);
  const PixelRect rect = pixelsFromTwips(control.rect, scale.dotsPerInch);
  widget->setGeometry(rect.left, rect.top, rect.width, rect.height);
  setCaption(*widget, QString::fromStdString(control.caption));
  widget->setAccessibleDescription(QString::fromStdString(control.description));
  if (control.font) {
    widget->setFont(describedFont(*control.font, scale.growth));
  } else if (scale.defaultFont < 1) {
    widget->setFont(defaultFont(*widget, scale.defaultFont));
  }
  return widget;
}

void setCaption(QWidget& control, const QString& caption) {
  if (auto* const box = dynamic_cast<ResultBox*>(&control)) {
    box->showResult(caption);
  } else {
    control.setProperty("text", caption);
  }
}

}  // namespace zendor
