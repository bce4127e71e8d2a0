#pragma once

#include <string_view>

#include "core/integers.h"
#include "core/table.h"

namespace quernstoke {

// The file numbers that a sort permutes, slots 1 to FileCount.
extern Table<Int32> FilePointerArray;

// Sorts the catalogue by "NAME", "SIZE", "MATCHNUM" or "DIRECTORY" into FilePointerArray and, with
// `reorder`, moves the rows accordingly.
void basSortFilesList(std::string_view mode, bool reorder);

// Moves the rows of the catalogue into the order of FilePointerArray, which is then reset.
void basReorderFilesFromPointerArray();

// Takes the files that stand alone in their run of "NAME", "SIZE" or "MATCHNUM" out of the sorted
// catalogue. The first run of the list counts one short: a first run of one file stays, and one of
// two loses its second file.
void basPruneFilesList(std::string_view mode);

// Drops the files that were pruned ("PRUNED"), have no match number ("NOMATCH") or were added
// while no scan was running ("TEMPORARY").
void basRemoveFilesByCriteria(std::string_view criteria);

// Drops the directories that were added while no scan was running ("TEMPORARY").
void basRemoveDirsByCriteria(std::string_view criteria);

}  // namespace quernstoke
