#include "bench/least_request.h"

#include <windows.h>

#include <algorithm>

namespace zendor {

namespace {

bool configure(HANDLE line) {
  DCB settings{};
  settings.DCBlength = sizeof settings;
  COMMTIMEOUTS timeouts{};
  timeouts.ReadTotalTimeoutConstant = 1000;
  return BuildCommDCBA("9600,N,8,1", &settings) && SetCommState(line, &settings) &&
         SetCommTimeouts(line, &timeouts);
}

bool exchange(HANDLE line, const Exchange& each) {
  DWORD count = 0;
  if (!WriteFile(line, each.frame.data(), static_cast<DWORD>(each.frame.size()), &count, nullptr)) {
    return false;
  }
  std::array<std::uint8_t, 64> received{};
  return ReadFile(line, received.data(), static_cast<DWORD>(each.answer), &count, nullptr) &&
         count == each.answer;
}

}  // namespace

bool makeLeastRequest(const char* device) {
  const HANDLE line =
      CreateFileA(device, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  const bool isRead = configure(line) && std::ranges::all_of(kExchanges, [=](const Exchange& each) {
                        return exchange(line, each);
                      });
  CloseHandle(line);
  return isRead;
}

}  // namespace zendor
