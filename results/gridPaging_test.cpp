#include "results/gridPaging.h"

#include <utility>

#include "catalogue/fileTable.h"
#include "results/resultsGridTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

using GridSizeTest = ResultsGridTest;

TEST_F(GridSizeTest, PageIsARowShorterThanTheScreenAndTheGridARowLonger) {
  basDetermineMatchGridSize(grid);
  EXPECT_EQ(GridPageRows, 19);
  EXPECT_EQ(grid.rows(), 22);
}

TEST_F(GridSizeTest, SizeDependsOnTheHeightAlone) {
  for (const int files : {10, 1'000'000}) {
    FileCount = files;
    for (const int view : {resultsView::oneLine, resultsView::twoLines}) {
      ResultsView = view;
      basDetermineMatchGridSize(grid);
      EXPECT_EQ(GridPageRows, 19);
      EXPECT_EQ(grid.rows(), 22);
    }
  }
}

TEST_F(GridSizeTest, HigherAndLowerWindowIsMeasuredAnew) {
  basDetermineMatchGridSize(grid);
  form.screen.rowsThatFit = 50;
  basDetermineMatchGridSize(grid);
  EXPECT_EQ(GridPageRows, 49);
  EXPECT_EQ(grid.rows(), 52);
  form.screen.rowsThatFit = 5;
  basDetermineMatchGridSize(grid);
  EXPECT_EQ(GridPageRows, 4);
  EXPECT_EQ(grid.rows(), 7);
}

TEST_F(GridSizeTest, GridWithTitlesAloneGetsRows) {
  grid.setRows(1);
  basDetermineMatchGridSize(grid);
  EXPECT_EQ(grid.rows(), 22);
}

// A grid with more rows on the screen than the measure takes is cut to that measure.
TEST_F(GridSizeTest, NoMoreThan99RowsAreMeasured) {
  form.screen.rowsThatFit = 150;
  basDetermineMatchGridSize(grid);
  EXPECT_EQ(GridPageRows, 98);
  EXPECT_EQ(grid.rows(), 101);
}

TEST_F(GridSizeTest, WindowWithoutARowHasAPageBelowNone) {
  form.screen.rowsThatFit = 0;
  basDetermineMatchGridSize(grid);
  EXPECT_EQ(GridPageRows, -1);
  EXPECT_EQ(grid.rows(), 2);
}

// Pages of 19 rows over 100 files, with a scroll bar from 1 to 101.
class RegionTest : public EngineTest {
 protected:
  RegionTest() {
    FileCount = 100;
    GridPageRows = 19;
    bar.setMinimum(1);
    bar.setMaximum(101);
    bar.setValue(50);
    bar.values.clear();
    bar.onChange = [this] { tags.push_back(bar.text); };
  }

  // The region that follows one.
  std::pair<int, int> after(std::string_view mode, int first, int last, int position = -1) {
    Int32 firstFile = first;
    Int32 lastFile = last;
    basFillGrid_SetRegion(mode, firstFile, lastFile, lines, position, bar);
    return {firstFile.raw(), lastFile.raw()};
  }

  int lines = 1;
  ScriptedScrollBar bar;
  std::vector<std::string> tags;  // That the bar had when it moved.
};

TEST_F(RegionTest, EachModeHasItsFormula) {
  EXPECT_THAT(after("POS", 30, 49, 50), Pair(50, 69));
  EXPECT_THAT(after("PGDN", 30, 49), Pair(49, 67));
  EXPECT_THAT(after("PGUP", 30, 49), Pair(11, 30));
  EXPECT_THAT(after("SINGLEDOWN", 30, 40), Pair(31, 50));
  EXPECT_THAT(after("SINGLEUP", 30, 40), Pair(29, 39));
  EXPECT_THAT(bar.values, IsEmpty());
}

TEST_F(RegionTest, OtherTextStays) {
  EXPECT_THAT(after("", 30, 49, 7), Pair(30, 49));
  EXPECT_THAT(after("pgdn", 30, 49, 7), Pair(30, 49));
}

// A page after a jump goes on with the file behind the jump's 19 rows; one after a page repeats
// the last file of that.
TEST_F(RegionTest, PageAfterAPageRepeatsAFile) {
  EXPECT_THAT(after("POS", 1, 20, 20), Pair(20, 39));
  EXPECT_THAT(after("PGDN", 20, 39), Pair(39, 57));
  EXPECT_THAT(after("PGDN", 39, 57), Pair(57, 75));
}

// With 19 rows of two lines a page is nine files and a half.
TEST_F(RegionTest, HalfAFileIsRoundedToTheEvenNumber) {
  lines = 2;
  EXPECT_THAT(after("POS", 1, 1, 2), Pair(2, 12));       // 11.5
  EXPECT_THAT(after("POS", 1, 1, 3), Pair(3, 12));       // 12.5
  EXPECT_THAT(after("PGDN", 1, 10), Pair(10, 18));       // 18.5
  EXPECT_THAT(after("PGDN", 1, 11), Pair(11, 20));       // 19.5
  EXPECT_THAT(after("PGUP", 20, 30), Pair(10, 20));      // 10.5
  EXPECT_THAT(after("PGUP", 21, 30), Pair(12, 21));      // 11.5
  EXPECT_THAT(after("SINGLEDOWN", 4, 14), Pair(5, 14));  // 14.5
  EXPECT_THAT(after("SINGLEDOWN", 5, 14), Pair(6, 16));  // 15.5
  EXPECT_THAT(after("SINGLEUP", 12, 22), Pair(11, 21));
}

