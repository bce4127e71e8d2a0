#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/integers.h"
#include "core/table.h"

namespace quernstoke {

namespace dirKind {
constexpr char none = '\0';
constexpr char directory = 'D';
constexpr char zipFile = 'Z';
constexpr char zipFolder = 'z';
constexpr char file = 'F';  // In the walk only; never in the table.
}  // namespace dirKind

constexpr int noParent = -1;  // The parent of a walk's starting directory.

struct DirRow {
  // A directory's or zip file's full path without a final backslash; for a folder in a zip file
  // its path there with forward slashes, empty for the archive's root.
  std::string name;
  char kind = dirKind::none;
  Int32 parent;            // Row of the directory or, for a folder in a zip, of the zip file.
  bool temporary = false;  // Added while no scan was running.
};

// The directories of the catalogue, rows 1 to DirCount. Looking a name up walks all rows, but
// walks them by a hash of four bytes a row, so that 100,000 directories stay affordable.
class DirectoryTable {
 public:
  void redim(Int32 upper, bool preserve);
  Int32 upperBound() const { return rows_.upperBound(); }

  // Fail with a subscript out of range.
  const DirRow& operator[](Int32 row) const { return rows_[row]; }
  void set(Int32 row, DirRow content);
  void setParent(Int32 row, Int32 parent) { rows_[row].parent = parent; }
  void setTemporary(Int32 row, bool temporary) { rows_[row].temporary = temporary; }

  // The first row from 1 to the upper bound with this name, letter case counting, or -1.
  Int32 find(std::string_view name) const;
  // The first row from 1 to DirCount of this folder in this zip file, or -1.
  Int32 findFolder(std::string_view name, Int32 zipRow) const;

 private:
  template <class Fits>
  Int32 findFirst(std::string_view name, Int32 last, Fits fits) const;

  Table<DirRow> rows_;
  Table<std::uint32_t> hashes_;  // Of the name of each row.
};

extern DirectoryTable DirTable;
extern Int32 DirCount;

// Adds a row and returns it. A table that is full grows by `growth` rows.
Int32 appendDirRow(std::string name, char kind, Int32 parent, int growth);

// Adds a directory or zip file, or finds the row of the same name, and returns its row.
Int32 basAddDirToList(std::string_view name, char kind, Int32 parent, bool& existed);

// Whether a row belongs to the list. A list may come without its directories, and the table still
// hold those of another one.
bool isListedDirectory(Int32 row);

// Fails with a subscript out of range for a row that does not belong to the list.
const DirRow& listedDirectory(Int32 row);

// The row of a name, letter case counting, or -1.
Int32 basFindDirInList(std::string_view name);

}  // namespace quernstoke
