#include "platform/qt/qt_controls.h"

#include <QFontInfo>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "platform/qt/result_box.h"
#include "platform/shared/twips.h"

namespace zendor {

namespace {

constexpr double kSmallestPoints = 5;

std::unique_ptr<QWidget> makeLabel(const FormControl& control, QWidget& client) {
  auto label = control.kind == ControlKind::ResultBox ? std::make_unique<ResultBox>(&client)
                                                      : std::make_unique<QLabel>(&client);
  label->setTextFormat(Qt::PlainText);
  if (control.centred) label->setAlignment(Qt::AlignCenter);
  return label;
}

std::unique_ptr<QWidget> makeOptionButton(const FormControl& control, QWidget& client) {
  auto button = std::make_unique<QRadioButton>(&client);
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

QFont fontOf(const FormFont& font) {
  QFont result(QString::fromStdString(font.family));
  result.setPointSizeF(font.points);
  result.setBold(font.bold);
  return result;
}

bool captionFits(const QWidget& control) {
  const QSize caption =
      control.fontMetrics().size(Qt::TextSingleLine, control.property("text").toString());
  return control.sizeHint().width() <= control.width() &&
         caption.height() <= control.contentsRect().height();
}

void widenIntoFreeRoom(QWidget& option, const QWidget& client) {
  int rightEnd = client.width();
  for (const auto* other : client.findChildren<QWidget*>()) {
    const bool sameRow =
        other->y() < option.y() + option.height() && option.y() < other->y() + other->height();
    if (sameRow && other->x() > option.x()) rightEnd = std::min(rightEnd, other->x());
  }
  const int wanted = std::max(option.width(), option.sizeHint().width());
  option.resize(std::min(wanted, rightEnd - option.x()), option.height());
}

// Together, so that controls of a kind look alike.
void shrinkFonts(const QList<QWidget*>& controls) {
  const auto fits = [](const QWidget* control) { return captionFits(*control); };
  while (!std::ranges::all_of(controls, fits)) {
    for (auto* control : controls) {
      QFont font = control->font();
      const double points = QFontInfo(font).pointSizeF() - 0.5;
      if (points < kSmallestPoints) return;
      font.setPointSizeF(points);
      control->setFont(font);
    }
  }
}

}  // namespace

std::unique_ptr<QWidget> makeControl(const FormControl& control, QWidget& client,
                                     double dotsPerInch) {
  auto widget = makeWidget(control, client);
  const PixelRect rect = pixelsFromTwips(control.rect, dotsPerInch);
  widget->setGeometry(rect.left, rect.top, rect.width, rect.height);
  setCaption(*widget, QString::fromStdString(control.caption));
  widget->setAccessibleDescription(QString::fromStdString(control.description));
  if (control.font) widget->setFont(fontOf(*control.font));
  return widget;
}

void fitCaptions(const QWidget& client) {
  QList<QWidget*> options;
  for (auto* control : client.findChildren<QWidget*>()) {
    if (qobject_cast<QRadioButton*>(control) == nullptr) {
      shrinkFonts({control});
      continue;
    }
    widenIntoFreeRoom(*control, client);
    options.append(control);
  }
  shrinkFonts(options);
}

void setCaption(QWidget& control, const QString& caption) {
  if (auto* const box = dynamic_cast<ResultBox*>(&control)) {
    box->showResult(caption);
  } else {
    control.setProperty("text", caption);
  }
}

}  // namespace zendor
