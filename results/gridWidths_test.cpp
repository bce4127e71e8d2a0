#include "results/gridWidths.h"

#include "results/resultsGridTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<int> widthsOf(const FlexGridModel& grid) {
  std::vector<int> widths;
  for (Int32 col = 0; col < grid.cols(); ++col)
    widths.push_back(grid.colWidth(col).raw());
  return widths;
}

// A grid 9000 twips wide; a character is 100 of them, the picture of the ticks 423 of its own.
using ResultsWidthTest = ResultsGridTest;

TEST_F(ResultsWidthTest, OneLineHalvesWhatDateAndSizeLeave) {
  build(3);
  EXPECT_THAT(widthsOf(grid), ElementsAre(423, 3088, 3088, 1400, 1000));  // 3088.5
  form.screen.width = 9002;
  basSetGridWidth(form);
  EXPECT_THAT(widthsOf(grid), ElementsAre(423, 3090, 3090, 1400, 1000));  // 3089.5
}

TEST_F(ResultsWidthTest, TwoLinesGiveTheNameWhatTheDateLeaves) {
  ResultsView = resultsView::twoLines;
  build(3);
  EXPECT_THAT(widthsOf(grid), ElementsAre(423, 7177, 1400));
}

TEST_F(ResultsWidthTest, NothingMakesRoomForPercentages) {
  ProfileSettings.ContentMatchingPercent = 90;
  build(3);
  grid.setColWidth(5, 777);
  basSetGridWidth(form);
  EXPECT_THAT(widthsOf(grid), ElementsAre(423, 3088, 3088, 1400, 1000, 777));
}

TEST_F(ResultsWidthTest, NarrowWindowLeavesNoNegativeWidth) {
  form.screen.width = 1000;
  build(3);
  EXPECT_THAT(widthsOf(grid), ElementsAre(423, 0, 0, 1400, 1000));
}

TEST_F(ResultsWidthTest, FailureIsReported) {
  grid.setCols(2);
  basSetGridWidth(form);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basSetGridWidth", "Subscript out of range(9)")));
}

TEST_F(ResultsWidthTest, ButtonTurnsAutomaticWidthsOffAndOn) {
  cmdAutoResize_Click(form);
  EXPECT_EQ(form.autoResize.text, "0");
  EXPECT_EQ(form.autoResize.picture, "Off");
  cmdAutoResize_Click(form);
  EXPECT_EQ(form.autoResize.text, "1");
  EXPECT_EQ(form.autoResize.picture, "On");
}

TEST_F(ResultsWidthTest, ButtonTakesAnyOtherTagForOff) {
  form.autoResize.text = "";
  cmdAutoResize_Click(form);
  EXPECT_EQ(form.autoResize.text, "1");
  EXPECT_EQ(form.autoResize.picture, "On");
}

TEST_F(ResultsWidthTest, ButtonDoesNotFillThePage) {
  build(3);
  form.statusBarUpdates = 0;
  cmdAutoResize_Click(form);
  cmdAutoResize_Click(form);
  EXPECT_EQ(form.statusBarUpdates, 0);
}

TEST_F(ResultsWidthTest, DraggedWidthStaysWhileAutomaticWidthsAreOff) {
  build(100);
  cmdAutoResize_Click(form);
  grid.setColWidth(1, 5555);
  fill("PGDN");
  fill("PGDN");
  EXPECT_THAT(widthsOf(grid), ElementsAre(423, 5555, 3088, 1400, 1000));
  cmdAutoResize_Click(form);
  fill("PGDN");
  EXPECT_THAT(widthsOf(grid), ElementsAre(423, 3088, 3088, 1400, 1000));
}

