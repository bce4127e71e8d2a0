#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <utility>

#include "platform/failure.h"

namespace quernstoke {

// A signed integer whose arithmetic is checked: a result that does not fit fails with an overflow
// instead of wrapping. Other integers convert to it, checked likewise.
template <std::signed_integral Raw>
class Checked {
 public:
  constexpr Checked() = default;
  template <std::integral From>
  constexpr Checked(From value)  // NOLINT(google-explicit-constructor): numbers are numbers
      : value_(static_cast<Raw>(value)) {
    if (!std::in_range<Raw>(value)) fail(FailureNumber::overflow);
  }
  template <std::signed_integral From>
  constexpr Checked(Checked<From> value)  // NOLINT(google-explicit-constructor)
      : Checked(value.raw()) {}

  constexpr Raw raw() const { return value_; }

  constexpr Checked& operator+=(Checked other) {
    Raw result = 0;
    if (__builtin_add_overflow(value_, other.value_, &result)) fail(FailureNumber::overflow);
    return take(result);
  }
  constexpr Checked& operator-=(Checked other) {
    Raw result = 0;
    if (__builtin_sub_overflow(value_, other.value_, &result)) fail(FailureNumber::overflow);
    return take(result);
  }
  constexpr Checked& operator*=(Checked other) {
    Raw result = 0;
    if (__builtin_mul_overflow(value_, other.value_, &result)) fail(FailureNumber::overflow);
    return take(result);
  }
  constexpr Checked& operator/=(Checked other) {  // Cuts towards 0.
    requireDivisor(other);
    value_ = static_cast<Raw>(value_ / other.value_);
    return *this;
  }
  constexpr Checked& operator%=(Checked other) {
    requireDivisor(other);
    value_ = static_cast<Raw>(value_ % other.value_);
    return *this;
  }
  constexpr Checked& operator++() { return *this += Checked(1); }
  constexpr Checked& operator--() { return *this -= Checked(1); }
  constexpr Checked operator-() const { return Checked(0) -= *this; }

  friend constexpr Checked operator+(Checked a, Checked b) { return a += b; }
  friend constexpr Checked operator-(Checked a, Checked b) { return a -= b; }
  friend constexpr Checked operator*(Checked a, Checked b) { return a *= b; }
  friend constexpr Checked operator/(Checked a, Checked b) { return a /= b; }
  friend constexpr Checked operator%(Checked a, Checked b) { return a %= b; }
  friend constexpr bool operator==(Checked, Checked) = default;
  friend constexpr auto operator<=>(Checked, Checked) = default;

 private:
  // A result is taken over only if it fits: after an overflow the old value still stands.
  constexpr Checked& take(Raw result) {
    value_ = result;
    return *this;
  }
  constexpr void requireDivisor(Checked other) const {
    if (other.value_ == 0) fail(FailureNumber::divisionByZero);
    if (other.value_ == -1 && value_ == std::numeric_limits<Raw>::min())
      fail(FailureNumber::overflow);
  }

  Raw value_ = 0;
};

using Int16 = Checked<std::int16_t>;
using Int32 = Checked<std::int32_t>;

}  // namespace quernstoke
