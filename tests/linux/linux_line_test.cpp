#include <asm/termbits.h>
#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <numeric>

#include "platform/linux/linux_serial_port.h"
#include "platform/linux/port_devices.h"
#include "platform/linux/port_errors.h"
#include "tests/doubles.h"

namespace zendor {
namespace {

namespace fs = std::filesystem;
using doubles::Bytes, doubles::comesTrue;

// A port whose number 1 is a pseudo-terminal, and a folder that plays the lock folder of the
// system or for sysfs.
class LinuxLine : public testing::Test {
 public:
  LinuxLine() {
    fs::create_directories(folder);
    connect();
    port.configuration = {.portNumber = 1, .settings = "9600,N,8,1"};
  }
  ~LinuxLine() override { fs::remove_all(folder); }

  void connect() {
    farEnd = FileDescriptor(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK));
    ::unlockpt(farEnd.number());
    device = ::ptsname(farEnd.number());
  }

  void sendFromFarEnd(const Bytes& bytes) {
    ASSERT_EQ(::write(farEnd.number(), bytes.data(), bytes.size()), std::ssize(bytes));
    ASSERT_TRUE(comesTrue([&] { return port.bytesWaiting() == bytes.size(); }));
  }

  static PortError refusalOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const PortError& error) {
      return error;
    }
    return {0, "opened"};
  }

  PortError refusal() {
    PortError error = refusalOf([this] { port.open(); });
    EXPECT_EQ(port.isOpen(), error.number == 0);
    port.close();
    return error;
  }

  // Prints the description of the refusal and ends the process with its number. To be called in a
  // process of its own.
  [[noreturn]] void openAsNobody() {
    constexpr unsigned int kNobody = 65534;
    const bool dropped = ::geteuid() != 0 || (::setgroups(0, nullptr) == 0 &&
                                              ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
    const PortError error = dropped ? refusal() : PortError{255, "still root"};
    std::cerr << error.description;
    std::_Exit(error.number);
  }

  void writeFile(const fs::path& name, const std::string& text) const {
    fs::create_directories((folder / name).parent_path());
    std::ofstream(folder / name) << text << "\n";
  }

  const fs::path folder = fs::temp_directory_path() / ("line_test." + std::to_string(::getpid()));
  FileDescriptor farEnd;
  std::string device;
  LinuxSerialPort port{
      [this](int number) { return number == 1 ? std::optional(device) : std::nullopt; }, folder};
};

TEST_F(LinuxLine, CountsTheRealPortsOnBoardFirstThenAdaptersByNumber) {
  // Left out: control characters, the last of two bytes too, and what is not UTF-8.
  const char* const product =
      "USB-\033\x7F\xC2\x80\xC2\x9F\xC2\xA0S\xC3\xA9rial \xE2\x82\xAC\xF0\x9F\x94\x8C \x9B"
      "\xC1\x81\xE0\x81\x81\xED\xA0\x80\xF4\x90\x80\x80\xF8"
      "Controller\xE3\x81";
  const std::pair<const char*, const char*> files[] = {
      {"usb/idVendor", "1d6b"},      {"usb/product", "Hub"},         {"usb/1/idVendor", "067b"},
      {"usb/1/product", product},    {"usb/2/idVendor", "067b"},     {"class/tty/ttyS0/type", "4"},
      {"class/tty/ttyS1/type", "0"},  // a place without a chip
      {"class/tty/ttyS2/type", "3"}, {"class/tty/ttyS10/type", "4"}, {"class/tty/tty1/dev", ""}};
  for (const auto& [name, text] : files) writeFile(name, text);
  const auto add = [this](const fs::path& name, const fs::path& behind) {
    fs::create_directories(folder / behind);
    fs::create_directories(folder / "class/tty" / name);
    fs::create_symlink(folder / behind, folder / "class/tty" / name / "device");
  };
  for (const char* name : {"ttyS0", "ttyS1", "ttyS2", "ttyS10"}) add(name, "board");
  for (const char* name : {"ttyUSB10", "ttyACM0"}) add(name, "usb/2/port");
  const PortDevices devices(folder);
  EXPECT_EQ(devices.deviceOfPort(5), "/dev/ttyUSB10");
  add("ttyUSB2", "usb/1/port");

  int number = 0;
  for (const char* expected :
       {"no such port on this computer", "/dev/ttyS0", "/dev/ttyS2", "/dev/ttyS10", "/dev/ttyACM0",
        "/dev/ttyUSB2, USB-\u00A0S\u00E9rial \u20AC\U0001F50C Controller", "/dev/ttyUSB10",
        "no such port on this computer"})
    EXPECT_EQ(devices.describePort(number++), expected);
}

