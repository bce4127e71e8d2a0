#pragma once

#include <string_view>

#include "core/integers.h"

namespace quernstoke {

class ResultsControls;

// What the files of a block share, as ResultsGroup says: match number or directory.
Int32 blockKey(Int32 file);

// Prepares a display of the results from scratch and fills its first page, unless `skipFill` is 1.
// With a `keepOrder` of 0 the catalogue is sorted and grouped first, as ResultsGroup says.
void basBuildWholeGrid(ResultsControls& form, Int16 skipFill, Int16 keepOrder);

// Fills a page. The modes are those of basFillGrid_SetRegion.
void basFillGrid(ResultsControls& form, std::string_view mode, Int32 position);

}  // namespace quernstoke
