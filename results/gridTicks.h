#pragma once

#include <cstdint>

#include "core/integers.h"

namespace quernstoke {

class FlexGridModel;

namespace tickAction {
constexpr std::int16_t untick = 0;
constexpr std::int16_t tick = 1;
constexpr std::int16_t toggle = -1;
}  // namespace tickAction

// Changes the tick of a file and paints it into the cell and, in the view of two lines, the one
// below. Any other action changes and paints nothing.
void basFlexCheckMark(Int32 file, FlexGridModel& grid, Int32 row, Int32 col, Int16 action);

}  // namespace quernstoke
