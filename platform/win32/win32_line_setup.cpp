#include "platform/win32/win32_line_setup.h"

#include "platform/win32/win32_port_errors.h"

namespace zendor {

namespace {

// DTR and RTS stay on, because interfaces are often fed from them.
DCB lineOf(int baud) {
  DCB line{};
  line.DCBlength = sizeof line;
  line.BaudRate = static_cast<DWORD>(baud);
  line.fBinary = TRUE;
  line.fParity = FALSE;
  line.fOutxCtsFlow = FALSE;
  line.fOutxDsrFlow = FALSE;
  line.fDtrControl = DTR_CONTROL_ENABLE;
  line.fDsrSensitivity = FALSE;
  line.fTXContinueOnXoff = TRUE;
  line.fOutX = FALSE;
  line.fInX = FALSE;
  line.fErrorChar = FALSE;
  line.fNull = FALSE;
  line.fRtsControl = RTS_CONTROL_ENABLE;
  line.fAbortOnError = FALSE;
  line.ByteSize = 8;
  line.Parity = NOPARITY;
  line.StopBits = ONESTOPBIT;
  line.XonChar = 0x11;  // flow control is off, but drivers refuse two equal characters
  line.XoffChar = 0x13;
  return line;
}

COMMTIMEOUTS timeouts() {
  COMMTIMEOUTS result{};
  result.ReadIntervalTimeout = MAXDWORD;
  result.WriteTotalTimeoutConstant = kWriteTimeoutMs;
  return result;
}

}  // namespace

void setUpLine(HANDLE device, const std::string& name, int baud) {
  DCB line = lineOf(baud);
  SetupComm(device, kQueueSize, kQueueSize);  // a driver that refuses keeps its own queues
  if (!SetCommState(device, &line)) throw refusedOpen(name, GetLastError());
  COMMTIMEOUTS limits = timeouts();
  if (!SetCommTimeouts(device, &limits)) throw refusedOpen(name, GetLastError());
}

}  // namespace zendor
