#include "platform/linux/linux_serial_port.h"

#include <asm/termbits.h>
#include <linux/serial.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/linux/port_claim.h"
#include "platform/linux/port_errors.h"
#include "platform/shared/line_settings.h"

namespace zendor {

namespace {

namespace fs = std::filesystem;

// A driver may silently run at another rate than the one asked for. A line can bear an error of
// half a bit time over the ten bits of a byte. Each of its two ends may use up half of that error.
bool isCloseEnough(unsigned int rate, unsigned int asked) {
  const unsigned int difference = rate > asked ? rate - asked : asked - rate;
  return difference <= asked / 40;
}

// Bytes pass unchanged, and a read gives the bytes that wait and never blocks. The rate goes to the
// driver as a number (BOTHER), because some rates have no named constant. If the
// driver does not run at that rate, the line gets its old settings back.
void configure(int line, const std::string& device, int baud) {
  termios2 before{};
  termios2 settings{};
  settings.c_cflag = BOTHER | CS8 | CREAD | CLOCAL | HUPCL;
  settings.c_ispeed = settings.c_ospeed = static_cast<speed_t>(baud);
  const bool isSet = ::ioctl(line, TCGETS2, &before) == 0 &&
                     ::ioctl(line, TCSETS2, &settings) == 0 &&
                     ::ioctl(line, TCGETS2, &settings) == 0;
  if (!isSet) throw refusedCall(device, errno);
  if (isCloseEnough(settings.c_ospeed, static_cast<speed_t>(baud))) return;
  ::ioctl(line, TCSETS2, &before);
  throw unsupportedRate(device, baud, settings.c_ospeed);
}

// Circuits on the line often draw their power from these two signals. A device without the signals
// refuses, and that does no harm.
void assertModemLines(int line) {
  const int lines = TIOCM_DTR | TIOCM_RTS;
  ::ioctl(line, TIOCMBIS, &lines);
}

// Without this setting an adapter can hold received bytes back for up to 16 ms. Returns whether the
// setting was changed, because a driver may not have the setting, or may refuse. A driver keeps the
// setting after the port is closed.
bool switchLowLatency(int line, bool on) {
  constexpr int kLowLatency = ASYNC_LOW_LATENCY;
  serial_struct driver{};
  if (::ioctl(line, TIOCGSERIAL, &driver) != 0) return false;
  const bool isOn = (driver.flags & kLowLatency) != 0;
  if (isOn == on) return false;
  driver.flags ^= kLowLatency;
  return ::ioctl(line, TIOCSSERIAL, &driver) == 0;
}

// A count that the kernel keeps of the line; 0 when the line is gone.
std::size_t countOf(int line, unsigned long request) {
  int count = 0;
  return ::ioctl(line, request, &count) == 0 ? static_cast<std::size_t>(count) : 0;
}

}  // namespace

LinuxSerialPort::LinuxSerialPort(DeviceOfPort deviceOfPort, fs::path lockFolder)
    : deviceOfPort_(std::move(deviceOfPort)), lockFolder_(std::move(lockFolder)) {}

LinuxSerialPort::~LinuxSerialPort() { LinuxSerialPort::close(); }

bool LinuxSerialPort::isOpen() const { return line_.isOpen(); }

void LinuxSerialPort::open() {
  const int baud = baudRateOfSettings(configuration.settings, EINVAL);
  const auto device = deviceOfPort_(configuration.portNumber);
  if (!device) throw absentPort(configuration.portNumber);

  device_ = *device;
  line_ = claimPort(device_, lockFolder_);
  try {
    configure(line_.number(), device_, baud);
  } catch (const PortError&) {
    close();
    throw;
  }
  assertModemLines(line_.number());
  hasSetLowLatency_ = switchLowLatency(line_.number(), true);
}

void LinuxSerialPort::close() {
  if (!isOpen()) return;
  if (std::exchange(hasSetLowLatency_, false)) switchLowLatency(line_.number(), false);
  releasePort(std::move(line_));
}

std::size_t LinuxSerialPort::bytesWaiting() { return countOf(line_.number(), FIONREAD); }

std::span<const std::uint8_t> LinuxSerialPort::readAll() {
  const ssize_t count = ::read(line_.number(), received_.data(), received_.size());
  return std::span(received_).first(count > 0 ? static_cast<std::size_t>(count) : 0);
}

void LinuxSerialPort::discardWaiting() { ::ioctl(line_.number(), TCFLSH, TCIFLUSH); }

std::size_t LinuxSerialPort::bytesToSend() { return countOf(line_.number(), TIOCOUTQ); }

void LinuxSerialPort::write(std::span<const std::uint8_t> bytes) {
  const ssize_t count = ::write(line_.number(), bytes.data(), bytes.size());
  if (count < 0 && errno != EAGAIN) throw refusedCall(device_, errno);
  if (std::cmp_less(count, bytes.size())) throw unfinishedWrite(device_);
}

}  // namespace zendor
