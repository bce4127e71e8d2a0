#include "detect/refinement.h"

#include <string>
#include <vector>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/scanState.h"
#include "testing/engineTest.h"
#include "testing/tables.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RefinementTest : public EngineTest {
 protected:
  // Files of these names, and of no interest otherwise.
  static void buildNames(const std::vector<std::string>& names) {
    std::vector<CatalogueFile> files;
    for (const std::string& name : names)
      files.push_back({name, "C:\\"});
    buildCatalogue(files);
  }

  // Directories "1", "2", "3"..., each in the one before it; 't' marks a temporary one.
  static void buildDirectories(const std::string& kinds) {
    DirTable.redim(1024, false);
    DirCount = kinds.size();
    for (Int32 row = 1; row <= DirCount; ++row)
      DirTable.set(row, {std::to_string(row.raw()), dirKind::directory, row - 1,
                         kinds[static_cast<std::size_t>(row.raw()) - 1] == 't'});
  }

  static void setState(int file, int state) { FileTable.FileStatus[statusState][file] = state; }
  static void setTemporary(int file, int flag = 1) {
    FileTable.FileStatus[statusTemporary][file] = flag;
  }
};

std::vector<int> pointers() {
  return valuesOf(FilePointerArray);
}

std::vector<int> parents() {
  std::vector<int> rows;
  for (Int32 row = 1; row <= DirCount; ++row)
    rows.push_back(DirTable[row].parent.raw());
  return rows;
}

TEST_F(RefinementTest, SortFillsThePointersAndLeavesTheRows) {
  buildSizes({30, 10, 20});
  basSortFilesList("SIZE", false);
  EXPECT_THAT(pointers(), ElementsAre(0, 2, 3, 1));
  EXPECT_THAT(fileSizes(), ElementsAre(30, 10, 20));
}

TEST_F(RefinementTest, SortWithReorderMovesTheRowsAndResetsThePointers) {
  buildSizes({30, 10, 20});
  basSortFilesList("SIZE", true);
  EXPECT_THAT(fileNames(), ElementsAre("b", "c", "a"));
  EXPECT_THAT(pointers(), ElementsAre(0));
}

TEST_F(RefinementTest, EachModeSortsByItsKey) {
  buildCatalogue({{"c", "C:\\z", 2, 3}, {"a", "C:\\y", 3, noMatch}, {"B", "C:\\x", 1, 0}});
  basSortFilesList("NAME", false);
  EXPECT_THAT(pointers(), ElementsAre(0, 3, 2, 1));
  basSortFilesList("SIZE", false);
  EXPECT_THAT(pointers(), ElementsAre(0, 3, 1, 2));
  basSortFilesList("MATCHNUM", false);
  EXPECT_THAT(pointers(), ElementsAre(0, 2, 3, 1));
  basSortFilesList("DIRECTORY", false);  // By row, not by text.
  EXPECT_THAT(pointers(), ElementsAre(0, 1, 2, 3));
}

TEST_F(RefinementTest, AnyOtherModeKeepsTheOrder) {
  buildSizes({30, 10, 20});
  basSortFilesList("DATE", false);
  EXPECT_THAT(pointers(), ElementsAre(0, 1, 2, 3));
}

// The order of equal keys stays that of the heap sort, not that of the list.
TEST_F(RefinementTest, EqualKeysAreNotKeptInTheirOrder) {
  buildSizes({7, 7, 7, 7, 7});
  basSortFilesList("SIZE", true);
  EXPECT_THAT(fileNames(), ElementsAre("c", "e", "a", "b", "d"));
}

TEST_F(RefinementTest, SortOfAnEmptyCatalogueDoesNothing) {
  buildSizes({2, 1});
  basSortFilesList("SIZE", false);
  FileCount = 0;
  RunState = runState::comparing;
  basSortFilesList("SIZE", true);
  EXPECT_THAT(pointers(), ElementsAre(0, 2, 1));
  EXPECT_THAT(statusWindow.statusTexts, IsEmpty());
}

