#include "results/gridSelection.h"

#include <algorithm>

#include "catalogue/fileTable.h"
#include "core/procedure.h"
#include "results/fileRows.h"
#include "results/gridPaging.h"
#include "results/gridTicks.h"
#include "results/resultsControls.h"

namespace quernstoke {

namespace {

constexpr int noRow = -1;

RowArea fromAbove(Int32 oneEnd, Int32 otherEnd) {
  return {std::min(oneEnd, otherEnd), std::max(oneEnd, otherEnd)};
}

// From the first file's first row to the last file's last one; empty rows at the end don't count.
RowArea draggedRows(const FlexGridModel& grid) {
  RowArea range = fromAbove(grid.row(), grid.rowSel());
  const RowArea first = basSelectedRowArea(range.firstRow, grid);
  if (first.isFile()) range.firstRow = first.firstRow;
  const RowArea last = basSelectedRowArea(range.lastRow, grid);
  if (last.isFile())
    range.lastRow = last.lastRow;
  else
    while (grid.rowData(range.lastRow) == rowMark::empty)
      --range.lastRow;
  return range;
}

// A click on an empty row is taken for one on the row whose number is that of the last file, which
// in a short list is the last file.
RowArea clickedRows(const FlexGridModel& grid) {
  Int32 row = grid.row();
  const RowArea area = basSelectedRowArea(row, grid);
  return area.isFile() ? area : RowArea{FileCount, FileCount};
}

void toggleTicks(FlexGridModel& grid, const RowArea& range) {
  for (Int32 row = range.firstRow; row <= range.lastRow; ++row)
    if (grid.rowData(row) >= 0)
      basFlexCheckMark(grid.rowData(row), grid, row, resultsColumn::tick, tickAction::toggle);
}

void selectRows(FlexGridModel& grid, const RowArea& range) {
  grid.setRow(range.firstRow);
  grid.setRowSel(range.lastRow);
  grid.setCol(resultsColumn::name);
  grid.setColSel(grid.cols() - 1);
}

// The edge between two rows belongs to the lower one.
Int32 rowAt(const FlexGridModel& grid, Int32 y) {
  Int32 hit = noRow;
  for (Int32 row = 1; row < grid.rows(); ++row)
    if (y >= grid.rowPos(row) && y <= grid.rowPos(row) + grid.rowHeight(row)) hit = row;
  return hit;
}

}  // namespace

RowArea selectedRows(const FlexGridModel& grid) {
  const bool beginsEmpty = grid.rowData(grid.row()) == rowMark::empty;
  return beginsEmpty ? RowArea{grid.row(), grid.rowSel()} : fromAbove(grid.row(), grid.rowSel());
}

void focusIfVisible(FlexGridModel& grid) {
  if (grid.visible()) grid.setFocus();
}

void focusIfUsable(FlexGridModel& grid) {
  if (grid.enabled()) focusIfVisible(grid);
}

RowArea basSelectedRowArea(Int32& row, const FlexGridModel& grid) {
  return procedure("basSelectedRowArea", [&] {
    if (grid.rowData(row) == rowMark::empty) return RowArea();
    while (grid.rowData(row) < 0)
      row += grid.rowData(row);
    RowArea area{row, row};
    while (area.lastRow + 1 < grid.rows() && grid.rowData(area.lastRow + 1) == rowMark::secondLine)
      ++area.lastRow;
    return area;
  });
}

bool oneFileIsSelected(const FlexGridModel& grid) {
  const int linesBelow = ResultsView == resultsView::oneLine ? 0 : 1;
  return grid.rowSel() == grid.row() + linesBelow;
}

std::optional<Int32> onlySelectedFile(const FlexGridModel& grid) {
  // A second line belongs to another file than the row below it.
  if (!oneFileIsSelected(grid) || grid.rowData(grid.row()) < 0) return std::nullopt;
  return grid.rowData(grid.row());
}

Int32 selectedFile(const FlexGridModel& grid) {
  Int32 row = grid.row();
  return grid.rowData(basSelectedRowArea(row, grid).firstRow);
}

void gridMatches_Click(ResultsControls& form) {
  procedure("gridMatches_Click", [&] {
    FlexGridModel& grid = form.gridMatches();
    const bool dragged = grid.row() != grid.rowSel();
    const RowArea range = dragged ? draggedRows(grid) : clickedRows(grid);
    if (grid.col() == resultsColumn::tick) toggleTicks(grid, range);
    selectRows(grid, range);
  });
}

void tickSelection(ResultsControls& form) {
  procedure("tickSelection", [&] {
    FlexGridModel& grid = form.gridMatches();
    Int32 row = grid.row();
    if (!basSelectedRowArea(row, grid).isFile()) return;
    grid.setCol(resultsColumn::tick);
    gridMatches_Click(form);
  });
}

void gridMatches_MouseDown(ResultsControls& form, GridButton button, Int32 y) {
  procedure("gridMatches_MouseDown", [&] {
    if (button != GridButton::right) return;
    FlexGridModel& grid = form.gridMatches();
    const Int32 hit = rowAt(grid, y);
    if (hit == noRow) return;
    const RowArea selected = selectedRows(grid);
    const bool several = selected.firstRow != selected.lastRow;
    if (several && hit >= selected.firstRow && hit <= selected.lastRow)
      return form.popUp("mnuRightClickMultpleFile");
    grid.setRow(hit);
    form.popUp("mnuRightClickSingleFile");
  });
}

}  // namespace quernstoke
