#include "core/integers.h"

#include <gtest/gtest.h>

#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

TEST(IntegersTest, ArithmeticThatFitsIsOrdinary) {
  EXPECT_EQ(Int32(7) + 5, 12);
  EXPECT_EQ(Int32(7) - 12, -5);
  EXPECT_EQ(Int32(7) * -3, -21);
  EXPECT_EQ(-Int16(4), -4);
  EXPECT_LT(Int32(-1), 0);
}

TEST(IntegersTest, DivisionCutsTowardsZero) {
  EXPECT_EQ(Int32(7) / 2, 3);
  EXPECT_EQ(Int32(-7) / 2, -3);
  EXPECT_EQ(Int32(-7) % 2, -1);
}

TEST(IntegersTest, SixteenBitsOverflow) {
  EXPECT_FAILURE(overflow, Int16(32767) + 1);
  EXPECT_FAILURE(overflow, Int16(-32768) - 1);
  EXPECT_FAILURE(overflow, Int16(256) * 128);
  EXPECT_FAILURE(overflow, -Int16(-32768));
  EXPECT_FAILURE(overflow, Int16(-32768) / -1);
}

TEST(IntegersTest, ThirtyTwoBitsOverflow) {
  EXPECT_FAILURE(overflow, Int32(2147483647) + 1);
  EXPECT_FAILURE(overflow, Int32(-2147483647) - 2);
  EXPECT_FAILURE(overflow, Int32(2097152) * 1024);
}

// A count that overflows must not go on from the wrapped value in the next step of a scan.
TEST(IntegersTest, AfterAnOverflowTheOldValueStands) {
  Int16 number = 32767;
  EXPECT_FAILURE(overflow, ++number);
  EXPECT_EQ(number, 32767);
  EXPECT_FAILURE(overflow, number *= 2);
  EXPECT_EQ(number, 32767);
  number = -32768;
  EXPECT_FAILURE(overflow, --number);
  EXPECT_EQ(number, -32768);
}

TEST(IntegersTest, DividingByZeroFails) {
  EXPECT_FAILURE(divisionByZero, Int32(1) / 0);
  EXPECT_FAILURE(divisionByZero, Int32(1) % 0);
}

TEST(IntegersTest, ConversionIsChecked) {
  EXPECT_EQ(Int16(Int32(-32768)), -32768);
  EXPECT_FAILURE(overflow, Int16{Int32(32768)});
  EXPECT_FAILURE(overflow, Int32{std::int64_t{2147483648}});
  EXPECT_FAILURE(overflow, Int32{std::size_t{1} << 40});
}

}  // namespace
}  // namespace quernstoke
