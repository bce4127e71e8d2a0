#include "dirmatch/dirMatchGrid.h"

#include <utility>

#include "dirmatch/dirMatchTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DirMatchGridTest : public DirMatchTest {
 protected:
  static std::pair<int, int> entries(int line) {
    return {DirMatchGridMap[line][0].raw(), DirMatchGridMap[line][1].raw()};
  }
  Colour back(int row, int col) const { return grid.cell(row, col).backColour.value_or(1); }
  Colour fore(int row, int col) const { return grid.cell(row, col).foreColour.value_or(1); }
};

TEST_F(DirMatchGridTest, CopiesStandOnOneLineAndGroupsApart) {
  show({{"a", "C:\\left", 1, 0},
        {"b", "C:\\right", 1, 0},
        {"c", "C:\\right\\s\\t", 1, 0},
        {"d", "C:\\right", 1, 1},
        {"e", "C:\\left\\s", 1, 1}});
  EXPECT_THAT(lines(), ElementsAre("a | b", " | s\\t/c", "--", "s/e | d"));
  EXPECT_EQ(entries(1), std::pair(1, 2));
  EXPECT_EQ(entries(2), std::pair(0, 3));
  EXPECT_EQ(entries(3), std::pair(-1, -1));
  EXPECT_EQ(entries(4), std::pair(5, 4));
  EXPECT_EQ(entries(5), std::pair(0, 0));
}

TEST_F(DirMatchGridTest, GroupOnOneSideHasItsLineThere) {
  show({{"a", "C:\\left", 1, 0},
        {"x", "C:\\else", 1, 0},
        {"b", "C:\\right", 1, 1},
        {"y", "C:\\else", 1, 1}});
  EXPECT_THAT(lines(), ElementsAre("a | ", "--", " | b"));
}

TEST_F(DirMatchGridTest, LineTellsAFile) {
  build({{"a", "C:\\left\\sub", 1234567, 0}, {"b", "C:\\right", 1, 0}, {"c", "C:\\else", 1, 0}});
  FileTable.FileDate[1] = dateTime({2004, 11, 2, 16, 41, 8});
  basProcessFiles(form);
  const char* expected[] = {"a", "sub", "1234567", "2004-11-02", "2(3)", "",
                            "b", "",    "1",       "1970-01-01", "2(3)"};
  for (int col = 0; col < dirMatchColumn::count; ++col)
    EXPECT_EQ(text(1, col), expected[col]) << col;
}

TEST_F(DirMatchGridTest, TitlesStandOnBothSides) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  EXPECT_EQ(grid.cols(), 11);
  EXPECT_EQ(text(0, 0), "File Name");
  EXPECT_EQ(text(0, 5), "");
  EXPECT_EQ(text(0, 10), "Dups");
  EXPECT_EQ(grid.alignmentOf(1, 8), CellAlignment::rightCentre);
  EXPECT_EQ(grid.alignmentOf(1, 6), CellAlignment::leftCentre);
}

TEST_F(DirMatchGridTest, EmptyListHasTitlesAlone) {
  show({{"a", "C:\\else", 1, 0}, {"b", "C:\\else", 1, 0}});
  EXPECT_EQ(grid.rows(), 1);
  EXPECT_TRUE(grid.redraw());
  EXPECT_EQ(text(0, 0), "File Name");
}

// Of a directory that is only beside the one on the left.
TEST_F(DirMatchGridTest, SubDirectoryIsWhatFollowsTheBase) {
  show({{"a", "C:\\left2\\x", 1, 0}, {"b", "C:\\right", 1, 0}});
  EXPECT_EQ(text(1, 1), "2\\x");
}

