#include "controls/gridLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/flexGridModel.h"
#include "testing/gridScreen.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

// Rows and titles are 20 pixels high, the columns 10, 0 and 30 wide.
class GridLayoutTest : public testing::Test {
 protected:
  GridLayoutTest() {
    grid.showOn(&screen);
    grid.setRows(50);
    grid.setCols(3);
    grid.setColWidth(0, 150);
    grid.setColWidth(1, 0);
    grid.setColWidth(2, 450);
  }

  ScriptedGridScreen screen;
  FlexGridModel grid;
};

TEST_F(GridLayoutTest, CellsLieBelowTheTitles) {
  const GridLayout layout(grid, 0);
  EXPECT_THAT(layout.edges, ElementsAre(0, 10, 10, 40));
  EXPECT_EQ(layout.cellRect(0, 2), QRect(10, 0, 30, 20));
  EXPECT_EQ(layout.cellRect(3, 2), QRect(10, 60, 30, 20));
  EXPECT_TRUE(layout.cellRect(3, 1).isEmpty());
  EXPECT_EQ(layout.rowRect(3), QRect(0, 60, 40, 20));
}

TEST_F(GridLayoutTest, ScrollingMovesRowsAndColumnsAndNoTitleDown) {
  grid.setTopRow(11);
  const GridLayout layout(grid, 5);
  EXPECT_EQ(layout.cellRect(11, 2), QRect(5, 20, 30, 20));
  EXPECT_EQ(layout.cellRect(0, 2), QRect(5, 0, 30, 20));
}

TEST_F(GridLayoutTest, FindsTheCellAtAPoint) {
  const GridLayout layout(grid, 0);
  EXPECT_EQ(layout.rowAt(-1), -1);
  EXPECT_EQ(layout.rowAt(0), 0);
  EXPECT_EQ(layout.rowAt(19), 0);
  EXPECT_EQ(layout.rowAt(20), 1);
  EXPECT_EQ(layout.rowAt(40), 2);
  EXPECT_EQ(layout.colAt(-1), -1);
  EXPECT_EQ(layout.colAt(9), 0);
  EXPECT_EQ(layout.colAt(10), 2);  // The column between has no width.
  EXPECT_EQ(layout.colAt(39), 2);
  EXPECT_EQ(layout.colAt(40), -1);
}

TEST_F(GridLayoutTest, FindsNoRowBelowTheLast) {
  grid.setRows(3);
  const GridLayout layout(grid, 0);
  EXPECT_EQ(layout.rowAt(59), 2);
  EXPECT_EQ(layout.rowAt(60), -1);
  EXPECT_EQ(layout.nearestRow(60), 3);
}

TEST_F(GridLayoutTest, FindsTheNearestCellOutside) {
  grid.setTopRow(11);
  const GridLayout layout(grid, 0);
  EXPECT_EQ(layout.nearestRow(-100), 10);
  EXPECT_EQ(layout.nearestRow(60), 13);
  EXPECT_EQ(layout.nearestCol(-100), 0);
  EXPECT_EQ(layout.nearestCol(100), 2);
}

TEST_F(GridLayoutTest, FindsColumnEdgesWithinReachFromTheRight) {
  const GridLayout layout(grid, 0);
  EXPECT_EQ(layout.columnEdgeAt(37), 2);
  EXPECT_EQ(layout.columnEdgeAt(43), 2);
  EXPECT_EQ(layout.columnEdgeAt(44), -1);
  EXPECT_EQ(layout.columnEdgeAt(10), 1);
  EXPECT_EQ(layout.columnEdgeAt(0), -1);
}

TEST_F(GridLayoutTest, PartsOfPixelsDoNotAddUp) {
  for (Int32 col = 0; col < 3; ++col)
    grid.setColWidth(col, 158);
  EXPECT_THAT(GridLayout(grid, 0).edges, ElementsAre(0, 11, 21, 32));
}

TEST_F(GridLayoutTest, TitlesAloneHaveNoRows) {
  grid.setRows(1);
  const GridLayout layout(grid, 0);
  EXPECT_EQ(layout.rowAt(10), 0);
  EXPECT_EQ(layout.rowAt(30), -1);
}

}  // namespace
}  // namespace quernstoke
