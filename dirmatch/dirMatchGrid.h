#pragma once

#include "core/integers.h"

namespace quernstoke {

class DirMatchControls;

inline constexpr const char* dirMatchTitles =
    "<File Name|<Sub-Dir|>Size|>Date|>Dups||<File Name|<Sub-Dir|>Size|>Date|>Dups";

// A side's columns: name, sub-directory, size, date and how many files are alike. Between the sides
// lies a spacer.
namespace dirMatchColumn {
constexpr int name = 0;
constexpr int subDirectory = 1;
constexpr int size = 2;
constexpr int date = 3;
constexpr int dups = 4;
constexpr int spacer = 5;
constexpr int count = 11;
}  // namespace dirMatchColumn

// The column of the grid that a side's column is.
Int32 columnOfSide(Int32 side, int column);

// Lists and shows the files anew. The current row and the selected ones stay where they are, as far
// as the grid still has them.
void basProcessFiles(DirMatchControls& form);

// Fills the grid from DirMatchRows and says in DirMatchGridMap what each line shows. Each group
// begins level on both sides, below a dark line, and so do the loose files.
void basLoadFilesIntoGrid(DirMatchControls& form);

// Shares the grid's width out: fixed columns as wide as they need, the rest to names and
// sub-directories. Lengths are in twips.
void setDirMatchColumnWidths(DirMatchControls& form);

// Shows the two directories above their sides, fitted.
void showDirMatchBases(DirMatchControls& form);

}  // namespace quernstoke
