#pragma once

#include <cstdint>

namespace quernstoke {

// The quotient of two whole numbers, computed exactly and rounded to the nearest whole number, a
// half to the even neighbour. REQUIRES: divisor > 0, and twice the divisor fits.
constexpr std::int64_t roundedQuotient(std::int64_t dividend, std::int64_t divisor) {
  std::int64_t whole = dividend / divisor;
  std::int64_t rest = dividend % divisor;
  if (rest < 0) {
    rest += divisor;
    --whole;
  }
  const bool up = 2 * rest > divisor || (2 * rest == divisor && whole % 2 != 0);
  return up ? whole + 1 : whole;
}

// The whole part of position / size x 100. REQUIRES: both at least 0, size above 0.
constexpr std::int64_t wholePercent(std::int64_t position, std::int64_t size) {
  return position * 100 / size;
}

}  // namespace quernstoke
