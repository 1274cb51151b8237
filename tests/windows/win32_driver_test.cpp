// The line of the Windows program on a driver that the test plays, because Wine does not show how a
// port is set up and how its driver fails.
#include <gtest/gtest.h>
#include <malloc.h>
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "platform/win32/win32_port_devices.h"
#include "platform/win32/win32_serial_port.h"

// Memory that was freed holds other bytes, so that a test sees whether a transfer was freed. They
// are volatile, because the compiler leaves out what it believes nobody reads.
void operator delete(void* block) noexcept {
  auto* const bytes = static_cast<volatile std::uint8_t*>(block);
  if (block != nullptr) std::fill_n(bytes, _msize(block), std::uint8_t{0xDD});
  std::free(block);  // NOLINT(cppcoreguidelines-owning-memory)
}
void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

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
  bool endsWhenCancelled = true;
};

struct Driver {
  DWORD access = 0, sharing = 0, creation = 0, flags = 0;
  DCB line{};
  COMMTIMEOUTS limits{};
  const std::uint8_t* bytes = nullptr;
  OVERLAPPED *write = nullptr, *cancelled = nullptr;
  BOOL endsAtOnce = FALSE, isThere = TRUE;
  DWORD queued = 0, purged = 0;
  DWORD openError = 0, stateError = 0, limitsError = 0, writeError = ERROR_IO_PENDING;
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
      {"data bits", line.ByteSize, 8},
      {"DTR", line.fDtrControl, DTR_CONTROL_ENABLE},
      {"RTS", line.fRtsControl, RTS_CONTROL_ENABLE},
      {"XON and XOFF are one", line.XonChar == line.XoffChar, FALSE},
      {"bytes are never translated", line.fBinary, TRUE},
      {"read: interval", limits.ReadIntervalTimeout, MAXDWORD},
      {"read: ms in all", limits.ReadTotalTimeoutConstant, 0},
      {"write: ms in all", limits.WriteTotalTimeoutConstant, 1000},
  };
  for (const auto& row : rows) EXPECT_EQ(row.value, row.expected) << row.field;
}

TEST_F(Win32DriverTest, SaysWhatAPersonCanDoAboutAPortThatDoesNotOpen) {
  const std::string busy = " Most likely another program is using COM1: close that program.";
  const std::string gone = " It is not a serial port, or its adapter has been pulled out.";
  const std::tuple<DWORD Driver::*, DWORD, std::string> rows[] = {
      {&Driver::openError, ERROR_FILE_NOT_FOUND,
       " Plug in the adapter, or give it the number COM1 in the Device Manager."},
      {&Driver::openError, ERROR_ACCESS_DENIED, busy},
      {&Driver::openError, ERROR_SHARING_VIOLATION, busy},
      {&Driver::openError, ERROR_SEM_TIMEOUT,
       " If COM1 is a Bluetooth port, switch its device on and bring it near."},
      {&Driver::openError, ERROR_INVALID_FUNCTION, gone},
      {&Driver::stateError, ERROR_INVALID_FUNCTION, gone},
      {&Driver::limitsError, ERROR_INVALID_FUNCTION, gone}};
  for (const auto& [refusal, number, advice] : rows) {
    port.close();
    driver = {};
    driver.*refusal = number;
    try {
      port.open();
      ADD_FAILURE() << "opened";
    } catch (const zendor::PortError& error) {
      EXPECT_FALSE(port.isOpen());
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
       .endsWhenCancelled = false},
      {.name = "an impossible count", .expected = 4096, .counted = MAXDWORD, .given = 4096},
  };
  for (const Read& row : rows) {
    driver.plan = row;
    driver.ticks = 0;
    EXPECT_EQ(port.readAll().size(), row.expected) << row.name;
    EXPECT_LE(driver.asked, 4096U) << row.name;
    EXPECT_LT(driver.ticks, 150U) << row.name;
    if (row.endsWhenCancelled) continue;
    // The driver may still write into the read that it has not ended.
    EXPECT_EQ(driver.read->Internal, kPending);
    EXPECT_EQ(driver.store[4], 0);
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
  driver.endsAtOnce = FALSE;
  driver.writeError = ERROR_INVALID_FUNCTION;
  EXPECT_EQ(errorOfWrite(), ERROR_INVALID_FUNCTION);
  EXPECT_EQ(port.bytesToSend(), 0U);
}

TEST_F(Win32DriverTest, GivesUpBytesThatTheDriverKeepsForEverAndReportsThemInTheNextWrite) {
  EXPECT_EQ(errorOfWrite(), 0);
  driver.ticks += 1100;  // the limit of a write, but not yet the margin
  EXPECT_EQ(port.bytesToSend(), frame.size());
  driver.ticks += 200;
  EXPECT_EQ(port.bytesToSend(), 0U);
  EXPECT_EQ(driver.cancelled, driver.write);
  EXPECT_EQ(driver.write->Internal, kPending);
  EXPECT_EQ(driver.purged, PURGE_TXCLEAR);
  EXPECT_EQ(errorOfWrite(), ERROR_TIMEOUT);
  EXPECT_EQ(port.bytesToSend(), frame.size());
  end(driver.write, kDone, frame.size());
  driver.queued = 2;
  driver.ticks += 1300;
  EXPECT_EQ(port.bytesToSend(), 0U);
  port.close();
  port.open();
  EXPECT_EQ(errorOfWrite(), 0);
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

// A program calls the functions that it imports from Windows through these pointers, so this file
// can put functions of its own there.
// NOLINTBEGIN(clang-diagnostic-reserved-identifier)
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
  SetLastError(driver.stateError);
  return BOOL{driver.stateError == ERROR_SUCCESS};
};
decltype(&SetCommTimeouts) __imp_SetCommTimeouts = [](auto, COMMTIMEOUTS* limits) {
  driver.limits = *limits;
  SetLastError(driver.limitsError);
  return BOOL{driver.limitsError == ERROR_SUCCESS};
};
decltype(&PurgeComm) __imp_PurgeComm = [](auto, DWORD queues) {
  driver.purged = queues;
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
  SetLastError(driver.writeError);
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
  if (transfer == driver.read && driver.plan.endsWhenCancelled) {
    end(transfer, kCancelled, driver.plan.given);
  }
  return TRUE;
};
}
// NOLINTEND(clang-diagnostic-reserved-identifier)
