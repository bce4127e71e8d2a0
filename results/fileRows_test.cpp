#include "results/fileRows.h"

#include <optional>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "results/resultsGridTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

constexpr Colour grey = 0xE0E0E0;
constexpr std::int64_t november2 = 1099353600;  // 2004

// One file, written into row 4 of a grid of ten.
class FileRowsTest : public ResultsGridTest {
 protected:
  FileRowsTest() {
    buildCatalogue({{"song.mp3", "C:\\music", 1234567, 4}});
    FileTable.FileDate[1].seconds = november2;
    grid.setRows(10);
    grid.setCols(6);
  }

  void display(int percent = -1) {
    Int16 taken;
    basDisplayFileDetails(1, row, taken, grid, percent, grey);
    lines = taken.raw();
  }
  std::vector<std::string> texts(int inRow, int columns) const {
    std::vector<std::string> found;
    for (int col = 0; col < columns; ++col)
      found.push_back(text(inRow, col));
    return found;
  }
  std::vector<int> alignments(int inRow, int columns) const {
    std::vector<int> found;
    for (int col = 0; col < columns; ++col)
      found.push_back(static_cast<int>(grid.alignmentOf(inRow, col)));
    return found;
  }

  int row = 4;
  int lines = 0;
};

TEST_F(FileRowsTest, OneLineHoldsAllOfTheFile) {
  display();
  EXPECT_EQ(lines, 1);
  EXPECT_THAT(texts(4, 5), ElementsAre("", "song.mp3", "C:\\music", "2004-11-02", "1234567"));
  EXPECT_THAT(alignments(4, 5), ElementsAre(5, 1, 1, 1, 7));
  EXPECT_EQ(grid.rowData(4), 1);
  EXPECT_EQ(grid.rowData(5), 0);
  EXPECT_EQ(text(5, 1), "");
}

TEST_F(FileRowsTest, TwoLinesShareTheFile) {
  ResultsView = resultsView::twoLines;
  display();
  EXPECT_EQ(lines, 2);
  EXPECT_THAT(texts(4, 3), ElementsAre("", "song.mp3", "2004-11-02"));
  EXPECT_THAT(texts(5, 3), ElementsAre("", "   C:\\music", "1234567"));
  EXPECT_THAT(alignments(4, 3), ElementsAre(5, 1, 1));
  EXPECT_THAT(alignments(5, 3), ElementsAre(3, 1, 7));
  EXPECT_EQ(grid.rowData(4), 1);
  EXPECT_EQ(grid.rowData(5), -1);
}

TEST_F(FileRowsTest, NameAloneIsBold) {
  ResultsView = resultsView::twoLines;
  display();
  EXPECT_TRUE(grid.cell(4, 1).bold);
  EXPECT_FALSE(grid.cell(4, 2).bold);
  EXPECT_FALSE(grid.cell(5, 1).bold);
}

TEST_F(FileRowsTest, NameOfADeletedFileIsStruckThrough) {
  for (const int state : {fileState::normal, fileState::unreadable, fileState::removed}) {
    FileTable.FileStatus[statusState][1] = state;
    display();
    EXPECT_FALSE(grid.cell(4, 1).strikeThrough);
  }
  FileTable.FileStatus[statusState][1] = fileState::deleted;
  display();
  EXPECT_TRUE(grid.cell(4, 1).strikeThrough);
  EXPECT_FALSE(grid.cell(4, 2).strikeThrough);
}

TEST_F(FileRowsTest, EveryCellWrittenHasTheColour) {
  ProfileSettings.ContentMatchingPercent = 90;
  display();
  for (int col = 0; col < 6; ++col)
    EXPECT_EQ(grid.cell(4, col).backColour, grey);
  EXPECT_EQ(grid.cell(5, 0).backColour, std::nullopt);

  ResultsView = resultsView::twoLines;
  display();
  for (int col = 0; col < 4; ++col)
    EXPECT_EQ(grid.cell(5, col).backColour, grey);
  EXPECT_EQ(grid.cell(5, 4).backColour, std::nullopt);
}

TEST_F(FileRowsTest, TickOfTheFileIsPainted) {
  display();
  EXPECT_EQ(grid.cell(4, 0).picture, "SmallUnTick");
  FileTable.FileStatus[statusTick][1] = 1;
  display();
  EXPECT_EQ(grid.cell(4, 0).picture, "SmallTick");
  EXPECT_EQ(FileTable.FileStatus[statusTick][1], 1);
}

TEST_F(FileRowsTest, FileInAnArchiveIsShownUnderTheArchive) {
  buildCatalogue({{"song.mp3", "C:\\music"}, {"list.txt", "C:\\pack.zip"}});
  DirTable.set(1, {"live/2004", dirKind::zipFolder, 2});
  display();
  EXPECT_EQ(text(4, 2), "C:\\pack.zip >> live/2004");
}

TEST_F(FileRowsTest, PercentageBelow1IsEmpty) {
  ProfileSettings.ContentMatchingPercent = 90;
  for (const int percent : {-1, 0}) {
    display(percent);
    EXPECT_EQ(text(4, 5), "");
  }
  EXPECT_EQ(grid.alignmentOf(4, 5), CellAlignment::centreCentre);
  display(85);
  EXPECT_EQ(text(4, 5), "85");
}

TEST_F(FileRowsTest, PercentageOfTwoLinesStandsOnTheSecond) {
  ProfileSettings.ContentMatchingPercent = 90;
  ResultsView = resultsView::twoLines;
  display();
  EXPECT_EQ(text(4, 3), " ");
  EXPECT_EQ(text(5, 3), "");
  EXPECT_EQ(grid.alignmentOf(4, 3), CellAlignment::centreCentre);
  EXPECT_EQ(grid.alignmentOf(5, 3), CellAlignment::centreCentre);
  display(85);
  EXPECT_EQ(text(4, 3), " ");
  EXPECT_EQ(text(5, 3), "85");
}

TEST_F(FileRowsTest, WithoutAPercentColumnNoneIsWritten) {
  grid.setCols(5);
  display(85);
  EXPECT_EQ(text(4, 4), "1234567");
  EXPECT_THAT(dialogBoxes.messages, testing::IsEmpty());
}

TEST_F(FileRowsTest, RowBehindTheLastAdds50) {
  row = 9;
  display();
  EXPECT_EQ(grid.rows(), 10);
  row = 10;
  display();
  EXPECT_EQ(grid.rows(), 60);
  EXPECT_EQ(text(10, 1), "song.mp3");
}

// Only the first row of a file is looked at.
TEST_F(FileRowsTest, SecondLineBehindTheLastRowIsReported) {
  ResultsView = resultsView::twoLines;
  row = 9;
  display();
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basDisplayFileDetails", "Subscript out of range(9)")));
  EXPECT_EQ(grid.rows(), 10);
}

}  // namespace
}  // namespace quernstoke
