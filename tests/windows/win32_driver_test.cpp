// The line of the Windows program on a driver that the test plays, for what Wine does not show.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <vector>

#include "platform/win32/win32_port_devices.h"
#include "platform/win32/win32_serial_port.h"

namespace {

constexpr ULONG_PTR kDone = 0, kPending = 0x103, kDeviceRemoved = 0xC00002B6;

struct Driver {
  std::vector<DWORD> settings;  // in the order of an open
  const std::uint8_t* bytes = nullptr;
  OVERLAPPED *write = nullptr, *cancelled = nullptr;
  BOOL endsAtOnce = FALSE, isThere = TRUE;
  DWORD queued = 0, openError = ERROR_SUCCESS;

  BOOL set(std::initializer_list<DWORD> values) {
    settings.insert(settings.end(), values);
    return TRUE;
  }
  void end(ULONG_PTR status, ULONG_PTR count) const {
    write->InternalHigh = count;
    write->Internal = status;
  }
} driver;

class Win32DriverTest : public testing::Test {
 protected:
  Win32DriverTest() {
    driver = {};
    port.configuration = {.portNumber = 1, .settings = "9600,N,8,1"};
    port.open();
  }

  std::int32_t errorOfWrite() {
    try {
      port.write(std::vector(frame));
      return 0;
    } catch (const zendor::PortError& error) {
      return error.number;
    }
  }

  const std::vector<std::uint8_t> frame{80, 0, 1, 254, 177};
  zendor::Win32SerialPort port{&zendor::comPortOf};
};

TEST_F(Win32DriverTest, OpensThePortUnsharedWithItsLinesOnAndReadsThatDoNotWait) {
  constexpr DWORD kNotShared = 0, kChanged = 0;
  EXPECT_EQ(
      driver.settings,
      (std::vector<DWORD>{GENERIC_READ | GENERIC_WRITE, kNotShared, OPEN_EXISTING,
                          FILE_FLAG_OVERLAPPED, 9600, 8, NOPARITY, ONESTOPBIT, DTR_CONTROL_ENABLE,
                          RTS_CONTROL_ENABLE, kChanged, MAXDWORD, 0, 0, 0, 1000}));
}

TEST_F(Win32DriverTest, SaysWhatAPersonCanDoAboutAPortThatDoesNotOpen) {
  const std::string busy = " Most likely another program is using COM1: close that program.";
  const std::pair<DWORD, std::string> rows[] = {
      {ERROR_FILE_NOT_FOUND,
       " Plug in the adapter, or give it the number COM1 in the Device Manager."},
      {ERROR_ACCESS_DENIED, busy},
      {ERROR_SHARING_VIOLATION, busy},
      {ERROR_INVALID_FUNCTION, " It is not a serial port, or its adapter has been pulled out."}};
  port.close();
  for (const auto& [number, advice] : rows) {
    driver.openError = number;
    try {
      port.open();
      ADD_FAILURE() << "opened";
    } catch (const zendor::PortError& error) {
      EXPECT_TRUE(error.description.starts_with("COM1: ")) << error.description;
      EXPECT_TRUE(error.description.ends_with(advice)) << error.description;
    }
  }
}

TEST_F(Win32DriverTest, CountsWhatIsUnderWayOrQueuedUntilTheLineIsGone) {
  EXPECT_EQ(errorOfWrite(), 0);
  EXPECT_EQ(port.bytesToSend(), frame.size());
  driver.isThere = FALSE;
  EXPECT_EQ(port.bytesToSend(), 0U);
  driver.isThere = TRUE;
  driver.queued = 2;
  driver.end(kDone, frame.size());
  EXPECT_EQ(port.bytesToSend(), 2U);
}

TEST_F(Win32DriverTest, ReportsAWriteThatFailsLaterInTheNextOneAndAtOnceInItself) {
  EXPECT_EQ(errorOfWrite(), 0);
  driver.end(kDeviceRemoved, 0);
  EXPECT_EQ(errorOfWrite(), ERROR_DEVICE_REMOVED);
  EXPECT_EQ(port.bytesToSend(), frame.size());  // handed over all the same
  driver.end(kDone, 3);
  EXPECT_EQ(errorOfWrite(), ERROR_TIMEOUT);
  driver.end(kDone, frame.size());
  driver.endsAtOnce = TRUE;
  EXPECT_EQ(errorOfWrite(), ERROR_TIMEOUT);
}

TEST_F(Win32DriverTest, LeavesAWriteToTheDriverUntilItHasDoneWithIt) {
  EXPECT_EQ(errorOfWrite(), 0);
  port.close();
  EXPECT_EQ(driver.cancelled, driver.write);
  EXPECT_TRUE(std::equal(frame.begin(), frame.end(), driver.bytes));
  driver.end(kDeviceRemoved, 0);
  port.open();
  EXPECT_EQ(errorOfWrite(), 0);
}

}  // namespace

// Here a program looks up the functions that it imports from Windows.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
decltype(&CreateFileW) __imp_CreateFileW = [](auto, auto access, auto sharing, auto, auto how,
                                              auto flags, auto) {
  driver.set({access, sharing, how, flags});
  SetLastError(driver.openError);
  if (driver.openError != ERROR_SUCCESS) return INVALID_HANDLE_VALUE;
  return CreateEventW(nullptr, TRUE, FALSE, nullptr);
};
decltype(&SetCommState) __imp_SetCommState = [](auto, DCB* line) {
  const DWORD changed = line->fOutxCtsFlow | line->fOutxDsrFlow | line->fOutX | line->fInX |
                        line->fNull | line->fErrorChar | line->fParity | line->fDsrSensitivity |
                        line->fAbortOnError | (line->XonChar == line->XoffChar) | !line->fBinary;
  return driver.set({line->BaudRate, line->ByteSize, line->Parity, line->StopBits,
                     line->fDtrControl, line->fRtsControl, changed});
};
decltype(&SetCommTimeouts) __imp_SetCommTimeouts = [](auto, COMMTIMEOUTS* limits) {
  const auto& [interval, readFactor, read, writeFactor, write] = *limits;
  return driver.set({interval, readFactor, read, writeFactor, write});
};
decltype(&ClearCommError) __imp_ClearCommError = [](auto, auto, COMSTAT* queues) {
  queues->cbOutQue = driver.queued;
  return driver.isThere;
};
decltype(&WriteFile) __imp_WriteFile = [](auto, auto bytes, auto, auto, OVERLAPPED* write) {
  driver.bytes = static_cast<const std::uint8_t*>(bytes);
  driver.write = write;
  driver.end(driver.endsAtOnce ? kDone : kPending, 0);
  SetLastError(ERROR_IO_PENDING);
  return driver.endsAtOnce;
};
decltype(&CancelIoEx) __imp_CancelIoEx = [](auto, OVERLAPPED* write) {
  driver.cancelled = write;
  return TRUE;
};
}
// NOLINTEND(bugprone-reserved-identifier)