TEST_F(DirMatchGridTest, SubDirectoryBelowADriveBeginsWithItsName) {
  build({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  choose("C:", "C:\\right");
  basProcessFiles(form);
  EXPECT_THAT(lines(), ElementsAre("left/a | b"));
}

TEST_F(DirMatchGridTest, LooseFilesStandBehindTheGroupsSmallestFirst) {
  show({{"a", "C:\\left", 1, 0},
        {"b", "C:\\right", 1, 0},
        {"c", "C:\\right", 1, 0},
        {"big", "C:\\left", 9},
        {"small", "C:\\left", 2},
        {"middle", "C:\\right", 5}},
       true);
  EXPECT_THAT(lines(), ElementsAre("a | b", " | c", "small | middle", "big | "));
  EXPECT_EQ(text(3, 4), "0(0)");
}

TEST_F(DirMatchGridTest, LooseFilesAloneBeginAtTheTop) {
  show({{"a", "C:\\right", 9}, {"b", "C:\\left", 2}, {"c", "C:\\left", 1}}, true);
  EXPECT_THAT(lines(), ElementsAre("c | a", "b | "));
}

TEST_F(DirMatchGridTest, ColoursTellGroupsFromLooseFiles) {
  show({{"a", "C:\\left", 1, 0},
        {"b", "C:\\left", 1, 0},
        {"c", "C:\\right", 1, 1},
        {"d", "C:\\right", 1, 1},
        {"loose", "C:\\left", 9}},
       true);
  ASSERT_THAT(lines(), ElementsAre("a | ", "b | ", "--", " | c", " | d", "loose | "));
  for (int col = 0; col < 5; ++col) {
    EXPECT_EQ(back(1, col), 0xFFFFFFu);
    EXPECT_EQ(fore(1, col), 0u);
    EXPECT_EQ(back(6, col), 0xC0C0C0u);
    EXPECT_EQ(fore(6, col), 0u);
  }
  for (int row : {1, 2, 4, 5, 6}) {
    EXPECT_EQ(back(row, 5), 0xC0C0C0u);
    EXPECT_EQ(fore(row, 5), 0xFFFFFFu);
  }
  EXPECT_FALSE(grid.cell(1, 6).backColour.has_value());
  EXPECT_EQ(back(4, 10), 0xFFFFFFu);
  for (int col = 0; col < dirMatchColumn::count; ++col) {
    EXPECT_EQ(back(3, col), 0x202020u);
    EXPECT_EQ(fore(3, col), 0xFFFFFFu);
  }
}

TEST_F(DirMatchGridTest, DeletedFileAndItsLineAreGoneAtTheNextFill) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\left", 1, 0}, {"c", "C:\\left", 1, 0}});
  FileTable.FileStatus[statusState][2] = fileState::deleted;
  basProcessFiles(form);
  EXPECT_THAT(lines(), ElementsAre("a | ", "c | "));
  EXPECT_EQ(text(1, 4), "2(3)");
  EXPECT_EQ(entries(3), std::pair(0, 0));
}

TEST_F(DirMatchGridTest, FillKeepsTheSelectionAsFarAsItCan) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\left", 1, 0}, {"c", "C:\\left", 1, 0}});
  select(2, 3, 6);
  basProcessFiles(form);
  EXPECT_EQ(grid.row(), 2);
  EXPECT_EQ(grid.rowSel(), 3);
  EXPECT_EQ(grid.col(), 6);
  FileTable.FileStatus[statusState][1] = fileState::deleted;
  basProcessFiles(form);
  EXPECT_EQ(grid.row(), 2);
  EXPECT_EQ(grid.rowSel(), 2);
}

TEST_F(DirMatchGridTest, FillKeepsTheLinesOnTheScreen) {
  show(std::vector<CatalogueFile>(100, {"a", "C:\\left", 1, 0}));
  grid.setTopRow(50);
  basProcessFiles(form);
  EXPECT_EQ(grid.topRow(), 50);
}

TEST_F(DirMatchGridTest, ScreenIsNotTouchedDuringTheFill) {
  build(std::vector<CatalogueFile>(100, {"a", "C:\\left", 1, 0}));
  const int before = form.screen.changes;
  basProcessFiles(form);
  EXPECT_EQ(form.screen.changes, before + 1);
}

