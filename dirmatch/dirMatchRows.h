#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "core/integers.h"
#include "core/table.h"
#include "results/directoryMatch.h"

namespace quernstoke {

namespace dirMatchSide {
constexpr int none = -1;
constexpr int left = 0;
constexpr int right = 1;
constexpr int count = 2;
}  // namespace dirMatchSide

// The place of a side in an array by side.
inline std::size_t sideIndex(Int32 side) {
  return static_cast<std::size_t>(side.raw());
}

constexpr int noGroup = -1;

// A file below one of the directories.
struct DirMatchRow {
  Int32 file;
  Int32 side;
  Int32 group;         // Row of MatchGroupTable, or noGroup for a loose file.
  Int32 countInBoth;   // The group's files below the two directories; one below both counts twice.
  Int32 countInGroup;  // All of the group's files. Both counts of a loose file are 0.
  Int32 directory;     // Row of DirTable.
};

// The names of the two directories, by side. Names that begin with one lie below it, also those
// of directories beside it.
extern std::array<std::string, dirMatchSide::count> DirMatchBase;

// Rows 1 to DirMatchRowCount: those of the groups, in the groups' order, then the loose ones.
extern Table<DirMatchRow> DirMatchRows;
extern Int32 DirMatchRowCount;

// What stands in each line of the grid on each side: a row of DirMatchRows, nothing or a separator.
using DirMatchGridLine = std::array<Int32, dirMatchSide::count>;
extern Table<DirMatchGridLine> DirMatchGridMap;
namespace dirMatchEntry {
constexpr int nothing = 0;
constexpr int separator = -1;
}  // namespace dirMatchEntry

// Where a directory, a row of DirTable, lies below that of a side. Fails with a subscript out of
// range for one that does not belong to the list.
std::string subDirectoryOf(Int32 directory, Int32 side);

// Lists the files of all groups that lie below the directories, a file below both on the right, and
// with `showAll` also the files that the catalogue has behind its groups. `firstLoose` becomes the
// row from which on these stand, or -1 where there can be none. Deleted files are left out.
void basLoadFilesIntoArray(bool showAll, Int32& firstLoose);

// Sorts the rows from `firstLoose` on by size, stably. FilePointerArray serves as its pointers.
void basSortFiles(Int32 firstLoose);

}  // namespace quernstoke
