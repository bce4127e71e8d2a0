#include "catalogue/createDirectories.h"

#include "catalogue/dirTable.h"
#include "core/scanState.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CreateDirectoriesTest : public EngineTest {
 protected:
  CreateDirectoriesTest() {
    RunState = runState::buildingList;
    disk.directory("C:\\base");
  }

  bool create(const std::string& base, const std::string& relative, bool addToTable = true) {
    return basCreateDirectories(base, relative, addToTable, 40, row);
  }
  // The paths that were to be made.
  std::vector<std::string> tried() const { return disk.paths(DiskAction::makeDirectory); }

  Int32 row = 99;
};

TEST_F(CreateDirectoriesTest, EachComponentBecomesADirectoryAndARowBelowTheOneBefore) {
  EXPECT_FALSE(create("C:\\base", "a\\b"));

  EXPECT_TRUE(disk.exists("C:\\base\\a\\b"));
  EXPECT_EQ(DirCount, 2);
  EXPECT_EQ(DirTable[1].name, "C:\\base\\a");
  EXPECT_EQ(DirTable[1].parent, 40);
  EXPECT_EQ(DirTable[2].name, "C:\\base\\a\\b");
  EXPECT_EQ(DirTable[2].kind, 'D');
  EXPECT_EQ(DirTable[2].parent, 1);
  EXPECT_EQ(row, 2);
}

TEST_F(CreateDirectoriesTest, SlashesAndOuterBackslashesAreEvenedOut) {
  EXPECT_FALSE(create("C:\\base\\", "/a/b\\c\\"));

  EXPECT_THAT(tried(), ElementsAre("C:\\base\\a", "C:\\base\\a\\b", "C:\\base\\a\\b\\c"));
}

TEST_F(CreateDirectoriesTest, OnlyOneBackslashIsTakenOffEachEnd) {
  EXPECT_FALSE(create("C:\\base\\\\", "\\\\a"));

  EXPECT_THAT(tried(), ElementsAre("C:\\base\\\\", "C:\\base\\\\\\a"));
}

TEST_F(CreateDirectoriesTest, WithoutTheFlagTheTableStaysAsItIs) {
  EXPECT_FALSE(create("C:\\base", "a\\b", false));

  EXPECT_TRUE(disk.exists("C:\\base\\a\\b"));
  EXPECT_EQ(DirCount, 0);
  EXPECT_EQ(row, 99);
}

// It is passed over altogether: it gets no row, and what is made in it hangs below the parent
// that was given.
TEST_F(CreateDirectoriesTest, DirectoryBelowOneThatExistsGetsTheGivenParent) {
  disk.directory("C:\\base\\a");
  EXPECT_FALSE(create("C:\\base", "a\\b"));

  EXPECT_EQ(DirCount, 1);
  EXPECT_EQ(DirTable[1].name, "C:\\base\\a\\b");
  EXPECT_EQ(DirTable[1].parent, 40);
}

TEST_F(CreateDirectoriesTest, NothingToMakeLeavesTheRowAsItIs) {
  disk.directory("C:\\base\\a");

  EXPECT_FALSE(create("C:\\base", "a"));
  EXPECT_FALSE(create("C:\\base", ""));
  EXPECT_FALSE(create("C:\\base", "\\"));
  EXPECT_EQ(row, 99);
  EXPECT_EQ(DirCount, 0);
}

TEST_F(CreateDirectoriesTest, RowsMadeOutsideAScanAreTemporary) {
  create("C:\\base", "scanned");
  EXPECT_FALSE(DirTable[row].temporary);

  RunState = runState::idle;
  create("C:\\base", "shown");
  EXPECT_TRUE(DirTable[row].temporary);
}

// Its directory was gone from disk and is made again.
TEST_F(CreateDirectoriesTest, RowThatTheTableHasTakesTheFlagOfThePresentState) {
  create("C:\\base", "a");
  disk.erase("C:\\base\\a");
  RunState = runState::idle;
  create("C:\\base", "a");

  EXPECT_EQ(row, 1);
  EXPECT_EQ(DirCount, 1);
  EXPECT_TRUE(DirTable[1].temporary);
}

TEST_F(CreateDirectoriesTest, AnyOtherFailureEndsTheWalkWithoutAWord) {
  disk.failOn(DiskAction::makeDirectory, "C:\\base\\a\\b", FailureNumber::permissionDenied);

  EXPECT_TRUE(create("C:\\base", "a\\b\\c"));
  EXPECT_THAT(tried(), ElementsAre("C:\\base\\a", "C:\\base\\a\\b"));
  EXPECT_TRUE(disk.exists("C:\\base\\a"));
  EXPECT_EQ(row, 1);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(CreateDirectoriesTest, MissingBaseIsAFailure) {
  EXPECT_TRUE(create("C:\\none", "a"));
  EXPECT_EQ(DirCount, 0);
}

TEST_F(CreateDirectoriesTest, RelativePathIsCutAt9999Characters) {
  EXPECT_FALSE(create("C:\\base", "\\" + std::string(10005, 'x')));

  EXPECT_THAT(tried(), ElementsAre("C:\\base\\" + std::string(9999, 'x')));
}

}  // namespace
}  // namespace quernstoke