TEST_F(DirMatchGridTest, FailureIsToldAndTheGridGoesOnDrawing) {
  build({{"a", "C:\\left", 1, 0}, {"b", "C:\\left", 1, 0}});
  Int32 firstLoose;
  basLoadFilesIntoArray(false, firstLoose);
  DirMatchRows[2].directory = 99999;
  basLoadFilesIntoGrid(form);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basLoadFilesIntoGrid", "Subscript out of range(9)")));
  EXPECT_TRUE(grid.redraw());
}

TEST_F(DirMatchGridTest, TwentyThousandFilesAreShown) {
  std::vector<CatalogueFile> files;
  for (int file = 0; file < 20000; ++file)
    files.push_back({"f" + std::to_string(file), file % 2 == 0 ? "C:\\left" : "C:\\right", file,
                     file < 10000 ? file / 2 : noMatch});
  buildCatalogue(files);
  basSetupMatchGroupInfo("MATCHNUM", startMode::none);
  RunState = runState::finished;
  choose("C:\\left", "C:\\right");
  form.showAll = true;
  basProcessFiles(form);
  EXPECT_EQ(grid.rows(), 1 + 5000 + 4999 + 5000);
  EXPECT_EQ(text(9999, 0), "f9998");
  EXPECT_EQ(text(14999, 6), "f19999");
  EXPECT_EQ(entries(14999), std::pair(19999, 20000));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirMatchGridTest, MapGrowsByTheThousands) {
  show(std::vector<CatalogueFile>(2048, {"a", "C:\\left", 1, 0}));
  EXPECT_EQ(DirMatchGridMap.upperBound(), 2048);
  show(std::vector<CatalogueFile>(2049, {"a", "C:\\left", 1, 0}));
  EXPECT_EQ(DirMatchGridMap.upperBound(), 4096);
  EXPECT_EQ(entries(2049), std::pair(2049, 0));
}

// The widths.

TEST_F(DirMatchGridTest, FixedColumnsAreAsWideAsTheirSamples) {
  show({});
  setDirMatchColumnWidths(form);
  const auto width = [&](int col) { return grid.colWidth(col).raw(); };
  constexpr int margins = 7;
  EXPECT_EQ(width(2), 800 + margins + 40);
  EXPECT_EQ(width(8), 800 + margins + 10);  // The right side's sizes have less.
  for (const int col : {3, 9})
    EXPECT_EQ(width(col), 1000 + margins + 40);
  for (const int col : {4, 10})
    EXPECT_EQ(width(col), 600 + margins + 40);
  EXPECT_EQ(width(5), 150);
}

TEST_F(DirMatchGridTest, NamesAndSubDirectoriesShareTheRest) {
  show({});
  setDirMatchColumnWidths(form);
  const int used = 847 + 817 + 2 * 1047 + 2 * 647 + 150;
  const int quarter = (20000 - used - 110 - 200) / 4 - 1;
  for (const int col : {0, 1, 6, 7})
    EXPECT_EQ(grid.colWidth(col), quarter) << col;
}

TEST_F(DirMatchGridTest, NamesStayLegibleInANarrowGrid) {
  show({});
  form.screen.width = 100;
  setDirMatchColumnWidths(form);
  for (const int col : {0, 1, 6, 7})
    EXPECT_EQ(grid.colWidth(col), 600) << col;
}

TEST_F(DirMatchGridTest, DirectoriesAreFittedAboveTheirSides) {
  build({{"a", "C:\\left\\very\\long\\way\\down", 1, 0}, {"b", "C:\\right", 1, 0}});
  choose("C:\\left\\very\\long\\way\\down", "C:\\right");
  form.widths["labDirName_0"] = 2000;
  showDirMatchBases(form);
  EXPECT_EQ(form.texts["labDirName_0"], "C:\\...\\way\\down");
  EXPECT_EQ(form.texts["labDirName_1"], "C:\\right");
}

}  // namespace
}  // namespace quernstoke
