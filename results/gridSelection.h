#pragma once

#include <optional>

#include "controls/flexGridModel.h"
#include "core/integers.h"

namespace quernstoke {

class ResultsControls;

// The grid rows of one file, or of several.
struct RowArea {
  Int32 firstRow = -1;
  Int32 lastRow = -1;

  bool isFile() const { return firstRow != -1; }
};

// The rows of the file at `row`, which becomes the first of them; rows of -1 for an empty row.
RowArea basSelectedRowArea(Int32& row, const FlexGridModel& grid);

// Whether the selection is as large as one file.
bool oneFileIsSelected(const FlexGridModel& grid);

// The file that is selected alone, none if the selection is no whole file or larger.
std::optional<Int32> onlySelectedFile(const FlexGridModel& grid);

// The file at the current row, however many are selected. An empty row has none, and fails with a
// subscript out of range.
Int32 selectedFile(const FlexGridModel& grid);

// The selection's rows from above, whichever way it was extended. One that begins on an empty row
// and runs upward stays upside down and so holds no row: a drag over empty rows alone leaves it.
RowArea selectedRows(const FlexGridModel& grid);

void focusIfVisible(FlexGridModel& grid);
void focusIfUsable(FlexGridModel& grid);  // Visible and enabled.

// The left button was clicked or a selection dragged: widens the selection to whole files, and
// toggles their ticks if it began in the column of ticks.
void gridMatches_Click(ResultsControls& form);

// Toggles the ticks of the selected files, as a click in their column of ticks would. An empty row
// has none.
void tickSelection(ResultsControls& form);

// The right button pops up the menu of the file under it or of the selection. Other buttons do
// nothing. Y is counted from the grid's upper edge, in twips.
void gridMatches_MouseDown(ResultsControls& form, GridButton button, Int32 y);

}  // namespace quernstoke
