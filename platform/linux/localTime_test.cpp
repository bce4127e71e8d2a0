#include "platform/linux/localTime.h"

#include <ctime>
#include <gtest/gtest.h>
#include <limits>
#include <optional>

#include "platform/linux/linuxClock.h"
#include "platform/linux/scopedVariable.h"

namespace quernstoke {
namespace {

// A time zone for one test. The rules stand in the text, so that no time zone file is needed.
class ScopedZone {
 public:
  explicit ScopedZone(const char* rules) {
    variable_.emplace("TZ", rules);
    ::tzset();
  }
  ~ScopedZone() {
    variable_.reset();
    ::tzset();
  }
  ScopedZone(const ScopedZone&) = delete;
  ScopedZone& operator=(const ScopedZone&) = delete;

 private:
  std::optional<ScopedVariable> variable_;
};

constexpr const char* centralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";

DateTime accordingToTheSystem(std::time_t moment) {
  std::tm parts{};
  ::localtime_r(&moment, &parts);
  return dateTime({parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour,
                   parts.tm_min, parts.tm_sec});
}

TEST(LocalTime, AddsTheOffsetOfTheSeason) {
  const ScopedZone zone(centralEurope);
  LocalTime local;
  EXPECT_EQ(civilTime(local.at(1705320000)), (CivilTime{2024, 1, 15, 13, 0, 0}));
  EXPECT_EQ(civilTime(local.at(1721044800)), (CivilTime{2024, 7, 15, 14, 0, 0}));
}

TEST(LocalTime, ChangesTheOffsetAtTheExactSecond) {
  const ScopedZone zone(centralEurope);
  LocalTime local;
  constexpr std::int64_t change = 1711846800;  // 2024-03-31 01:00:00 UTC.
  EXPECT_EQ(civilTime(local.at(change - 1)), (CivilTime{2024, 3, 31, 1, 59, 59}));
  EXPECT_EQ(civilTime(local.at(change)), (CivilTime{2024, 3, 31, 3, 0, 0}));
  EXPECT_EQ(civilTime(local.at(change - 1)), (CivilTime{2024, 3, 31, 1, 59, 59}));
}

TEST(LocalTime, AgreesWithTheSystemWhereAnOffsetChangesWithinAQuarterOfAnHour) {
  const ScopedZone zone("AAA-1:07:30BBB,M3.5.0/2:07:13,M10.5.0/3:04:05");
  LocalTime local;
  constexpr std::int64_t nearChange = 1711846800;
  for (std::int64_t moment = nearChange - 7200; moment < nearChange + 7200; moment += 7)
    ASSERT_EQ(local.at(moment), accordingToTheSystem(moment)) << moment;
}

TEST(LocalTime, AgreesWithTheSystemOverTheCenturies) {
  const ScopedZone zone(centralEurope);
  LocalTime local;
  for (std::int64_t moment = -30'000'000'000; moment < 60'000'000'000; moment += 12'345'678)
    ASSERT_EQ(local.at(moment), accordingToTheSystem(moment)) << moment;
}

TEST(LocalTime, StaysWithinTheCalendar) {
  const ScopedZone zone(centralEurope);
  LocalTime local;
  const DateTime last = dateTime({9999, 12, 31, 23, 59, 59});
  EXPECT_EQ(local.at(last.seconds), last);
  EXPECT_EQ(local.at(std::numeric_limits<std::int64_t>::max()), last);
  EXPECT_EQ(civilTime(local.at(std::numeric_limits<std::int64_t>::min())).year, 100);
}

TEST(LinuxClock, TellsLocalTime) {
  const ScopedZone zone("XXX-2");
  constexpr std::int64_t offset = std::int64_t{2} * 3600;
  const std::int64_t before = std::time(nullptr) + offset;
  const std::int64_t now = LinuxClock().now().seconds;
  EXPECT_LE(before, now);
  EXPECT_LE(now, std::time(nullptr) + offset);
}

}  // namespace
}  // namespace quernstoke