TEST_F(RefinementTest, OnlyAComparingScanTellsThatTheListIsRefined) {
  buildSizes({2, 1});
  for (auto state :
       {runState::idle, runState::paused, runState::finished, runState::buildingList}) {
    RunState = state;
    basSortFilesList("SIZE", false);
  }
  EXPECT_THAT(statusWindow.statusTexts, IsEmpty());
  RunState = runState::comparing;
  basSortFilesList("SIZE", false);
  EXPECT_THAT(statusWindow.statusTexts, ElementsAre("Refining file list..."));
  EXPECT_THAT(statusWindow.labels, IsEmpty());  // Not forced: the short view shows no more.
}

TEST_F(RefinementTest, ReorderMovesAllColumnsButTheLocalCopies) {
  buildCatalogue({{"b", "C:\\x", 20, 7}, {"a", "C:\\y", 10, 8}});
  for (int file : {1, 2}) {
    FileTable.FileDate[file] = {file};
    setState(file, 10 + file);
    FileTable.FileStatus[statusChain][file] = 20 + file;
    setTemporary(file, 30 + file);
    FileTable.FileStatus[statusTick][file] = 40 + file;
    FileTable.FileLocalName.set(file, "TMP" + std::to_string(file));
    FileTable.FileLocalPos[localPosHighest][file] = 50 + file;
  }
  basSortFilesList("NAME", true);

  EXPECT_THAT(fileNames(), ElementsAre("a", "b"));
  EXPECT_THAT(fileSizes(), ElementsAre(10, 20));
  EXPECT_THAT(matchNumbers(), ElementsAre(8, 7));
  for (int file : {1, 2}) {
    const int from = 3 - file;
    EXPECT_EQ(FileTable.FileDirNum[file], from);
    EXPECT_EQ(FileTable.FileDate[file].seconds, from);
    EXPECT_EQ(FileTable.FileStatus[statusState][file], 10 + from);
    EXPECT_EQ(FileTable.FileStatus[statusChain][file], 20 + from);
    EXPECT_EQ(FileTable.FileStatus[statusTemporary][file], 30 + from);
    EXPECT_EQ(FileTable.FileStatus[statusTick][file], 40 + from);
    EXPECT_EQ(FileTable.FileLocalName[file], "TMP" + std::to_string(file));
    EXPECT_EQ(FileTable.FileLocalPos[localPosHighest][file], 50 + file);
  }
}

TEST_F(RefinementTest, PruneKeepsTheOnlyFile) {
  buildSizes({10});
  basPruneFilesList("SIZE");
  EXPECT_THAT(fileNames(), ElementsAre("a"));
}

// The first run counts one short, in the four tests that follow. Nobody is to mend this.
TEST_F(RefinementTest, FirstRunOfTwoLosesItsSecondFile) {
  buildSizes({10, 10, 20, 20, 20});
  basPruneFilesList("SIZE");
  EXPECT_THAT(fileNames(), ElementsAre("a", "c", "d", "e"));
}

TEST_F(RefinementTest, FirstRunOfOneStays) {
  buildSizes({10, 20, 20});
  basPruneFilesList("SIZE");
  EXPECT_THAT(fileNames(), ElementsAre("a", "b", "c"));
}

TEST_F(RefinementTest, FirstRunOfThreeKeepsItsFiles) {
  buildSizes({10, 10, 10, 20, 20});
  basPruneFilesList("SIZE");
  EXPECT_THAT(fileNames(), ElementsAre("a", "b", "c", "d", "e"));
}

TEST_F(RefinementTest, FirstRunOfTwoThatIsTheWholeListLosesItsSecondFile) {
  buildSizes({10, 10});
  basPruneFilesList("SIZE");
  EXPECT_THAT(fileNames(), ElementsAre("a"));
}

TEST_F(RefinementTest, PruneTakesLaterFilesThatStandAlone) {
  buildSizes({10, 20, 30, 30, 40, 50, 50, 50, 60});
  basPruneFilesList("SIZE");
  EXPECT_THAT(fileSizes(), ElementsAre(10, 30, 30, 50, 50, 50));
  EXPECT_EQ(FileTable.FileName.upperBound(), 6);
}

