#include "platform/qt/qt_controls.h"

#include <QApplication>
#include <QButtonGroup>
#include <QFontInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

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

// All four arrow keys walk through the group in its order, and from its end to its start. Qt would
// look for a neighbour in the direction of the arrow and stop where there is none.
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

QFont fontOf(const FormControl& control, const QWidget& widget, const FormScale& scale) {
  if (!control.font) {
    if (scale.userFontFactor == 1) return {};  // the user's, also when that changes
    QFont font = QApplication::font(&widget);
    font.setPointSizeF(QFontInfo(font).pointSizeF() * scale.userFontFactor);
    return font;
  }
  QFont font(QString::fromStdString(control.font->family));
  font.setPointSizeF(control.font->points * scale.describedFontFactor);
  font.setBold(control.font->bold);
  return font;
}

// Helping programs can find a control by its name. All option buttons are one array, so each has
// its index as well.
QString nameOf(const FormControl& control) {
  const QString name = QString::fromUtf8(control.id.name);
  return control.kind == ControlKind::OptionButton ? name + QString::number(control.id.index)
                                                   : name;
}

}  // namespace

std::unique_ptr<QWidget> makeControl(const FormControl& control, QWidget& client) {
  auto widget = makeWidget(control, client);
  widget->setObjectName(nameOf(control));
  setCaption(*widget, QString::fromStdString(control.caption));
  widget->setAccessibleDescription(QString::fromStdString(control.description));
  return widget;
}

void placeControl(QWidget& widget, const FormControl& control, const FormScale& scale) {
  const PixelRect rect = pixelsFromTwips(control.rect, scale.dotsPerInch);
  widget.setGeometry(rect.left, rect.top, rect.width, rect.height);
  widget.setFont(fontOf(control, widget, scale));
}

void setCaption(QWidget& control, const QString& caption) {
  if (auto* const box = dynamic_cast<ResultBox*>(&control)) {
    box->showResult(caption);
  } else {
    control.setProperty("text", caption);
  }
}

}  // namespace zendor
