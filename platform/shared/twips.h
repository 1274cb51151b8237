// From twips to pixels, the same on every platform.
#pragma once

#include <cmath>

#include "platform/form.h"

namespace zendor {

struct PixelRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

// Pixels at the given density, rounded to the nearest one.
inline int pixelsFromTwips(int twips, double dotsPerInch) {
  return static_cast<int>(std::round(twips * dotsPerInch / 1440.0));
}

// Edges are rounded, not widths: controls that touch in twips touch in pixels.
inline PixelRect pixelsFromTwips(const TwipRect& rect, double dotsPerInch) {
  const int left = pixelsFromTwips(rect.left, dotsPerInch);
  const int top = pixelsFromTwips(rect.top, dotsPerInch);
  return {left, top, pixelsFromTwips(rect.left + rect.width, dotsPerInch) - left,
          pixelsFromTwips(rect.top + rect.height, dotsPerInch) - top};
}

}  // namespace zendor
