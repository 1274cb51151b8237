#include "platform/qt/qt_scale.h"

#include <QScreen>
#include <algorithm>

#include "platform/shared/twips.h"

namespace zendor {

namespace {

// What the room has to be multiplied by so that the caption fits; 1 when it fits already. Rounding
// can remove a pixel from the room at each end, so two are added.
double growthFor(int caption, int room) { return caption <= room ? 1 : (caption + 2.0) / room; }

// The greatest growth that a caption in the user's font needs. Captions in a described font need
// none, because that font grows with its room.
double growthForCaptions(const FormDescription& description, const FormScale& scale) {
  double growth = 1;
  QWidget scratch;
  for (const FormControl& control : description.controls) {
    if (control.font) continue;
    const auto widget = makeControl(control, scratch);
    placeControl(*widget, control, scale);
    const QSize room = widget->size();
    growth = std::max({growth, growthFor(widget->sizeHint().width(), room.width()),
                       growthFor(widget->fontMetrics().height(), room.height())});
  }
  return growth;
}

// At most 1: the share of the form that fits into the part of the screen that programs may use.
double shareOnScreen(const QSize& screen, int frameHeight, const FormDescription& description,
                     double dotsPerInch) {
  const int width = pixelsFromTwips(description.width, dotsPerInch);
  const int height = pixelsFromTwips(description.height, dotsPerInch);
  return std::min(
      {1.0, 1.0 * screen.width() / width, 1.0 * (screen.height() - frameHeight) / height});
}

}  // namespace

FormScale scaleOf(const QWidget& window, int frameHeight, const FormDescription& description) {
  const double dotsPerInch = window.screen()->logicalDotsPerInch();
  const double growth = growthForCaptions(description, {dotsPerInch, 1, 1});
  const QSize screen = window.screen()->availableSize();
  const double share = shareOnScreen(screen, frameHeight, description, dotsPerInch * growth);
  FormScale scale{dotsPerInch * growth * share, growth * share, share};
  // The circles of option buttons do not shrink, so their captions have to make room for them.
  constexpr double kLeastFactor = 0.1;
  constexpr double kShrinkStep = 0.98;
  while (share < 1 && scale.userFontFactor > kLeastFactor &&
         growthForCaptions(description, scale) > 1) {
    scale.userFontFactor *= kShrinkStep;
  }
  return scale;
}

}  // namespace zendor
