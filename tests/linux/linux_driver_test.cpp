// The port on a driver that this program plays: its own stat, opendir and ioctl stand before those
// of the system, because a pseudo-terminal does not answer the calls that matter on hardware alone.
#include <asm/termbits.h>
#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/serial.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <fstream>
#include <string_view>
#include <tuple>

#include "platform/linux/linux_serial_port.h"
#include "platform/linux/port_holders.h"

namespace {

constexpr int kPlain = ASYNC_SKIP_TEST, kLowLatency = ASYNC_SKIP_TEST | ASYNC_LOW_LATENCY;

struct Driver {
  unsigned int major = 4;        // the kind of device: a port on board; 0 for what it really is
  unsigned int minor = 0xFFFFF;  // nobody else can have this open
  unsigned long refused = 0;     // the one request that it does not know
  unsigned int rate = 9600;      // what it runs at, whatever is asked for
  int flags = kPlain;
  bool exclusive = false;
  int modemLines = 0;
  termios2 settings{{}, {}, CS7, {}, {}, {}, {}, {}};
  pid_t passerBy = 0;  // a process that ends between the first search and the second
  int searches = 0;
  bool isExclusiveInSearch = false;
} driver;

}  // namespace

extern "C" int stat(const char* path, struct stat* entry) noexcept {
  const int result = ::fstatat(AT_FDCWD, path, entry, 0);
  if (driver.major != 0) entry->st_rdev = makedev(driver.major, driver.minor);
  return result;
}

