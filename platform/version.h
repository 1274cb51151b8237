// The program's version.
#pragma once

namespace zendor {

struct Version {
  int majorNumber = 0;
  int minorNumber = 0;
  int revision = 0;
};

}  // namespace zendor
