#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/integers.h"

namespace quernstoke {

// The numbers are part of what other code writes down about cells.
enum class CellAlignment : std::uint8_t {
  leftCentre = 1,
  centreTop = 3,
  centreCentre = 4,
  centreBottom = 5,
  rightCentre = 7,
};

// The scroll bars that a grid may show; it shows them when they are needed.
enum class ScrollBars : std::uint8_t { none = 0, horizontal = 1, vertical = 2, both = 3 };

// A button pressed on a grid.
enum class GridButton : std::uint8_t { left, right, middle };

// A key let go in a grid: those by which pages are turned. Other keys are told as none.
enum class GridKey : std::uint8_t { none, pageUp, pageDown, end, home };

using Colour = std::uint32_t;  // 0xRRGGBB

struct GridCell {
  std::string text;                        // UTF-8.
  std::string picture;                     // Its name; empty for none.
  std::optional<CellAlignment> alignment;  // Of the text; if not set, that of the column.
  CellAlignment pictureAlignment = CellAlignment::centreCentre;
  std::optional<Colour> backColour;  // If not set, the desktop's.
  std::optional<Colour> foreColour;  // If not set: black on a set back colour, else the desktop's.
  bool bold = false;
  bool strikeThrough = false;
};

// What shows a grid, and what is measured there. Lengths are in twips.
class GridScreen {
 public:
  virtual ~GridScreen() = default;

  // There is something new to see. It may still be changed before control returns to the event
  // loop, so nothing is to be read yet.
  virtual void gridChanged() = 0;
  // There are other rows or columns than before. Told even while nothing is redrawn, for a screen
  // must not point at one that is gone.
  virtual void extentChanged() = 0;
  // All cells were emptied, to be written anew: what the person has begun to do with them is over.
  // Told even while nothing is redrawn.
  virtual void cellsCleared() = 0;
  virtual void showGrid(bool visible) = 0;
  virtual void enableGrid(bool enabled) = 0;
  virtual void focusGrid() = 0;

  virtual std::int32_t gridWidth() const = 0;      // What columns can fill beside no scroll bar.
  virtual std::int32_t visibleHeight() const = 0;  // Of the header and the rows together.
  virtual std::int32_t headerHeight() const = 0;
  virtual std::int32_t rowHeight() const = 0;
  virtual std::int32_t columnWidthFor(std::string_view text) const = 0;
  virtual std::string gridFont() const = 0;  // As rulers take it.
};

// A grid of cells below one row of column titles, row 0, that never scrolls. Rows and columns
// count from 0. A row or column that isn't there fails with a subscript out of range.
//
// 1. There is at least one row, that of the titles, and one column.
// 2. row() and rowSel() span the selected rows, either being the upper one; col() and colSel() the
//    columns. row() and col() name the current cell.
// 3. All four lie within the grid; taking rows or columns away moves them. So does topRow(), but it
//    is 1 also in a grid of titles alone.
class FlexGridModel {
 public:
  FlexGridModel();

  // The screen must outlive the grid; nullptr for none. A grid on no screen has no size.
  void showOn(GridScreen* screen) { screen_ = screen; }

  Int32 rows() const { return Int32(rows_.size()); }
  Int32 cols() const { return Int32(columns_.size()); }
  // Rows and columns that remain keep their content. Below 1: an invalid procedure call.
  void setRows(Int32 count);
  void setCols(Int32 count);

  // Empties all cells, titles included. Sizes, row data and the selection stay.
  void clear();

  // The titles, "|" between them, each behind the mark of its column's alignment: "<" left, also
  // without a mark, "^" centre, ">" right. Makes the columns as wide as their titles, and adds
  // those that are missing.
  void setFormatString(std::string_view titles);

  const GridCell& cell(Int32 row, Int32 col) const;
  // The cell, to be changed at once.
  GridCell& editCell(Int32 row, Int32 col);
  CellAlignment alignmentOf(Int32 row, Int32 col) const;

  // A number that belongs to the row, 0 at first.
  Int32 rowData(Int32 row) const { return rows_[rowIndex(row)].data; }
  void setRowData(Int32 row, Int32 data) { rows_[rowIndex(row)].data = data; }

  Int32 colWidth(Int32 col) const { return columns_[colIndex(col)].width; }
  void setColWidth(Int32 col, Int32 width);  // Below 0 counts as 0.

  // Setting row() takes rowSel() along, and col() takes colSel() along; neither touches the other.
  Int32 row() const { return row_; }
  Int32 col() const { return col_; }
  Int32 rowSel() const { return rowSel_; }
  Int32 colSel() const { return colSel_; }
  void setRow(Int32 row);
  void setCol(Int32 col);
  void setRowSel(Int32 row);
  void setColSel(Int32 col);
  bool isSelected(Int32 row, Int32 col) const;

  // The first row below the titles. It is never set further down than the last row needs.
  Int32 topRow() const { return topRow_; }
  void setTopRow(Int32 row);
  Int32 lastTopRow() const;
  void scrollIntoView(Int32 row);
  Int32 wholeRowsOnScreen() const;
  // Whether the whole row is on the screen. False for a row that isn't there.
  bool rowIsVisible(Int32 row) const;
  // The row's upper edge from that of the grid; rows above topRow() have their place above it.
  Int32 rowPos(Int32 row) const;
  Int32 rowHeight(Int32 row) const;
  Int32 width() const { return screen_ ? screen_->gridWidth() : 0; }
  std::string font() const { return screen_ ? screen_->gridFont() : std::string(); }

  // While it is false, changes are not painted.
  bool redraw() const { return redraw_; }
  void setRedraw(bool redraw);

  // A grid that can't scroll vertically is one page that somebody else turns.
  ScrollBars scrollBars() const { return scrollBars_; }
  void setScrollBars(ScrollBars bars);
  bool scrollsVertically() const;
  bool scrollsHorizontally() const;

  bool visible() const { return visible_; }
  bool enabled() const { return enabled_; }
  void setVisible(bool visible);
  void setEnabled(bool enabled);
  void setFocus();

 private:
  struct Row {
    std::vector<GridCell> cells;  // Up to the last one that was written.
    Int32 data = 0;
  };
  struct Column {
    Int32 width = 960;
    CellAlignment alignment = CellAlignment::leftCentre;
  };

  std::size_t rowIndex(Int32 row) const;
  std::size_t colIndex(Int32 col) const;
  void setTitle(Int32 col, std::string_view title);
  void changed();
  void extentChanged();

  GridScreen* screen_ = nullptr;
  std::vector<Row> rows_;
  std::vector<Column> columns_;
  Int32 row_ = 0, col_ = 0, rowSel_ = 0, colSel_ = 0;
  Int32 topRow_ = 1;
  ScrollBars scrollBars_ = ScrollBars::both;
  bool redraw_ = true;
  bool visible_ = true;
  bool enabled_ = true;
};

}  // namespace quernstoke
