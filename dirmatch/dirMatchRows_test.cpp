#include "dirmatch/dirMatchRows.h"

#include "detect/refinement.h"
#include "dirmatch/dirMatchTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DirMatchRowsTest : public DirMatchTest {
 protected:
  // The rows as "name side counts".
  static std::vector<std::string> rows() {
    std::vector<std::string> result;
    for (Int32 number = 1; number <= DirMatchRowCount; ++number) {
      const DirMatchRow& row = DirMatchRows[number];
      const auto text = [](Int32 value) { return std::to_string(value.raw()); };
      result.push_back(std::string(FileTable.FileName[row.file]) +
                       (row.side == left ? " left " : " right ") + text(row.countInBoth) + "(" +
                       text(row.countInGroup) + ")");
    }
    return result;
  }
  static Int32 load(bool showAll = false) {
    Int32 firstLoose = 77;
    basLoadFilesIntoArray(showAll, firstLoose);
    return firstLoose;
  }
};

TEST_F(DirMatchRowsTest, FilesOfGroupsBelowTheDirectoriesAreListed) {
  build({{"a", "C:\\left", 1, 0},
         {"b", "C:\\right\\sub", 1, 0},
         {"c", "C:\\else", 1, 0},
         {"d", "C:\\right", 1, 1},
         {"e", "C:\\left", 1, 1}});
  EXPECT_EQ(load(), -1);
  EXPECT_THAT(rows(), ElementsAre("a left 2(3)", "b right 2(3)", "d right 2(2)", "e left 2(2)"));
  EXPECT_EQ(DirMatchRows[3].group, 2);
  EXPECT_EQ(DirMatchRows[2].directory, basFindDirInList("C:\\right\\sub"));
}

TEST_F(DirMatchRowsTest, GroupOnOneSideCountsThatSide) {
  build({{"a", "C:\\left", 1, 0}, {"b", "C:\\left", 1, 0}, {"c", "C:\\else", 1, 0}});
  load();
  EXPECT_THAT(rows(), ElementsAre("a left 2(3)", "b left 2(3)"));
}

TEST_F(DirMatchRowsTest, GroupsElsewhereAreNotListed) {
  build({{"a", "C:\\else", 1, 0}, {"b", "C:\\elsewhere", 1, 0}});
  load();
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(DirMatchRowsTest, FileBelowBothIsListedOnceOnTheRightAndCountedTwice) {
  build({{"a", "C:\\left", 1, 0}, {"b", "C:\\left\\inner", 1, 0}});
  choose("C:\\left", "C:\\left\\inner");
  load();
  EXPECT_THAT(rows(), ElementsAre("a left 3(2)", "b right 3(2)"));
  choose("C:\\left\\inner", "C:\\left");
  load();
  EXPECT_THAT(rows(), ElementsAre("a right 3(2)", "b right 3(2)"));
}

TEST_F(DirMatchRowsTest, EqualDirectoriesPutAllOnTheRight) {
  build({{"a", "C:\\left", 1, 0}, {"b", "C:\\left", 1, 0}});
  choose("C:\\left", "C:\\left");
  load();
  EXPECT_THAT(rows(), ElementsAre("a right 4(2)", "b right 4(2)"));
}

// A directory takes those beside it along whose names begin as its own does.
TEST_F(DirMatchRowsTest, DirectoriesAreComparedByTheirFirstCharactersOnly) {
  build({{"a", "C:\\left2\\x", 1, 0}, {"b", "C:\\LEFT", 1, 0}, {"c", "C:\\right", 1, 0}});
  load();
  EXPECT_THAT(rows(), ElementsAre("a left 2(3)", "c right 2(3)"));
}

TEST_F(DirMatchRowsTest, DeletedFilesAreNeitherListedNorCountedInBoth) {
  build({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}, {"c", "C:\\right", 1, 0}});
  FileTable.FileStatus[statusState][2] = fileState::deleted;
  load();
  EXPECT_THAT(rows(), ElementsAre("a left 2(3)", "c right 2(3)"));
}

