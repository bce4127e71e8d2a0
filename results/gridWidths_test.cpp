#include "results/gridWidths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/flexGridModel.h"
#include "platform/controls.h"
#include "testing/engineTest.h"
#include "testing/gridScreen.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

// A character is 100 twips wide, 150 in bold.
class ScriptedRuler : public BoldRuler {
 public:
  void setBold(bool bold) override { bold_ = bold; }
  std::int32_t width(std::string_view text) const override {
    return static_cast<std::int32_t>(text.size()) * (bold_ ? 150 : 100);
  }

 private:
  bool bold_ = false;
};

class GridWidths : public EngineTest {
 protected:
  GridWidths() {
    grid.showOn(&screen);
    grid.setFormatString("|<Directory|Yes|Types");
    grid.setRows(4);
    screen.width = 9350;  // 9000 beside a scroll bar.
  }
  std::vector<int> widths(int expandCol = 1) {
    basAutoSetGridWidth(grid, Int16(expandCol), ruler, 500);
    std::vector<int> found;
    for (Int32 col = 0; col < grid.cols(); ++col)
      found.push_back(grid.colWidth(col).raw());
    return found;
  }
  void put(int row, int col, const std::string& text) { grid.editCell(row, col).text = text; }

  ScriptedGridScreen screen;
  FlexGridModel grid;
  ScriptedRuler ruler;
};

// One character more than the text, so that it doesn't touch the next column.
TEST_F(GridWidths, TitlesCountAndTheRestGoesToTheColumnThatExpands) {
  EXPECT_THAT(widths(), ElementsAre(100, 9000 - 100 - 400 - 600, 400, 600));
  EXPECT_THAT(widths(3), ElementsAre(100, 1000, 400, 9000 - 100 - 1000 - 400));
}

TEST_F(GridWidths, TheWidestTextOfAColumnCounts) {
  put(1, 3, "*.jpg;*.png");
  put(2, 3, "*.x");
  EXPECT_THAT(widths(), ElementsAre(100, 7300, 400, 1200));
}

TEST_F(GridWidths, BoldTextCountsAsBold) {
  put(1, 2, "Never");
  grid.editCell(1, 2).bold = true;
  put(2, 2, "Always");
  EXPECT_THAT(widths(), ElementsAre(100, 7400, 900, 600));
}

// The last one counts, also against wider text above it.
TEST_F(GridWidths, APictureSetsTheWidthOfItsColumn) {
  grid.editCell(1, 0).picture = "SmallPlus";
  put(1, 3, "a long text");
  grid.editCell(2, 3).picture = "SmallPlus";
  EXPECT_THAT(widths(), ElementsAre(500, 7600, 400, 500));
}

TEST_F(GridWidths, OnlyRowsOnTheScreenCount) {
  grid.setRows(30);
  screen.rowsThatFit = 5;
  grid.setTopRow(10);
  put(9, 3, "above the screen");
  put(12, 3, "on the screen");
  put(15, 3, "below the screen");
  EXPECT_THAT(widths(), ElementsAre(100, 7100, 400, 1400));
}

TEST_F(GridWidths, NoColumnGetsMoreThanHalf) {
  put(1, 3, std::string(200, 'x'));
  EXPECT_THAT(widths(), ElementsAre(100, 4000, 400, 4500));
}

// Half of an odd width goes to the even neighbour.
TEST_F(GridWidths, HalfIsRounded) {
  put(1, 3, std::string(200, 'x'));
  screen.width = 9353;
  EXPECT_EQ(widths()[3], 4502);
  screen.width = 9351;
  EXPECT_EQ(widths()[3], 4500);
}

TEST_F(GridWidths, WithoutRoomTheColumnThatExpandsKeepsALittle) {
  put(1, 2, std::string(200, 'x'));
  put(1, 3, std::string(200, 'x'));
  EXPECT_THAT(widths(), ElementsAre(100, 100, 4500, 4500));
}

TEST_F(GridWidths, AGridTooNarrowForItsScrollBarHasNothingToShareOut) {
  screen.width = 200;
  EXPECT_THAT(widths(), ElementsAre(0, 100, 0, 0));
}

TEST_F(GridWidths, OnlyAVerticalScrollBarTakesRoom) {
  for (const auto& [bars, room] :
       std::vector<std::pair<ScrollBars, int>>{{ScrollBars::none, 9350},
                                               {ScrollBars::horizontal, 9350},
                                               {ScrollBars::vertical, 9000},
                                               {ScrollBars::both, 9000}}) {
    grid.setScrollBars(bars);
    EXPECT_EQ(widths()[1], room - 1100);
  }
}

TEST_F(GridWidths, TheSelectedRowsStayAndWholeRowsAreMarked) {
  grid.setRow(2);
  grid.setRowSel(3);
  grid.setCol(2);
  widths();
  EXPECT_EQ(grid.row(), 2);
  EXPECT_EQ(grid.rowSel(), 3);
  EXPECT_EQ(grid.col(), 0);
  EXPECT_EQ(grid.colSel(), 3);
}

TEST_F(GridWidths, TheSelectionOfAGridWithoutRowsIsLeftAlone) {
  grid.setRows(1);
  grid.setCol(2);
  widths();
  EXPECT_EQ(grid.col(), 2);
}

TEST_F(GridWidths, RedrawingIsAsItWas) {
  widths();
  EXPECT_TRUE(grid.redraw());
  grid.setRedraw(false);
  widths();
  EXPECT_FALSE(grid.redraw());
}

TEST_F(GridWidths, ItIsShownOnce) {
  screen.changes = 0;
  widths();
  EXPECT_EQ(screen.changes, 1);
}

TEST_F(GridWidths, AColumnThatIsNotThereIsReported) {
  widths(4);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Procedure error in 'basAutoSetGridWidth'.  Reason: Subscript out of "
                          "range(9)."));
}

}  // namespace
}  // namespace quernstoke
