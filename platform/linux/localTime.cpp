#include "platform/linux/localTime.h"

#include <ctime>

namespace quernstoke {

namespace {

std::int64_t systemOffset(std::int64_t utcSeconds) {
  const std::time_t moment = utcSeconds;
  std::tm local{};
  return ::localtime_r(&moment, &local) == nullptr ? 0 : local.tm_gmtoff;
}

std::int64_t floorDivide(std::int64_t dividend, std::int64_t divisor) {
  return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}

}  // namespace

DateTime LocalTime::at(std::int64_t utcSeconds) {
  // Limited twice, so that no date overflows on the way.
  const std::int64_t limited = withinCalendar({utcSeconds}).seconds;
  return withinCalendar({limited + offsetAt(limited)});
}

std::int64_t LocalTime::offsetAt(std::int64_t utcSeconds) {
  const std::int64_t number = floorDivide(utcSeconds, blockSeconds);
  Block& block = blocks_[static_cast<std::uint64_t>(number) % rememberedBlocks];
  if (block.number == number) return block.offset;
  const std::int64_t first = systemOffset(number * blockSeconds);
  const std::int64_t last = systemOffset((number + 1) * blockSeconds - 1);
  if (first != last) return systemOffset(utcSeconds);
  block = {number, first};
  return first;
}

}  // namespace quernstoke
