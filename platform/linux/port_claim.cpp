#include "platform/linux/port_claim.h"

#include <asm/termbits.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fstream>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/linux/port_errors.h"
#include "platform/linux/port_holders.h"
#include "platform/linux/terminal_kinds.h"

namespace zendor {

namespace {

namespace fs = std::filesystem;

// All zeros when there is no such device. The open then tells what is wrong.
struct stat statusOf(const std::string& device) {
  struct stat status {};
  ::stat(device.c_str(), &status);
  return status;
}

// The refusal names the holder if the system shows one.
PortError heldPort(const std::string& device, const std::optional<std::string>& holder) {
  return busyPort(device, holder ? *holder + " has it open" : "");
}

// A program can be started without its standard streams. The first file that it opens then gets the
// number of such a stream, and texts for people go into that file. So the line gets another number.
FileDescriptor outsideStandardStreams(FileDescriptor file) {
  if (file.number() > STDERR_FILENO) return file;
  return FileDescriptor(::fcntl(file.number(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

// A console is refused before the open. Otherwise an ordinary user, who may not open "/dev/tty1",
// would be told to ask for access to it. The open fails with EBUSY when another program has marked
// the device exclusive.
FileDescriptor openDevice(const std::string& device, const struct stat& status) {
  if (isConsole(status.st_rdev)) throw refusedCall(device, ENOTTY);
  FileDescriptor file(::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
  if (!file.isOpen() && errno == EBUSY) throw heldPort(device, otherHolderOf(status));
  if (!file.isOpen()) throw refusedCall(device, errno);
  FileDescriptor line = outsideStandardStreams(std::move(file));
  termios2 settings{};  // which only a terminal has
  if (::ioctl(line.number(), TCGETS2, &settings) != 0) throw refusedCall(device, errno);
  return line;
}

// Returns false when another program has locked the device or has marked it exclusive. The lock
// keeps out every program that asks for a lock, a second start of this one as well, and the kernel
// removes the lock with the process. The mark is looked up, because the administrator can open a
// marked device.
bool lock(int line, const std::string& device) {
  if (::flock(line, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK) throw refusedCall(device, errno);
    return false;
  }
  int exclusive = 0;
  return ::ioctl(line, TIOCGEXCL, &exclusive) != 0 || exclusive == 0;
}

// A lock file holds the number of a process in digits. The file of a process that has ended is
// stale. A file with the number of this process cannot be that of another program.
void refuseForeignLockFile(const fs::path& lockFolder, const std::string& device) {
  std::error_code error;
  const fs::path name = fs::canonical(device, error).filename();
  const fs::path lockFile = lockFolder / ("LCK.." + name.string());
  pid_t holder = 0;
  std::ifstream(lockFile) >> holder;
  if (holder <= 0 || holder == ::getpid()) return;
  const bool isAlive = ::kill(holder, 0) == 0 || errno == EPERM;
  if (!isAlive) return;
  throw busyPort(device,
                 "process " + std::to_string(holder) + " has locked it with " + lockFile.string());
}

// The mark keeps out programs that know nothing of locks. The kernel removes the mark of a real
// device when nobody has the device open any longer. But the mark of a pseudo-terminal stays as
// long as the other end is open, even after the program that set the mark has died, and would
// refuse the next open. For that reason a pseudo-terminal is not marked.
void markExclusive(int line, dev_t device) {
  if (!isPseudoTerminal(device)) ::ioctl(line, TIOCEXCL);
}

// A second start of this program also opens the device, and closes it an instant later, because it
// does not get the lock. So a search that finds a program is repeated after such an instant. If the
// second search finds none, the port is free.
std::optional<std::string> lastingHolderOf(const struct stat& status) {
  constexpr std::chrono::milliseconds kInstantOfASecondStart{100};
  if (!otherHolderOf(status)) return std::nullopt;
  std::this_thread::sleep_for(kInstantOfASecondStart);
  return otherHolderOf(status);
}

}  // namespace

FileDescriptor claimPort(const std::string& device, const fs::path& lockFolder) {
  const struct stat status = statusOf(device);
  FileDescriptor line = openDevice(device, status);
  if (!lock(line.number(), device)) {
    line = FileDescriptor();  // the holder may be searching, too, and must not find this program
    throw heldPort(device, otherHolderOf(status));
  }
  refuseForeignLockFile(lockFolder, device);
  markExclusive(line.number(), status.st_rdev);  // before the search: nobody opens it meanwhile
  if (const auto holder = lastingHolderOf(status)) {
    releasePort(std::move(line));
    throw heldPort(device, holder);
  }
  return line;
}

// The mark is removed first. Otherwise it would stay after the close for as long as another program
// has the device open.
void releasePort(FileDescriptor line) { ::ioctl(line.number(), TIOCNXCL); }

}  // namespace zendor