TEST_F(LinuxLine, BecomesNeitherAStandardStreamNorTheTerminalOfItsSession) {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    const FileDescriptor original(::dup(stream));
    ::close(stream);
    port.open();
    const bool isFree = ::fcntl(stream, F_GETFD) == -1;
    port.close();
    ::dup2(original.number(), stream);
    EXPECT_TRUE(isFree) << stream;
  }
  const auto hasTerminal = [] { return ::open("/dev/tty", O_RDONLY) >= 0 ? 1 : 0; };
  EXPECT_EXIT((::setsid(), port.open(), std::_Exit(hasTerminal())), testing::ExitedWithCode(0), "");
}

TEST_F(LinuxLine, CarriesEveryByteValueUnchangedBothWaysAndDiscardsWhatWaits) {
  Bytes bytes(256), received;
  std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
  port.configuration.settings = "256000,N,8,1";  // a rate that has no name
  port.open();
  termios2 line{};
  ASSERT_EQ(::ioctl(farEnd.number(), TCGETS2, &line), 0);
  EXPECT_EQ(line.c_ospeed, 256000U);
  port.write(bytes);
  const auto receive = [&] {
    for (std::uint8_t byte = 0; ::read(farEnd.number(), &byte, 1) == 1;) received.push_back(byte);
    return received == bytes;
  };
  EXPECT_TRUE(comesTrue(receive));
  EXPECT_EQ(port.bytesToSend(), 0U);
  sendFromFarEnd(bytes);
  const auto read = port.readAll();
  EXPECT_EQ(Bytes(read.begin(), read.end()), bytes);
  EXPECT_TRUE(port.readAll().empty());
  sendFromFarEnd(bytes);
  port.discardWaiting();
  EXPECT_EQ(port.bytesWaiting(), 0U);
}

TEST_F(LinuxLine, ALineThatIsGoneHasNothingRefusesWritesAndIsFreedByItsClose) {
  port.open();
  const std::string start = "The serial port " + device;
  for (int i = 0; i < 2; ++i)  // first more than the line accepts, then nothing fits
    EXPECT_EQ(refusalOf([&] { port.write(Bytes(1 << 20)); }).description,
              start + " did not accept all bytes: earlier ones have not left yet. Try again.");
  sendFromFarEnd({1, 2, 3});
  farEnd = FileDescriptor();
  EXPECT_EQ(port.bytesWaiting(), 0U);
  EXPECT_TRUE(port.readAll().empty());
  EXPECT_EQ(port.bytesToSend(), 0U);
  port.discardWaiting();
  const PortError gone = refusalOf([&] { port.write(Bytes{1}); });
  EXPECT_EQ(gone.number, EIO);
  EXPECT_EQ(
      gone.description,
      start + " is gone: nothing is behind it any more. Plug its adapter in again and try again.");
  port.close();
  connect();
  port.open();
  sendFromFarEnd({7});
}