// A change of view brings columns that nobody has set, and takes others away.
TEST_F(ResultsWidthTest, NewColumnsAreAsWideAsTheirTitlesWhileAutomaticWidthsAreOff) {
  ResultsView = resultsView::twoLines;
  build(3);
  cmdAutoResize_Click(form);
  ResultsView = resultsView::oneLine;
  build();
  EXPECT_THAT(widthsOf(grid), ElementsAre(423, 7177, 1400, 400, 400));
  ResultsView = resultsView::twoLines;
  build();
  EXPECT_THAT(widthsOf(grid), ElementsAre(423, 7177, 1400));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// A character is 100 twips, a bold one 200.
class BoldTwipRuler : public BoldRuler {
 public:
  std::string font;

  void setFont(std::string_view named) override { font = named; }
  void setBold(bool bold) override { character_ = bold ? 200 : 100; }
  std::int32_t width(std::string_view text) const override {
    return character_ * static_cast<std::int32_t>(text.size());
  }

 private:
  int character_ = 100;
};

// Three columns on a screen of three rows, the second one taking what is left of 9000 twips, less
// 350 for the scroll bar.
class AutoWidthTest : public EngineTest {
 protected:
  AutoWidthTest() {
    screen.rowsThatFit = 3;
    grid.showOn(&screen);
    grid.setRows(8);
    grid.setCols(3);
  }
  void write(int row, int col, const std::string& text) { grid.editCell(row, col).text = text; }
  std::vector<int> widths() {
    basAutoSetGridWidth(grid, 1, ruler, 480);
    return widthsOf(grid);
  }

  ScriptedGridScreen screen;
  FlexGridModel grid;
  BoldTwipRuler ruler;
};

TEST_F(AutoWidthTest, ColumnFitsItsWidestTextAndACharacterMore) {
  write(0, 0, "abc");
  write(1, 0, "abcde");
  write(2, 0, "a");
  EXPECT_THAT(widths(), ElementsAre(600, 8650 - 600 - 100, 100));
}

TEST_F(AutoWidthTest, BoldTextIsMeasuredBold) {
  write(1, 0, "abcde");
  grid.editCell(1, 0).bold = true;
  EXPECT_EQ(widths()[0], 1200);
}

TEST_F(AutoWidthTest, OnlyTitlesAndVisibleRowsCount) {
  write(0, 0, "abcdefgh");
  write(1, 2, "above the first one");
  write(4, 2, "abc");
  write(5, 2, "below the last one");
  grid.setTopRow(2);
  EXPECT_THAT(widths(), ElementsAre(900, 8650 - 900 - 400, 400));
}

// The picture replaces what the rows above have measured; those below may grow it.
TEST_F(AutoWidthTest, PictureTakesItsOwnWidth) {
  write(0, 0, "abcdefgh");
  grid.editCell(1, 0).picture = "SmallPlus";
  EXPECT_EQ(widths()[0], 480);
  write(2, 0, "abcde");
  EXPECT_EQ(widths()[0], 600);
}

TEST_F(AutoWidthTest, ColumnGetsNoMoreThanHalf) {
  write(1, 0, std::string(60, 'x'));
  EXPECT_THAT(widths(), ElementsAre(4325, 8650 - 4325 - 100, 100));
}

// Half an odd width is rounded to the even number.
TEST_F(AutoWidthTest, HalfOfAnOddWidthIsRounded) {
  write(1, 0, std::string(60, 'x'));
  screen.width = 9001;
  EXPECT_EQ(widths()[0], 4326);  // 4325.5
  screen.width = 9003;
  EXPECT_EQ(widths()[0], 4326);  // 4326.5
}

TEST_F(AutoWidthTest, WithoutAVerticalScrollBarThereIsMoreRoom) {
  for (const ScrollBars bars : {ScrollBars::none, ScrollBars::horizontal}) {
    grid.setScrollBars(bars);
    EXPECT_THAT(widths(), ElementsAre(100, 8800, 100));
  }
  grid.setScrollBars(ScrollBars::vertical);
  EXPECT_THAT(widths(), ElementsAre(100, 8450, 100));
}

TEST_F(AutoWidthTest, WithoutRoomTheExpandedColumnGets100) {
  grid.setCols(4);
  for (const int col : {0, 2, 3})
    write(1, col, std::string(60, 'x'));
  EXPECT_THAT(widths(), ElementsAre(4325, 100, 4325, 4325));
  screen.width = 100;
  EXPECT_THAT(widths(), ElementsAre(0, 100, 0, 0));
}

TEST_F(AutoWidthTest, RowsThatAreSelectedStayAndTheColumnsAreAllSelected) {
  grid.setRow(3);
  grid.setRowSel(5);
  grid.setCol(2);
  grid.setRedraw(false);
  widths();
  EXPECT_EQ(grid.row(), 3);
  EXPECT_EQ(grid.rowSel(), 5);
  EXPECT_EQ(grid.col(), 0);
  EXPECT_EQ(grid.colSel(), 2);
  EXPECT_FALSE(grid.redraw());
}

// The titles have been looked at cell by cell, and nothing is selected again.
TEST_F(AutoWidthTest, InAGridWithTitlesAloneTheLastColumnBecomesTheCurrentOne) {
  grid.setRows(1);
  grid.setCol(1);
  widths();
  EXPECT_EQ(grid.col(), 2);
  EXPECT_EQ(grid.colSel(), 2);
}

TEST_F(AutoWidthTest, RedrawingIsAsBefore) {
  for (const bool redraw : {true, false}) {
    grid.setRedraw(redraw);
    widths();
    EXPECT_EQ(grid.redraw(), redraw);
  }
}

TEST_F(AutoWidthTest, TextIsMeasuredInTheFontOfTheGrid) {
  widths();
  EXPECT_EQ(ruler.font, "Grid");
}

// The ruler is bold for one cell alone.
TEST_F(AutoWidthTest, TextBehindABoldOneIsMeasuredPlain) {
  write(1, 0, "a");
  grid.editCell(1, 0).bold = true;
  write(2, 2, "abcde");
  EXPECT_THAT(widths(), ElementsAre(400, 8650 - 400 - 600, 600));
}

TEST_F(AutoWidthTest, ColumnThatIsNotThereIsReported) {
  basAutoSetGridWidth(grid, 3, ruler, 480);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basAutoSetGridWidth", "Subscript out of range(9)")));
}

TEST_F(AutoWidthTest, ExpandedColumnMayBeLeftWithNothing) {
  write(1, 0, std::string(60, 'x'));
  write(1, 2, std::string(60, 'x'));
  EXPECT_THAT(widths(), ElementsAre(4325, 0, 4325));
}

}  // namespace
}  // namespace quernstoke
