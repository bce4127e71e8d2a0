#include "catalogue/dirTable.h"

#include "core/scanState.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

class DirTableTest : public EngineTest {
 protected:
  DirTableTest() {
    RunState = runState::buildingList;
    DirTable.redim(1024, false);
  }

  Int32 add(const std::string& name, char kind = dirKind::directory, Int32 parent = noParent) {
    existed = false;
    return basAddDirToList(name, kind, parent, existed);
  }

  bool existed = false;
};

TEST_F(DirTableTest, NewDirectoriesGetRowsFromOne) {
  existed = true;
  EXPECT_EQ(basAddDirToList("C:\\a", dirKind::directory, noParent, existed), 1);
  EXPECT_FALSE(existed);
  EXPECT_EQ(add("C:\\a\\b.zip", dirKind::zipFile, 1), 2);

  EXPECT_EQ(DirCount, 2);
  EXPECT_EQ(DirTable[0].name, "");
  EXPECT_EQ(DirTable[1].name, "C:\\a");
  EXPECT_EQ(DirTable[1].kind, 'D');
  EXPECT_EQ(DirTable[1].parent, -1);
  EXPECT_EQ(DirTable[2].name, "C:\\a\\b.zip");
  EXPECT_EQ(DirTable[2].kind, 'Z');
  EXPECT_EQ(DirTable[2].parent, 1);
}

TEST_F(DirTableTest, KnownNameGivesItsRowAsItIs) {
  add("C:\\x");
  add("C:\\a", dirKind::directory, 1);
  RunState = runState::idle;

  EXPECT_EQ(add("C:\\a", dirKind::zipFile, 9), 2);
  EXPECT_TRUE(existed);
  EXPECT_EQ(DirCount, 2);
  EXPECT_EQ(DirTable[2].kind, 'D');
  EXPECT_EQ(DirTable[2].parent, 1);
  EXPECT_FALSE(DirTable[2].temporary);
}

TEST_F(DirTableTest, NamesThatDifferInCaseAreTwoDirectories) {
  EXPECT_EQ(add("C:\\Music"), 1);
  EXPECT_EQ(add("C:\\music"), 2);
  EXPECT_FALSE(existed);
  EXPECT_EQ(basFindDirInList("C:\\Music"), 1);
  EXPECT_EQ(basFindDirInList("C:\\music"), 2);
  EXPECT_EQ(basFindDirInList("C:\\MUSIC"), -1);
}

TEST_F(DirTableTest, OnlyDirectoriesAddedOutsideAScanAreTemporary) {
  add("C:\\scanned");
  RunState = runState::idle;
  add("C:\\shown");

  EXPECT_FALSE(DirTable[1].temporary);
  EXPECT_TRUE(DirTable[2].temporary);
}

// The bound itself is still a row to use, unlike in the table of files.
TEST_F(DirTableTest, TableGrowsWhenAllRowsAreTaken) {
  DirTable.redim(2, false);
  add("a");
  add("b");
  EXPECT_EQ(DirTable.upperBound(), 2);

  EXPECT_EQ(add("c"), 3);
  EXPECT_EQ(DirTable.upperBound(), 2 + 8192);
  EXPECT_EQ(DirTable[2].name, "b");
}

TEST_F(DirTableTest, FirstDirectoryOfTheTableAtStartUpGrowsIt) {
  DirTable.redim(0, false);

  EXPECT_EQ(add("a"), 1);
  EXPECT_EQ(DirTable.upperBound(), 8192);
}

TEST_F(DirTableTest, EveryRowIsFoundWhereverItLies) {
  for (int i = 1; i <= 1030; ++i)
    add("d" + std::to_string(i));

  for (int i = 1; i <= 1030; ++i)
    ASSERT_EQ(basFindDirInList("d" + std::to_string(i)), i);
  EXPECT_EQ(basFindDirInList("d1031"), -1);
  EXPECT_EQ(basFindDirInList("d0"), -1);
}

TEST_F(DirTableTest, LastRowOfTheTableIsSearched) {
  for (const int upper : {1, 255, 256, 257, 511, 512, 513}) {
    DirTable.redim(upper, false);
    DirTable.set(upper, {"last", dirKind::directory, noParent});
    EXPECT_EQ(basFindDirInList("last"), upper);
  }
}

TEST_F(DirTableTest, FirstOfEqualNamesIsFound) {
  DirTable.set(3, {"docs", dirKind::zipFolder, 1});
  DirTable.set(5, {"docs", dirKind::zipFolder, 2});

  EXPECT_EQ(basFindDirInList("docs"), 3);
}

TEST_F(DirTableTest, RowZeroIsNotSearched) {
  DirTable.set(0, {"zero", dirKind::directory, noParent});

  EXPECT_EQ(basFindDirInList("zero"), -1);
}

// The walk goes to the upper bound and not to the count: rows that are out of use count too.
TEST_F(DirTableTest, RowsBeyondTheCountAreSearched) {
  DirTable.set(700, {"C:\\old", dirKind::directory, noParent});

  EXPECT_EQ(add("C:\\old"), 700);
  EXPECT_TRUE(existed);
  EXPECT_EQ(DirCount, 0);
}

TEST_F(DirTableTest, EmptyNameIsTheFirstRowWithoutAName) {
  add("a");

  EXPECT_EQ(add(""), 2);
  EXPECT_TRUE(existed);
  EXPECT_EQ(DirCount, 1);
}

TEST_F(DirTableTest, NamesThatAResizeTookAwayAreNotFound) {
  for (const char* name : {"a", "b", "c"})
    add(name);
  DirTable.redim(2, true);
  EXPECT_EQ(basFindDirInList("b"), 2);
  EXPECT_EQ(basFindDirInList("c"), -1);

  DirTable.redim(1024, true);
  EXPECT_EQ(basFindDirInList("b"), 2);
  EXPECT_EQ(basFindDirInList("c"), -1);
  EXPECT_EQ(basFindDirInList(""), 3);

  DirTable.redim(1024, false);
  EXPECT_EQ(basFindDirInList("b"), -1);
}

TEST_F(DirTableTest, CountBeyondTheTableFindsNoFolder) {
  DirTable.redim(2, false);
  for (const int count : {-3, 1000}) {
    DirCount = count;
    EXPECT_EQ(DirTable.findFolder("docs", 1), -1);
  }
}

TEST_F(DirTableTest, ReplacedNameIsNotFoundAnyMore) {
  add("a");
  DirTable.set(1, {"b", dirKind::directory, noParent});

  EXPECT_EQ(basFindDirInList("a"), -1);
  EXPECT_EQ(basFindDirInList("b"), 1);
}

TEST_F(DirTableTest, ParentAndFlagCanBeChangedAlone) {
  add("a");
  DirTable.setParent(1, 8);
  DirTable.setTemporary(1, true);

  EXPECT_EQ(DirTable[1].parent, 8);
  EXPECT_TRUE(DirTable[1].temporary);
  EXPECT_EQ(basFindDirInList("a"), 1);
}

}  // namespace
}  // namespace quernstoke