TEST_F(LinuxLine, TellsAbsentUnsuitableAndWronglySetPortsApart) {
  writeFile("plain", "");
  const std::string plain = folder / "plain", absent = folder / "absent", inside = plain + "/x";
  const FileDescriptor holder(::open(plain.c_str(), O_RDONLY));  // a held file is no held port
  ASSERT_EQ(::flock(holder.number(), LOCK_EX), 0);
  const std::string plugIn = " on this computer. Plug in its adapter and try again.";
  const std::string choose = " is not a serial port. Choose another port.";
  const std::string unsupported =
      "\" are not supported: a baud rate and \",N,8,1\" (no parity, 8 data bits, 1 stop bit) are "
      "expected.";
  const std::tuple<int, std::string, const char*, int, std::string> rows[] = {
      {3, device, "9600,N,8,1", ENODEV, "There is no serial port 3" + plugIn},
      {1, absent, "9600,N,8,1", ENOENT, "There is no serial port " + absent + plugIn},
      {1, plain, "9600,N,8,1", ENOTTY, plain + choose},
      {1, folder, "9600,N,8,1", EISDIR, folder.string() + choose},
      {1, inside, "9600,N,8,1", ENOTDIR,
       "The serial port " + inside + " cannot be used: Not a directory."},
      {1, "/dev/tty", "9600,N,8,1", ENOTTY, "/dev/tty" + choose},
      {1, device, "9600,E,8,1", EINVAL, "The port settings \"9600,E,8,1" + unsupported},
      {1, device, "9600,N,7,2", EINVAL, "The port settings \"9600,N,7,2" + unsupported},
      {1, device, "0,N,8,1", EINVAL, "The port settings \"0,N,8,1" + unsupported}};
  for (const auto& [portNumber, path, settings, number, description] : rows) {
    device = path;
    port.configuration.portNumber = static_cast<std::int16_t>(portNumber);
    port.configuration.settings = settings;
    const PortError error = refusal();
    EXPECT_EQ(error.number, number) << description;
    EXPECT_EQ(error.description, description);
  }
  for (const auto& [number, alike] : {std::pair(ENXIO, ENOENT), {EPERM, EACCES}})
    EXPECT_EQ(refusedCall(device, number).description, refusedCall(device, alike).description);
}

TEST_F(LinuxLine, AForbiddenDeviceNamesTheGroupThatMayUseItOrTheAdministrator) {
  constexpr gid_t kRoot = 0, kDaemon = 1, kNameless = 4000000000;
  const gid_t group = ::geteuid() == kRoot ? kDaemon : ::getegid();
  const std::string start = "You are not allowed to use the serial port " + device + ". ";
  const std::string ask = start + "Ask the administrator of this computer for access to it.";
  const auto join = [&](const std::string& name) {
    return start + "Join the group \"" + name + "\" that owns it (sudo usermod -aG " + name +
           " $USER), then log out and log in again.";
  };
  constexpr mode_t kBoth = S_IRGRP | S_IWGRP;
  const std::tuple<gid_t, mode_t, std::string> rows[] = {
      {group, kBoth, join(::getgrgid(group)->gr_name)},
      {group, S_IRGRP, ask},
      {kRoot, kBoth, ask},
      {kNameless, kBoth, join("4000000000")}};
  for (const auto& [owner, mode, description] : rows) {
    if (::chown(device.c_str(), -1U, owner) != 0) {
      GTEST_SKIP() << "Only the administrator may give a device to a group of others.";
    }
    ::chmod(device.c_str(), mode);
    EXPECT_EXIT(openAsNobody(), testing::ExitedWithCode(EACCES),
                testing::Matcher<const std::string&>(description));
  }
}

TEST_F(LinuxLine, APortIsRefusedWhileItIsHeldAndFreeWhenItsHolderClosesItOrDies) {
  ::chmod(device.c_str(), S_IRUSR | S_IWUSR | S_IROTH | S_IWOTH);
  EXPECT_EXIT((port.open(), ::raise(SIGKILL)), testing::KilledBySignal(SIGKILL), "");
  EXPECT_EXIT(openAsNobody(), testing::ExitedWithCode(0), "opened");

  LinuxSerialPort holder{[this](int) { return device; }, folder};
  holder.configuration = port.configuration;
  holder.open();
  const std::string busy = "The serial port " + device +
                           " is in use by another program. Close that program and try again.";
  EXPECT_EQ(refusal().description, busy);
  holder.close();
  const FileDescriptor foreign(::open(device.c_str(), O_RDWR | O_NOCTTY));
  EXPECT_EQ(refusal().description, "opened");
  ::ioctl(foreign.number(), TIOCEXCL);
  EXPECT_EQ(refusal().description, busy);
}

