#include "results/gridSelection.h"

#include "catalogue/fileTable.h"
#include "results/resultsGridTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class SelectionTest : public ResultsGridTest {
 protected:
  void showTwoLines(int files) {
    ResultsView = resultsView::twoLines;
    build(files);
  }
  void click(int row, int col) { drag(row, row, col); }
  // From one row to another, beginning in a column.
  void drag(int from, int to, int col) {
    select(from, to);
    grid.setCol(col);
    gridMatches_Click(form);
  }
  std::pair<int, int> rows() const { return {grid.row().raw(), grid.rowSel().raw()}; }
  std::pair<int, int> cols() const { return {grid.col().raw(), grid.colSel().raw()}; }
  static std::vector<int> ticked() {
    std::vector<int> files;
    for (Int32 file = 1; file <= FileCount; ++file)
      if (FileTable.FileStatus[statusTick][file] == 1) files.push_back(file.raw());
    return files;
  }
};

using RowAreaTest = SelectionTest;

TEST_F(RowAreaTest, FileOfOneLineHasItsRow) {
  build(30);
  Int32 row = 4;
  const RowArea area = basSelectedRowArea(row, grid);
  EXPECT_EQ(area.firstRow, 4);
  EXPECT_EQ(area.lastRow, 4);
  EXPECT_EQ(row, 4);
}

TEST_F(RowAreaTest, FileOfTwoLinesHasBothFromEither) {
  showTwoLines(30);
  for (const int start : {7, 8}) {
    Int32 row = start;
    const RowArea area = basSelectedRowArea(row, grid);
    EXPECT_EQ(area.firstRow, 7);
    EXPECT_EQ(area.lastRow, 8);
    EXPECT_EQ(row, 7);
  }
}

TEST_F(RowAreaTest, LastFileEndsBeforeTheEmptyRows) {
  showTwoLines(3);
  Int32 row = 5;
  EXPECT_EQ(basSelectedRowArea(row, grid).lastRow, 6);
}

TEST_F(RowAreaTest, FileMayEndWithTheGrid) {
  showTwoLines(30);
  grid.setRows(21);
  Int32 row = 20;
  const RowArea area = basSelectedRowArea(row, grid);
  EXPECT_EQ(area.firstRow, 19);
  EXPECT_EQ(area.lastRow, 20);
}

TEST_F(RowAreaTest, EmptyRowIsNoFile) {
  build(3);
  Int32 row = 9;
  const RowArea area = basSelectedRowArea(row, grid);
  EXPECT_FALSE(area.isFile());
  EXPECT_EQ(area.firstRow, -1);
  EXPECT_EQ(area.lastRow, -1);
  EXPECT_EQ(row, 9);
}

TEST_F(RowAreaTest, RowThatIsNotThereIsReported) {
  build(3);
  Int32 row = 22;
  EXPECT_FALSE(basSelectedRowArea(row, grid).isFile());
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basSelectedRowArea", "Subscript out of range(9)")));
}

using ClickTest = SelectionTest;

TEST_F(ClickTest, ClickSelectsTheWholeRow) {
  build(30);
  click(4, 2);
  EXPECT_THAT(rows(), Pair(4, 4));
  EXPECT_THAT(cols(), Pair(1, 4));
  EXPECT_THAT(ticked(), IsEmpty());
}

TEST_F(ClickTest, ClickOnATickTogglesTheFile) {
  build(30);
  click(4, 0);
  EXPECT_THAT(ticked(), ElementsAre(4));
  EXPECT_EQ(grid.cell(4, 0).picture, "SmallTick");
  EXPECT_THAT(cols(), Pair(1, 4));
  click(4, 0);
  EXPECT_THAT(ticked(), IsEmpty());
}

