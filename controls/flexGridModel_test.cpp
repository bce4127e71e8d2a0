#include "controls/flexGridModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

#include "testing/expectFailure.h"
#include "testing/gridScreen.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

class FlexGridModelTest : public testing::Test {
 protected:
  FlexGridModelTest() { grid.showOn(&screen); }

  std::vector<int> widths() const {
    std::vector<int> found;
    for (Int32 col = 0; col < grid.cols(); ++col)
      found.push_back(grid.colWidth(col).raw());
    return found;
  }

  ScriptedGridScreen screen;
  FlexGridModel grid;
};

TEST_F(FlexGridModelTest, FormatStringSetsTitlesAndAlignments) {
  grid.setFormatString(" |<Directory|^Recurse|>Size|Date");
  EXPECT_THAT(titlesOf(grid), ElementsAre(" ", "Directory", "Recurse", "Size", "Date"));
  EXPECT_EQ(grid.alignmentOf(1, 1), CellAlignment::leftCentre);
  EXPECT_EQ(grid.alignmentOf(1, 2), CellAlignment::centreCentre);
  EXPECT_EQ(grid.alignmentOf(1, 3), CellAlignment::rightCentre);
  EXPECT_EQ(grid.alignmentOf(1, 4), CellAlignment::leftCentre);
}

TEST_F(FlexGridModelTest, FormatStringMakesColumnsAsWideAsTheirTitles) {
  grid.setFormatString("  |<Name|<Dir|Date|Size");
  EXPECT_THAT(widths(), ElementsAre(200, 400, 300, 400, 400));
}

TEST_F(FlexGridModelTest, AnEmptyTitleIsAColumnLikeAnyOther) {
  grid.setFormatString(">Dups||<Name");
  EXPECT_THAT(titlesOf(grid), ElementsAre("Dups", "", "Name"));
  EXPECT_THAT(widths(), ElementsAre(400, 0, 400));
}

TEST_F(FlexGridModelTest, FormatStringAddsColumnsAndTakesNoneAway) {
  grid.setFormatString("a|b|c");
  EXPECT_EQ(grid.cols(), 3);
  grid.setFormatString("d");
  EXPECT_EQ(grid.cols(), 3);
  EXPECT_THAT(titlesOf(grid), ElementsAre("d", "b", "c"));
}

TEST_F(FlexGridModelTest, ACellsOwnAlignmentGoesBeforeThatOfItsColumn) {
  grid.setFormatString("<a");
  grid.editCell(1, 0).alignment = CellAlignment::centreBottom;
  EXPECT_EQ(grid.alignmentOf(1, 0), CellAlignment::centreBottom);
  EXPECT_EQ(grid.alignmentOf(0, 0), CellAlignment::leftCentre);
}

TEST_F(FlexGridModelTest, ClearEmptiesCellsAndKeepsSizesRowDataAndSelection) {
  grid.setFormatString("a|b");
  grid.setRows(4);
  grid.setRowData(2, -2);
  grid.setColWidth(1, 777);
  grid.setRow(3);
  GridCell& cell = grid.editCell(2, 1);
  cell.text = "text";
  cell.picture = "Tick";
  cell.backColour = 0xE0E0E0;
  cell.strikeThrough = true;

  grid.clear();

  EXPECT_EQ(grid.cell(2, 1).text, "");
  EXPECT_EQ(grid.cell(2, 1).picture, "");
  EXPECT_FALSE(grid.cell(2, 1).backColour.has_value());
  EXPECT_FALSE(grid.cell(2, 1).strikeThrough);
  EXPECT_THAT(titlesOf(grid), ElementsAre("", ""));
  EXPECT_EQ(grid.rows(), 4);
  EXPECT_EQ(grid.rowData(2), -2);
  EXPECT_EQ(grid.colWidth(1), 777);
  EXPECT_EQ(grid.row(), 3);
}

TEST_F(FlexGridModelTest, SettingTheRowTakesOnlyTheRowsOfTheSelectionAlong) {
  grid.setRows(10);
  grid.setCols(5);
  grid.setRow(3);
  grid.setRowSel(7);
  grid.setCol(1);
  grid.setColSel(4);
  EXPECT_EQ(grid.rowSel(), 7);

  grid.setRow(5);
  EXPECT_EQ(grid.rowSel(), 5);
  EXPECT_EQ(grid.col(), 1);
  EXPECT_EQ(grid.colSel(), 4);
}

