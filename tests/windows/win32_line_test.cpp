// The line of the Windows program on COM1. The device behind that port sends everything back. No
// computer has a port COM0.
#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <numeric>
#include <vector>

#include "platform/win32/win32_port_devices.h"
#include "platform/win32/win32_serial_port.h"

namespace zendor {
namespace {

using Bytes = std::vector<std::uint8_t>;

class Win32LineTest : public testing::Test {
 protected:
  Win32LineTest() {
    port.configuration.portNumber = 1;
    port.configuration.settings = "9600,N,8,1";
  }

  void awaitBytes(std::size_t count) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (port.bytesWaiting() < count && std::chrono::steady_clock::now() < end) Sleep(1);
    ASSERT_EQ(port.bytesWaiting(), count);
  }

  Win32SerialPort port{&comPortOf};
};

TEST_F(Win32LineTest, CarriesEveryByteValueGivesAllThatWaitsAtOnceAndDiscardsIt) {
  Bytes everyValue(256);
  std::iota(everyValue.begin(), everyValue.end(), std::uint8_t{0});
  port.open();
  EXPECT_TRUE(port.readAll().empty());
  port.write(everyValue);
  awaitBytes(everyValue.size());
  const auto read = port.readAll();
  EXPECT_EQ(Bytes(read.begin(), read.end()), everyValue);
  EXPECT_EQ(port.bytesWaiting(), 0U);
  EXPECT_EQ(port.bytesToSend(), 0U);
  port.write(everyValue);
  awaitBytes(everyValue.size());
  port.discardWaiting();
  EXPECT_EQ(port.bytesWaiting(), 0U);
}

TEST_F(Win32LineTest, RefusesWithTheSystemsNumberAndStaysClosed) {
  const struct {
    std::int16_t portNumber;
    const char* settings;
    std::int32_t error;
    const char* words;
  } rows[] = {
      {0, "9600,N,8,1", ERROR_FILE_NOT_FOUND, "COM0: "},
      {1, "9600,E,7,1", ERROR_INVALID_PARAMETER, "9600,E,7,1"},
  };
  for (const auto& row : rows) {
    port.configuration.portNumber = row.portNumber;
    port.configuration.settings = row.settings;
    try {
      port.open();
      ADD_FAILURE() << row.words << " was opened";
    } catch (const PortError& error) {
      EXPECT_EQ(error.number, row.error);
      EXPECT_NE(error.description.find(row.words), std::string::npos) << error.description;
    }
    EXPECT_FALSE(port.isOpen());
  }
}

}  // namespace
}  // namespace zendor