TEST_F(RefinementTest, PruneByNameCountsLetterCase) {
  buildNames({"A", "B", "b", "c", "c"});
  basPruneFilesList("NAME");
  EXPECT_THAT(fileNames(), ElementsAre("A", "c", "c"));
}

TEST_F(RefinementTest, PruneByMatchPassesOverFilesWithoutMatch) {
  buildMatches({noMatch, 0, 1, noMatch, 1, 2, 3, 3});
  basPruneFilesList("MATCHNUM");
  EXPECT_THAT(matchNumbers(), ElementsAre(noMatch, 0, 1, noMatch, 1, 3, 3));
}

// What a lone file is known by is its place before the next run, whoever stands there.
TEST_F(RefinementTest, PruneByMatchTakesTheRowBeforeTheNextRun) {
  buildMatches({0, 0, 0, 1, noMatch, 2, 2});
  basPruneFilesList("MATCHNUM");
  EXPECT_THAT(fileNames(), ElementsAre("a", "b", "c", "d", "f", "g"));
}

TEST_F(RefinementTest, RemovedFilesGoAndCountInNoRun) {
  buildSizes({10, 20, 20, 30, 30});
  setState(2, fileState::removed);
  setState(5, fileState::removed);
  basPruneFilesList("SIZE");
  // File b has begun the run of 20 unseen, so that c adds to the one before it.
  EXPECT_THAT(fileNames(), ElementsAre("a", "d"));
}

TEST_F(RefinementTest, PruneByDirectoryTakesNothing) {
  buildCatalogue({{"a", "C:\\x"}, {"b", "C:\\y"}, {"c", "C:\\z"}});
  basPruneFilesList("DIRECTORY");
  EXPECT_THAT(fileNames(), ElementsAre("a", "b", "c"));
}

TEST_F(RefinementTest, RemovalByNoMatchKeepsNumberedFiles) {
  buildMatches({noMatch, 0, noMatch, 0, 5, noMatch});
  basRemoveFilesByCriteria("NOMATCH");
  EXPECT_THAT(fileNames(), ElementsAre("b", "d", "e"));
  EXPECT_EQ(FileTable.FileName.upperBound(), 3);
}

TEST_F(RefinementTest, RemovalByTemporaryKeepsTheOthers) {
  buildMatches({noMatch, 0, 1, 2});
  setTemporary(2);
  setTemporary(4);
  basRemoveFilesByCriteria("TEMPORARY");
  EXPECT_THAT(fileNames(), ElementsAre("a", "c"));
}

TEST_F(RefinementTest, RemovalByAnyOtherCriteriaKeepsAll) {
  buildMatches({noMatch, 0});
  setTemporary(1);
  setState(1, fileState::removed);
  basRemoveFilesByCriteria("ALL");
  EXPECT_THAT(fileNames(), ElementsAre("a", "b"));
}

TEST_F(RefinementTest, RemovalMovesAllColumnsButTheLocalCopies) {
  buildCatalogue({{"a", "C:\\x"}, {"b", "C:\\y", 10, 8}});
  FileTable.FileDate[2] = {9};
  setState(2, fileState::unreadable);
  FileTable.FileStatus[statusChain][2] = 22;
  setTemporary(2, 0);
  FileTable.FileStatus[statusTick][2] = 1;
  FileTable.FileLocalName.set(1, "TMP1");
  FileTable.FileLocalName.set(2, "TMP2");
  FileTable.FileLocalPos[localPosLowest][1] = 51;
  basRemoveFilesByCriteria("NOMATCH");

  EXPECT_THAT(fileNames(), ElementsAre("b"));
  EXPECT_THAT(fileSizes(), ElementsAre(10));
  EXPECT_THAT(matchNumbers(), ElementsAre(8));
  EXPECT_EQ(FileTable.FileDirNum[1], 2);
  EXPECT_EQ(FileTable.FileDate[1].seconds, 9);
  EXPECT_EQ(FileTable.FileStatus[statusState][1], fileState::unreadable);
  EXPECT_EQ(FileTable.FileStatus[statusChain][1], 22);
  EXPECT_EQ(FileTable.FileStatus[statusTick][1], 1);
  EXPECT_EQ(FileTable.FileLocalName[1], "TMP1");
  EXPECT_EQ(FileTable.FileLocalPos[localPosLowest][1], 51);
}

