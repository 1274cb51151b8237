#include "serial/baud_rates.h"

namespace zendor {

std::vector<int> BaudRateList() {
  return {110, 300, 600, 1200, 2400, 4800, 9600, 14400, 19200, 28800, 38400, 56000, 128000, 256000};
}

}  // namespace zendor
