#pragma once

#include <optional>

#include "controls/flexGridModel.h"
#include "core/integers.h"

namespace quernstoke {

namespace resultsColumn {
constexpr int tick = 0;
constexpr int name = 1;
}  // namespace resultsColumn

// Whether the results have a column for percentages, which the profile's content limit decides.
bool hasPercentColumn();

// Writes a file into the grid from `row` on, on a back colour, and returns in `lines` how many rows
// it takes. A percentage below 1 is not shown.
void basDisplayFileDetails(Int32 file, Int32 row, Int16& lines, FlexGridModel& grid, Int16 percent,
                           std::optional<Colour> colour);

}  // namespace quernstoke
