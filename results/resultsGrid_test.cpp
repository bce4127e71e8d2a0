#include "results/resultsGrid.h"

#include "core/scanState.h"
#include "results/matchGroupIndex.h"
#include "results/resultsGridTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

using BuildGridTest = ResultsGridTest;

TEST_F(BuildGridTest, FirstPageBeginsWithTheFirstFile) {
  build(100);
  EXPECT_EQ(firstOnPage(), 1);
  EXPECT_EQ(lastOnPage(), 19);
  EXPECT_EQ(GridFirstFile, 1);
  EXPECT_EQ(GridLastFile, 20);
  EXPECT_TRUE(grid.visible());
  EXPECT_TRUE(grid.redraw());
  EXPECT_TRUE(form.scrollBar.visible);
  EXPECT_FALSE(form.noDuplicatesShown);
}

TEST_F(BuildGridTest, WithoutAProfileNothingIsShown) {
  ProfileName.clear();
  build(100);
  EXPECT_EQ(grid.rows(), 2);
  EXPECT_EQ(form.statusBarUpdates, 0);
}

TEST_F(BuildGridTest, EmptyListShowsThatThereAreNoDuplicates) {
  build();
  EXPECT_FALSE(grid.visible());
  EXPECT_FALSE(form.scrollBar.visible);
  EXPECT_TRUE(form.noDuplicatesShown);
  EXPECT_THAT(form.disabled, ElementsAre("cmdOpenFile", "cmdOpenDir", "cmdFilter",
                                         "cmdDeleteFile_0", "cmdDeleteFile_1", "cboGroup",
                                         "cboView", "cmdSetDir_0", "cmdSetDir_1", "cmdSetDir_2"));
  EXPECT_EQ(form.statusBarUpdates, 0);
}

TEST_F(BuildGridTest, ListAfterAnEmptyOneShowsTheGridButEnablesNothing) {
  build();
  const std::size_t disabled = form.disabled.size();
  build(3);
  EXPECT_TRUE(grid.visible());
  EXPECT_FALSE(form.noDuplicatesShown);
  EXPECT_THAT(form.disabled, SizeIs(disabled));
}

TEST_F(BuildGridTest, ShortListLeavesRowsEmptyAndHidesTheScrollBar) {
  build(3);
  EXPECT_THAT(page(), ElementsAre(1, 2, 3));
  EXPECT_EQ(GridFirstFile, 1);
  EXPECT_EQ(GridLastFile, 3);
  for (int row = 4; row < 22; ++row) {
    EXPECT_EQ(grid.rowData(row), -2);
    EXPECT_EQ(text(row, 1), "");
  }
  EXPECT_FALSE(form.scrollBar.visible);
}

TEST_F(BuildGridTest, ScrollBarIsShownFromAPageOn) {
  build(18);
  EXPECT_FALSE(form.scrollBar.visible);
  build(19);
  EXPECT_TRUE(form.scrollBar.visible);
}

TEST_F(BuildGridTest, ScrollBarRangesOverTheFilesAndOneMore) {
  build(100);
  EXPECT_EQ(form.scrollBar.minimum(), 1);
  EXPECT_EQ(form.scrollBar.maximum(), 101);
  EXPECT_EQ(form.scrollBar.value(), 1);
  EXPECT_EQ(form.scrollBar.text, "");
}

TEST_F(BuildGridTest, ScrollBarEndsAt32000ForMoreFiles) {
  buildNameless(32000);
  EXPECT_EQ(form.scrollBar.maximum(), 32001);
  buildNameless(32001);
  EXPECT_EQ(form.scrollBar.maximum(), 32000);
}

TEST_F(BuildGridTest, LargeChangeIsAPageLessOneFile) {
  build(100);
  EXPECT_EQ(form.scrollBar.largeChange(), 18);
  ResultsView = resultsView::twoLines;
  build();
  EXPECT_EQ(form.scrollBar.largeChange(), 8);  // 8.5
  form.screen.rowsThatFit = 22;
  build();
  EXPECT_EQ(form.scrollBar.largeChange(), 10);  // 9.5
}

TEST_F(BuildGridTest, LargeChangeOfAPageOfOneRowIs1) {
  form.screen.rowsThatFit = 2;
  build(100);
  EXPECT_EQ(GridPageRows, 1);
  EXPECT_EQ(form.scrollBar.largeChange(), 1);
}

