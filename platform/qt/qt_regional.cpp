#include "platform/qt/qt_regional.h"

#include <QLocale>

namespace zendor {

Regional systemRegional() {
  const QLocale locale = QLocale::system();
  return {.decimalSeparator = locale.decimalPoint().toStdString(),
          .minusSign = locale.negativeSign().toStdString()};
}

}  // namespace zendor