TEST_F(FlexGridModelTest, SettingTheColumnTakesOnlyTheColumnsOfTheSelectionAlong) {
  grid.setRows(10);
  grid.setCols(5);
  grid.setRow(3);
  grid.setRowSel(7);
  grid.setCol(1);
  grid.setColSel(4);

  grid.setCol(2);
  EXPECT_EQ(grid.colSel(), 2);
  EXPECT_EQ(grid.row(), 3);
  EXPECT_EQ(grid.rowSel(), 7);
}

TEST_F(FlexGridModelTest, ASelectionMayRunUpwardAndLeftward) {
  grid.setRows(10);
  grid.setCols(5);
  grid.setRow(6);
  grid.setRowSel(4);
  grid.setCol(3);
  grid.setColSel(2);
  EXPECT_TRUE(grid.isSelected(4, 2));
  EXPECT_TRUE(grid.isSelected(5, 3));
  EXPECT_FALSE(grid.isSelected(7, 3));
  EXPECT_FALSE(grid.isSelected(5, 1));
}

TEST_F(FlexGridModelTest, TakingRowsAwayMovesTheCurrentRowToTheLastOne) {
  grid.setRows(10);
  grid.setRow(8);
  grid.setRowSel(9);
  grid.setRows(5);
  EXPECT_EQ(grid.row(), 4);
  EXPECT_EQ(grid.rowSel(), 4);
  // With the titles alone nothing can be current, which is what buttons beside a grid look at.
  grid.setRows(1);
  EXPECT_EQ(grid.row(), 0);
  grid.setRows(3);
  EXPECT_EQ(grid.row(), 0);
}

TEST_F(FlexGridModelTest, TakingColumnsAwayDropsTheirCells) {
  grid.setCols(5);
  grid.setCol(4);
  grid.editCell(1, 4).text = "gone";
  grid.setCols(3);
  EXPECT_EQ(grid.col(), 2);
  grid.setCols(5);
  EXPECT_EQ(grid.cell(1, 4).text, "");
}

TEST_F(FlexGridModelTest, RowsThatRemainKeepTheirContent) {
  grid.setRows(3);
  grid.editCell(2, 1).text = "kept";
  grid.setRowData(2, 17);
  grid.setRows(50);
  EXPECT_EQ(grid.cell(2, 1).text, "kept");
  EXPECT_EQ(grid.rowData(2), 17);
  EXPECT_EQ(grid.rowData(49), 0);
}

TEST_F(FlexGridModelTest, WhatIsNotThereFails) {
  grid.setRows(3);
  grid.setCols(2);
  EXPECT_FAILURE(subscriptOutOfRange, grid.setRow(3));
  EXPECT_FAILURE(subscriptOutOfRange, grid.setRowSel(-1));
  EXPECT_FAILURE(subscriptOutOfRange, grid.setCol(2));
  EXPECT_FAILURE(subscriptOutOfRange, grid.setColSel(2));
  EXPECT_FAILURE(subscriptOutOfRange, grid.setTopRow(3));
  EXPECT_FAILURE(subscriptOutOfRange, (void)grid.rowData(3));
  EXPECT_FAILURE(subscriptOutOfRange, (void)grid.cell(1, 2));
  EXPECT_FAILURE(subscriptOutOfRange, grid.editCell(3, 0));
  EXPECT_FAILURE(subscriptOutOfRange, (void)grid.colWidth(2));
  EXPECT_FAILURE(subscriptOutOfRange, (void)grid.rowPos(3));
  EXPECT_FAILURE(invalidProcedureCall, grid.setRows(0));
  EXPECT_FAILURE(invalidProcedureCall, grid.setCols(0));
}

TEST_F(FlexGridModelTest, AFailedMoveLeavesTheSelectionAsItWas) {
  grid.setRows(3);
  grid.setRow(1);
  EXPECT_FAILURE(subscriptOutOfRange, grid.setRow(99));
  EXPECT_EQ(grid.row(), 1);
}

TEST_F(FlexGridModelTest, WholeRowsOnTheScreenAreVisible) {
  grid.setRows(100);
  EXPECT_TRUE(grid.rowIsVisible(0));
  EXPECT_TRUE(grid.rowIsVisible(1));
  EXPECT_TRUE(grid.rowIsVisible(20));
  EXPECT_FALSE(grid.rowIsVisible(21));
}

TEST_F(FlexGridModelTest, ARowThatIsNotThereIsNotVisible) {
  grid.setRows(5);
  EXPECT_TRUE(grid.rowIsVisible(4));
  EXPECT_FALSE(grid.rowIsVisible(5));
  EXPECT_FALSE(grid.rowIsVisible(-1));
}

