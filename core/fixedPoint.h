#pragma once

#include <compare>
#include <cstdint>

#include "core/integers.h"

namespace quernstoke {

// A number with four decimals, held as a 64-bit count of ten-thousandths. Overflow fails.
class FixedPoint {
 public:
  constexpr FixedPoint() = default;
  constexpr FixedPoint(Int32 whole)  // NOLINT(google-explicit-constructor): numbers are numbers
      : tenThousandths_(std::int64_t{whole.raw()} * scale) {}
  constexpr static FixedPoint fromWhole(std::int64_t whole) {
    FixedPoint result;
    if (__builtin_mul_overflow(whole, scale, &result.tenThousandths_))
      fail(FailureNumber::overflow);
    return result;
  }

  constexpr FixedPoint times(std::int64_t factor) const {
    FixedPoint result;
    if (__builtin_mul_overflow(tenThousandths_, factor, &result.tenThousandths_))
      fail(FailureNumber::overflow);
    return result;
  }

  constexpr std::int64_t tenThousandths() const { return tenThousandths_; }
  constexpr double toDouble() const { return static_cast<double>(tenThousandths_) / scale; }

  friend constexpr bool operator==(FixedPoint, FixedPoint) = default;
  friend constexpr auto operator<=>(FixedPoint, FixedPoint) = default;

  static constexpr std::int64_t scale = 10000;

 private:
  std::int64_t tenThousandths_ = 0;
};

}  // namespace quernstoke