TEST_F(ClickTest, ClickOnEitherOfTwoLinesTogglesTheFileOnce) {
  showTwoLines(30);
  click(7, 0);
  EXPECT_THAT(ticked(), ElementsAre(4));
  EXPECT_THAT(rows(), Pair(7, 8));
  EXPECT_THAT(cols(), Pair(1, 2));
  click(6, 0);
  EXPECT_THAT(ticked(), ElementsAre(3, 4));
  EXPECT_THAT(rows(), Pair(5, 6));
}

TEST_F(ClickTest, RowOfALaterPageTicksItsOwnFile) {
  build(100);
  fill("PGDN");
  click(2, 0);
  EXPECT_THAT(ticked(), ElementsAre(21));
}

// The number of the last file is taken for a row, which in a short list is the row of that file.
TEST_F(ClickTest, ClickOnAnEmptyRowIsOneOnTheLastFile) {
  build(5);
  click(12, 0);
  EXPECT_THAT(ticked(), ElementsAre(5));
  EXPECT_THAT(rows(), Pair(5, 5));
}

// With two lines that is a row of some other file, or of half a file.
TEST_F(ClickTest, ClickOnAnEmptyRowBelowTwoLinesIsOneOnTheRowOfThatNumber) {
  showTwoLines(5);
  click(12, 0);
  EXPECT_THAT(ticked(), ElementsAre(3));
  EXPECT_THAT(rows(), Pair(5, 5));
  showTwoLines(6);
  click(14, 0);
  EXPECT_THAT(ticked(), IsEmpty());
  EXPECT_THAT(rows(), Pair(6, 6));
}

// A long list leaves the row below its page empty.
TEST_F(ClickTest, ClickOnAnEmptyRowBelowALongListIsReported) {
  build(30);
  for (const int col : {0, 1})
    click(20, col);
  EXPECT_THAT(dialogBoxes.messages,
              testing::Each(procedureError("gridMatches_Click", "Subscript out of range(9)")));
  EXPECT_THAT(dialogBoxes.messages, testing::SizeIs(2));
  EXPECT_THAT(ticked(), IsEmpty());
}

TEST_F(ClickTest, DraggingTicksTogglesEveryFileInIt) {
  build(30);
  drag(3, 7, 0);
  EXPECT_THAT(ticked(), ElementsAre(3, 4, 5, 6, 7));
  EXPECT_THAT(rows(), Pair(3, 7));
  EXPECT_THAT(cols(), Pair(1, 4));
}

TEST_F(ClickTest, DraggingOverTwoLinesTakesWholeFiles) {
  showTwoLines(30);
  drag(3, 7, 0);
  EXPECT_THAT(ticked(), ElementsAre(2, 3, 4));
  EXPECT_THAT(rows(), Pair(3, 8));
  drag(6, 9, 1);
  EXPECT_THAT(rows(), Pair(5, 10));
  EXPECT_THAT(ticked(), ElementsAre(2, 3, 4));
}

TEST_F(ClickTest, MixOfTicksStaysAMix) {
  build(30);
  click(4, 0);
  drag(3, 5, 0);
  EXPECT_THAT(ticked(), ElementsAre(3, 5));
}

TEST_F(ClickTest, DraggingUpwardsIsTheSameAsDraggingDown) {
  showTwoLines(30);
  drag(7, 4, 0);
  EXPECT_THAT(ticked(), ElementsAre(2, 3, 4));
  EXPECT_THAT(rows(), Pair(3, 8));
}

TEST_F(ClickTest, DraggingIntoTheEmptyRowsEndsWithTheLastFile) {
  showTwoLines(5);
  drag(7, 15, 0);
  EXPECT_THAT(ticked(), ElementsAre(4, 5));
  EXPECT_THAT(rows(), Pair(7, 10));
}

TEST_F(ClickTest, DraggingOverEmptyRowsTogglesNothing) {
  build(5);
  drag(12, 15, 0);
  EXPECT_THAT(ticked(), IsEmpty());
  EXPECT_THAT(rows(), Pair(12, 5));
}

