#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "catalogue/textColumn.h"
#include "core/integers.h"
#include "core/table.h"
#include "platform/dateTime.h"

namespace quernstoke {

struct DirRow;

// Columns of FileStatus.
enum StatusColumn : std::size_t {
  statusState,      // One of the values of fileState.
  statusMatch,      // The match number, or noMatch.
  statusChain,      // The first block of the file in the block pool, or noChain.
  statusTemporary,  // 1 if the row was added while no scan was running.
  statusTick,       // 1 if the file is ticked in the results.
  statusColumns,
};

namespace fileState {
constexpr int normal = 0;
constexpr int deleted = 3;     // Deleted from disk by the user.
constexpr int unreadable = 4;  // A read failed while the file was compared.
constexpr int removed = 5;     // Has no partner, or was filtered out: the row is to go.
}  // namespace fileState

constexpr int noMatch = -2;
constexpr int noChain = -1;

// Columns of FileLocalPos: the lowest and the highest block of the local copy, -1 if there is
// none. Column 0 is not used.
enum LocalPosColumn : std::size_t {
  localPosUnused,
  localPosLowest,
  localPosHighest,
  localPosColumns
};

// The files of the catalogue, by file number 1 to FileCount. A number is valid until the next
// sort. FileLocalName and FileLocalPos belong to the row and stay there when files are sorted.
struct FileTableRecord {
  TextColumn FileName;  // Without its directory.
  Table<Int32> FileSize;
  Table<Int32> FileDirNum;  // Row of DirTable.
  Table<DateTime> FileDate;
  std::array<Table<Int32>, statusColumns> FileStatus;
  TextColumn FileLocalName;  // Full path of the local copy; empty if there is none.
  std::array<Table<Int32>, localPosColumns> FileLocalPos;
};

extern FileTableRecord FileTable;
extern Int32 FileCount;

// Gives the arrays of FileTable a new upper bound. Without `preserve` they are emptied, and the
// positions of all local copies are -1; rows that a preserving change adds have positions of 0.
void basRedimFilesArrays(Int32 upper, bool preserve);

// Adds a file as row FileCount. Its block chain is left as the row has it.
void appendFileRow(std::string_view name, Int32 directory, Int32 size, DateTime date);

// Adds a file and returns its number. While no scan is running a file of that name, letter case
// apart, that the directory holds already is returned instead.
Int32 basAddFileToList(std::string_view name, Int32 directory, Int32 size, DateTime date);

// The directory that a file is shown under; a zip entry's is the archive's path, " >> " and the
// folder in it.
std::string basGetDirnameFromFilenum(Int32 file);

// These fail with a subscript out of range for a file whose directory does not belong to the list.

const DirRow& directoryOf(Int32 file);
bool isInZip(Int32 file);
// The directory on disk that holds a file; for a zip entry, the one that holds the archive.
const std::string& containerDirectory(Int32 file);

// Makes row `to` a copy of row `from`, but for the local copy, which stays with its row.
void copyFileRow(Int32 from, Int32 to);

}  // namespace quernstoke
