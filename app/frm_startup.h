// The program's one window and the one job behind its button.
#pragma once

#include <cstdint>
#include <string>

#include "common/error_reports.h"
#include "device/device_commands.h"
#include "device/pod.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/form.h"
#include "platform/regional.h"
#include "platform/serial_port.h"
#include "platform/version.h"
#include "protocol/frame.h"
#include "protocol/transaction.h"
#include "serial/port_control.h"

namespace zendor {

class frmStartup final : public FormEvents {
 public:
  // The window offers the serial ports 1 to 4.
  static constexpr int kPortChoices = 4;

  // The window that a platform draws.
  static FormDescription description();

  // The form shows description(). All that is handed in outlives this object.
  frmStartup(Form& form, SerialPort& port, Desktop& desktop, const Clock& clock,
             const Regional& regional, const Version& version);

  void Form_Load() override;
  void Form_Activate() override;
  void Form_Unload() override;
  void Control_Click(const ControlId& control) override;

 private:
  void cmdAccept_Click();
  void choosePort();
  void openPort();
  void closePort();
  [[noreturn]] void endOnFaultyPod();

  Form& form_;
  Desktop& desktop_;
  Version version_;

  std::uint8_t PortNumber = 0;  // of the current request, 1 to 4; 0 before the first request
  bool PortOpened = false;      // while a request holds the port open

  FrameStores stores_;
  ErrorReports reports_;
  PortControl portControl_;
  Transaction transaction_;
  DeviceCommands commands_;
  Pod pod_;
};

}  // namespace zendor
