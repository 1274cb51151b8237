#include "bench/least_request.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>

namespace zendor {

namespace {

bool configure(int line) {
  termios settings{};
  ::cfmakeraw(&settings);
  settings.c_cflag |= CREAD | CLOCAL;
  ::cfsetspeed(&settings, B9600);
  return ::tcsetattr(line, TCSANOW, &settings) == 0;
}

bool exchange(int line, const Exchange& exchange) {
  if (::write(line, exchange.frame.data(), exchange.frame.size()) < 0) return false;
  std::array<std::uint8_t, 64> received{};
  for (std::size_t count = 0; count < exchange.answer;) {
    pollfd ready{line, POLLIN, 0};
    if (::poll(&ready, 1, 1000) <= 0) return false;
    const ssize_t read = ::read(line, received.data(), received.size());
    if (read <= 0) return false;
    count += static_cast<std::size_t>(read);
  }
  return true;
}

}  // namespace

bool makeLeastRequest(const char* device) {
  const int line = ::open(device, O_RDWR | O_NOCTTY | O_CLOEXEC);
  const bool isRead = configure(line) && std::ranges::all_of(kExchanges, [=](const Exchange& each) {
                        return exchange(line, each);
                      });
  ::close(line);
  return isRead;
}

}  // namespace zendor
