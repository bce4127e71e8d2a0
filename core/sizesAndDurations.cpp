#include "core/sizesAndDurations.h"

#include "core/procedure.h"
#include "core/text.h"

namespace quernstoke {

FixedPoint basConvertSize(Int32 value, std::string_view measure) {
  return procedure("basConvertSize", [&]() -> FixedPoint {
    // Only the last measure is computed in more than 32 bits.
    if (measure == "KB") return value * 1024;
    if (measure == "MB") return value * 1024 * 1024;
    if (measure == "GB") return FixedPoint(value).times(std::int64_t{1024} * 1024 * 1024);
    return value;
  });
}

std::string basDateToDuration(DateTime start, DateTime finish, Int32 seconds) {
  return procedure("basDateToDuration", [&] {
    const Int32 count = seconds != 0 ? seconds : secondsBetween(start, finish);
    const Int16 minutes = count / 60 % 60;
    const Int16 hours = count / 3600 % 24;
    const Int16 days = count / 86400;

    std::string text = toText(count % 60) + "s";
    if (minutes + hours + days != 0) text = toText(minutes) + "m " + text;
    if (hours + days != 0) text = toText(hours) + "h " + text;
    if (days != 0) text = toText(days) + "d " + text;
    return text;
  });
}

Int32 secondsBetween(DateTime start, DateTime finish) {
  return finish.seconds - start.seconds;
}

}  // namespace quernstoke