// The bar's movements are the program's own: the page is filled once.
TEST_F(BuildGridTest, RebuildReturnsToTheTopInOneFill) {
  build(100);
  form.scrollBar.setValue(50);
  form.statusBarUpdates = 0;
  build();
  EXPECT_EQ(form.scrollBar.value(), 1);
  EXPECT_EQ(GridPrevScroll, 0);
  EXPECT_EQ(firstOnPage(), 1);
  EXPECT_EQ(form.statusBarUpdates, 1);
}

TEST_F(BuildGridTest, FilesAreSortedByMatch) {
  buildCatalogue({{"b", "C:\\x", 1, 4}, {"a", "C:\\y", 1, 2}, {"c", "C:\\x", 1, 6}});
  build();
  EXPECT_THAT(fileNames(), ElementsAre("a", "b", "c"));
  EXPECT_EQ(text(1, 1), "a");
  EXPECT_EQ(MatchGroupCount, 3);
}

TEST_F(BuildGridTest, FilesAreSortedByDirectory) {
  ResultsGroup = resultsGroup::directory;
  buildCatalogue({{"a", "C:\\x", 1, 4}, {"b", "C:\\y", 1, 4}, {"c", "C:\\x", 1, 6}});
  build();
  EXPECT_THAT(fileNames(), testing::UnorderedElementsAre("a", "b", "c"));
  EXPECT_EQ(fileNames().back(), "b");
  EXPECT_EQ(MatchGroupCount, 2);
}

// The status bar shows the files less the directories then.
TEST_F(BuildGridTest, DuplicatesAreCountedAnewByTheGrouping) {
  buildCatalogue({{"a", "C:\\x", 1, 4}, {"b", "C:\\y", 1, 4}, {"c", "C:\\z", 1, 4}});
  build();
  EXPECT_EQ(DuplicateCount, 2);
  ResultsGroup = resultsGroup::directory;
  build();
  EXPECT_EQ(DuplicateCount, 0);
}

TEST_F(BuildGridTest, KeptOrderIsNeitherSortedNorGrouped) {
  for (const int keepOrder : {1, 2, -1}) {
    buildCatalogue({{"b", "C:\\x", 1, 4}, {"a", "C:\\y", 1, 2}});
    DuplicateCount = 77;
    basBuildWholeGrid(form, 0, keepOrder);
    EXPECT_THAT(fileNames(), ElementsAre("b", "a"));
    EXPECT_EQ(text(1, 1), "b");
    EXPECT_EQ(DuplicateCount, 77);
  }
}

TEST_F(BuildGridTest, FillIsSkippedWith1Alone) {
  makeFiles(30);
  basBuildWholeGrid(form, 1, 0);
  EXPECT_EQ(form.statusBarUpdates, 0);
  EXPECT_EQ(grid.rows(), 22);
  EXPECT_EQ(text(1, 1), "");
  EXPECT_TRUE(grid.redraw());
  basBuildWholeGrid(form, 2, 0);
  EXPECT_EQ(text(1, 1), "f1");
}

TEST_F(BuildGridTest, WithDuplicatesTheFirstRowIsSelectedFromTheName) {
  buildCatalogue({{"a", "C:\\x", 1, 2}, {"b", "C:\\x", 1, 2}});
  build();
  EXPECT_EQ(grid.topRow(), 1);
  EXPECT_EQ(grid.row(), 1);
  EXPECT_EQ(grid.rowSel(), 1);
  EXPECT_EQ(grid.col(), 1);
  EXPECT_EQ(grid.colSel(), 4);
}

TEST_F(BuildGridTest, WithoutDuplicatesTheColumnStays) {
  grid.setCol(0);
  build(2);
  EXPECT_EQ(grid.col(), 0);
  EXPECT_EQ(grid.row(), 1);
}

TEST_F(BuildGridTest, ChangeOfViewKeepsThePageRows) {
  build(100);
  ResultsView = resultsView::twoLines;
  build();
  EXPECT_EQ(GridLinesPerFile, 2);
  EXPECT_EQ(GridPageRows, 19);
  EXPECT_EQ(lastOnPage(), 10);
}

}  // namespace
}  // namespace quernstoke
