#include "platform/qt/qt_regional.h"

#include <QLocale>

namespace zendor {

Regional userRegional() {
  const QLocale locale = QLocale::system();
  return {.decimalSeparator = locale.decimalPoint().toStdString(),
          .minusSign = locale.negativeSign().toStdString()};
}

}  // namespace zendor
