#include "core/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/locale.h"
#include "platform/platform.h"

namespace quernstoke {

namespace {

std::string_view withoutBlanks(std::string_view text) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && isBlank(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

std::size_t takeDigits(std::string_view& text) {
  const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
  text.remove_prefix(count);
  return count;
}

void takeSign(std::string_view& text) {
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
}

// The power of ten of a number's first digit that is not 0.
std::int64_t magnitude(std::string_view number) {
  const std::size_t end = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, end);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const auto behindFirst = static_cast<std::int64_t>(point) -
                           static_cast<std::int64_t>(digits.find_first_of("123456789"));
  std::string_view power = number.substr(std::min(end + 1, number.size()));
  if (power.starts_with('+')) power.remove_prefix(1);
  std::int32_t exponent = 0;
  if (std::from_chars(power.data(), power.data() + power.size(), exponent).ec ==
      std::errc::result_out_of_range)
    exponent = power.starts_with('-') ? std::numeric_limits<std::int32_t>::min()
                                      : std::numeric_limits<std::int32_t>::max();
  return exponent + behindFirst;
}

// Infinite for a number that is too large; 0 for one that is too near to it.
double toDouble(std::string_view text) {
  if (!isNumeric(text)) fail(FailureNumber::typeMismatch);
  text = withoutBlanks(text);
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() && magnitude(text) > 0) return std::numeric_limits<double>::infinity();
  return number;
}

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

char lowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

bool isNumeric(std::string_view text) {
  text = withoutBlanks(text);
  takeSign(text);
  std::size_t digits = takeDigits(text);
  if (text.starts_with('.')) {
    text.remove_prefix(1);
    digits += takeDigits(text);
  }
  if (digits == 0) return false;
  if (text.starts_with('e') || text.starts_with('E')) {
    text.remove_prefix(1);
    takeSign(text);
    if (takeDigits(text) == 0) return false;
  }
  return text.empty();
}

Int32 toNumber(std::string_view text) {
  const double whole = std::nearbyint(toDouble(text));  // To nearest, ties to even.
  if (whole < std::numeric_limits<std::int32_t>::min() ||
      whole > std::numeric_limits<std::int32_t>::max())
    fail(FailureNumber::overflow);
  return static_cast<std::int32_t>(whole);
}

double wholePart(std::string_view text) {
  return std::trunc(toDouble(text));
}

bool toBoolean(std::string_view text) {
  if (equalIgnoringCase(text, "True")) return true;
  if (equalIgnoringCase(text, "False")) return false;
  return toNumber(text) != 0;
}

std::string toText(Int32 number) {
  return std::to_string(number.raw());
}

std::string toText(bool truth) {
  return truth ? "True" : "False";
}

std::string lower(std::string_view text) {
  return userLocale().lower(text);
}

std::string upper(std::string_view text) {
  return userLocale().upper(text);
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
  if (isAscii(a) && isAscii(b))
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lowerAscii(x) == lowerAscii(y); });
  return lower(a) == lower(b);
}

bool startsWithIgnoringCase(std::string_view text, std::string_view start) {
  if (isAscii(text) && isAscii(start))
    return text.size() >= start.size() && equalIgnoringCase(text.substr(0, start.size()), start);
  return lower(text).starts_with(lower(start));
}

std::string grouped(std::int64_t number) {
  std::string digits = std::to_string(number);
  const std::string separator = userLocale().thousandsSeparator();
  const std::size_t firstDigit = number < 0 ? 1 : 0;
  for (std::size_t at = digits.size(); at > firstDigit + 3;) {
    at -= 3;
    digits.insert(at, separator);
  }
  return digits;
}

std::string percentWithTwoDecimals(float fraction) {
  // Room for any float. Not printf, whose decimal point is that of the process's own locale.
  char buffer[64];
  const double percent = static_cast<double>(fraction) * 100;
  const char* end =
      std::to_chars(buffer, buffer + sizeof buffer, percent, std::chars_format::fixed, 2).ptr;
  std::string text(static_cast<const char*>(buffer), end);
  text.replace(text.find('.'), 1, userLocale().decimalPoint());
  return text + "%";
}

}  // namespace quernstoke
