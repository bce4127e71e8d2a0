#include <optional>

#include "catalogue/fileTable.h"
#include "detect/refinement.h"
#include "results/resultsGrid.h"
#include "results/resultsGridTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr Colour white = 0xFFFFFF;
constexpr Colour grey = 0xE0E0E0;

using FillGridTest = ResultsGridTest;

TEST_F(FillGridTest, OneLineHasFiveColumns) {
  build(3);
  EXPECT_THAT(titlesOf(grid), ElementsAre("  ", "Name", "Dir", "Date", "Size"));
  EXPECT_EQ(GridLinesPerFile, 1);
}

TEST_F(FillGridTest, TwoLinesHaveThreeColumns) {
  build(3);
  ResultsView = resultsView::twoLines;
  fill("POS", 1);
  EXPECT_THAT(titlesOf(grid), ElementsAre("  ", "Name / Dir", "Date / Size"));
  EXPECT_EQ(GridLinesPerFile, 2);
  EXPECT_EQ(grid.rowData(1), 1);
  EXPECT_EQ(grid.rowData(2), -1);
  EXPECT_EQ(grid.rowData(3), 2);
  EXPECT_EQ(grid.rowData(7), -2);
}

TEST_F(FillGridTest, ContentLimitBelow100AddsAnEmptyPercentColumn) {
  ProfileSettings.ContentMatchingPercent = 99;
  build(3);
  EXPECT_THAT(titlesOf(grid), ElementsAre("  ", "Name", "Dir", "Date", "Size", "%"));
  EXPECT_EQ(text(1, 5), "");
  ResultsView = resultsView::twoLines;
  fill("POS", 1);
  EXPECT_THAT(titlesOf(grid), ElementsAre("  ", "Name / Dir", "Date / Size", "%"));
  ProfileSettings.ContentMatchingPercent = 100;
  fill("POS", 1);
  EXPECT_EQ(grid.cols(), 3);
}

TEST_F(FillGridTest, TickColumnHasAPictureForItsTitle) {
  build(3);
  EXPECT_EQ(grid.cell(0, 0).picture, "SimpleTick");
  EXPECT_EQ(grid.cell(0, 0).pictureAlignment, CellAlignment::centreBottom);
}

TEST_F(FillGridTest, PageReplacesTheOneBefore) {
  build(22);
  fill("POS", 21);
  EXPECT_EQ(firstOnPage(), 4);
  EXPECT_EQ(text(1, 1), "f4");
  ResultsView = resultsView::twoLines;
  form.screen.rowsThatFit = 40;
  build(3);
  EXPECT_THAT(page(), ElementsAre(1, 2, 3));
  EXPECT_EQ(text(7, 1), "");
  EXPECT_EQ(grid.cell(7, 0).picture, "");
}

// A page begins with the file that ended the region before, which the first page has not shown.
TEST_F(FillGridTest, LaterPagesBeginWithTheLastFileOfTheOneBefore) {
  build(100);
  EXPECT_EQ(lastOnPage(), 19);
  fill("PGDN");
  EXPECT_EQ(firstOnPage(), 20);
  EXPECT_EQ(lastOnPage(), 38);
  EXPECT_EQ(GridLastFile, 38);
  fill("PGDN");
  EXPECT_EQ(firstOnPage(), 38);
  EXPECT_EQ(lastOnPage(), 56);
}

TEST_F(FillGridTest, PageEndsWithItsRegionThoughThereAreRows) {
  ResultsView = resultsView::twoLines;
  build(100);
  fill("PGDN");
  EXPECT_EQ(GridLastFile, 18);
  EXPECT_THAT(page(), ElementsAre(10, 11, 12, 13, 14, 15, 16, 17, 18));
  EXPECT_EQ(grid.rowData(19), rowMark::empty);
}

TEST_F(FillGridTest, HalfAPageRowHasRoomForTheSecondLine) {
  ResultsView = resultsView::twoLines;
  build(100);
  EXPECT_EQ(GridPageRows, 19);
  EXPECT_THAT(page(), SizeIs(10));
  EXPECT_EQ(grid.rowData(20), -1);
  EXPECT_EQ(text(20, 1), "   C:\\music");
  EXPECT_EQ(grid.rowData(21), -2);
  EXPECT_EQ(grid.rows(), 22);
}

