#pragma once

#include <QRect>
#include <vector>

namespace quernstoke {

class FlexGridModel;

// Where the rows and columns of a grid lie in its view, in pixels.
struct GridLayout {
  std::vector<int> edges;  // The left edge of each column, and the right one of the last.
  int headerHeight = 0;
  int rowHeight = 0;
  int topRow = 1;
  int rows = 0;

  // `scrolled` is how far the columns are scrolled to the left.
  GridLayout(const FlexGridModel& grid, int scrolled);

  int cols() const { return static_cast<int>(edges.size()) - 1; }
  int edge(int index) const { return edges[static_cast<std::size_t>(index)]; }
  QRect cellRect(int row, int col) const;
  QRect rowRect(int row) const;

  // -1 where there is none.
  int rowAt(int y) const;
  int colAt(int x) const;
  // The nearest ones; rows may lie outside the grid.
  int nearestRow(int y) const;
  int nearestCol(int x) const;
  // The column whose right edge can be taken hold of there, or -1.
  int columnEdgeAt(int x) const;
};

}  // namespace quernstoke
