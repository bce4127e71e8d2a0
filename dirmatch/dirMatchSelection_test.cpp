#include "dirmatch/dirMatchSelection.h"

#include <utility>

#include "dirmatch/dirMatchTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class DirMatchSelectionTest : public DirMatchTest {
 protected:
  // Lines: "a | b", " | sub/c", "--", "e | d".
  void showTwoGroups() {
    show({{"a", "C:\\left", 1234567, 0},
          {"b", "C:\\right", 1, 0},
          {"c", "C:\\right\\sub", 1, 0},
          {"d", "C:\\right", 2, 1},
          {"e", "C:\\left", 2, 1},
          {"f", "C:\\else", 2, 1}});
  }
  std::pair<int, int> columns() const { return {grid.col().raw(), grid.colSel().raw()}; }
};

TEST_F(DirMatchSelectionTest, ClickSelectsTheSidesColumns) {
  showTwoGroups();
  for (const auto& [col, first] :
       {std::pair(0, 0), {1, 0}, {4, 0}, {5, 6}, {6, 6}, {8, 6}, {10, 6}}) {
    clickCell(1, col);
    EXPECT_EQ(columns(), std::pair(first, first + 4)) << col;
    EXPECT_EQ(grid.row(), 1);
    EXPECT_EQ(grid.rowSel(), 1);
  }
}

TEST_F(DirMatchSelectionTest, ClickShowsTheFilesDetails) {
  showTwoGroups();
  FileTable.FileDate[1] = dateTime({2004, 11, 2, 16, 41, 8});
  clickCell(1, 0);
  EXPECT_EQ(form.texts["labFileName"], "a");
  EXPECT_EQ(form.texts["labDirectory"], "C:\\left");
  EXPECT_EQ(form.texts["labSize"], "1,234,567");
  EXPECT_EQ(form.texts["labDate"], "2004-11-02");
  EXPECT_EQ(form.texts["labCount1"], "3");
  EXPECT_EQ(form.texts["labCount2"], "3");
  EXPECT_THAT(form.visible, ElementsAre("picFileDetails"));
  clickCell(4, 7);
  EXPECT_EQ(form.texts["labFileName"], "d");
  EXPECT_EQ(form.texts["labCount1"], "2");
  EXPECT_EQ(form.texts["labCount2"], "3");
}

TEST_F(DirMatchSelectionTest, DirectoryOfTheDetailsIsFitted) {
  showTwoGroups();
  form.widths["labDirectory"] = 1100;
  clickCell(2, 6);
  EXPECT_EQ(form.texts["labDirectory"], "C:\\...\\sub");
}

TEST_F(DirMatchSelectionTest, ClickBesideAFileAsksForOne) {
  showTwoGroups();
  clickCell(1, 0);
  clickCell(2, 0);
  EXPECT_THAT(form.visible, ElementsAre("labFileDetailsMessage_1"));
  EXPECT_EQ(form.texts["labFileName"], "a");
  EXPECT_THAT(form.enabled, IsEmpty());
}

// The line itself shows no file, so there is nothing to do with one.
TEST_F(DirMatchSelectionTest, ClickOnASeparatorTellsAboutTheFileBelow) {
  showTwoGroups();
  clickCell(3, 0);
  EXPECT_EQ(form.texts["labFileName"], "e");
  EXPECT_THAT(form.visible, ElementsAre("picFileDetails"));
  EXPECT_THAT(form.enabled, IsEmpty());
  clickCell(3, 9);
  EXPECT_EQ(form.texts["labFileName"], "d");
}

TEST_F(DirMatchSelectionTest, ClickOnASeparatorWithNothingBelowAsksForAFile) {
  show({{"a", "C:\\left", 1, 0},
        {"b", "C:\\right", 1, 0},
        {"c", "C:\\right", 1, 1},
        {"d", "C:\\right", 1, 1}});
  ASSERT_THAT(lines(), ElementsAre("a | b", "--", " | c", " | d"));
  clickCell(1, 0);
  clickCell(2, 0);
  EXPECT_THAT(form.visible, ElementsAre("labFileDetailsMessage_1"));
  EXPECT_EQ(form.texts["labFileName"], "a");
  EXPECT_THAT(form.enabled, IsEmpty());
  clickCell(2, 6);
  EXPECT_EQ(form.texts["labFileName"], "c");
}