TEST_F(LinuxLine, AProcessThatHoldsThePortIsNamedHoweverItHoldsIt) {
  writeFile("node", "");
  const fs::path node = folder / "node";
  const struct {
    bool locks = false, marks = false, bindsToAnotherPath = false;
  } rows[] = {{},
              {.locks = true},
              {.marks = true},
              {.bindsToAnotherPath = true},
              {.locks = true, .bindsToAnotherPath = true}};
  for (const auto& [locks, marks, binds] : rows) {
    connect();
    const pid_t holder = ::fork();
    if (holder == 0) {
      const bool isBound = ::unshare(CLONE_NEWNS) == 0 &&
                           ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                           ::mount(device.c_str(), node.c_str(), nullptr, MS_BIND, nullptr) == 0;
      if (binds && !isBound) std::_Exit(1);
      const int line = ::open(binds ? node.c_str() : device.c_str(), O_RDONLY | O_NOCTTY);
      if (locks) ::flock(line, LOCK_EX);
      if (marks) ::ioctl(line, TIOCEXCL);
      ::raise(SIGSTOP);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(holder, &status, WUNTRACED), holder);
    if (WIFEXITED(status)) GTEST_SKIP() << "Only the administrator may bind a device to a path.";
    EXPECT_EQ(refusal().description,
              "The serial port " + device + " is in use by another program: process " +
                  std::to_string(holder) +
                  " (linux_line_test) has it open. Close that program and try again.");
    ::kill(holder, SIGKILL);
    ASSERT_EQ(::waitpid(holder, nullptr, 0), holder);
    if (marks) continue;  // a pseudo-terminal keeps the mark
    EXPECT_EQ(refusal().description, "opened");
  }
}

TEST_F(LinuxLine, OneOfTwoProcessesThatOpenThePortAtTheSameMomentGetsIt) {
  for (int round = 0; round < 10; ++round) {
    std::array<int, 2> start{};
    std::array<int, 2> results{};
    ASSERT_EQ(::pipe(start.data()) + ::pipe(results.data()), 0);
    std::array<pid_t, 2> processes{};
    for (pid_t& process : processes) {
      process = ::fork();
      if (process != 0) continue;
      ::close(start[1]);
      char result = 0;
      const bool begins = ::read(start[0], &result, 1) == 0;  // as the test closes the other end
      result = begins && refusalOf([this] { port.open(); }).number == 0 ? 1 : 0;
      if (::write(results[1], &result, 1) == 1) ::pause();
    }
    ::close(start[1]);
    std::array<char, 2> opened{};
    for (char& result : opened) ASSERT_EQ(::read(results[0], &result, 1), 1);
    for (const pid_t process : processes) {
      ::kill(process, SIGKILL);
      ::waitpid(process, nullptr, 0);
    }
    for (const int end : {start[0], results[0], results[1]}) ::close(end);
    EXPECT_EQ(opened[0] + opened[1], 1) << round;
  }
}

TEST_F(LinuxLine, ObeysALockFileWhileItsProcessLivesAndLeavesItAlone) {
  const pid_t ended = ::fork();
  if (ended == 0) ::_exit(0);
  ASSERT_EQ(::waitpid(ended, nullptr, 0), ended);
  const fs::path name = "LCK.." + fs::path(device).filename().string();
  fs::create_symlink(device, folder / "by-id");
  device = folder / "by-id";
  const std::string busy = "The serial port " + device +
                           " is in use by another program: process 1 has locked it with " +
                           (folder / name).string() + ". Close that program and try again.";
  const std::pair<std::string, std::string> rows[] = {{"         1", busy},
                                                      {"1 terminal root", busy},
                                                      {std::to_string(ended), "opened"},
                                                      {std::to_string(::getpid()), "opened"},
                                                      {"no number", "opened"}};
  for (const auto& [text, description] : rows) {
    writeFile(name, text);
    EXPECT_EQ(refusal().description, description);
    EXPECT_TRUE(fs::exists(folder / name)) << text;
  }
  fs::remove(folder / name);
  port.open();
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);  // only the link
}

}  // namespace
}  // namespace zendor
