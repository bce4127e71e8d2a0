#include "dirmatch/dirMatchRows.h"

#include <algorithm>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/procedure.h"
#include "detect/modSort.h"
#include "detect/refinement.h"
#include "results/matchGroupIndex.h"

namespace quernstoke {

std::array<std::string, dirMatchSide::count> DirMatchBase;
Table<DirMatchRow> DirMatchRows;
Int32 DirMatchRowCount;
Table<DirMatchGridLine> DirMatchGridMap;

namespace {

constexpr int growth = 4096;

bool isDeleted(Int32 file) {
  return FileTable.FileStatus[statusState][file] == fileState::deleted;
}

// A file whose directory the list has lost lies nowhere.
bool isBelow(Int32 file, const std::string& base) {
  return isListedDirectory(FileTable.FileDirNum[file]) && directoryOf(file).name.starts_with(base);
}

// The right side wins.
Int32 sideOf(Int32 file) {
  for (const int side : {dirMatchSide::right, dirMatchSide::left})
    if (isBelow(file, DirMatchBase[sideIndex(side)])) return side;
  return dirMatchSide::none;
}

// Of the living files of a group, those below the one directory and those below the other.
Int32 countInBoth(const MatchGroup& group) {
  Int32 count;
  for (Int32 file = group.first; file < group.first + group.count; ++file) {
    if (isDeleted(file)) continue;
    for (const std::string& base : DirMatchBase)
      if (isBelow(file, base)) ++count;
  }
  return count;
}

void addRow(const DirMatchRow& row) {
  if (DirMatchRowCount >= DirMatchRows.upperBound())
    DirMatchRows.redim(DirMatchRows.upperBound() + growth, true);
  ++DirMatchRowCount;
  DirMatchRows[DirMatchRowCount] = row;
}

// Adds a file, if it is to be shown at all.
void addFile(Int32 file, Int32 groupNumber, Int32 inBoth, Int32 inGroup) {
  if (isDeleted(file)) return;
  const Int32 side = sideOf(file);
  if (side == dirMatchSide::none) return;
  addRow({file, side, groupNumber, inBoth, inGroup, FileTable.FileDirNum[file]});
}

void addGroup(Int32 number) {
  const MatchGroup& group = MatchGroupTable[number];
  const Int32 inBoth = countInBoth(group);
  for (Int32 file = group.first; file < group.first + group.count; ++file)
    addFile(file, number, inBoth, group.count);
}

}  // namespace

std::string subDirectoryOf(Int32 directory, Int32 side) {
  std::string name = listedDirectory(directory).name;
  name.erase(0, DirMatchBase[sideIndex(side)].size());
  if (name.starts_with('/') || name.starts_with('\\')) name.erase(0, 1);
  return name;
}

void basLoadFilesIntoArray(bool showAll, Int32& firstLoose) {
  procedure("basLoadFilesIntoArray", [&] {
    firstLoose = -1;
    DirMatchRowCount = 0;
    DirMatchRows.redim(growth, false);
    Int32 lastGrouped = -1;
    for (Int32 number = 0; number <= MatchGroupTable.upperBound(); ++number) {
      const MatchGroup& group = MatchGroupTable[number];
      lastGrouped = std::max(lastGrouped, group.first + group.count - 1);
      addGroup(number);
    }
    if (!showAll || lastGrouped >= FileCount) return;
    firstLoose = DirMatchRowCount + 1;
    for (Int32 file = lastGrouped + 1; file <= FileCount; ++file)
      addFile(file, noGroup, 0, 0);
  });
}

void basSortFiles(Int32 firstLoose) {
  procedure("basSortFiles", [&] {
    if (DirMatchRowCount == 0) return;
    const Table<DirMatchRow> unsorted = DirMatchRows;
    Table<Int32> files;
    Table<Int32> scratch;
    for (Table<Int32>* table : {&files, &scratch, &FilePointerArray})
      table->redim(DirMatchRowCount, false);
    for (Int32 row = 1; row <= DirMatchRowCount; ++row) {
      files[row] = unsorted[row].file;
      FilePointerArray[row] = row;
    }
    basMergeSortRows(firstLoose, DirMatchRowCount, FileTable.FileSize, files, FilePointerArray,
                     scratch);
    for (Int32 row = firstLoose; row <= DirMatchRowCount; ++row)
      DirMatchRows[row] = unsorted[FilePointerArray[row]];
  });
}

}  // namespace quernstoke