TEST_F(DirMatchSelectionTest, ClickOnTheTitlesOrOutsideTheMapDoesNothing) {
  showTwoGroups();
  select(0, 0, 3);
  griddir_Click(form);
  EXPECT_EQ(grid.col(), 3);
  grid.setRows(5000);
  select(4000, 4000, 3);
  griddir_Click(form);
  EXPECT_EQ(grid.col(), 3);
  EXPECT_THAT(form.visible, ElementsAre("labFileDetailsMessage_1"));
}

TEST_F(DirMatchSelectionTest, SeveralLinesAreToldAsSuch) {
  showTwoGroups();
  select(1, 4, 2);
  griddir_Click(form);
  EXPECT_EQ(grid.row(), 1);
  EXPECT_EQ(grid.rowSel(), 4);
  EXPECT_EQ(columns(), std::pair(0, 4));
  EXPECT_THAT(form.visible, ElementsAre("labFileDetailsMessage_0"));
  EXPECT_EQ(form.texts["labFileName"], "a");
  clickCell(1, 0);
  EXPECT_THAT(form.visible, ElementsAre("picFileDetails"));
}

TEST_F(DirMatchSelectionTest, ButtonsOfTheFilesSideAreEnabled) {
  showTwoGroups();
  clickCell(1, 0);
  EXPECT_THAT(form.enabled, UnorderedElementsAre("cmdDelete_0", "cmdMove_0", "cmdOpen_0"));
  clickCell(1, 6);
  EXPECT_THAT(form.enabled, UnorderedElementsAre("cmdDelete_1", "cmdMove_1", "cmdOpen_1"));
  clickCell(2, 6);
  EXPECT_THAT(form.enabled, UnorderedElementsAre("cmdDelete_1", "cmdMove_1", "cmdOpen_1"));
  clickCell(2, 0);
  EXPECT_THAT(form.enabled, IsEmpty());
}

TEST_F(DirMatchSelectionTest, SeveralFilesAreNotOpened) {
  showTwoGroups();
  select(1, 4);
  griddir_Click(form);
  EXPECT_THAT(form.enabled, UnorderedElementsAre("cmdDelete_0", "cmdMove_0"));
  select(1, 4, 6);
  griddir_Click(form);
  EXPECT_THAT(form.enabled, UnorderedElementsAre("cmdDelete_1", "cmdMove_1"));
}

// Only the first line of the selection counts.
TEST_F(DirMatchSelectionTest, SelectionThatBeginsBesideAFileEnablesNothing) {
  showTwoGroups();
  select(2, 4);
  griddir_Click(form);
  EXPECT_THAT(form.enabled, IsEmpty());
}

// Opening acts on the line at which the drag began.
TEST_F(DirMatchSelectionTest, SelectionDraggedUpwardCanBeOpened) {
  showTwoGroups();
  select(4, 1);
  griddir_Click(form);
  EXPECT_THAT(form.visible, ElementsAre("labFileDetailsMessage_0"));
  EXPECT_THAT(form.enabled, UnorderedElementsAre("cmdDelete_0", "cmdMove_0", "cmdOpen_0"));
}

TEST_F(DirMatchSelectionTest, NothingIsEnabledInTheTitles) {
  showTwoGroups();
  clickCell(1, 0);
  select(0, 0);
  basUpdateControls(form);
  EXPECT_THAT(form.enabled, IsEmpty());
}

TEST_F(DirMatchSelectionTest, KeysLeadFromSideToSide) {
  showTwoGroups();
  const auto moveTo = [&](int row, int col) {
    const Int32 before = grid.col();
    select(row, row, col);
    griddir_KeyUp(form, before);
  };
  clickCell(1, 0);
  moveTo(1, 1);
  EXPECT_EQ(columns(), std::pair(6, 10));
  EXPECT_EQ(form.texts["labFileName"], "b");
  moveTo(1, 7);
  EXPECT_EQ(columns(), std::pair(6, 10));
  moveTo(2, 6);
  EXPECT_EQ(form.texts["labFileName"], "c");
  moveTo(2, 5);
  EXPECT_EQ(columns(), std::pair(0, 4));
  EXPECT_THAT(form.visible, ElementsAre("labFileDetailsMessage_1"));
  moveTo(4, 0);
  EXPECT_EQ(form.texts["labFileName"], "e");
}

}  // namespace
}  // namespace quernstoke
