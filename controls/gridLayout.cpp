#include "controls/gridLayout.h"

#include <algorithm>
#include <cstdlib>

#include "controls/flexGridModel.h"
#include "controls/units.h"

namespace quernstoke {

// Edges are rounded, not widths, so that columns which fill a width in twips fill it in pixels.
GridLayout::GridLayout(const FlexGridModel& grid, int scrolled)
    : headerHeight(pixelsFromTwips(grid.rowHeight(0).raw())),
      topRow(grid.topRow().raw()),
      rows(grid.rows().raw()) {
  if (rows > 1) rowHeight = pixelsFromTwips(grid.rowHeight(1).raw());
  Int32 twips = 0;
  edges.push_back(-scrolled);
  for (Int32 col = 0; col < grid.cols(); ++col) {
    twips += grid.colWidth(col);
    edges.push_back(pixelsFromTwips(twips.raw()) - scrolled);
  }
}

QRect GridLayout::cellRect(int row, int col) const {
  QRect rect = rowRect(row);
  rect.setLeft(edge(col));
  rect.setRight(edge(col + 1) - 1);
  return rect;
}

QRect GridLayout::rowRect(int row) const {
  const int width = edges.back() - edges.front();
  if (row == 0) return {edges.front(), 0, width, headerHeight};
  return {edges.front(), headerHeight + (row - topRow) * rowHeight, width, rowHeight};
}

int GridLayout::rowAt(int y) const {
  if (y < 0) return -1;
  if (y < headerHeight) return 0;
  const int row = nearestRow(y);
  return row < rows ? row : -1;
}

int GridLayout::colAt(int x) const {
  if (x < edges.front() || x >= edges.back()) return -1;
  const auto right = std::upper_bound(edges.begin(), edges.end(), x);
  return static_cast<int>(right - edges.begin()) - 1;
}

int GridLayout::nearestRow(int y) const {
  if (rowHeight == 0) return rows;
  if (y < headerHeight) return topRow - 1;
  return topRow + (y - headerHeight) / rowHeight;
}

int GridLayout::nearestCol(int x) const {
  if (x < edges.front()) return 0;
  const int col = colAt(x);
  return col < 0 ? cols() - 1 : col;
}

// From the right, so that a column that has no width left can be pulled out again.
int GridLayout::columnEdgeAt(int x) const {
  constexpr int reach = 3;
  for (int col = cols() - 1; col >= 0; --col)
    if (std::abs(x - edge(col + 1)) <= reach) return col;
  return -1;
}

}  // namespace quernstoke
