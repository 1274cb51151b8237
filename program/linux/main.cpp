// The program on the serial ports of this computer.
#include "platform/linux/linux_serial_port.h"
#include "platform/linux/port_devices.h"
#include "program/linux/run_program.h"

int main(int, char** argv) {
  const zendor::PortDevices devices;
  zendor::LinuxSerialPort MSComm1([&](int port) { return devices.deviceOfPort(port); });
  return zendor::runProgram(argv[0], MSComm1, [&](int port) { return devices.describePort(port); });
}
