#pragma once

#include <cstdint>

namespace quernstoke {

// Lengths of the windows are counted in twips, 1/1440 inch, and become pixels at the border to Qt.
// Qt's pixels are 1/96 inch on every screen: it scales them itself.

constexpr std::int32_t twipsPerPixel = 15;

constexpr std::int32_t twipsFromPixels(std::int32_t pixels) {
  return pixels * twipsPerPixel;
}

// To the nearest pixel, halves upward, so that neighbouring lengths join without a gap.
constexpr std::int32_t pixelsFromTwips(std::int32_t twips) {
  const std::int32_t shifted = twips + twipsPerPixel / 2;
  const std::int32_t cut = shifted / twipsPerPixel;
  return shifted % twipsPerPixel < 0 ? cut - 1 : cut;
}

// A picture tells its size in units of its own, 1/100 mm. Some column widths take it as it is.
constexpr std::int32_t pictureUnitsFromPixels(std::int32_t pixels) {
  constexpr std::int32_t unitsPerInch = 2540;
  constexpr std::int32_t pixelsPerInch = 96;
  return (pixels * unitsPerInch + pixelsPerInch / 2) / pixelsPerInch;
}

}  // namespace quernstoke
