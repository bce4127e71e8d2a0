#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "core/integers.h"

namespace quernstoke {

class ResultsControls;

// What the files of a block share, as ResultsGroup says: match number or directory.
Int32 blockKey(Int32 file);

// Blocks have two colours by turns.
enum class BlockColour : std::uint8_t { first, second };

// That of the block behind one of the `previous` colour. The key decides that of the first block
// alone: neighbours would else share a colour where the blocks between were pruned or filtered out.
BlockColour colourOfBlock(Int32 key, std::optional<BlockColour> previous);

// Prepares a display of the results from scratch and fills its first page, unless `skipFill` is 1.
// With a `keepOrder` of 0 the catalogue is sorted and grouped first, as ResultsGroup says.
void basBuildWholeGrid(ResultsControls& form, Int16 skipFill, Int16 keepOrder);

// Fills a page. The modes are those of basFillGrid_SetRegion.
void basFillGrid(ResultsControls& form, std::string_view mode, Int32 position);

}  // namespace quernstoke