// The last row that is kept goes for its state, although nobody asked for that.
TEST_F(RefinementTest, RemovalAlsoTakesARemovedFileFromTheEnd) {
  buildMatches({0, 0, 1, noMatch});
  setState(1, fileState::removed);
  setState(3, fileState::removed);
  basRemoveFilesByCriteria("NOMATCH");
  EXPECT_THAT(fileNames(), ElementsAre("a", "b"));
}

TEST_F(RefinementTest, RemovalAlsoTakesATemporaryFlagOf3FromTheEnd) {
  buildMatches({0, 0});
  setTemporary(1, 3);
  setTemporary(2, 3);
  basRemoveFilesByCriteria("NOMATCH");
  EXPECT_THAT(fileNames(), ElementsAre("a"));
}

TEST_F(RefinementTest, RemovalOfAllFilesLeavesTheArraysAtTheirSize) {
  buildMatches({noMatch, noMatch});
  basRemoveFilesByCriteria("NOMATCH");
  EXPECT_EQ(FileCount, 0);
  EXPECT_EQ(FileTable.FileName.upperBound(), 1000);
}

TEST_F(RefinementTest, RemovalOfTemporaryDirectoriesKeepsTheOthers) {
  buildDirectories("dtd");
  basRemoveDirsByCriteria("TEMPORARY");
  EXPECT_THAT(directoryNames(), ElementsAre("1", "3"));
  EXPECT_EQ(DirTable[2].kind, dirKind::directory);
  EXPECT_FALSE(DirTable[2].temporary);
  EXPECT_EQ(DirTable.upperBound(), 2);
}

TEST_F(RefinementTest, RemovalOfDirectoriesByAnyOtherCriteriaKeepsAll) {
  buildDirectories("dtd");
  basRemoveDirsByCriteria("NOMATCH");
  EXPECT_THAT(directoryNames(), ElementsAre("1", "2", "3"));
  EXPECT_THAT(parents(), ElementsAre(0, 1, 2));
}

// Directory 2 goes: of the parents 3, 4, 5 and 6 behind it only those above 4 are lowered, and the
// last row no longer counts when that is done.
TEST_F(RefinementTest, ParentsAreLoweredOnlyFarBehindADroppedDirectory) {
  buildDirectories("dtddddd");
  basRemoveDirsByCriteria("TEMPORARY");
  EXPECT_THAT(directoryNames(), ElementsAre("1", "3", "4", "5", "6", "7"));
  EXPECT_THAT(parents(), ElementsAre(0, 2, 3, 4, 4, 6));
}

// The row that follows the last one kept still holds a dropped directory, and that costs another.
TEST_F(RefinementTest, TemporaryDirectoriesAtTheEndTakeOneMoreWithThem) {
  buildDirectories("dddtt");
  basRemoveDirsByCriteria("TEMPORARY");
  EXPECT_THAT(directoryNames(), ElementsAre("1", "2"));
  EXPECT_EQ(DirTable.upperBound(), 2);
}

TEST_F(RefinementTest, RowBehindTheTableIsNotLookedAt) {
  buildDirectories("dd");
  DirTable.redim(2, true);
  basRemoveDirsByCriteria("TEMPORARY");
  EXPECT_THAT(directoryNames(), ElementsAre("1", "2"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(RefinementTest, RemovalOfTheOnlyDirectoryLeavesTheTableAtItsSize) {
  buildDirectories("td");
  DirCount = 1;
  DirTable.redim(2, true);
  basRemoveDirsByCriteria("TEMPORARY");
  EXPECT_EQ(DirCount, -1);
  EXPECT_EQ(DirTable.upperBound(), 2);
}

}  // namespace
}  // namespace quernstoke