TEST_F(ClickTest, DraggingUpwardsFromTheEmptyRowsTakesTheFiles) {
  build(5);
  drag(12, 3, 0);
  EXPECT_THAT(ticked(), ElementsAre(3, 4, 5));
  EXPECT_THAT(rows(), Pair(3, 5));
}

TEST_F(ClickTest, EveryFileOfAMatchCanBeTicked) {
  buildCatalogue({{"a", "C:\\", 1, 2}, {"b", "C:\\", 1, 2}});
  build();
  drag(1, 2, 0);
  EXPECT_THAT(ticked(), ElementsAre(1, 2));
}

// Rows and titles are 300 twips high: row 3 lies from 900 to 1200.
class MenuTest : public SelectionTest {
 protected:
  MenuTest() { build(30); }
  void pressRight(int y) { gridMatches_MouseDown(form, GridButton::right, y); }
};

TEST_F(MenuTest, RightButtonOnAFileSelectsItAndPopsUpItsMenu) {
  select(5, 5);
  pressRight(1000);
  EXPECT_THAT(rows(), Pair(3, 3));
  EXPECT_THAT(form.menus, ElementsAre("mnuRightClickSingleFile"));
}

TEST_F(MenuTest, OtherButtonsDoNothing) {
  select(5, 5);
  for (const GridButton button : {GridButton::left, GridButton::middle})
    gridMatches_MouseDown(form, button, 1000);
  EXPECT_THAT(form.menus, IsEmpty());
  EXPECT_THAT(rows(), Pair(5, 5));
}

TEST_F(MenuTest, SelectionOfSeveralRowsIsKeptAndHasItsMenu) {
  select(3, 7);
  pressRight(1000);
  pressRight(2300);
  EXPECT_THAT(rows(), Pair(3, 7));
  EXPECT_THAT(form.menus, ElementsAre("mnuRightClickMultpleFile", "mnuRightClickMultpleFile"));
}

TEST_F(MenuTest, SelectionDraggedUpwardsIsKeptToo) {
  select(7, 3);
  pressRight(1600);
  EXPECT_THAT(rows(), Pair(7, 3));
  EXPECT_THAT(form.menus, ElementsAre("mnuRightClickMultpleFile"));
}

// What it leaves seems to be a selection upward from an empty row to the last file.
TEST_F(MenuTest, DragOverEmptyRowsAloneHasNoMenuOfSeveral) {
  build(5);
  drag(12, 15, 1);
  pressRight(2500);
  EXPECT_THAT(rows(), Pair(8, 8));
  EXPECT_THAT(form.menus, ElementsAre("mnuRightClickSingleFile"));
}

TEST_F(MenuTest, RightButtonBesideTheSelectionLeavesIt) {
  select(3, 7);
  pressRight(2500);
  EXPECT_THAT(rows(), Pair(8, 8));
  select(3, 7);
  pressRight(700);
  EXPECT_THAT(rows(), Pair(2, 2));
  EXPECT_THAT(form.menus, ElementsAre("mnuRightClickSingleFile", "mnuRightClickSingleFile"));
}

// The two rows of one file are several rows.
TEST_F(MenuTest, FileOfTwoLinesThatIsSelectedHasTheMenuOfSeveral) {
  showTwoLines(30);
  click(3, 1);
  pressRight(1000);
  EXPECT_THAT(form.menus, ElementsAre("mnuRightClickMultpleFile"));
}

TEST_F(MenuTest, EdgeBetweenTwoRowsBelongsToTheLower) {
  pressRight(899);
  EXPECT_EQ(cursor(), 2);
  pressRight(900);
  EXPECT_EQ(cursor(), 3);
}

TEST_F(MenuTest, TitlesAndTheRoomBelowTheRowsHaveNoMenu) {
  select(5, 5);
  pressRight(299);
  pressRight(6601);
  EXPECT_THAT(form.menus, IsEmpty());
  EXPECT_THAT(rows(), Pair(5, 5));
  pressRight(6600);
  EXPECT_EQ(cursor(), 21);
}

}  // namespace
}  // namespace quernstoke