// As after a damaged list.
TEST_F(DirMatchRowsTest, FilesWithoutADirectoryAreNeitherListedNorCountedInBoth) {
  build({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}, {"c", "C:\\right", 1, 0}});
  for (const Int32 row : {Int32(-1), Int32(0), DirCount + 1, Int32(99999)}) {
    FileTable.FileDirNum[2] = row;
    load();
    EXPECT_THAT(rows(), ElementsAre("a left 2(3)", "c right 2(3)"));
  }
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirMatchRowsTest, UnreadableFilesAreListed) {
  build({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  FileTable.FileStatus[statusState][2] = fileState::unreadable;
  load();
  EXPECT_THAT(rows(), ElementsAre("a left 2(2)", "b right 2(2)"));
}

TEST_F(DirMatchRowsTest, LooseFilesAreListedOnlyWhenAskedFor) {
  build({{"a", "C:\\left", 1, 0},
         {"b", "C:\\right", 1, 0},
         {"loose", "C:\\left", 1},
         {"else", "C:\\else", 1},
         {"other", "C:\\right", 1}});
  EXPECT_EQ(load(), -1);
  EXPECT_EQ(DirMatchRowCount, 2);
  EXPECT_EQ(load(true), 3);
  EXPECT_THAT(rows(),
              ElementsAre("a left 2(2)", "b right 2(2)", "loose left 0(0)", "other right 0(0)"));
  EXPECT_EQ(DirMatchRows[3].group, noGroup);
}

TEST_F(DirMatchRowsTest, WithoutFilesBehindTheGroupsThereAreNoLooseOnes) {
  build({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  EXPECT_EQ(load(true), -1);
}

TEST_F(DirMatchRowsTest, WithoutGroupsThereAreLooseFilesAlone) {
  build({{"loose", "C:\\left", 1}});
  EXPECT_EQ(load(true), 1);
  EXPECT_THAT(rows(), ElementsAre("loose left 0(0)"));
}

TEST_F(DirMatchRowsTest, DeletedLooseFilesAreNotListed) {
  build({{"a", "C:\\left", 1}, {"b", "C:\\left", 1}});
  FileTable.FileStatus[statusState][1] = fileState::deleted;
  load(true);
  EXPECT_THAT(rows(), ElementsAre("b left 0(0)"));
}

TEST_F(DirMatchRowsTest, TableGrowsByTheThousands) {
  std::vector<CatalogueFile> files(5000, {"a", "C:\\left", 1, 0});
  build(files);
  load();
  EXPECT_EQ(DirMatchRowCount, 5000);
  EXPECT_EQ(DirMatchRows.upperBound(), 8192);
  EXPECT_EQ(DirMatchRows[5000].file, 5000);
  build({{"a", "C:\\left", 1, 0}, {"b", "C:\\left", 1, 0}});
  load();
  EXPECT_EQ(DirMatchRows.upperBound(), 4096);
}

TEST_F(DirMatchRowsTest, LooseFilesAreSortedBySizeStably) {
  std::vector<CatalogueFile> files = {{"z", "C:\\left", 900, 0}, {"y", "C:\\right", 900, 0}};
  for (int i = 0; i < 30; ++i)
    files.push_back({"l" + std::to_string(i), i % 2 == 0 ? "C:\\left" : "C:\\right", 30 - i / 10});
  build(files);
  const Int32 firstLoose = load(true);
  basSortFiles(firstLoose);
  const std::vector<std::string> sorted = rows();
  EXPECT_EQ(sorted[0], "z left 2(2)");
  EXPECT_EQ(sorted[1], "y right 2(2)");
  EXPECT_EQ(sorted[2], "l20 left 0(0)");
  EXPECT_EQ(sorted[3], "l21 right 0(0)");
  EXPECT_EQ(sorted[12], "l10 left 0(0)");
  EXPECT_EQ(sorted[31], "l9 right 0(0)");
}

TEST_F(DirMatchRowsTest, NothingIsSortedWithoutRows) {
  build({});
  FilePointerArray.redim(3, false);
  load(true);
  basSortFiles(1);
  EXPECT_EQ(FilePointerArray.upperBound(), 3);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

}  // namespace
}  // namespace quernstoke
