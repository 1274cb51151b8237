// The composition root of the Windows program.
#include <objbase.h>
#include <windows.h>

#include "app/frm_startup.h"
#include "platform/shared/steady_clock.h"
#include "platform/win32/win32_desktop.h"
#include "platform/win32/win32_form.h"
#include "platform/win32/win32_port_devices.h"
#include "platform/win32/win32_port_tips.h"
#include "platform/win32/win32_regional.h"
#include "platform/win32/win32_serial_port.h"
#include "program/version.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  using namespace zendor;
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);  // the form talks to screen readers by COM
  Win32Form form(frmStartup::description());
  const Win32PortTips tips(form.calls().window(), &describePort);
  Win32SerialPort MSComm1{&comPortOf};
  Win32Desktop desktop(form.calls());
  const SteadyClock clock;
  frmStartup startup(form, MSComm1, desktop, clock, userRegional(), kVersion);
  form.run(startup);
}
