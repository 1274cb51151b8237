#include "platform/qt/qt_program.h"

#include <QApplication>

#include "app/frm_startup.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/qt_form.h"
#include "platform/qt/qt_regional.h"
#include "platform/shared/steady_clock.h"

namespace zendor {

namespace {

constexpr Version kVersion{ZENDOR_VERSION_MAJOR, ZENDOR_VERSION_MINOR, ZENDOR_VERSION_REVISION};

}  // namespace

int runProgram(int argc, char** argv, SerialPort& MSComm1, PortTips::Words words) {
  // The menu belongs into the window; asking the desktop for another place takes a while.
  QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  const QApplication application(argc, argv);
  QApplication::setDesktopFileName("zendor-serial-extractor");
  const SteadyClock clock;
  const Regional regional = systemRegional();
  QtForm form(frmStartup::description());
  const PortTips tips(form.window(), std::move(words));
  QtDesktop desktop(form.window());
  frmStartup startup(form, MSComm1, desktop, clock, regional, kVersion);
  form.show(startup);
  return QApplication::exec();
}

}  // namespace zendor
