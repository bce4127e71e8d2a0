#include "core/integers.h"

#include <gtest/gtest.h>

namespace quernstoke {
namespace {

template <class Statement>
int failureOf(Statement statement) {
  try {
    statement();
  } catch (const Failure& failure) {
    return failure.number;
  }
  return 0;
}

constexpr int overflow = static_cast<int>(FailureNumber::overflow);
constexpr int divisionByZero = static_cast<int>(FailureNumber::divisionByZero);

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
  EXPECT_EQ(failureOf([] { Int16(32767) + 1; }), overflow);
  EXPECT_EQ(failureOf([] { Int16(-32768) - 1; }), overflow);
  EXPECT_EQ(failureOf([] { Int16(256) * 128; }), overflow);
  EXPECT_EQ(failureOf([] { -Int16(-32768); }), overflow);
  EXPECT_EQ(failureOf([] { Int16(-32768) / -1; }), overflow);
}

TEST(IntegersTest, ThirtyTwoBitsOverflow) {
  EXPECT_EQ(failureOf([] { Int32(2147483647) + 1; }), overflow);
  EXPECT_EQ(failureOf([] { Int32(-2147483647) - 2; }), overflow);
  EXPECT_EQ(failureOf([] { Int32(2097152) * 1024; }), overflow);
}

// A count that overflows must not go on from the wrapped value in the next step of a scan.
TEST(IntegersTest, AfterAnOverflowTheOldValueStands) {
  Int16 number = 32767;
  EXPECT_EQ(failureOf([&] { ++number; }), overflow);
  EXPECT_EQ(number, 32767);
  EXPECT_EQ(failureOf([&] { number *= 2; }), overflow);
  EXPECT_EQ(number, 32767);
  number = -32768;
  EXPECT_EQ(failureOf([&] { --number; }), overflow);
  EXPECT_EQ(number, -32768);
}

TEST(IntegersTest, DividingByZeroFails) {
  EXPECT_EQ(failureOf([] { Int32(1) / 0; }), divisionByZero);
  EXPECT_EQ(failureOf([] { Int32(1) % 0; }), divisionByZero);
}

TEST(IntegersTest, ConversionIsChecked) {
  EXPECT_EQ(Int16(Int32(-32768)), -32768);
  EXPECT_EQ(failureOf([] { Int16{Int32(32768)}; }), overflow);
  EXPECT_EQ(failureOf([] { Int32{std::int64_t{2147483648}}; }), overflow);
  EXPECT_EQ(failureOf([] { Int32{std::size_t{1} << 40}; }), overflow);
}

}  // namespace
}  // namespace quernstoke
