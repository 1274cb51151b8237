// The line of the Windows program on a driver that the test plays, because Wine does not show how a
// port is set up and how its driver fails.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <vector>

#include "platform/win32/win32_port_devices.h"
#include "platform/win32/win32_serial_port.h"

namespace {

constexpr ULONG_PTR kDone = 0, kPending = 0x103, kCancelled = 0xC0000120,
                    kDeviceRemoved = 0xC00002B6;

void end(OVERLAPPED* transfer, ULONG_PTR status, ULONG_PTR count) {
  transfer->InternalHigh = count;
  transfer->Internal = status;
}

// How a read goes: it ends at once, or after some looks at the clock. Each look makes the clock
// tick.
struct Read {
  const char* name = nullptr;
  std::size_t expected = 0;
  ULONG_PTR status = kDone;
  DWORD counted = 5;  // how many bytes the driver says are waiting
  DWORD given = 0;
  int looks = 0;  // until the read ends by itself
  bool begins = true;
  bool takesCancel = true;
};

struct Driver {
  DWORD access = 0, sharing = 0, creation = 0, flags = 0;
  DCB line{};
  COMMTIMEOUTS limits{};
  const std::uint8_t* bytes = nullptr;
  OVERLAPPED *write = nullptr, *cancelled = nullptr;
  BOOL endsAtOnce = FALSE, isThere = TRUE;
  DWORD queued = 0, openError = ERROR_SUCCESS;
  Read plan;
  OVERLAPPED* read = nullptr;
  std::uint8_t* store = nullptr;
  DWORD asked = 0;
  ULONGLONG ticks = 0;
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
  const DCB& line = driver.line;
  const COMMTIMEOUTS& limits = driver.limits;
  const struct {
    const char* field;
    DWORD value, expected;
  } rows[] = {
      {"access", driver.access, GENERIC_READ | GENERIC_WRITE},
      {"sharing", driver.sharing, 0},
      {"creation", driver.creation, OPEN_EXISTING},
      {"flags", driver.flags, FILE_FLAG_OVERLAPPED},
      {"baud rate", line.BaudRate, 9600},
      {"data bits", line.ByteSize, 8},
      {"parity", line.Parity, NOPARITY},
      {"parity check", line.fParity, FALSE},
      {"stop bits", line.StopBits, ONESTOPBIT},
      {"DTR", line.fDtrControl, DTR_CONTROL_ENABLE},
      {"RTS", line.fRtsControl, RTS_CONTROL_ENABLE},
      {"sending waits for CTS", line.fOutxCtsFlow, FALSE},
      {"sending waits for DSR", line.fOutxDsrFlow, FALSE},
      {"receiving takes DSR", line.fDsrSensitivity, FALSE},
      {"sending obeys XOFF", line.fOutX, FALSE},
      {"receiving sends XOFF", line.fInX, FALSE},
      {"XON and XOFF are one", line.XonChar == line.XoffChar, FALSE},
      {"zero bytes are dropped", line.fNull, FALSE},
      {"wrong bytes are replaced", line.fErrorChar, FALSE},
      {"an error stops the line", line.fAbortOnError, FALSE},
      {"bytes are never translated", line.fBinary, TRUE},
      {"read: interval", limits.ReadIntervalTimeout, MAXDWORD},
      {"read: ms a byte", limits.ReadTotalTimeoutMultiplier, 0},
      {"read: ms in all", limits.ReadTotalTimeoutConstant, 0},
      {"write: ms a byte", limits.WriteTotalTimeoutMultiplier, 0},
      {"write: ms in all", limits.WriteTotalTimeoutConstant, 1000},
  };
  for (const auto& row : rows) EXPECT_EQ(row.value, row.expected) << row.field;
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

TEST_F(Win32DriverTest, ReadsWithoutWaitingForEverWhateverTheDriverDoes) {
  constexpr int kNever = 1'000'000;
  const Read rows[] = {
      {.name = "at once", .expected = 5, .given = 5},
      {.name = "short", .expected = 3, .given = 3},
      {.name = "nothing", .expected = 0},
      {.name = "pending for a while", .expected = 5, .given = 5, .looks = 20},
      {.name = "refused", .expected = 0, .begins = false},
      {.name = "failed later", .expected = 0, .status = kDeviceRemoved, .looks = 2},
      {.name = "pending until cancelled", .expected = 0, .looks = kNever},
      {.name = "cancelled amid", .expected = 2, .given = 2, .looks = kNever},
      {.name = "not even cancelled",
       .expected = 0,
       .given = 2,
       .looks = kNever,
       .takesCancel = false},
      {.name = "an impossible count", .expected = 4096, .counted = MAXDWORD, .given = 4096},
  };
  for (const Read& row : rows) {
    driver.plan = row;
    driver.ticks = 0;
    EXPECT_EQ(port.readAll().size(), row.expected) << row.name;
    EXPECT_LE(driver.asked, 4096U) << row.name;
    EXPECT_LT(driver.ticks, 150U) << row.name;
    if (!row.takesCancel) {
      driver.store[4] = 1;  // the driver may still write there
      end(driver.read, kCancelled, 5);
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
  end(driver.write, kDone, frame.size());
  EXPECT_EQ(port.bytesToSend(), 2U);
}

TEST_F(Win32DriverTest, ReportsAWriteThatFailsLaterInTheNextOneAndAtOnceInItself) {
  EXPECT_EQ(errorOfWrite(), 0);
  end(driver.write, kDeviceRemoved, 0);
  EXPECT_EQ(errorOfWrite(), ERROR_DEVICE_REMOVED);
  EXPECT_EQ(port.bytesToSend(), frame.size());  // this write was handed over all the same
  end(driver.write, kDone, 3);
  EXPECT_EQ(errorOfWrite(), ERROR_TIMEOUT);
  end(driver.write, kDone, frame.size());
  driver.endsAtOnce = TRUE;
  EXPECT_EQ(errorOfWrite(), ERROR_TIMEOUT);
}

TEST_F(Win32DriverTest, LeavesAWriteToTheDriverUntilItHasDoneWithIt) {
  EXPECT_EQ(errorOfWrite(), 0);
  port.close();
  EXPECT_EQ(driver.cancelled, driver.write);
  EXPECT_TRUE(std::equal(frame.begin(), frame.end(), driver.bytes));
  end(driver.write, kDeviceRemoved, 0);
  port.open();
  EXPECT_EQ(errorOfWrite(), 0);
}

}  // namespace

// A program calls the functions that it imports from Windows through these pointers, so that this
// file can put functions of its own there.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
decltype(&CreateFileW) __imp_CreateFileW = [](auto, auto access, auto sharing, auto, auto creation,
                                              auto flags, auto) {
  driver.access = access;
  driver.sharing = sharing;
  driver.creation = creation;
  driver.flags = flags;
  SetLastError(driver.openError);
  if (driver.openError != ERROR_SUCCESS) return INVALID_HANDLE_VALUE;
  return CreateEventW(nullptr, TRUE, FALSE, nullptr);
};
decltype(&SetCommState) __imp_SetCommState = [](auto, DCB* line) {
  driver.line = *line;
  return TRUE;
};
decltype(&SetCommTimeouts) __imp_SetCommTimeouts = [](auto, COMMTIMEOUTS* limits) {
  driver.limits = *limits;
  return TRUE;
};
decltype(&ClearCommError) __imp_ClearCommError = [](auto, auto, COMSTAT* queues) {
  queues->cbOutQue = driver.queued;
  queues->cbInQue = driver.plan.counted;
  return driver.isThere;
};
decltype(&WriteFile) __imp_WriteFile = [](auto, auto bytes, auto, auto, OVERLAPPED* write) {
  driver.bytes = static_cast<const std::uint8_t*>(bytes);
  driver.write = write;
  end(driver.write, driver.endsAtOnce ? kDone : kPending, 0);
  SetLastError(ERROR_IO_PENDING);
  return driver.endsAtOnce;
};
decltype(&ReadFile) __imp_ReadFile = [](auto, auto bytes, auto asked, auto, OVERLAPPED* read) {
  driver.store = static_cast<std::uint8_t*>(bytes);
  driver.asked = asked;
  driver.read = read;
  end(read, driver.plan.looks == 0 ? driver.plan.status : kPending, driver.plan.given);
  SetLastError(driver.plan.begins ? ERROR_IO_PENDING : ERROR_DEVICE_REMOVED);
  return FALSE;
};
decltype(&GetTickCount64) __imp_GetTickCount64 = [] {
  if (--driver.plan.looks == 0) end(driver.read, driver.plan.status, driver.plan.given);
  return ++driver.ticks;
};
decltype(&CancelIoEx) __imp_CancelIoEx = [](auto, OVERLAPPED* transfer) {
  driver.cancelled = transfer;
  if (transfer == driver.read && driver.plan.takesCancel) {
    end(transfer, kCancelled, driver.plan.given);
  }
  return TRUE;
};
}
// NOLINTEND(bugprone-reserved-identifier)