TEST_F(FillGridTest, OrderThatIsPendingIsShown) {
  build(3);
  basSortFilesList("NAME", false);
  FilePointerArray[1] = 3;
  FilePointerArray[3] = 1;
  fill("POS", 1);
  EXPECT_THAT(page(), ElementsAre(3, 2, 1));
  EXPECT_EQ(text(1, 1), "f3");
}

TEST_F(FillGridTest, DeletedFileIsStruckThroughAfterAnyFill) {
  build(100);
  FileTable.FileStatus[statusState][25] = fileState::deleted;
  fill("POS", 20);
  EXPECT_TRUE(grid.cell(6, 1).strikeThrough);
  EXPECT_FALSE(grid.cell(5, 1).strikeThrough);
  fill("POS", 24);
  EXPECT_TRUE(grid.cell(2, 1).strikeThrough);
  EXPECT_FALSE(grid.cell(6, 1).strikeThrough);
}

TEST_F(FillGridTest, TicksAreThereAgainWhenThePageReturns) {
  build(100);
  FileTable.FileStatus[statusTick][3] = 1;
  fill("POS", 1);
  EXPECT_EQ(grid.cell(3, 0).picture, "SmallTick");
  fill("PGDN");
  EXPECT_EQ(grid.cell(3, 0).picture, "SmallUnTick");
  fill("POS", 1);
  EXPECT_EQ(grid.cell(3, 0).picture, "SmallTick");
}

TEST_F(FillGridTest, StatusBarFollowsAndTheGridIsGivenTheFocus) {
  build(100);
  form.screen.log.clear();
  form.statusBarUpdates = 0;
  fill("PGDN");
  EXPECT_EQ(form.statusBarUpdates, 1);
  EXPECT_TRUE(grid.redraw());
  EXPECT_THAT(form.screen.log, ElementsAre("focus"));
}

TEST_F(FillGridTest, HiddenOrDisabledGridIsNotGivenTheFocus) {
  build(100);
  grid.setVisible(false);
  form.screen.log.clear();
  fill("PGDN");
  EXPECT_THAT(form.screen.log, IsEmpty());
  grid.setVisible(true);
  grid.setEnabled(false);
  form.screen.log.clear();
  fill("PGDN");
  EXPECT_THAT(form.screen.log, IsEmpty());
}

TEST_F(FillGridTest, PageIsPaintedOnce) {
  build(100);
  form.screen.changes = 0;
  fill("PGDN");
  EXPECT_EQ(form.screen.changes, 1);
}

TEST_F(FillGridTest, MorePagesThanCanBeCountedAreReportedAndThePageIsFilled) {
  build(100);
  FileCount = 32767 * 19 + 1;
  fill("PGDN");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("basRoundUp", "Overflow(6)")));
  EXPECT_EQ(lastOnPage(), 38);
  EXPECT_TRUE(grid.redraw());
}

TEST_F(FillGridTest, FailureIsReportedAndLeavesTheGridAsItWas) {
  build(3);
  FilePointerArray.redim(1, false);
  fill("POS", 1);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basFillGrid", "Subscript out of range(9)")));
  EXPECT_FALSE(grid.redraw());
}

using CursorRowTest = ResultsGridTest;

TEST_F(CursorRowTest, StartAndPageUpPutItOnTheFirstRow) {
  build(100);
  fill("POS", 50);
  EXPECT_EQ(cursor(), 19);
  fill("PGUP");
  EXPECT_EQ(cursor(), 1);
  fill("SINGLEDOWN");
  fill("POS", 1);
  EXPECT_EQ(cursor(), 1);
}

TEST_F(CursorRowTest, EndAndPageDownPutItOnTheLastRowOfAPage) {
  ResultsView = resultsView::twoLines;
  build(100);
  fill("PGDN");
  EXPECT_EQ(cursor(), 19);
  fill("POS", 100);
  EXPECT_EQ(cursor(), 19);
  fill("POS", 999999);
  EXPECT_EQ(cursor(), 19);
}

