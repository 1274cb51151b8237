// How a serial port of Windows is set up: the line, the queues of its driver and the time-outs.
#pragma once

#include <windows.h>

#include <string>

namespace zendor {

inline constexpr DWORD kQueueSize = 4096;       // bytes, in each direction
inline constexpr DWORD kWriteTimeoutMs = 1000;  // the longest frame takes 270 ms at 9600 baud

// Sets the open device to 8 data bits, without parity and without flow control. A read then gives
// the bytes that wait and ends at once. A write ends even if the bytes never leave, unless the
// driver ignores the time-out. Throws PortError when the device refuses; the name is for its text.
void setUpLine(HANDLE device, const std::string& name, int baud);

}  // namespace zendor
