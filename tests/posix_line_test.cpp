#include <asm/termbits.h>
#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <numeric>
#include <thread>
#include <vector>

#include "platform/posix/port_devices.h"
#include "platform/posix/posix_serial_port.h"

namespace zendor {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

// A port whose number 1 is a pseudo-terminal, and a folder that stands for the machine's.
class PosixLine : public ::testing::Test {
 public:
  PosixLine() {
    fs::create_directories(folder);
    connect();
    port.configuration.portNumber = 1;
    port.configuration.settings = "9600,N,8,1";
  }
  ~PosixLine() override { fs::remove_all(folder); }

  void connect() {
    farEnd = FileDescriptor(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK));
    ::unlockpt(farEnd.number());
    device = ::ptsname(farEnd.number());
  }

  void sendFromFarEnd(const Bytes& bytes) {
    ASSERT_EQ(::write(farEnd.number(), bytes.data(), bytes.size()), std::ssize(bytes));
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (port.bytesWaiting() < bytes.size() && std::chrono::steady_clock::now() < end) {
      std::this_thread::yield();
    }
    ASSERT_EQ(port.bytesWaiting(), bytes.size());
  }

  Bytes receiveAtFarEnd(std::size_t count) const {
    Bytes bytes;
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (bytes.size() < count && std::chrono::steady_clock::now() < end) {
      std::uint8_t byte = 0;
      if (::read(farEnd.number(), &byte, 1) == 1) bytes.push_back(byte);
    }
    return bytes;
  }

  PortError refusal() {
    try {
      port.open();
    } catch (const PortError& error) {
      EXPECT_FALSE(port.isOpen());
      return error;
    }
    port.close();
    return {0, "opened"};
  }

  // For a process of its own: ends with the number of the refusal and prints its description.
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

  static constexpr std::chrono::seconds kPatience{5};
  const fs::path folder = fs::temp_directory_path() / ("line_test." + std::to_string(::getpid()));
  FileDescriptor farEnd;
  std::string device;
  PosixSerialPort port{
      [this](int number) { return number == 1 ? std::optional(device) : std::nullopt; }, folder};
};

TEST_F(PosixLine, CountsTheRealPortsOnBoardFirstThenAdaptersByNumber) {
  writeFile("usb/idVendor", "1d6b");
  writeFile("usb/product", "Hub");
  writeFile("usb/1/idVendor", "067b");
  writeFile("usb/1/product", "USB-Serial Controller");
  writeFile("usb/2/idVendor", "067b");
  const auto add = [this](const fs::path& name, const char* chip, const char* behind) {
    writeFile("class/tty" / name / (*chip != '\0' ? "type" : "dev"), chip);
    fs::create_directories(folder / behind);
    if (*behind != '\0')
      fs::create_symlink(folder / behind, folder / "class/tty" / name / "device");
  };
  add("ttyUSB10", "", "usb/2/port");
  add("ttyACM0", "", "usb/2/port");
  add("ttyS10", "4", "board");
  add("ttyS0", "4", "board");
  add("ttyS1", "0", "board");  // a place without a chip
  add("ttyS2", "3", "board");
  add("tty1", "", "");
  const PortDevices devices(folder);
  EXPECT_EQ(devices.deviceOfPort(5), "/dev/ttyUSB10");
  add("ttyUSB2", "", "usb/1/port");

  int number = 0;
  for (const char* expected :
       {"no such port on this computer", "/dev/ttyS0", "/dev/ttyS2", "/dev/ttyS10", "/dev/ttyACM0",
        "/dev/ttyUSB2, USB-Serial Controller", "/dev/ttyUSB10", "no such port on this computer"}) {
    EXPECT_EQ(devices.describePort(number++), expected);
  }
}

TEST_F(PosixLine, CarriesEveryByteValueUnchangedBothWaysAndDiscardsWhatWaits) {
  Bytes bytes(256);
  std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
  port.open();
  port.write(bytes);
  EXPECT_EQ(receiveAtFarEnd(bytes.size()), bytes);
  EXPECT_EQ(port.bytesToSend(), 0U);
  sendFromFarEnd(bytes);
  const auto read = port.readAll();
  EXPECT_EQ(Bytes(read.begin(), read.end()), bytes);
  EXPECT_TRUE(port.readAll().empty());
  sendFromFarEnd(bytes);
  port.discardWaiting();
  EXPECT_EQ(port.bytesWaiting(), 0U);
}

TEST_F(PosixLine, RunsAtEveryAcceptedRateWithEightBitsAndNoParity) {
  for (const unsigned int rate : {110U, 300U, 600U, 1200U, 2400U, 4800U, 9600U, 14400U, 19200U,
                                  28800U, 38400U, 56000U, 128000U, 256000U}) {
    port.configuration.settings = std::to_string(rate) + ",N,8,1";
    port.open();
    termios2 line{};
    ASSERT_EQ(::ioctl(farEnd.number(), TCGETS2, &line), 0);
    EXPECT_EQ(line.c_ospeed, rate);
    EXPECT_EQ(line.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), unsigned{CS8}) << rate;
    port.close();
  }
}

