#include "core/rounding.h"

#include <gtest/gtest.h>

namespace quernstoke {
namespace {

TEST(RoundingTest, RoundsToTheNearest) {
  EXPECT_EQ(roundedQuotient(7, 3), 2);
  EXPECT_EQ(roundedQuotient(8, 3), 3);
  EXPECT_EQ(roundedQuotient(0, 3), 0);
}

TEST(RoundingTest, AHalfGoesToTheEvenNeighbour) {
  EXPECT_EQ(roundedQuotient(1, 2), 0);
  EXPECT_EQ(roundedQuotient(3, 2), 2);
  EXPECT_EQ(roundedQuotient(5, 2), 2);
  EXPECT_EQ(roundedQuotient(7, 2), 4);
}

TEST(RoundingTest, NegativeNumbersLikewise) {
  EXPECT_EQ(roundedQuotient(-7, 3), -2);
  EXPECT_EQ(roundedQuotient(-8, 3), -3);
  EXPECT_EQ(roundedQuotient(-1, 2), 0);
  EXPECT_EQ(roundedQuotient(-3, 2), -2);
  EXPECT_EQ(roundedQuotient(-5, 2), -2);
}

// Floating point would lose the last digit.
TEST(RoundingTest, LargeQuotientsAreExact) {
  EXPECT_EQ(roundedQuotient(9007199254740993, 1), 9007199254740993);
}

TEST(RoundingTest, PercentagesAreCut) {
  EXPECT_EQ(wholePercent(0, 3), 0);
  EXPECT_EQ(wholePercent(1, 3), 33);
  EXPECT_EQ(wholePercent(199, 200), 99);
  EXPECT_EQ(wholePercent(3, 3), 100);
}

// 29 / 100 x 100 in floating point is a little less than 29.
TEST(RoundingTest, PercentagesAreExact) {
  EXPECT_EQ(wholePercent(29, 100), 29);
  EXPECT_EQ(wholePercent(2147483647, 2147483647), 100);
}

}  // namespace
}  // namespace quernstoke
