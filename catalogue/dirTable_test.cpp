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
  EXPECT_EQ(1, basAddDirToList("C:\\a", dirKind::directory, noParent, existed));
  EXPECT_FALSE(existed);
  EXPECT_EQ(2, add("C:\\a\\b.zip", dirKind::zipFile, 1));

  EXPECT_EQ(2, DirCount);
  EXPECT_EQ("", DirTable[0].name);
  EXPECT_EQ("C:\\a", DirTable[1].name);
  EXPECT_EQ('D', DirTable[1].kind);
  EXPECT_EQ(-1, DirTable[1].parent);
  EXPECT_EQ("C:\\a\\b.zip", DirTable[2].name);
  EXPECT_EQ('Z', DirTable[2].kind);
  EXPECT_EQ(1, DirTable[2].parent);
}

TEST_F(DirTableTest, KnownNameGivesItsRowAsItIs) {
  add("C:\\x");
  add("C:\\a", dirKind::directory, 1);
  RunState = runState::idle;

  EXPECT_EQ(2, add("C:\\a", dirKind::zipFile, 9));
  EXPECT_TRUE(existed);
  EXPECT_EQ(2, DirCount);
  EXPECT_EQ('D', DirTable[2].kind);
  EXPECT_EQ(1, DirTable[2].parent);
  EXPECT_FALSE(DirTable[2].temporary);
}

TEST_F(DirTableTest, NamesThatDifferInCaseAreTwoDirectories) {
  EXPECT_EQ(1, add("C:\\Music"));
  EXPECT_EQ(2, add("C:\\music"));
  EXPECT_FALSE(existed);
  EXPECT_EQ(1, basFindDirInList("C:\\Music"));
  EXPECT_EQ(2, basFindDirInList("C:\\music"));
  EXPECT_EQ(-1, basFindDirInList("C:\\MUSIC"));
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
  EXPECT_EQ(2, DirTable.upperBound());

  EXPECT_EQ(3, add("c"));
  EXPECT_EQ(2 + 8192, DirTable.upperBound());
  EXPECT_EQ("b", DirTable[2].name);
}

TEST_F(DirTableTest, FirstDirectoryOfTheTableAtStartUpGrowsIt) {
  DirTable.redim(0, false);

  EXPECT_EQ(1, add("a"));
  EXPECT_EQ(8192, DirTable.upperBound());
}

TEST_F(DirTableTest, EveryRowIsFoundWhereverItLies) {
  for (int i = 1; i <= 1030; ++i)
    add("d" + std::to_string(i));

  for (int i = 1; i <= 1030; ++i)
    ASSERT_EQ(i, basFindDirInList("d" + std::to_string(i)));
  EXPECT_EQ(-1, basFindDirInList("d1031"));
  EXPECT_EQ(-1, basFindDirInList("d0"));
}

TEST_F(DirTableTest, LastRowOfTheTableIsSearched) {
  for (const int upper : {1, 255, 256, 257, 511, 512, 513}) {
    DirTable.redim(upper, false);
    DirTable.set(upper, {"last", dirKind::directory, noParent});
    EXPECT_EQ(upper, basFindDirInList("last"));
  }
}

TEST_F(DirTableTest, FirstOfEqualNamesIsFound) {
  DirTable.set(3, {"docs", dirKind::zipFolder, 1});
  DirTable.set(5, {"docs", dirKind::zipFolder, 2});

  EXPECT_EQ(3, basFindDirInList("docs"));
}

TEST_F(DirTableTest, RowZeroIsNotSearched) {
  DirTable.set(0, {"zero", dirKind::directory, noParent});

  EXPECT_EQ(-1, basFindDirInList("zero"));
}

// The walk goes to the upper bound and not to the count: rows that are out of use count too.
TEST_F(DirTableTest, RowsBeyondTheCountAreSearched) {
  DirTable.set(700, {"C:\\old", dirKind::directory, noParent});

  EXPECT_EQ(700, add("C:\\old"));
  EXPECT_TRUE(existed);
  EXPECT_EQ(0, DirCount);
}

TEST_F(DirTableTest, EmptyNameIsTheFirstRowWithoutAName) {
  add("a");

  EXPECT_EQ(2, add(""));
  EXPECT_TRUE(existed);
  EXPECT_EQ(1, DirCount);
}

TEST_F(DirTableTest, NamesThatAResizeTookAwayAreNotFound) {
  for (const char* name : {"a", "b", "c"})
    add(name);
  DirTable.redim(2, true);
  EXPECT_EQ(2, basFindDirInList("b"));
  EXPECT_EQ(-1, basFindDirInList("c"));

  DirTable.redim(1024, true);
  EXPECT_EQ(2, basFindDirInList("b"));
  EXPECT_EQ(-1, basFindDirInList("c"));
  EXPECT_EQ(3, basFindDirInList(""));

  DirTable.redim(1024, false);
  EXPECT_EQ(-1, basFindDirInList("b"));
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

  EXPECT_EQ(-1, basFindDirInList("a"));
  EXPECT_EQ(1, basFindDirInList("b"));
}

TEST_F(DirTableTest, ParentAndFlagCanBeChangedAlone) {
  add("a");
  DirTable.setParent(1, 8);
  DirTable.setTemporary(1, true);

  EXPECT_EQ(8, DirTable[1].parent);
  EXPECT_TRUE(DirTable[1].temporary);
  EXPECT_EQ(1, basFindDirInList("a"));
}

}  // namespace
}  // namespace quernstoke
