#include "program/linux/run_program.h"

#include <QApplication>

#include "app/frm_startup.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/qt_form.h"
#include "platform/qt/qt_regional.h"
#include "platform/shared/steady_clock.h"
#include "program/linux/port_tips.h"
#include "program/version.h"

namespace zendor {

int runProgram(char* name, SerialPort& MSComm1, std::function<std::string(int index)> words) {
  // The menu belongs into the window; asking the desktop for another place takes a while.
  QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  // The toolkit has a command line of its own, the program has none.
  int count = 1;
  char* arguments[] = {name, nullptr};
  const QApplication application(count, arguments);
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
