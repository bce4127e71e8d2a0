#pragma once

#include <string>
#include <string_view>

#include "core/fixedPoint.h"
#include "core/integers.h"
#include "platform/dateTime.h"

namespace quernstoke {

// A size in bytes from a number and its measure "B", "KB", "MB" or "GB"; any other measure counts
// as bytes. "KB" and "MB" that pass 32 bits are reported as a procedure error and give 0.
FixedPoint basConvertSize(Int32 value, std::string_view measure);

// The span between two moments, or `seconds` if that is not 0, as text such as "1h 2m 5s".
std::string basDateToDuration(DateTime start, DateTime finish, Int32 seconds);

// Whole seconds from one moment to another.
Int32 secondsBetween(DateTime start, DateTime finish);

}  // namespace quernstoke
