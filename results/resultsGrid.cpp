#include "results/resultsGrid.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/fileTable.h"
#include "controls/flexGridModel.h"
#include "core/modMain.h"
#include "core/procedure.h"
#include "core/scanState.h"
#include "detect/refinement.h"
#include "platform/controls.h"
#include "results/fileRows.h"
#include "results/gridPaging.h"
#include "results/gridScrolling.h"
#include "results/gridSelection.h"
#include "results/gridWidths.h"
#include "results/matchGroupIndex.h"
#include "results/resultsControls.h"

namespace quernstoke {

namespace {

void sortAndGroup() {
  const std::string_view key = ResultsGroup == resultsGroup::match ? "MATCHNUM" : "DIRECTORY";
  basSortFilesList(key, true);
  basSetupMatchGroupInfo(key, startMode::refresh);
}

void showNoDuplicates(ResultsControls& form) {
  form.gridMatches().setVisible(false);
  form.vscrGridMatches().setVisible(false);
  form.labNoDuplicates(true);
  for (const char* control :
       {"cmdOpenFile", "cmdOpenDir", "cmdFilter", "cmdDeleteFile_0", "cmdDeleteFile_1", "cboGroup",
        "cboView", "cmdSetDir_0", "cmdSetDir_1", "cmdSetDir_2"})
    form.disable(control);
}

void showPage(ResultsControls& form) {
  FlexGridModel& grid = form.gridMatches();
  const bool hasRows = grid.rows() >= 2;
  grid.setVisible(hasRows);
  form.vscrGridMatches().setVisible(hasRows && FileCount >= Int32(GridPageRows));
  if (hasRows) form.labNoDuplicates(false);
}

void selectFirstRow(FlexGridModel& grid) {
  grid.setTopRow(1);
  grid.setRow(1);
  grid.setCol(resultsColumn::name);
  grid.setColSel(grid.cols() - 1);
}

std::vector<Int32> columnWidths(const FlexGridModel& grid) {
  std::vector<Int32> widths;
  for (Int32 col = 0; col < grid.cols(); ++col)
    widths.push_back(grid.colWidth(col));
  return widths;
}

// Columns that were not there keep the width of their titles.
void restoreWidths(FlexGridModel& grid, const std::vector<Int32>& widths) {
  const Int32 count = std::min(Int32(widths.size()), grid.cols());
  for (Int32 col = 0; col < count; ++col)
    grid.setColWidth(col, widths[static_cast<std::size_t>(col.raw())]);
}

void layOutColumns(FlexGridModel& grid) {
  const bool oneLine = ResultsView == resultsView::oneLine;
  std::string titles = oneLine ? "  |<Name|<Dir|Date|Size" : "  |<Name / Dir|Date / Size";
  Int32 count = oneLine ? 5 : 3;
  GridLinesPerFile = oneLine ? 1 : 2;
  if (hasPercentColumn()) {
    titles += "|%";
    ++count;
  }
  grid.clear();
  grid.setFormatString(titles);
  grid.setCols(count);
  GridCell& tickTitle = grid.editCell(0, 0);
  tickTitle.picture = "SimpleTick";
  tickTitle.pictureAlignment = CellAlignment::centreBottom;
}

void markRowsEmpty(FlexGridModel& grid) {
  for (Int32 row = 1; row < grid.rows(); ++row)
    grid.setRowData(row, rowMark::empty);
}

// While an order is pending the page shows it.
Int32 fileAt(Int32 position) {
  return FilePointerArray.upperBound() != 0 ? FilePointerArray[position] : position;
}

std::optional<Colour> backColour(std::optional<BlockColour> colour) {
  constexpr Colour white = 0xFFFFFF;
  constexpr Colour grey = 0xE0E0E0;
  if (!colour) return std::nullopt;
  return colour == BlockColour::first ? white : grey;
}

// Returns the last row that was written.
Int32 fillRows(FlexGridModel& grid) {
  constexpr int noPercent = -1;
  Int32 rowsUsed;
  Int32 previousKey = -1;
  std::optional<BlockColour> colour;
  for (Int32 position = GridFirstFile;; ++position) {
    const Int32 file = fileAt(position);
    const Int32 key = blockKey(file);
    if (key != previousKey) colour = colourOfBlock(key, colour);
    previousKey = key;
    basDisplayFileDetails(file, rowsUsed + 1, GridLinesPerFile, grid, noPercent,
                          backColour(colour));
    rowsUsed += GridLinesPerFile;
    if (rowsUsed >= Int32(GridPageRows) || position >= GridLastFile) return rowsUsed;
  }
}

Int32 cursorRow(std::string_view mode, Int32 position, Int32 lastWritten) {
  if (mode == "PGUP" || (mode == "POS" && position == 1)) return 1;
  if (mode == "PGDN" || (mode == "POS" && position >= FileCount)) return GridPageRows;
  return lastWritten;
}

}  // namespace

Int32 blockKey(Int32 file) {
  return ResultsGroup == resultsGroup::match ? FileTable.FileStatus[statusMatch][file]
                                             : FileTable.FileDirNum[file];
}

BlockColour colourOfBlock(Int32 key, std::optional<BlockColour> previous) {
  const bool first = previous ? previous == BlockColour::second : key % 2 == 0;
  return first ? BlockColour::first : BlockColour::second;
}

void basBuildWholeGrid(ResultsControls& form, Int16 skipFill, Int16 keepOrder) {
  procedure("basBuildWholeGrid", [&] {
    if (ProfileName.empty()) return;
    if (FileCount == 0) return showNoDuplicates(form);
    if (keepOrder == 0) sortAndGroup();
    FlexGridModel& grid = form.gridMatches();
    GridLinesPerFile = ResultsView == resultsView::oneLine ? 1 : 2;
    basDetermineMatchGridSize(grid);
    grid.setRedraw(false);
    prepareScrollBar(form.vscrGridMatches());
    GridFirstFile = 1;
    if (skipFill != 1) basFillGrid(form, "POS", 1);
    showPage(form);
    if (DuplicateCount > 0) selectFirstRow(grid);
    grid.setRedraw(true);
  });
}

void basFillGrid(ResultsControls& form, std::string_view mode, Int32 position) {
  procedure("basFillGrid", [&] {
    FlexGridModel& grid = form.gridMatches();
    grid.setRedraw(false);
    const std::vector<Int32> widthsBefore = columnWidths(grid);
    layOutColumns(grid);
    basFillGrid_SetRegion(mode, GridFirstFile, GridLastFile, GridLinesPerFile, position,
                          form.vscrGridMatches());
    markRowsEmpty(grid);
    const Int32 lastWritten = fillRows(grid);
    countPages();
    if (form.cmdAutoResize().tag() == "1")
      basSetGridWidth(form);
    else
      restoreWidths(grid, widthsBefore);
    grid.setRow(cursorRow(mode, position, lastWritten));
    grid.setRedraw(true);
    form.basUpdateStatusBar();
    focusIfUsable(grid);
  });
}

}  // namespace quernstoke
