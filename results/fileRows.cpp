#include "results/fileRows.h"

#include <string>
#include <utility>

#include "catalogue/fileTable.h"
#include "core/procedure.h"
#include "core/text.h"
#include "platform/locale.h"
#include "platform/platform.h"
#include "results/gridPaging.h"
#include "results/gridTicks.h"
#include "settings/settings.h"

namespace quernstoke {

namespace {

// Writes the cells of one file.
struct CellWriter {
  FlexGridModel& grid;
  std::optional<Colour> colour;

  GridCell& operator()(Int32 row, Int32 col, std::string text, CellAlignment alignment) const {
    GridCell& cell = grid.editCell(row, col);
    cell.text = std::move(text);
    cell.alignment = alignment;
    cell.backColour = colour;
    return cell;
  }
};

void writeName(const CellWriter& write, Int32 file, Int32 row) {
  GridCell& cell = write(row, resultsColumn::name, std::string(FileTable.FileName[file]),
                         CellAlignment::leftCentre);
  cell.bold = true;
  cell.strikeThrough = FileTable.FileStatus[statusState][file] == fileState::deleted;
}

std::string dateText(Int32 file) {
  return userLocale().shortDate(FileTable.FileDate[file]);
}

std::string percentText(Int16 percent) {
  return percent < 1 ? std::string() : toText(percent);
}

void writeOneLine(const CellWriter& write, Int32 file, Int32 row, Int16 percent) {
  write(row, resultsColumn::tick, {}, CellAlignment::centreBottom);
  writeName(write, file, row);
  write(row, 2, basGetDirnameFromFilenum(file), CellAlignment::leftCentre);
  write(row, 3, dateText(file), CellAlignment::leftCentre);
  write(row, 4, toText(FileTable.FileSize[file]), CellAlignment::rightCentre);
  if (hasPercentColumn()) write(row, 5, percentText(percent), CellAlignment::centreCentre);
}

void writeTwoLines(const CellWriter& write, Int32 file, Int32 row, Int16 percent) {
  write(row, resultsColumn::tick, {}, CellAlignment::centreBottom);
  write(row + 1, resultsColumn::tick, {}, CellAlignment::centreTop);
  writeName(write, file, row);
  write(row + 1, resultsColumn::name, "   " + basGetDirnameFromFilenum(file),
        CellAlignment::leftCentre);
  write(row, 2, dateText(file), CellAlignment::leftCentre);
  write(row + 1, 2, toText(FileTable.FileSize[file]), CellAlignment::rightCentre);
  if (!hasPercentColumn()) return;
  write(row, 3, " ", CellAlignment::centreCentre);
  write(row + 1, 3, percentText(percent), CellAlignment::centreCentre);
}

}  // namespace

bool hasPercentColumn() {
  return ProfileSettings.ContentMatchingPercent < 100;
}

void basDisplayFileDetails(Int32 file, Int32 row, Int16& lines, FlexGridModel& grid, Int16 percent,
                           std::optional<Colour> colour) {
  procedure("basDisplayFileDetails", [&] {
    constexpr int growth = 50;
    const bool oneLine = ResultsView == resultsView::oneLine;
    lines = oneLine ? 1 : 2;
    if (row >= grid.rows()) grid.setRows(grid.rows() + growth);
    (oneLine ? writeOneLine : writeTwoLines)({grid, colour}, file, row, percent);
    basFlexCheckMark(file, grid, row, resultsColumn::tick, FileTable.FileStatus[statusTick][file]);
    grid.setRowData(row, file);
    if (!oneLine) grid.setRowData(row + 1, rowMark::secondLine);
  });
}

}  // namespace quernstoke