extern "C" DIR* opendir(const char* path) {
  if (path == std::string_view("/proc")) {
    driver.isExclusiveInSearch = driver.exclusive;
    if (++driver.searches == 2) {
      ::kill(driver.passerBy, SIGKILL);
      ::waitpid(driver.passerBy, nullptr, 0);
    }
  }
  return ::fdopendir(::open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

// A request that the driver does not play goes to the pseudo-terminal behind it.
extern "C" int ioctl(int line, unsigned long request, ...) noexcept {
  va_list arguments;
  va_start(arguments, request);
  void* const argument = va_arg(arguments, void*);
  va_end(arguments);
  auto* const number = static_cast<int*>(argument);
  auto* const serial = static_cast<serial_struct*>(argument);
  if (request == driver.refused) {
    errno = EINVAL;
    return -1;
  }
  switch (request) {
    case TCSETS2:
      driver.settings = *static_cast<termios2*>(argument);
      return 0;
    case TCGETS2:
      *static_cast<termios2*>(argument) = driver.settings;
      static_cast<termios2*>(argument)->c_ospeed = driver.rate;
      return 0;
    case TIOCGEXCL:
      *number = driver.exclusive ? 1 : 0;
      return 0;
    case TIOCEXCL:
    case TIOCNXCL:
      driver.exclusive = request == TIOCEXCL;
      return 0;
    case TIOCMBIS:
      driver.modemLines |= *number;
      return 0;
    case TIOCGSERIAL:
      serial->flags = driver.flags;
      return 0;
    case TIOCSSERIAL:
      driver.flags = serial->flags;
      return 0;
    case TIOCOUTQ:
      *number = 7;
      return 0;
    default:
      return static_cast<int>(::syscall(SYS_ioctl, line, request, argument));
  }
}

namespace zendor {
namespace {

class LinuxDriver : public testing::Test {
 public:
  LinuxDriver() {
    ::unlockpt(farEnd.number());
    device = ::ptsname(farEnd.number());
    port.configuration.settings = "9600,N,8,1";
  }

  const FileDescriptor farEnd{::posix_openpt(O_RDWR | O_NOCTTY)};
  std::string device;
  LinuxSerialPort port{[this](int) { return device; }};
};

TEST_F(LinuxDriver, AProgramThatHasTheDeviceOpenForAnInstantIsNoHolder) {
  driver = {.major = 0, .passerBy = ::fork()};
  if (driver.passerBy == 0) {
    ::open(device.c_str(), O_RDONLY | O_NOCTTY);
    ::raise(SIGSTOP);
  }
  ::waitpid(driver.passerBy, nullptr, WUNTRACED);
  port.open();
  EXPECT_EQ(driver.searches, 2);
}

TEST_F(LinuxDriver, IsSetUpByTheOpenAndLeftAsItWasByTheClose) {
  constexpr const char* kNoPort = "is not a serial port. Choose another port.";
  constexpr int kBoth = TIOCM_DTR | TIOCM_RTS;
  const struct {
    Driver driver;
    // While the port is open: exclusive mark, modem lines, flags, and how many bytes are to be
    // sent.
    std::tuple<bool, int, int, std::size_t> open;
    const char* refusal = "";
  } rows[] = {
      {{}, {true, kBoth, kLowLatency, 7}},
      {{.major = 188}, {true, kBoth, kLowLatency, 7}},   // an adapter
      {{.major = 136}, {false, kBoth, kLowLatency, 7}},  // the first kind of pseudo-terminal
      {{.major = 143}, {false, kBoth, kLowLatency, 7}},  // the last kind of pseudo-terminal
      {{.major = 5, .minor = 64}, {true, kBoth, kLowLatency, 7}},
      {{.major = 5, .minor = 63}, {}, kNoPort},  // "/dev/tty" and its kin
      {{.major = 4, .minor = 63}, {}, kNoPort},  // a virtual console
      {{.flags = kLowLatency}, {true, kBoth, kLowLatency, 7}},
      {{.refused = TIOCGEXCL}, {true, kBoth, kLowLatency, 7}},
      {{.refused = TIOCMBIS}, {true, 0, kLowLatency, 7}},
      {{.refused = TIOCGSERIAL}, {true, kBoth, kPlain, 7}},
      {{.refused = TIOCSSERIAL}, {true, kBoth, kPlain, 7}},
      {{.refused = TIOCOUTQ}, {true, kBoth, kLowLatency, 0}},
      {{.refused = TCGETS2}, {}, "cannot be used: Invalid argument."},
      {{.refused = TCSETS2}, {}, "cannot be used: Invalid argument."},
      {{.rate = 9840}, {true, kBoth, kLowLatency, 7}},
      {{.rate = 9360}, {true, kBoth, kLowLatency, 7}},
      {{.rate = 9841}, {}, "cannot run at 9600 baud: its driver offers 9841. Use another adapter."},
      {{.rate = 9359}, {}, "cannot run at 9600 baud: its driver offers 9359. Use another adapter."},
      {{.exclusive = true}, {}, "is in use by another program. Close that program and try again."}};
  for (const auto& [before, open, refusal] : rows) {
    driver = before;
    try {
      port.open();
      EXPECT_EQ(open,
                std::tuple(driver.exclusive, driver.modemLines, driver.flags, port.bytesToSend()));
      EXPECT_EQ(driver.isExclusiveInSearch, driver.exclusive);
      EXPECT_EQ(driver.settings.c_ispeed, 9600U);
      EXPECT_EQ(driver.settings.c_ospeed, 9600U);
      EXPECT_EQ(driver.settings.c_cflag, tcflag_t{BOTHER | CS8 | CREAD | CLOCAL | HUPCL});
      EXPECT_STREQ(refusal, "");
      port.close();
    } catch (const PortError& error) {
      EXPECT_TRUE(error.description.ends_with(device + " " + refusal)) << error.description;
      EXPECT_EQ(driver.settings.c_cflag, before.settings.c_cflag);
    }
    EXPECT_EQ(std::tuple(port.isOpen(), driver.exclusive, driver.flags),
              std::tuple(false, before.exclusive, before.flags));
  }
}

TEST(PortHolders, ALoginOfAnotherUserIsFoundByTheTerminalOfItsSession) {
  namespace fs = std::filesystem;
  const fs::path processes =
      fs::temp_directory_path() / ("processes-" + std::to_string(::getpid()));
  fs::create_directories(processes / "10");
  fs::create_directories(processes / "20");
  fs::create_symlink("10", processes / "self");
  std::ofstream(processes / "20/comm") << "ag\033etty\xC2\x9B\n";
  constexpr const char* kFound = "process 20 (agetty)";
  struct stat device {};
  const struct {
    const char* what;
    unsigned int major;
    const char* status;  // after the name: the fourth field is the session, the fifth its terminal
    std::string holder;
  } rows[] = {
      {"a login on the port", 4, "20 (agetty) S 1 20 20 4293919999 20 4194560 1", kFound},
      {"on an adapter", 188, "20 (agetty) S 1 20 20 4293967103 20", kFound},
      {"whose name looks like fields", 4, "20 (a) S 1 1 1 1 (b) S 1 20 20 4293919999", kFound},
      {"on another port", 4, "20 (agetty) S 1 20 20 4293919998 20", ""},
      {"on another kind of port", 4, "20 (agetty) S 1 20 20 4293967103 20", ""},
      {"of the session of this process", 4, "20 (agetty) S 1 20 7 4293919999 20", ""},
      {"on a pseudo-terminal, which a container may number alike", 136,
       "20 (agetty) S 1 20 20 4293953791 20", ""},
      {"without a terminal", 4, "20 (agetty) S 1 20 20 0 -1", ""},
      {"gone meanwhile", 4, "", ""}};
  std::ofstream(processes / "10/stat") << "10 (self) S 1 10 7 0 -1";
  for (const auto& [what, major, status, holder] : rows) {
    device.st_rdev = makedev(major, 0xFFFFF);
    std::ofstream(processes / "20/stat") << status;
    EXPECT_EQ(otherHolderOf(device, processes).value_or(""), holder) << what;
  }
  device.st_rdev = makedev(4, 0xFFFFF);
  std::ofstream(processes / "20/stat") << rows[0].status;
  fs::create_directories(processes / "20/fd");
  for (const auto& [file, holder] :
       {std::pair("/dev/null", ""), {"/dev/tty", kFound}, {"/none", kFound}}) {
    fs::remove(processes / "20/fd/0");
    fs::create_symlink(file, processes / "20/fd/0");
    EXPECT_EQ(otherHolderOf(device, processes).value_or(""), holder) << file;
  }
  fs::remove_all(processes);
}

}  // namespace
}  // namespace zendor
