#include "platform/shared/readable_color.h"

#include <algorithm>
#include <cmath>

namespace zendor {

namespace {

constexpr double kReadableContrast = 4.5;

double linear(std::uint8_t component) {
  const double value = component / 255.0;
  return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(Rgb color) {
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

}  // namespace

double contrast(Rgb one, Rgb other) {
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

Rgb readableOn(Rgb background, Rgb wished) {
  if (contrast(background, wished) >= kReadableContrast) return wished;
  constexpr Rgb kBlack{};
  constexpr Rgb kWhite{255, 255, 255};
  return contrast(background, kBlack) >= contrast(background, kWhite) ? kBlack : kWhite;
}

}  // namespace zendor
