#pragma once

#include <compare>
#include <cstdint>

namespace quernstoke {

// A local date and time in whole seconds, counted from 1970-01-01 00:00:00 local time.
struct DateTime {
  std::int64_t seconds = 0;

  friend auto operator<=>(const DateTime&, const DateTime&) = default;
};

// A DateTime taken apart. Years run from 100 to 9999, months and days from 1.
struct CivilTime {
  int year = 1970;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;

  friend bool operator==(const CivilTime&, const CivilTime&) = default;
};

CivilTime civilTime(DateTime when);
// Fails with a type mismatch for a date that is in no calendar, such as 30 February.
DateTime dateTime(const CivilTime& civil);

// `when` itself, or the nearest date whose year has three or four digits.
DateTime withinCalendar(DateTime when);

}  // namespace quernstoke