TEST_F(FlexGridModelTest, VisibleRowsBeginAtTheTopRow) {
  grid.setRows(100);
  grid.setTopRow(11);
  EXPECT_TRUE(grid.rowIsVisible(0));
  EXPECT_FALSE(grid.rowIsVisible(10));
  EXPECT_TRUE(grid.rowIsVisible(11));
  EXPECT_TRUE(grid.rowIsVisible(30));
  EXPECT_FALSE(grid.rowIsVisible(31));
}

TEST_F(FlexGridModelTest, RowsHavePositionsBelowTheTitles) {
  grid.setRows(100);
  EXPECT_EQ(grid.rowPos(0), 0);
  EXPECT_EQ(grid.rowPos(1), 300);
  EXPECT_EQ(grid.rowPos(3), 900);
  EXPECT_EQ(grid.rowHeight(3), 300);
  grid.setTopRow(3);
  EXPECT_EQ(grid.rowPos(0), 0);
  EXPECT_EQ(grid.rowPos(3), 300);
  EXPECT_EQ(grid.rowPos(1), -300);
}

TEST_F(FlexGridModelTest, TheTopRowStopsWhereTheLastRowIsVisible) {
  grid.setRows(31);
  grid.setTopRow(30);
  EXPECT_EQ(grid.topRow(), 11);
  EXPECT_TRUE(grid.rowIsVisible(30));
  grid.setRows(10);
  EXPECT_EQ(grid.topRow(), 9);  // Within the grid; the next scroll brings it up.
  grid.setTopRow(grid.topRow());
  EXPECT_EQ(grid.topRow(), 1);
}

TEST_F(FlexGridModelTest, AGridOfTitlesAloneCanBeScrolledToItsTop) {
  grid.setRows(1);
  grid.setTopRow(1);
  EXPECT_EQ(grid.topRow(), 1);
}

TEST_F(FlexGridModelTest, ScrollingIntoViewMovesNoFurtherThanNeeded) {
  grid.setRows(100);
  grid.scrollIntoView(20);
  EXPECT_EQ(grid.topRow(), 1);
  grid.scrollIntoView(21);
  EXPECT_EQ(grid.topRow(), 2);
  grid.scrollIntoView(1);
  EXPECT_EQ(grid.topRow(), 1);
}

TEST_F(FlexGridModelTest, AScreenLowerThanARowShowsNone) {
  grid.setRows(10);
  screen.rowsThatFit = -1;
  EXPECT_EQ(grid.wholeRowsOnScreen(), 0);
  EXPECT_FALSE(grid.rowIsVisible(1));
  grid.scrollIntoView(5);
  EXPECT_EQ(grid.topRow(), 5);
}

TEST_F(FlexGridModelTest, ChangesAreNotShownWhileRedrawIsOff) {
  grid.setRedraw(false);
  screen.changes = 0;
  grid.setRows(100);
  grid.editCell(50, 1).text = "a";
  grid.setColWidth(0, 100);
  grid.setRow(3);
  EXPECT_EQ(screen.changes, 0);
  grid.setRedraw(true);
  EXPECT_EQ(screen.changes, 1);
}

TEST_F(FlexGridModelTest, EachChangeIsShownWhileRedrawIsOn) {
  grid.editCell(1, 1).text = "a";
  EXPECT_EQ(screen.changes, 1);
  grid.setRow(1);
  EXPECT_EQ(screen.changes, 2);
}

TEST_F(FlexGridModelTest, ANegativeColumnWidthIsNone) {
  grid.setColWidth(0, -200);
  EXPECT_EQ(grid.colWidth(0), 0);
}

TEST_F(FlexGridModelTest, TheGridAsAWholeGoesToItsScreen) {
  grid.setVisible(false);
  grid.setEnabled(false);
  grid.setFocus();
  EXPECT_FALSE(grid.visible());
  EXPECT_FALSE(grid.enabled());
  EXPECT_THAT(screen.log, ElementsAre("hide", "disable", "focus"));
  EXPECT_EQ(grid.width(), 9000);
}

TEST_F(FlexGridModelTest, WithoutAScreenThereAreNoSizes) {
  FlexGridModel alone;
  alone.setFormatString("<Name|Size");
  alone.setFocus();
  EXPECT_EQ(alone.colWidth(0), 0);
  EXPECT_EQ(alone.width(), 0);
  EXPECT_FALSE(alone.rowIsVisible(1));
}

}  // namespace
}  // namespace quernstoke
