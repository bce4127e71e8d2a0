#include "detect/refinement.h"

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "catalogue/permute.h"
#include "core/procedure.h"
#include "core/scanState.h"
#include "detect/modSort.h"
#include "detect/runKey.h"
#include "progress/scanStatus.h"

namespace quernstoke {

Table<Int32> FilePointerArray;

namespace {

void sortPointers(std::string_view mode) {
  const Int32 last = FileCount;
  if (mode == "NAME")
    basHeapSortByText(1, last, FileTable.FileName, FilePointerArray);
  else if (mode == "SIZE")
    basHeapSortByNumber(1, last, FileTable.FileSize, FilePointerArray);
  else if (mode == "DIRECTORY")
    basHeapSortByNumber(1, last, FileTable.FileDirNum, FilePointerArray);
  else if (mode == "MATCHNUM")
    basHeapSortByNumber(1, last, FileTable.FileStatus[statusMatch], FilePointerArray);
}

bool isDropped(Int32 file, std::string_view criteria) {
  const auto& status = FileTable.FileStatus;
  if (criteria == "PRUNED") return status[statusState][file] == fileState::removed;
  if (criteria == "NOMATCH") return status[statusMatch][file] == noMatch;
  if (criteria == "TEMPORARY") return status[statusTemporary][file] == 1;
  return false;
}

// The directories behind a dropped one move down by a row. Only parents more than two rows behind
// it are renumbered.
void renumberParents(Int32 droppedRow) {
  for (Int32 row = 1; row <= DirCount; ++row)
    if (DirTable[row].parent > droppedRow + 2) DirTable.setParent(row, DirTable[row].parent - 1);
}

}  // namespace

void basSortFilesList(std::string_view mode, bool reorder) {
  procedure("basSortFilesList", [&] {
    if (FileCount == 0) return;
    if (RunState == runState::comparing) basUpdateStatusFields("Refining file list...", -1, 0);
    FilePointerArray.redim(FileCount, false);
    for (Int32 i = 1; i <= FileCount; ++i)
      FilePointerArray[i] = i;
    sortPointers(mode);
    if (reorder) basReorderFilesFromPointerArray();
  });
}

void basReorderFilesFromPointerArray() {
  procedure("basReorderFilesFromPointerArray", [] {
    FileTable.FileName.permute(FilePointerArray, FileCount);
    permuteRows(FileTable.FileDirNum, FilePointerArray, FileCount);
    permuteRows(FileTable.FileSize, FilePointerArray, FileCount);
    permuteRows(FileTable.FileDate, FilePointerArray, FileCount);
    for (auto& column : FileTable.FileStatus)
      permuteRows(column, FilePointerArray, FileCount);
    FilePointerArray.redim(0, false);
  });
}

void basPruneFilesList(std::string_view mode) {
  procedure("basPruneFilesList", [&] {
    // No file is superfluous for being alone in its directory: the list is one run then.
    RunKey runKey(mode == "DIRECTORY" ? std::string_view() : mode);
    Int32 runLength;
    bool firstRun = true;
    for (Int32 i = 1; i <= FileCount + 1; ++i) {
      const RunStep step = i > FileCount ? RunStep{} : runKey.next(i);
      if (step.skip) continue;
      if (step.same) {
        ++runLength;
      } else if (firstRun) {
        firstRun = false;
      } else {
        if (runLength == 1) FileTable.FileStatus[statusState][i - 1] = fileState::removed;
        runLength = 1;
      }
    }
    basRemoveFilesByCriteria("PRUNED");
  });
}

void basRemoveFilesByCriteria(std::string_view criteria) {
  procedure("basRemoveFilesByCriteria", [&] {
    const Int32 countAtEntry = FileCount;
    Int32 dest = 1;
    for (Int32 src = 1; src <= countAtEntry; ++src) {
      if (isDropped(src, criteria)) {
        --FileCount;
        continue;
      }
      if (dest != src) copyFileRow(src, dest);
      ++dest;
    }
    // The row kept last goes too, whatever the criteria, if it is removed or has a temporary flag
    // of 3, which nothing sets.
    const Int32 lastKept = dest - 1;
    if (FileTable.FileStatus[statusState][lastKept] == fileState::removed ||
        FileTable.FileStatus[statusTemporary][lastKept] == 3)
      --FileCount;
    if (FileCount < 1) return;
    basRedimFilesArrays(FileCount, true);
  });
}

void basRemoveDirsByCriteria(std::string_view criteria) {
  procedure("basRemoveDirsByCriteria", [&] {
    const Int32 countAtEntry = DirCount;
    Int32 dest = 1;
    for (Int32 src = 1; src <= countAtEntry; ++src) {
      if (criteria == "TEMPORARY" && DirTable[src].temporary) {
        --DirCount;
        renumberParents(src);
        continue;
      }
      if (dest != src) DirTable.set(dest, DirTable[src]);
      ++dest;
    }
    if (dest <= DirTable.upperBound() && DirTable[dest].temporary) --DirCount;
    if (DirCount >= 1) DirTable.redim(DirCount, true);
  });
}

}  // namespace quernstoke
