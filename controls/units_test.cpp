#include "controls/units.h"

#include <gtest/gtest.h>

namespace quernstoke {
namespace {

TEST(UnitsTest, FifteenTwipsMakeAPixel) {
  EXPECT_EQ(twipsFromPixels(1), 15);
  EXPECT_EQ(twipsFromPixels(600), 9000);
  EXPECT_EQ(pixelsFromTwips(9000), 600);
}

TEST(UnitsTest, TwipsRoundToTheNearestPixel) {
  EXPECT_EQ(pixelsFromTwips(7), 0);
  EXPECT_EQ(pixelsFromTwips(8), 1);
  EXPECT_EQ(pixelsFromTwips(20), 1);
  EXPECT_EQ(pixelsFromTwips(23), 2);
  EXPECT_EQ(pixelsFromTwips(-7), 0);
  EXPECT_EQ(pixelsFromTwips(-8), -1);
  EXPECT_EQ(pixelsFromTwips(-15), -1);
}

TEST(UnitsTest, EveryPixelSurvivesTheRoundTrip) {
  for (int pixels = -2000; pixels <= 2000; ++pixels)
    ASSERT_EQ(pixelsFromTwips(twipsFromPixels(pixels)), pixels);
}

TEST(UnitsTest, APictureOfSixteenPixelsIs423UnitsWide) {
  EXPECT_EQ(pictureUnitsFromPixels(16), 423);
  EXPECT_EQ(pictureUnitsFromPixels(96), 2540);
}

}  // namespace
}  // namespace quernstoke
