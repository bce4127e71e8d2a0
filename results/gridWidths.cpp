#include "results/gridWidths.h"

#include <algorithm>

#include "controls/flexGridModel.h"
#include "core/procedure.h"
#include "core/rounding.h"
#include "core/table.h"
#include "platform/controls.h"

namespace quernstoke {

namespace {

constexpr int scrollBarWidth = 350;
constexpr int leastExpanded = 100;

// Grows the entries to what one row needs.
void measureRow(const FlexGridModel& grid, Int32 row, BoldRuler& ruler, Int16 pictureWidth,
                Table<Int32>& widths) {
  for (Int32 col = 0; col < grid.cols(); ++col) {
    const GridCell& cell = grid.cell(row, col);
    if (!cell.picture.empty()) {
      widths[col] = pictureWidth;
      continue;
    }
    ruler.setBold(cell.bold);
    widths[col] = std::max(widths[col], Int32(ruler.width(cell.text + "X")));
  }
}

// Cuts the entries to half the room each, and gives what is left to one of them.
void shareOut(Int32 room, Int16 expandCol, Table<Int32>& widths) {
  Int32 used = 0;
  for (Int32 col = 0; col <= widths.upperBound(); ++col) {
    if (widths[col] > room / 2) widths[col] = roundedQuotient(room.raw(), 2);
    widths[col] = std::max(widths[col], Int32(0));
    if (col != Int32(expandCol)) used += widths[col];
  }
  widths[expandCol] = room >= used ? room - used : Int32(leastExpanded);
}

}  // namespace

void basAutoSetGridWidth(FlexGridModel& grid, Int16 expandCol, BoldRuler& ruler,
                         Int16 pictureWidth) {
  procedure("basAutoSetGridWidth", [&] {
    const bool redrawBefore = grid.redraw();
    const Int32 rowBefore = grid.row();
    const Int32 rowSelBefore = grid.rowSel();
    grid.setRedraw(false);
    Table<Int32> widths;
    widths.redim(grid.cols() - 1, false);
    measureRow(grid, 0, ruler, pictureWidth, widths);
    for (Int32 row = grid.topRow(); row < grid.rows() && grid.rowIsVisible(row); ++row)
      measureRow(grid, row, ruler, pictureWidth, widths);

    const bool scrollsDown = grid.scrollBars() >= ScrollBars::vertical;
    shareOut(grid.width() - (scrollsDown ? scrollBarWidth : 0), expandCol, widths);
    for (Int32 col = 0; col < grid.cols(); ++col)
      grid.setColWidth(col, widths[col]);
    if (grid.rows() >= 2) {
      grid.setRow(rowBefore);
      grid.setCol(0);
      grid.setRowSel(rowSelBefore);
      grid.setColSel(grid.cols() - 1);
    }
    grid.setRedraw(redrawBefore);
  });
}

}  // namespace quernstoke