TEST_F(CursorRowTest, OtherwiseItIsOnTheLastRowWritten) {
  ResultsView = resultsView::twoLines;
  build(100);
  for (const char* mode : {"SINGLEDOWN", "SINGLEUP", ""}) {
    fill(mode, 0);
    EXPECT_EQ(cursor(), 20);
  }
  fill("POS", 99);
  EXPECT_EQ(cursor(), 18);
}

// The first row counts as more than the last: a list of one file.
TEST_F(CursorRowTest, StartOfAListOfOneFileIsTheFirstRow) {
  build(1);
  fill("POS", 1);
  EXPECT_EQ(cursor(), 1);
}

// The row may be an empty one.
TEST_F(CursorRowTest, EndOfAShortListIsStillTheLastRowOfAPage) {
  build(5);
  fill("POS", 999999);
  EXPECT_EQ(cursor(), 19);
  EXPECT_EQ(grid.rowData(19), -2);
}

class BandingTest : public ResultsGridTest {
 protected:
  // Shows files with these match numbers in this order.
  void show(const std::vector<int>& numbers) {
    std::vector<CatalogueFile> files;
    for (int number : numbers)
      files.push_back({"f", "C:\\", 1, number});
    buildCatalogue(files);
    basBuildWholeGrid(form, 0, 1);
  }
  std::vector<Colour> colours() const {
    std::vector<Colour> found;
    for (Int32 row = 1; row < grid.rows(); ++row)
      if (grid.rowData(row) >= 0) found.push_back(grid.cell(row, 1).backColour.value());
    return found;
  }
};

TEST_F(BandingTest, BlocksOfEqualKeyAlternate) {
  show({0, 0, 1, 1, 1, 2, 3});
  EXPECT_THAT(colours(), ElementsAre(white, white, grey, grey, grey, white, grey));
}

TEST_F(BandingTest, GapsBetweenKeysStillAlternate) {
  show({0, 2, 4});
  EXPECT_THAT(colours(), ElementsAre(white, grey, white));
}

TEST_F(BandingTest, FirstBlockGoesByItsParity) {
  show({5, 6});
  EXPECT_THAT(colours(), ElementsAre(grey, white));
  show({6, 7});
  EXPECT_THAT(colours(), ElementsAre(white, grey));
}

// Each page begins anew, so that a block behind a gap may change its colour with the page.
TEST_F(BandingTest, BlockMayChangeItsColourWithThePage) {
  show({0, 2, 4});
  GridPageRows = 1;
  fill("POS", 2);
  EXPECT_THAT(colours(), ElementsAre(white));
}

TEST_F(BandingTest, FilesWithoutMatchAreAnEvenBlock) {
  show({noMatch, noMatch, 1});
  EXPECT_THAT(colours(), ElementsAre(white, white, grey));
}

// Nothing has this number but a damaged list; no block begins with it.
TEST_F(BandingTest, KeyBeforeAnyHasNoColour) {
  show({-1, 2});
  EXPECT_EQ(grid.cell(1, 1).backColour, std::nullopt);
  EXPECT_EQ(grid.cell(2, 1).backColour, white);
}

TEST_F(BandingTest, SecondLineHasTheColourOfTheFirst) {
  ResultsView = resultsView::twoLines;
  show({0, 1});
  EXPECT_EQ(grid.cell(3, 1).backColour, grey);
  EXPECT_EQ(grid.cell(4, 1).backColour, grey);
}

TEST_F(BandingTest, DirectoriesAreBlocksByTheirNumber) {
  ResultsGroup = resultsGroup::directory;
  buildCatalogue({{"a", "C:\\x", 1, 0}, {"b", "C:\\x", 1, 1}, {"c", "C:\\y", 1, 1}});
  build();
  EXPECT_THAT(colours(), ElementsAre(grey, grey, white));
}

}  // namespace
}  // namespace quernstoke
