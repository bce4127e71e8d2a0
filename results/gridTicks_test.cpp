#include "results/gridTicks.h"

#include "catalogue/fileTable.h"
#include "results/resultsGridTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

constexpr int file = 3;
constexpr int row = 5;

// Ticks of f3, painted into row 5.
class TickTest : public ResultsGridTest {
 protected:
  TickTest() {
    makeFiles(4);
    grid.setRows(10);
    grid.setCols(5);
  }

  void change(int action) { basFlexCheckMark(file, grid, row, 0, action); }
  static void setTick(int tick) { FileTable.FileStatus[statusTick][file] = tick; }
  static int tick() { return FileTable.FileStatus[statusTick][file].raw(); }
  const GridCell& upper() const { return grid.cell(row, 0); }
  const GridCell& lower() const { return grid.cell(row + 1, 0); }
};

TEST_F(TickTest, TickIsSetAndTaken) {
  change(tickAction::tick);
  EXPECT_EQ(tick(), 1);
  change(tickAction::tick);
  EXPECT_EQ(tick(), 1);
  change(tickAction::untick);
  EXPECT_EQ(tick(), 0);
  change(tickAction::untick);
  EXPECT_EQ(tick(), 0);
}

TEST_F(TickTest, ToggleTurnsTheTickRound) {
  change(tickAction::toggle);
  EXPECT_EQ(tick(), 1);
  EXPECT_EQ(upper().picture, "SmallTick");
  change(tickAction::toggle);
  EXPECT_EQ(tick(), 0);
  EXPECT_EQ(upper().picture, "SmallUnTick");
}

TEST_F(TickTest, OtherFilesKeepTheirTicks) {
  change(tickAction::tick);
  EXPECT_EQ(FileTable.FileStatus[statusTick][2], 0);
  EXPECT_EQ(FileTable.FileStatus[statusTick][4], 0);
}

TEST_F(TickTest, DeletedFileIsTickedLikeAnyOther) {
  FileTable.FileStatus[statusState][file] = fileState::deleted;
  change(tickAction::toggle);
  EXPECT_EQ(tick(), 1);
}

// The small pictures stand at different edges of their cell.
TEST_F(TickTest, OneLineShowsASmallPicture) {
  change(tickAction::tick);
  EXPECT_EQ(upper().picture, "SmallTick");
  EXPECT_EQ(upper().pictureAlignment, CellAlignment::centreBottom);
  change(tickAction::untick);
  EXPECT_EQ(upper().picture, "SmallUnTick");
  EXPECT_EQ(upper().pictureAlignment, CellAlignment::centreTop);
  EXPECT_EQ(lower().picture, "");
}

TEST_F(TickTest, TwoLinesShowTheHalvesOfABigPicture) {
  ResultsView = resultsView::twoLines;
  change(tickAction::tick);
  EXPECT_EQ(upper().picture, "BigTick1");
  EXPECT_EQ(upper().pictureAlignment, CellAlignment::centreBottom);
  EXPECT_EQ(lower().picture, "BigTick2");
  EXPECT_EQ(lower().pictureAlignment, CellAlignment::centreTop);
  change(tickAction::untick);
  EXPECT_EQ(upper().picture, "BigUnTick1");
  EXPECT_EQ(upper().pictureAlignment, CellAlignment::centreBottom);
  EXPECT_EQ(lower().picture, "BigUnTick2");
  EXPECT_EQ(lower().pictureAlignment, CellAlignment::centreTop);
}

TEST_F(TickTest, OtherActionChangesNothing) {
  for (const int action : {-2, 2, 3}) {
    change(action);
    EXPECT_EQ(tick(), 0);
    EXPECT_EQ(upper().picture, "");
  }
}

TEST_F(TickTest, ToggleOfATickThatIsNeitherChangesNothing) {
  for (const int strange : {-1, 2}) {
    setTick(strange);
    change(tickAction::toggle);
    EXPECT_EQ(tick(), strange);
    EXPECT_EQ(upper().picture, "");
  }
  change(tickAction::untick);
  EXPECT_EQ(tick(), 0);
}

TEST_F(TickTest, CurrentCellAndSelectionStay) {
  ResultsView = resultsView::twoLines;
  grid.setRow(2);
  grid.setRowSel(8);
  grid.setCol(1);
  grid.setColSel(4);
  for (const bool redraw : {false, true}) {
    grid.setRedraw(redraw);
    change(tickAction::toggle);
    EXPECT_EQ(grid.row(), 2);
    EXPECT_EQ(grid.rowSel(), 8);
    EXPECT_EQ(grid.col(), 1);
    EXPECT_EQ(grid.colSel(), 4);
    EXPECT_EQ(grid.redraw(), redraw);
  }
}

// The second half has no row: the first stays painted, the tick is not set.
TEST_F(TickTest, FailureIsReportedAndLeavesTheTick) {
  ResultsView = resultsView::twoLines;
  basFlexCheckMark(file, grid, 9, 0, tickAction::tick);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basFlexCheckMark", "Subscript out of range(9)")));
  EXPECT_EQ(grid.cell(9, 0).picture, "BigTick1");
  EXPECT_EQ(tick(), 0);
  EXPECT_FALSE(grid.redraw());
}

}  // namespace
}  // namespace quernstoke