TEST_F(RegionTest, RegionBehindTheEndEndsWithTheLastFile) {
  EXPECT_THAT(after("PGDN", 80, 95), Pair(82, 100));
  EXPECT_THAT(bar.values, ElementsAre(101));
  EXPECT_THAT(after("POS", 1, 20, 999999), Pair(82, 100));
}

TEST_F(RegionTest, RegionThatEndsWithTheLastFileIsLeft) {
  EXPECT_THAT(after("POS", 1, 20, 81), Pair(81, 100));
  EXPECT_THAT(bar.values, IsEmpty());
}

TEST_F(RegionTest, HalfAFileAtTheEndIsRoundedToo) {
  lines = 2;
  EXPECT_THAT(after("PGDN", 80, 95), Pair(92, 100));  // 91.5
  FileCount = 101;
  EXPECT_THAT(after("PGDN", 80, 95), Pair(92, 101));  // 92.5
}

TEST_F(RegionTest, RegionBeforeTheStartBeginsWithTheFirstFile) {
  EXPECT_THAT(after("PGUP", 5, 24), Pair(1, 20));
  EXPECT_THAT(bar.values, ElementsAre(1));
  EXPECT_THAT(after("SINGLEUP", 1, 20), Pair(1, 20));
  EXPECT_THAT(after("POS", 30, 49, 1), Pair(1, 20));
}

TEST_F(RegionTest, HalfAFileAtTheStartIsRoundedToo) {
  lines = 2;
  EXPECT_THAT(after("PGUP", 5, 24), Pair(1, 10));  // 10.5
  GridPageRows = 21;
  EXPECT_THAT(after("PGUP", 5, 24), Pair(1, 12));  // 11.5
}

// Both ends are reached: the bar goes to the last value and back to the first.
TEST_F(RegionTest, ShortListIsOneRegion) {
  FileCount = 5;
  EXPECT_THAT(after("POS", 1, 1, 1), Pair(1, 5));
  EXPECT_THAT(bar.values, ElementsAre(101, 1));
}

TEST_F(RegionTest, BarIsMovedUnheededAndHeededAgain) {
  after("PGUP", 5, 24);
  after("PGDN", 80, 95);
  EXPECT_THAT(tags, ElementsAre("IGNORE", "IGNORE"));
  EXPECT_EQ(bar.text, "");
}

TEST_F(RegionTest, OverflowIsReportedAndLeavesTheRegion) {
  EXPECT_THAT(after("POS", 30, 49, 2147483647), Pair(30, 49));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basFillGrid_SetRegion", "Overflow(6)")));
}

using RoundUpTest = EngineTest;

TEST_F(RoundUpTest, FractionCountsAsOne) {
  EXPECT_EQ(basRoundUp(0.0F), 0);
  EXPECT_EQ(basRoundUp(0.25F), 1);
  EXPECT_EQ(basRoundUp(2.0F), 2);
  EXPECT_EQ(basRoundUp(2.001F), 3);
  EXPECT_EQ(basRoundUp(32767.0F), 32767);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// The nearest number of single precision has no fraction.
TEST_F(RoundUpTest, FractionBeyondSinglePrecisionIsLost) {
  EXPECT_EQ(basRoundUp(static_cast<float>(20000.0001)), 20000);
}

TEST_F(RoundUpTest, MoreThan32767IsReported) {
  EXPECT_EQ(basRoundUp(32767.5F), 0);
  EXPECT_EQ(basRoundUp(32768.0F), 0);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("basRoundUp", "Overflow(6)"),
                                                procedureError("basRoundUp", "Overflow(6)")));
}

// 39 files in pages of 19.
class PageCountTest : public EngineTest {
 protected:
  PageCountTest() {
    FileCount = 39;
    GridPageRows = 19;
    GridLinesPerFile = 1;
    GridFirstFile = 1;
  }
};

TEST_F(PageCountTest, PageBegunCounts) {
  countPages();
  EXPECT_EQ(GridPageCount, 3);
  EXPECT_EQ(GridCurrentPage, 1);
}

TEST_F(PageCountTest, CurrentPageGoesByTheFirstFile) {
  GridFirstFile = 12;
  countPages();
  EXPECT_EQ(GridCurrentPage, 1);
  GridFirstFile = 13;
  countPages();
  EXPECT_EQ(GridCurrentPage, 2);
  GridFirstFile = 26;
  countPages();
  EXPECT_EQ(GridCurrentPage, 3);
}

TEST_F(PageCountTest, TwoLinesHalveThePage) {
  GridLinesPerFile = 2;
  countPages();
  EXPECT_EQ(GridPageCount, 5);  // 4.1
}

TEST_F(PageCountTest, PageOfOneRowIsNotCounted) {
  GridPageRows = 1;
  GridPageCount = GridCurrentPage = 7;
  countPages();
  EXPECT_EQ(GridPageCount, 7);
  EXPECT_EQ(GridCurrentPage, 7);
}

}  // namespace
}  // namespace quernstoke
