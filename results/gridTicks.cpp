#include "results/gridTicks.h"

#include <optional>
#include <string_view>

#include "catalogue/fileTable.h"
#include "controls/flexGridModel.h"
#include "core/procedure.h"
#include "results/gridPaging.h"

namespace quernstoke {

namespace {

// Whether the file is to be ticked or not; nothing if it stays as it is.
std::optional<bool> tickAfter(Int16 action, Int32 tick) {
  const bool toggles = action == tickAction::toggle;
  if (action == tickAction::tick || (toggles && tick == 0)) return true;
  if (action == tickAction::untick || (toggles && tick == 1)) return false;
  return std::nullopt;
}

void setPicture(GridCell& cell, std::string_view picture, CellAlignment alignment) {
  cell.picture = picture;
  cell.pictureAlignment = alignment;
}

// The halves of a big picture meet where the two rows of a file do.
void paintTick(FlexGridModel& grid, Int32 row, Int32 col, bool ticked) {
  GridCell& cell = grid.editCell(row, col);
  if (ResultsView == resultsView::oneLine) {
    setPicture(cell, ticked ? "SmallTick" : "SmallUnTick",
               ticked ? CellAlignment::centreBottom : CellAlignment::centreTop);
    return;
  }
  setPicture(cell, ticked ? "BigTick1" : "BigUnTick1", CellAlignment::centreBottom);
  setPicture(grid.editCell(row + 1, col), ticked ? "BigTick2" : "BigUnTick2",
             CellAlignment::centreTop);
}

}  // namespace

void basFlexCheckMark(Int32 file, FlexGridModel& grid, Int32 row, Int32 col, Int16 action) {
  procedure("basFlexCheckMark", [&] {
    const bool redrawBefore = grid.redraw();
    grid.setRedraw(false);
    Int32& tick = FileTable.FileStatus[statusTick][file];
    if (const std::optional<bool> ticked = tickAfter(action, tick)) {
      paintTick(grid, row, col, *ticked);
      tick = *ticked ? 1 : 0;
    }
    grid.setRedraw(redrawBefore);
  });
}

}  // namespace quernstoke
