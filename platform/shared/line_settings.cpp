#include "platform/shared/line_settings.h"

#include <charconv>

#include "platform/serial_port.h"

namespace zendor {

int baudRateOfSettings(const std::string& settings, int errorNumber) {
  const char* const end = settings.data() + settings.size();
  int baud = 0;
  const auto [rest, error] = std::from_chars(settings.data(), end, baud);
  if (error != std::errc{} || baud <= 0 || std::string(rest, end) != ",N,8,1") {
    throw PortError{errorNumber, "The port settings \"" + settings +
                                     "\" are not supported: a baud rate and \",N,8,1\" (no "
                                     "parity, 8 data bits, 1 stop bit) are expected."};
  }
  return baud;
}

}  // namespace zendor
