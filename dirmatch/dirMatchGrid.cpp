#include "dirmatch/dirMatchGrid.h"

#include <algorithm>
#include <string>

#include "catalogue/fileTable.h"
#include "catalogue/fullFilePath.h"
#include "controls/flexGridModel.h"
#include "core/procedure.h"
#include "core/text.h"
#include "dirmatch/dirMatchControls.h"
#include "dirmatch/dirMatchRows.h"
#include "platform/controls.h"
#include "platform/locale.h"
#include "platform/platform.h"

namespace quernstoke {

namespace {

constexpr int mapGrowth = 2048;
constexpr int gridGrowth = 1000;

constexpr Colour white = 0xFFFFFF;
constexpr Colour grey = 0xC0C0C0;
constexpr Colour dark = 0x202020;
constexpr Colour black = 0;

class GridFiller {
 public:
  explicit GridFiller(FlexGridModel& grid) : grid_(grid) {}

  void add(Int32 number) {
    const DirMatchRow& row = DirMatchRows[number];
    if (row.group != lastGroup_) {
      level();
      if (row.group != noGroup && nextRow_[0] > 1) addSeparator();
      lastGroup_ = row.group;
    }
    Int32& line = nextRow_[sideIndex(row.side)];
    makeRoom(line);
    showFile(line, row);
    DirMatchGridMap[line][sideIndex(row.side)] = number;
    ++line;
  }

  Int32 lines() const { return std::max(nextRow_[0], nextRow_[1]); }

 private:
  void level() { nextRow_[0] = nextRow_[1] = lines(); }

  void makeRoom(Int32 line) {
    if (line >= grid_.rows()) grid_.setRows(line + gridGrowth);
    const Int32 bound = DirMatchGridMap.upperBound();
    if (line > bound) DirMatchGridMap.redim(bound + mapGrowth, true);
  }

  void colour(Int32 line, Int32 col, Colour back, Colour fore) {
    GridCell& cell = grid_.editCell(line, col);
    cell.backColour = back;
    cell.foreColour = fore;
  }

  // REQUIRES: both sides are level.
  void addSeparator() {
    const Int32 line = nextRow_[0];
    makeRoom(line);
    for (Int32 col = 0; col < dirMatchColumn::count; ++col)
      colour(line, col, dark, white);
    DirMatchGridMap[line] = {dirMatchEntry::separator, dirMatchEntry::separator};
    for (Int32& next : nextRow_)
      ++next;
  }

  void showFile(Int32 line, const DirMatchRow& row) {
    const std::string texts[] = {
        std::string(FileTable.FileName[row.file]), subDirectoryOf(row.directory, row.side),
        toText(FileTable.FileSize[row.file]), userLocale().shortDate(FileTable.FileDate[row.file]),
        toText(row.countInBoth) + "(" + toText(row.countInGroup) + ")"};
    Int32 col = columnOfSide(row.side, dirMatchColumn::name);
    for (const std::string& text : texts) {
      colour(line, col, row.group == noGroup ? grey : white, black);
      grid_.editCell(line, col).text = text;
      ++col;
    }
    colour(line, dirMatchColumn::spacer, grey, white);
  }

  FlexGridModel& grid_;
  std::array<Int32, dirMatchSide::count> nextRow_{1, 1};
  Int32 lastGroup_ = noGroup;
};

// Empties the grid, and gives it back its current and selected rows in the end.
void refill(FlexGridModel& grid) {
  const Int32 row = grid.row();
  const Int32 rowSel = grid.rowSel();
  const Int32 topRow = grid.topRow();
  grid.setRows(1);
  grid.setRows(gridGrowth);
  GridFiller filler(grid);
  for (Int32 number = 1; number <= DirMatchRowCount; ++number)
    filler.add(number);
  grid.setRows(filler.lines());
  const Int32 last = grid.rows() - 1;
  grid.setRow(std::min(row, last));
  grid.setRowSel(std::min(rowSel, last));
  grid.setTopRow(std::clamp(topRow, Int32(1), std::max(last, Int32(1))));
}

std::string fitted(const DirMatchControls& form, const std::string& label,
                   const std::string& path) {
  return basBuildFullFilePath(form.width(label), path, "", form.labSizer());
}

}  // namespace

Int32 columnOfSide(Int32 side, int column) {
  return side == dirMatchSide::left ? column : dirMatchColumn::spacer + 1 + column;
}

void basProcessFiles(DirMatchControls& form) {
  procedure("basProcessFiles", [&] {
    DirMatchGridMap.redim(mapGrowth, false);
    Int32 firstLoose = -1;
    basLoadFilesIntoArray(form.chkShowAll(), firstLoose);
    if (firstLoose != -1) basSortFiles(firstLoose);
    basLoadFilesIntoGrid(form);
  });
}

void basLoadFilesIntoGrid(DirMatchControls& form) {
  FlexGridModel& grid = form.griddir();
  procedureGoingOn(
      "basLoadFilesIntoGrid",
      [&] {
        grid.setRedraw(false);
        refill(grid);
      },
      [&] { grid.setRedraw(true); });
}

void setDirMatchColumnWidths(DirMatchControls& form) {
  constexpr int lessPerColumn = 10;
  constexpr int allowance = 200;  // Beside the scroll bar.
  constexpr int narrowest = 600;
  FlexGridModel& grid = form.griddir();
  Int32 used;
  const auto setWidth = [&](Int32 col, Int32 width) {
    grid.setColWidth(col, width);
    used += grid.colWidth(col);
  };
  const auto sample = [&](std::string_view text) { return Int32(form.cellRuler().width(text)); };
  for (const int side : {dirMatchSide::left, dirMatchSide::right}) {
    // The right one's sizes have a little less room.
    const int sizeRoom = side == dirMatchSide::left ? 40 : 10;
    setWidth(columnOfSide(side, dirMatchColumn::date), sample("99/99/9999") + 40);
    setWidth(columnOfSide(side, dirMatchColumn::size), sample("99999999") + sizeRoom);
    setWidth(columnOfSide(side, dirMatchColumn::dups), sample("99(99)") + 40);
  }
  setWidth(dirMatchColumn::spacer, form.labDirNameGap());
  const Int32 rest = grid.width() - used - lessPerColumn * dirMatchColumn::count - allowance;
  const Int32 quarter = std::max(rest / 4 - 1, Int32(narrowest));
  for (const int side : {dirMatchSide::left, dirMatchSide::right})
    for (const int column : {dirMatchColumn::name, dirMatchColumn::subDirectory})
      grid.setColWidth(columnOfSide(side, column), quarter);
}

void showDirMatchBases(DirMatchControls& form) {
  for (const int side : {dirMatchSide::left, dirMatchSide::right}) {
    const std::string label = "labDirName_" + std::to_string(side);
    form.setText(label, fitted(form, label, DirMatchBase[sideIndex(side)]));
  }
}

}  // namespace quernstoke
