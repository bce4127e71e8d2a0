#include "core/fixedPoint.h"

#include <gtest/gtest.h>

namespace quernstoke {
namespace {

TEST(FixedPointTest, HoldsFourDecimals) {
  EXPECT_EQ(FixedPoint(Int32(3)).tenThousandths(), 30000);
  EXPECT_EQ(FixedPoint(Int32(-3)).toDouble(), -3.0);
  EXPECT_EQ(FixedPoint().tenThousandths(), 0);
}

TEST(FixedPointTest, PassesThirtyTwoBits) {
  const FixedPoint sixteenGigabytes = FixedPoint(Int32(16)).times(1 << 30);
  EXPECT_EQ(sixteenGigabytes.toDouble(), 17179869184.0);
}

TEST(FixedPointTest, ComparesByValue) {
  EXPECT_EQ(FixedPoint(Int32(2048)), FixedPoint(Int32(2)).times(1024));
  EXPECT_LT(FixedPoint(Int32(-1)), FixedPoint());
}

TEST(FixedPointTest, WhatDoesNotFitOverflows) {
  constexpr std::int64_t largest = 922337203685477;  // 2^63 / 10000, cut.
  EXPECT_EQ(FixedPoint::fromWhole(largest).tenThousandths(), largest * 10000);
  EXPECT_THROW(FixedPoint::fromWhole(largest + 1), Failure);
  EXPECT_THROW(FixedPoint::fromWhole(largest).times(2), Failure);
}

}  // namespace
}  // namespace quernstoke
