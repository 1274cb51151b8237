// Text that stays readable on any background, by the same rule on every platform.
#pragma once

#include <cstdint>

namespace zendor {

struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
};

// The ratio of the relative luminances, from 1 (the same) to 21 (black and white).
double contrast(Rgb one, Rgb other);

// The wished text colour if it is readable on the background, else black or white.
Rgb readableOn(Rgb background, Rgb wished);

}  // namespace zendor
