#include "program/linux/run_program.h"

#include "app/frm_startup.h"
#include "platform/qt/port_tips.h"
#include "platform/qt/qt_application.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/qt_form.h"
#include "platform/qt/qt_regional.h"
#include "platform/shared/steady_clock.h"
#include "program/version.h"

namespace zendor {

int runProgram(char* name, SerialPort& MSComm1,
               std::function<std::string(int portNumber)> describePort) {
  // The menu stays in the window. Otherwise Qt would first ask the desktop for a menu bar of its
  // own, and that needs a while.
  QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  // The program has no command line, so Qt gets none to look for its own options in.
  int count = 1;
  char* arguments[] = {name, nullptr};
  const QtApplication application(count, arguments);
  QApplication::setDesktopFileName("zendor-serial-extractor");
  const SteadyClock clock;
  const Regional regional = userRegional();
  QtForm form(frmStartup::description());
  const PortTips tips(form.window(), std::move(describePort));
  QtDesktop desktop(form.window());
  frmStartup startup(form, MSComm1, desktop, clock, regional, kVersion);
  form.show(startup);
  return QApplication::exec();
}

}  // namespace zendor
