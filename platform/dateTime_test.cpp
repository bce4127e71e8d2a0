#include "platform/dateTime.h"

#include <gtest/gtest.h>
#include <limits>

#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

TEST(DateTime, CountsSecondsFromTheYear1970) {
  EXPECT_EQ(civilTime({0}), (CivilTime{1970, 1, 1, 0, 0, 0}));
  EXPECT_EQ(civilTime({-1}), (CivilTime{1969, 12, 31, 23, 59, 59}));
  EXPECT_EQ(dateTime({2000, 2, 29, 0, 0, 0}).seconds, 951782400);
  EXPECT_EQ(civilTime({1'000'000'000}), (CivilTime{2001, 9, 9, 1, 46, 40}));
}

TEST(DateTime, DatesAllOverTheCalendarSurviveTheRoundTrip) {
  const std::int64_t last = dateTime({9999, 12, 31, 23, 59, 59}).seconds;
  for (std::int64_t seconds = dateTime({100, 1, 1, 0, 0, 0}).seconds; seconds <= last;
       seconds += 10 * 86400 - 7)
    ASSERT_EQ(dateTime(civilTime({seconds})).seconds, seconds);
}

TEST(DateTime, DatesThatAreInNoCalendarFail) {
  for (const CivilTime& wrong : {CivilTime{2023, 2, 29, 0, 0, 0}, CivilTime{2024, 2, 30, 0, 0, 0},
                                 CivilTime{1900, 2, 29, 0, 0, 0}, CivilTime{2024, 13, 1, 0, 0, 0},
                                 CivilTime{2024, 0, 1, 0, 0, 0}, CivilTime{2024, 4, 31, 0, 0, 0},
                                 CivilTime{2024, 1, 1, 24, 0, 0}, CivilTime{2024, 1, 1, 0, 60, 0},
                                 CivilTime{2024, 1, 1, 0, 0, -1}, CivilTime{99, 1, 1, 0, 0, 0},
                                 CivilTime{10000, 1, 1, 0, 0, 0}, CivilTime{2024, -1, 1, 0, 0, 0},
                                 CivilTime{2024, 257, 1, 0, 0, 0}, CivilTime{2024, 1, 257, 0, 0, 0},
                                 CivilTime{67560, 1, 1, 0, 0, 0}}) {
    EXPECT_FAILURE(typeMismatch, dateTime(wrong))
        << wrong.year << '-' << wrong.month << '-' << wrong.day;
  }
}

TEST(DateTime, IsBroughtWithinTheCalendar) {
  EXPECT_EQ(withinCalendar({std::numeric_limits<std::int64_t>::max()}),
            dateTime({9999, 12, 31, 23, 59, 59}));
  EXPECT_EQ(withinCalendar({std::numeric_limits<std::int64_t>::min()}),
            dateTime({100, 1, 1, 0, 0, 0}));
  EXPECT_EQ(withinCalendar({12345}).seconds, 12345);
}

TEST(DateTime, IsOrderedByTime) {
  EXPECT_LT(dateTime({1999, 12, 31, 23, 59, 59}), dateTime({2000, 1, 1, 0, 0, 0}));
}

}  // namespace
}  // namespace quernstoke
