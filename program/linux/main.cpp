// The program on this machine's serial ports.
#include "platform/posix/port_devices.h"
#include "platform/posix/posix_serial_port.h"
#include "program/linux/run_program.h"

int main(int, char** argv) {
  const zendor::PortDevices devices;
  zendor::PosixSerialPort MSComm1([&](int port) { return devices.deviceOfPort(port); });
  return zendor::runProgram(argv[0], MSComm1,
                            [&](int index) { return devices.describePort(index + 1); });
}
