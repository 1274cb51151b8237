// Clicks the button of the real window, on the device that the argument names, for each line on the
// standard input. Prints how many milliseconds the request took and how many the longest pass of
// its wait loops took.
#include <QApplication>
#include <QPushButton>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "app/frm_startup.h"
#include "platform/linux/linux_serial_port.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/qt_form.h"
#include "platform/shared/steady_clock.h"

namespace {

using Time = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

// The desktop, with a stop-watch on the wait loops. Message boxes are answered at once.
class TimedDesktop final : public zendor::Desktop {
 public:
  explicit TimedDesktop(QWidget& window) : desktop_(window) {}

  zendor::MessageAnswer showMessage(const zendor::Message& message) override {
    lastPass_ = {};
    return message.buttons == zendor::MessageButtons::Ok ? zendor::MessageAnswer::Ok
                                                         : zendor::MessageAnswer::No;
  }
  void processEvents() override {
    desktop_.processEvents();
    const auto now = Time::now();
    if (lastPass_ != Time::time_point{}) longestPass = std::max(longestPass, now - lastPass_);
    lastPass_ = now;
  }

  void startRequest() {
    lastPass_ = {};
    longestPass = {};
  }
  Time::duration longestPass{};

 private:
  void endProcess() override { std::exit(EXIT_FAILURE); }

  zendor::QtDesktop desktop_;
  Time::time_point lastPass_;
};

double milliseconds(Time::duration duration) { return Milliseconds(duration).count(); }

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return EXIT_FAILURE;
  const QApplication application(argc, argv);
  zendor::LinuxSerialPort port([&](int) { return std::optional<std::string>(argv[1]); });
  const zendor::SteadyClock clock;
  zendor::QtForm form(zendor::frmStartup::description());
  TimedDesktop desktop(form.window());
  zendor::frmStartup startup(form, port, desktop, clock, {}, {});
  form.show(startup);
  auto* const button = form.window().findChild<QPushButton*>("cmdAccept");
  while (std::getchar() != EOF) {
    QApplication::processEvents();
    desktop.startRequest();
    const auto start = Time::now();
    button->click();
    std::printf("%.3f %.3f\n", milliseconds(Time::now() - start),
                milliseconds(desktop.longestPass));
    std::fflush(stdout);
  }
  return EXIT_SUCCESS;
}