TEST_F(PosixLine, ALineThatIsGoneHasNothingRefusesWritesAndIsFreedByItsClose) {
  port.open();
  EXPECT_THROW(port.write(Bytes(1 << 20)), PortError);  // more than the line takes at once
  sendFromFarEnd({1, 2, 3});
  farEnd = FileDescriptor();
  EXPECT_EQ(port.bytesWaiting(), 0U);
  EXPECT_TRUE(port.readAll().empty());
  EXPECT_EQ(port.bytesToSend(), 0U);
  port.discardWaiting();
  try {
    port.write(Bytes{1});
    ADD_FAILURE() << "written";
  } catch (const PortError& error) {
    EXPECT_EQ(error.number, EIO);
    EXPECT_NE(error.description.find(device + " is gone"), std::string::npos) << error.description;
  }
  port.close();
  connect();
  port.open();
  sendFromFarEnd({7});
}

TEST_F(PosixLine, TellsAbsentUnsuitableAndWronglySetPortsApart) {
  writeFile("plain", "");
  const std::tuple<int, std::string, std::string, int, std::string> rows[] = {
      {3, device, "9600,N,8,1", ENODEV,
       "There is no serial port 3 on this computer. Plug in its adapter and try again."},
      {1, folder / "absent", "9600,N,8,1", ENOENT, "absent on this computer. Plug in"},
      {1, folder / "plain", "9600,N,8,1", ENOTTY, "plain is not a serial port. Choose"},
      {1, folder, "9600,N,8,1", EISDIR, " is not a serial port. Choose"},
      {1, folder / "plain/x", "9600,N,8,1", ENOTDIR, "plain/x cannot be used: Not a directory."},
      {1, device, "9600,E,8,1", EINVAL, "\"9600,E,8,1\" are not supported"}};
  for (const auto& [portNumber, path, settings, number, words] : rows) {
    device = path;
    port.configuration.portNumber = static_cast<std::int16_t>(portNumber);
    port.configuration.settings = settings;
    const PortError error = refusal();
    EXPECT_EQ(error.number, number) << words;
    EXPECT_NE(error.description.find(words), std::string::npos) << error.description;
  }
}

TEST_F(PosixLine, AForbiddenDeviceNamesTheGroupThatMayUseItOrTheAdministrator) {
  constexpr gid_t kDaemon = 1;
  ASSERT_TRUE(::geteuid() != 0 || ::chown(device.c_str(), 0, kDaemon) == 0);
  struct stat entry {};
  ASSERT_EQ(::stat(device.c_str(), &entry), 0);
  const std::string group = ::getgrgid(entry.st_gid)->gr_name;
  ::chmod(device.c_str(), S_IRGRP | S_IWGRP);
  EXPECT_EXIT(openAsNobody(), ::testing::ExitedWithCode(EACCES),
              "Join the group \"" + group + "\".*log in again");
  ::chmod(device.c_str(), 0);
  EXPECT_EXIT(openAsNobody(), ::testing::ExitedWithCode(EACCES), "Ask the administrator");
}

TEST_F(PosixLine, APortIsRefusedWhileItIsHeldAndFreeWhenItsHolderClosesItOrDies) {
  ::chmod(device.c_str(), S_IRUSR | S_IWUSR | S_IROTH | S_IWOTH);
  EXPECT_EXIT((port.open(), ::raise(SIGKILL)), ::testing::KilledBySignal(SIGKILL), "");
  EXPECT_EXIT(openAsNobody(), ::testing::ExitedWithCode(0), "opened");

  PosixSerialPort holder{[this](int) { return device; }, folder};
  holder.configuration = port.configuration;
  holder.open();
  const std::string busy = " is in use by another program. Close that program and try again.";
  EXPECT_EQ(refusal().description, "The serial port " + device + busy);
  holder.close();
  const FileDescriptor foreign(::open(device.c_str(), O_RDWR | O_NOCTTY));
  EXPECT_EQ(refusal().description, "opened");
  ::ioctl(foreign.number(), TIOCEXCL);
  EXPECT_EQ(refusal().number, EBUSY);
}

TEST_F(PosixLine, ObeysALockFileWhileItsProcessLivesAndLeavesItAlone) {
  const pid_t ended = ::fork();
  if (ended == 0) ::_exit(0);
  ASSERT_EQ(::waitpid(ended, nullptr, 0), ended);
  const fs::path name = "LCK.." + fs::path(device).filename().string();
  const std::pair<std::string, int> rows[] = {{"         1", EBUSY},
                                              {"1 terminal root", EBUSY},
                                              {std::to_string(ended), 0},
                                              {std::to_string(::getpid()), 0},
                                              {"no number", 0}};
  for (const auto& [text, number] : rows) {
    writeFile(name, text);
    EXPECT_EQ(refusal().number, number) << text;
    EXPECT_TRUE(fs::exists(folder / name)) << text;
  }
  fs::remove(folder / name);
  port.open();
  EXPECT_TRUE(fs::is_empty(folder));
}

}  // namespace
}  // namespace zendor
