#include "platform/linux/linux_serial_port.h"

#include <asm/termbits.h>
#include <fcntl.h>
#include <linux/serial.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fstream>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/linux/port_errors.h"
#include "platform/linux/port_holders.h"
#include "platform/linux/pseudo_terminal.h"
#include "platform/shared/line_settings.h"

namespace zendor {

namespace {

namespace fs = std::filesystem;

// Whoever starts a program can leave out its standard streams. The line never takes the number of
// such a stream, because texts for people would then go out over it.
FileDescriptor outsideStandardStreams(FileDescriptor file) {
  if (file.number() > STDERR_FILENO) return file;
  return FileDescriptor(::fcntl(file.number(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

FileDescriptor openDevice(const std::string& device) {
  FileDescriptor file(::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
  if (!file.isOpen()) throw refusedCall(device, errno);
  FileDescriptor line = outsideStandardStreams(std::move(file));
  termios2 settings{};
  if (::ioctl(line.number(), TCGETS2, &settings) != 0) throw refusedCall(device, errno);
  return line;
}

// The file holds the number of the process in digits. The file of a process that has ended is
// stale, and a file with the number of this process cannot be that of another program.
void refuseForeignLockFile(const fs::path& lockFolder, const std::string& device) {
  std::error_code error;
  const fs::path name = fs::canonical(device, error).filename();
  const fs::path lockFile = lockFolder / ("LCK.." + name.string());
  pid_t holder = 0;
  std::ifstream(lockFile) >> holder;
  if (holder <= 0 || holder == ::getpid()) return;
  const bool alive = ::kill(holder, 0) == 0 || errno == EPERM;
  if (!alive) return;
  throw busyPort(
      device, ": process " + std::to_string(holder) + " has locked it with " + lockFile.string());
}

struct stat statusOf(const FileDescriptor& file) {
  struct stat status {};
  ::fstat(file.number(), &status);
  return status;
}

// The refusal names the holder if the system tells it.
PortError heldPort(const std::string& device, const std::optional<std::string>& holder) {
  return busyPort(device, holder ? ": " + *holder + " has it open" : "");
}

// The advisory lock keeps out the programs that ask for it, this one too, and ends with the
// process. The exclusive mark of another program is looked up as well, because it does not keep the
// administrator from opening the device. Gives false when the device is held by either.
bool claim(int line, const std::string& device) {
  if (::flock(line, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK) throw refusedCall(device, errno);
    return false;
  }
  int exclusive = 0;
  return ::ioctl(line, TIOCGEXCL, &exclusive) != 0 || exclusive == 0;
}

// The port is marked exclusive by then, so that no other program can open it during the search.
// A second start of this program at the same moment has the device open for an instant, until the
// lock refuses it. So the holder of a port is a program that is found twice.
void refuseOtherHolder(const struct stat& status, const std::string& device) {
  constexpr std::chrono::milliseconds kPassing{100};
  if (!otherHolderOf(status)) return;
  std::this_thread::sleep_for(kPassing);
  if (const auto holder = otherHolderOf(status)) throw heldPort(device, holder);
}

// A driver may silently run at another rate than the one asked for. A line can bear half a bit time
// over the ten bits of a byte, and each of its two ends may use up half of that.
bool isCloseEnough(unsigned int rate, unsigned int asked) {
  const unsigned int difference = rate > asked ? rate - asked : asked - rate;
  return difference <= asked / 40;
}

// Bytes pass unchanged, and a read gives the bytes that wait and never blocks. The rate goes to the
// driver as a number (BOTHER), because there are rates that no named constant stands for.
void configure(int line, const std::string& device, int baud) {
  termios2 settings{};
  settings.c_cflag = BOTHER | CS8 | CREAD | CLOCAL | HUPCL;
  settings.c_ispeed = settings.c_ospeed = static_cast<speed_t>(baud);
  if (::ioctl(line, TCSETS2, &settings) != 0 || ::ioctl(line, TCGETS2, &settings) != 0) {
    throw refusedCall(device, errno);
  }
  if (!isCloseEnough(settings.c_ospeed, static_cast<speed_t>(baud))) {
    throw unsupportedRate(device, baud, settings.c_ospeed);
  }
}

// Keeps out programs that know nothing of locks. A real device loses the mark when nobody has it
// open any longer. A pseudo-terminal would keep the mark until its other end goes, even after the
// holder has died, and would refuse the next open.
void markExclusive(int line, dev_t device) {
  if (!isPseudoTerminal(device)) ::ioctl(line, TIOCEXCL);
}

// Interfaces are often fed from these two lines. A device without them refuses, and that does no
// harm.
void assertModemLines(int line) {
  const int lines = TIOCM_DTR | TIOCM_RTS;
  ::ioctl(line, TIOCMBIS, &lines);
}

// Without this setting an adapter can hold received bytes back for up to 16 ms. The result is true
// when the setting was changed: a driver may not have it, or may refuse. The setting stays when a
// program ends with the port open.
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

  FileDescriptor line = openDevice(*device);
  const struct stat status = statusOf(line);
  if (!claim(line.number(), *device)) {
    line = FileDescriptor();  // the holder must not take this program for a holder
    throw heldPort(*device, otherHolderOf(status));
  }
  refuseForeignLockFile(lockFolder_, *device);
  markExclusive(line.number(), status.st_rdev);
  device_ = *device;
  line_ = std::move(line);
  try {
    refuseOtherHolder(status, device_);
    configure(line_.number(), device_, baud);
  } catch (const PortError&) {
    close();  // takes the mark back
    throw;
  }
  assertModemLines(line_.number());
  setLowLatency_ = switchLowLatency(line_.number(), true);
}

// The kernel frees a device that is gone like any other, so that a close is never refused.
void LinuxSerialPort::close() {
  if (!isOpen()) return;
  if (std::exchange(setLowLatency_, false)) switchLowLatency(line_.number(), false);
  // Otherwise the mark would outlive the close where another program has the device open.
  ::ioctl(line_.number(), TIOCNXCL);
  line_ = FileDescriptor();
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
