#include "results/gridWidths.h"

#include <algorithm>

#include "controls/flexGridModel.h"
#include "core/procedure.h"
#include "core/rounding.h"
#include "core/table.h"
#include "platform/controls.h"
#include "results/gridPaging.h"
#include "results/resultsControls.h"

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
    ruler.setFont(grid.font());
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
    } else {
      grid.setCol(grid.cols() - 1);  // The cell that was looked at last.
    }
    grid.setRedraw(redrawBefore);
  });
}

void basSetGridWidth(ResultsControls& form) {
  procedure("basSetGridWidth", [&] {
    FlexGridModel& grid = form.gridMatches();
    const auto setByText = [&](Int32 col, std::string_view text) {
      grid.setColWidth(col, form.labSizer().width(text));
      return grid.colWidth(col);
    };
    const bool oneLine = ResultsView == resultsView::oneLine;
    grid.setColWidth(0, form.pictureWidth("SimpleTick"));
    Int32 used = setByText(oneLine ? 3 : 2, "--00/00/2000--");
    if (oneLine) used += setByText(4, "--99999999");
    const Int32 rest = grid.width() - used - grid.colWidth(0);
    if (!oneLine) return grid.setColWidth(1, rest);
    const Int32 half = roundedQuotient(rest.raw(), 2);
    grid.setColWidth(1, half);
    grid.setColWidth(2, half);
  });
}

void cmdAutoResize_Click(ResultsControls& form) {
  procedure("cmdAutoResize_Click", [&] {
    PictureButtonControl& button = form.cmdAutoResize();
    const bool wasOn = button.tag() == "1";
    button.setPicture(wasOn ? "Off" : "On");
    button.setTag(wasOn ? "0" : "1");
  });
}

}  // namespace quernstoke
