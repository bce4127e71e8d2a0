#include "platform/dateTime.h"

#include <algorithm>
#include <chrono>

#include "platform/failure.h"

namespace quernstoke {

namespace {

using std::chrono::days;
using std::chrono::floor;
using std::chrono::hh_mm_ss;
using std::chrono::local_days;
using std::chrono::local_seconds;
using std::chrono::seconds;
using std::chrono::year_month_day;

constexpr int firstYear = 100;
constexpr int lastYear = 9999;

}  // namespace

CivilTime civilTime(DateTime when) {
  const local_seconds point{seconds{when.seconds}};
  const auto midnight = floor<days>(point);
  const year_month_day date{midnight};
  const hh_mm_ss time{point - midnight};
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count())};
}

DateTime dateTime(const CivilTime& civil) {
  const auto within = [](int value, int limit) { return value >= 0 && value < limit; };
  // Months and days have eight bits in the calendar's own types.
  if (!within(civil.month, 13) || !within(civil.day, 32)) fail(FailureNumber::typeMismatch);
  const year_month_day date{std::chrono::year{civil.year},
                            std::chrono::month{static_cast<unsigned>(civil.month)},
                            std::chrono::day{static_cast<unsigned>(civil.day)}};
  if (!date.ok() || civil.year < firstYear || civil.year > lastYear || !within(civil.hour, 24) ||
      !within(civil.minute, 60) || !within(civil.second, 60))
    fail(FailureNumber::typeMismatch);
  const local_seconds midnight = local_days{date};
  return {midnight.time_since_epoch().count() + civil.hour * std::int64_t{3600} +
          civil.minute * std::int64_t{60} + civil.second};
}

DateTime withinCalendar(DateTime when) {
  static const DateTime first = dateTime({firstYear, 1, 1, 0, 0, 0});
  static const DateTime last = dateTime({lastYear, 12, 31, 23, 59, 59});
  return std::clamp(when, first, last);
}

}  // namespace quernstoke
