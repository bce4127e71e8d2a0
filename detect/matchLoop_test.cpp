#include "detect/matchLoop.h"

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/log.h"
#include "core/scanState.h"
#include "detect/modLinkedList.h"
#include "progress/scanStatus.h"
#include "results/matchGroupIndex.h"
#include "settings/profileStore.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* data = "C:\\Data";

std::string pathOf(int file) {
  return std::string(data) + "\\f" + std::to_string(file);
}

class MatchLoopTest : public EngineTest {
 protected:
  MatchLoopTest() {
    makeProfile("Music");
    CurrentMatchNum = -1;
    ContentPercentLimit = 100;
    StartMode = startMode::newScan;
    allocateBlockPool(4, 100);
  }

  // A catalogue in this order, its groups formed, and nothing pruned.
  static void prepare(const char* mode, const std::vector<CatalogueFile>& files) {
    buildCatalogue(files);
    basSetupMatchGroupInfo(mode, StartMode);
  }
  static void prepareSizes(std::initializer_list<int> sizes) {
    std::vector<CatalogueFile> files;
    for (const int size : sizes)
      files.push_back({"f" + std::to_string(files.size() + 1), data, size});
    prepare("SIZE", files);
  }
  // Files f1, f2... with these contents, which are to be compared.
  void prepareContents(std::initializer_list<std::string> contents) {
    std::vector<CatalogueFile> files;
    for (const std::string& content : contents) {
      files.push_back(
          {"f" + std::to_string(files.size() + 1), data, static_cast<int>(content.size())});
      disk.file(pathOf(static_cast<int>(files.size())), content);
    }
    prepare("SIZE", files);
    MatchByContent = true;
  }
  static void continueFrom(int group, int primary, int secondary) {
    StartMode = startMode::continueScan;
    ProfileSettings.RestartPointMatchGroup = group;
    ProfileSettings.RestartPointPrimaryFile = primary;
    ProfileSettings.RestartPointSecondaryFile = secondary;
  }
  // Excludes the matches of a pair of directories, in this slot and the next.
  static void keepApart(const char* first, const char* second, int slot = 1, bool recurse = true) {
    setDirectory(slot, first, "1", recurse);
    setDirectory(slot + 1, second, "2", recurse);
  }
  // The person clicks at the n-th yield from now.
  void requestAtYield(int yield, Int16 request) {
    eventLoop.yields = 0;
    eventLoop.onYield = [this, yield, request] {
      if (eventLoop.yields == yield) RunState = request;
    };
  }
  // The reads of a file fail from this position on, `times` times.
  void breakReads(int file, std::int64_t from = 0, int times = 1000) {
    disk.before = [path = pathOf(file), from, times](const DiskCall& call) mutable {
      if (call.action == DiskAction::read && call.path == path && call.position >= from &&
          times-- > 0)
        fail(FailureNumber::deviceError);
    };
  }
  int readsOf(int file) const { return disk.count(DiskAction::read, pathOf(file)); }
};

TEST_F(MatchLoopTest, EachSetOfEqualFilesGetsANumberFrom0) {
  prepareSizes({10, 10, 20, 20, 20, 30});
  basCompareFiles("SIZE");

  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, 1, 1, 1, -2));
  EXPECT_EQ(DuplicateCount, 3);
  EXPECT_EQ(CurrentMatchNum, 1);
  EXPECT_EQ(ProfileSettings.MatchNum, 1);
}

TEST_F(MatchLoopTest, EmptyCatalogueOnlySetsTheRunState) {
  RunState = runState::buildingList;
  ProfileSettings.RestartPoint = 2;
  disk.calls.clear();
  basCompareFiles("SIZE");

  EXPECT_EQ(RunState, runState::comparing);
  EXPECT_EQ(ProfileSettings.RestartPoint, 2);
  EXPECT_THAT(statusWindow.statusTexts, IsEmpty());
  EXPECT_EQ(eventLoop.yields, 0);
  EXPECT_THAT(disk.calls, IsEmpty());
}

TEST_F(MatchLoopTest, NamesOfAPairAreComparedWithoutRegardToCase) {
  prepare("NAME", {{"a.txt", data}, {"a.txt", data}});
  FileTable.FileName.set(2, "A.TXT");
  basCompareFiles("NAME");

  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0));
}

TEST_F(MatchLoopTest, ZeroLengthFilesMatchByNameAlone) {
  prepareSizes({0, 0});
  basCompareFiles("SIZE");
  EXPECT_THAT(matchNumbers(), ElementsAre(-2, -2));

  prepare("NAME", {{"a", data}, {"a", data}});
  basCompareFiles("NAME");
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0));
}

// Content is compared over the primary's length: nothing differs from an empty primary.
TEST_F(MatchLoopTest, EmptyPrimaryMatchesAnyContentOfItsName) {
  MatchByContent = true;
  prepare("NAME", {{"a", data, 0}, {"a", data, 4}});
  basCompareFiles("NAME");

  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0));
  EXPECT_EQ(ActualReads, 0);
}

TEST_F(MatchLoopTest, EmptyFilesOfOneNameMatch) {
  MatchByContent = true;
  prepare("NAME", {{"a", data, 0}, {"a", "C:\\More", 0}});
  basCompareFiles("NAME");

  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0));
}

TEST_F(MatchLoopTest, EmptyFileIsNoMatchOfALongerPrimary) {
  disk.file("C:\\Data\\a", "1111");
  disk.file("C:\\More\\a", "");
  MatchByContent = true;
  prepare("NAME", {{"a", data, 4}, {"a", "C:\\More", 0}});
  basCompareFiles("NAME");

  EXPECT_THAT(matchNumbers(), ElementsAre(noMatch, noMatch));
}

TEST_F(MatchLoopTest, ContentIsComparedInANamePassToo) {
  disk.file("C:\\Data\\a", "1111");
  disk.file("C:\\More\\a", "2222");
  MatchByContent = true;
  prepare("NAME", {{"a", data, 4}, {"a", "C:\\More", 4}});
  basCompareFiles("NAME");

  EXPECT_THAT(matchNumbers(), ElementsAre(-2, -2));
}

TEST_F(MatchLoopTest, PercentOf100NeedsEqualityToTheLastBlock) {
  const std::string nineBlocks(36, '.');
  prepareContents({nineBlocks + "aaaa", nineBlocks + "bbbb", nineBlocks + "aaaa"});
  basCompareFiles("SIZE");

  EXPECT_THAT(matchNumbers(), ElementsAre(0, -2, 0));
}

TEST_F(MatchLoopTest, PercentAtThePassMarkMatches) {
  const std::string nineBlocks(36, '.');
  ContentPercentLimit = 80;  // Of ten blocks nine are equal, and the last of these does not count.
  prepareContents({nineBlocks + "aaaa", nineBlocks + "bbbb"});
  basCompareFiles("SIZE");
  EXPECT_THAT(matchNumbers(), ElementsAre(-2, -2));  // 80 is not above the mark, so it counts as 0.

  ContentPercentLimit = 79;
  basCompareFiles("SIZE");
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0));
}

// The first file alone decides for its group.
TEST_F(MatchLoopTest, GroupWhoseFirstFileHasANumberIsSkipped) {
  prepare("SIZE", {{"a", data, 10, 7}, {"b", data, 10}, {"c", data, 10}});
  basCompareFiles("SIZE");

  EXPECT_THAT(matchNumbers(), ElementsAre(7, -2, -2));
}

TEST_F(MatchLoopTest, NumberedSecondariesAreNoCandidates) {
  prepare("SIZE", {{"a", data, 10}, {"b", data, 10, 7}, {"c", data, 10}});
  basCompareFiles("SIZE");

  EXPECT_THAT(matchNumbers(), ElementsAre(0, 7, 0));
}

// Matching is not transitive: b moves on to c, and a stays behind with a number of its own.
TEST_F(MatchLoopTest, NumberedPrimaryLeavesItsMatchForANewOne) {
  keepApart("C:\\A", "C:\\C");
  prepare("SIZE", {{"a", "C:\\A", 10}, {"b", "C:\\B", 10}, {"c", "C:\\C", 10}});
  basCompareFiles("SIZE");

  EXPECT_THAT(matchNumbers(), ElementsAre(0, 1, 1));
  EXPECT_EQ(DuplicateCount, 2);
}

TEST_F(MatchLoopTest, The32769thMatchNumberOverflows) {
  constexpr int pairs = 32769;
  std::vector<CatalogueFile> files;
  for (int pair = 1; pair <= pairs; ++pair)
    files.insert(files.end(), 2, {"f", data, pair});
  ProfileSettings.RestartPoint = 2;
  prepare("SIZE", files);
  basCompareFiles("SIZE");

  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("basCompareFiles", "Overflow(6)")));
  EXPECT_EQ(CurrentMatchNum, 32767);
  EXPECT_EQ(DuplicateCount, pairs - 1);
  EXPECT_EQ(FileTable.FileStatus[statusMatch][2 * pairs - 2], 32767);
  EXPECT_EQ(FileTable.FileStatus[statusMatch][2 * pairs], noMatch);
  // The end of the pass was not reached.
  EXPECT_EQ(ProfileSettings.RestartPoint, 2);
  EXPECT_EQ(ProfileSettings.MatchNum, -1);
}

// How many files there are, and after how many primaries the status moves.
class StatusCadenceTest : public MatchLoopTest,
                          public testing::WithParamInterface<std::pair<int, int>> {};

TEST_P(StatusCadenceTest, StatusMovesAfterSoManyPrimaries) {
  const auto [count, period] = GetParam();
  std::vector<CatalogueFile> files;
  for (int file = 1; file <= count; ++file)
    files.push_back({std::to_string(file), data, file});
  prepare("SIZE", files);
  ScanDetailsShown = true;
  std::vector<std::string> shown;
  eventLoop.onYield = [&] { shown.push_back(statusWindow.labels["labFile1"]); };
  basCompareFiles("SIZE");

  std::vector<std::string> expected = {""};  // The head of the pass has no file to show.
  for (int file = period; file <= count; file += period)
    expected.push_back(std::string(data) + "\\" + std::to_string(file));
  EXPECT_EQ(shown, expected);
  EXPECT_EQ(statusWindow.statusTexts,
            std::vector<std::string>(expected.size(), "Searching for duplicates..."));
  EXPECT_EQ(statusWindow.statusBarUpdates, count / period + 1);  // One more at the end.
}

INSTANTIATE_TEST_SUITE_P(Lists, StatusCadenceTest,
                         testing::Values(std::pair(5, 2), std::pair(4999, 2), std::pair(5000, 6),
                                         std::pair(5500, 7), std::pair(6500, 7),
                                         std::pair(10000, 11)));

TEST_F(MatchLoopTest, MinimisedWindowTellsThePercentageInItsCaption) {
  prepareSizes({1, 2, 3, 4});
  statusWindow.isMinimised = true;
  std::vector<std::string> captions;
  eventLoop.onYield = [&] { captions.push_back(statusWindow.caption); };
  basCompareFiles("SIZE");

  EXPECT_THAT(captions, ElementsAre("", "", "Scanning...50%"));
  // After the last row the primary is the file behind the list.
  EXPECT_EQ(statusWindow.caption, "Scanning...125%");
  EXPECT_EQ(StatusFileNumber, 5);
  EXPECT_EQ(statusWindow.statusBarUpdates, 0);
}

TEST_F(MatchLoopTest, FullPassResetsOnlyTheRestartPointItself) {
  continueFrom(7, 8, 9);
  StartMode = startMode::newScan;
  ProfileSettings.RestartPointNumDuplicates = 10;
  ProfileSettings.RestartPoint = 1;
  prepareSizes({10, 10});
  basCompareFiles("SIZE");

  ProfileSettings = {};
  ASSERT_TRUE(basLoadProfile("PROFILE"));
  EXPECT_EQ(ProfileSettings.RestartPoint, 0);
  EXPECT_EQ(ProfileSettings.RestartPointMatchGroup, 7);
  EXPECT_EQ(ProfileSettings.RestartPointPrimaryFile, 8);
  EXPECT_EQ(ProfileSettings.RestartPointSecondaryFile, 9);
  EXPECT_EQ(ProfileSettings.RestartPointNumDuplicates, 10);
  EXPECT_EQ(ProfileSettings.MatchNum, 0);
}

// The group is left through its increment, so that the one behind it is stored.
TEST_F(MatchLoopTest, StoppedPassSavesTheGroupBehindItsOwn) {
  prepareSizes({10, 10, 10, 20, 20});
  requestAtYield(2, runState::pauseRequested);  // In the row of the second file.
  basCompareFiles("SIZE");

  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, 0, -2, -2));
  ProfileSettings = {};
  ASSERT_TRUE(basLoadProfile("PROFILE"));
  EXPECT_EQ(ProfileSettings.RestartPoint, 2);
  EXPECT_EQ(ProfileSettings.RestartPointMatchGroup, 2);
  EXPECT_EQ(ProfileSettings.RestartPointPrimaryFile, 3);
  EXPECT_EQ(ProfileSettings.RestartPointSecondaryFile, 4);
  EXPECT_EQ(ProfileSettings.RestartPointNumDuplicates, 2);
  EXPECT_EQ(ProfileSettings.MatchNum, 0);
  EXPECT_EQ(StatusFileNumber, 3);
}

TEST_F(MatchLoopTest, AbortedNamePassIsRestartPoint1) {
  prepare("NAME", {{"a", data}, {"a", data}});
  requestAtYield(1, runState::abortRequested);
  basCompareFiles("NAME");

  EXPECT_THAT(matchNumbers(), ElementsAre(-2, -2));
  EXPECT_EQ(RunState, runState::abortRequested);
  EXPECT_EQ(ProfileSettings.RestartPoint, 1);
  EXPECT_EQ(ProfileSettings.RestartPointMatchGroup, 1);
  EXPECT_EQ(ProfileSettings.RestartPointPrimaryFile, 0);
  EXPECT_EQ(ProfileSettings.RestartPointSecondaryFile, 0);
}

TEST_F(MatchLoopTest, PauseInsideAPairWaitsForTheEndOfTheRow) {
  const std::string elevenBlocks(44, '.');
  prepareContents({elevenBlocks, elevenBlocks, elevenBlocks});
  requestAtYield(2, runState::pauseRequested);  // The first pair, at its eleventh block.
  basCompareFiles("SIZE");

  EXPECT_EQ(statusWindow.statusTexts.at(1), "Checking f1  [ Size 44 ]");
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, 0));
  EXPECT_EQ(ProfileSettings.RestartPointPrimaryFile, 2);
  EXPECT_EQ(ProfileSettings.RestartPointSecondaryFile, 4);
}

TEST_F(MatchLoopTest, PrimaryTakenUpMeetsTheFilesOfTheGroupBehindItsOwn) {
  prepare("NAME", {{"A", data}, {"A", data}, {"a", data}, {"a", data}});
  continueFrom(2, 2, 3);
  basCompareFiles("NAME");

  EXPECT_THAT(matchNumbers(), ElementsAre(-2, 0, 0, 0));
}

TEST_F(MatchLoopTest, PrimariesBehindTheOneTakenUpRunToTheEndOfTheStoredGroup) {
  prepareSizes({10, 10, 10, 20, 20});
  continueFrom(2, 1, 4);
  basCompareFiles("SIZE");

  EXPECT_THAT(matchNumbers(), ElementsAre(-2, 0, 0, 1, 1));
}

TEST_F(MatchLoopTest, PassStoppedInItsLastGroupComparesNothingMore) {
  prepareSizes({10, 10, 20, 20});
  continueFrom(3, 3, 5);
  ProfileSettings.RestartPoint = 2;
  basCompareFiles("SIZE");

  EXPECT_THAT(matchNumbers(), ElementsAre(-2, -2, -2, -2));
  EXPECT_EQ(ProfileSettings.RestartPoint, 0);
}

TEST_F(MatchLoopTest, NumberedPrimarySkipsTheStoredGroupAndLeavesItsSecondaryToTheNext) {
  const std::vector<CatalogueFile> files = {{"a", data, 10, 0}, {"b", data, 10, 0},
                                            {"c", data, 20},    {"d", data, 20},
                                            {"e", data, 30},    {"f", data, 30}};
  prepare("SIZE", files);
  continueFrom(2, 2, 3);
  CurrentMatchNum = 0;
  basCompareFiles("SIZE");
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, -2, -2, 1, 1));

  prepare("SIZE", files);
  continueFrom(2, 2, 7);
  basCompareFiles("SIZE");
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, -2, -2, -2, -2));
}

TEST_F(MatchLoopTest, ContinuedPassCountsThePrimariesOfTheGroupBeforeAsItsOwn) {
  prepareContents({"aaaa", "bbbb", "cccc", "12345678", "12345678", "12345678"});
  continueFrom(2, 2, 4);
  basCompareFiles("SIZE");

  EXPECT_THAT(matchNumbers(), ElementsAre(-2, -2, -2, 0, 0, 0));
  EXPECT_EQ(BufferReads, 0);  // The group of three counted two files when its turn came.
}

TEST_F(MatchLoopTest, RestartPointsOutsideTheTablesEndThePass) {
  const std::string box = procedureError("basCompareFiles", "Subscript out of range(9)");
  prepareSizes({10, 10, 20, 20});
  ProfileSettings.RestartPoint = 2;
  continueFrom(-1, 1, 2);
  basCompareFiles("SIZE");
  continueFrom(1, 99999, 2);
  basCompareFiles("SIZE");
  continueFrom(1, 1, -1);
  basCompareFiles("SIZE");

  EXPECT_THAT(dialogBoxes.messages, ElementsAre(box, box, box));
  EXPECT_THAT(matchNumbers(), ElementsAre(-2, -2, -2, -2));
  EXPECT_EQ(RunState, runState::comparing);
  EXPECT_EQ(ProfileSettings.RestartPoint, 2);
}

TEST_F(MatchLoopTest, UnreadablePrimaryEndsItsRow) {
  prepareContents({"aaaa", "aaaa", "aaaa"});
  breakReads(1);
  basCompareFiles("SIZE");

  EXPECT_THAT(matchNumbers(), ElementsAre(-2, 0, 0));
  EXPECT_EQ(readsOf(1), 1);
  EXPECT_EQ(FileTable.FileStatus[statusState][1], fileState::unreadable);
}

TEST_F(MatchLoopTest, UnreadableSecondaryIsTriedAgainByEachPrimary) {
  prepareContents({"aaaa", "bbbb", "cccc"});
  breakReads(3);
  basCompareFiles("SIZE");

  EXPECT_EQ(readsOf(3), 2);
  EXPECT_EQ(FileTable.FileStatus[statusState][3], fileState::unreadable);
}

// What failed once stays marked, and a marked primary has one pair only: 2 does not reach 4, which
// 3 takes with it into a match of their own.
TEST_F(MatchLoopTest, FileThatFailedOnceHasARowOfOnePair) {
  prepareContents({"aaaa", "bbbb", "bbbb", "bbbb"});
  breakReads(2, 0, 1);
  basCompareFiles("SIZE");

  EXPECT_THAT(matchNumbers(), ElementsAre(-2, 0, 1, 1));
}

TEST_F(MatchLoopTest, PairThatPassedTheMarkBeforeItsPrimaryFailedStillMatches) {
  const std::string tenBlocks(40, '.');
  ContentPercentLimit = 50;
  prepareContents({tenBlocks, tenBlocks, tenBlocks});
  breakReads(1, 32);
  basCompareFiles("SIZE");

  EXPECT_THAT(matchNumbers(), ElementsAre(0, 1, 1));
}

TEST_F(MatchLoopTest, RowsWithoutAnUnnumberedSecondaryTouchNoFile) {
  prepareContents({"aaaa", "aaaa", "aaaa"});
  basCompareFiles("SIZE");

  // The first row alone: 1 with 2, then 1, from the pool, with 3.
  EXPECT_EQ(ActualReads, 3);
  EXPECT_EQ(BufferReads, 1);
}

TEST_F(MatchLoopTest, GroupOfTwoLeavesThePoolAlone) {
  BuffersPerFile = 77;
  prepareContents({"aaaa", "aaaa"});
  basCompareFiles("SIZE");

  EXPECT_EQ(BuffersPerFile, 77);
  EXPECT_EQ(BufferReads, 0);
  EXPECT_EQ(ActualReads, 2);
}

TEST_F(MatchLoopTest, LastTwoFilesOfAGroupUseNoPool) {
  prepareContents({"aaaa....", "bbbbcccc", "bbbbdddd"});
  basCompareFiles("SIZE");

  // The first file comes from the pool for its second pair. The others are read anew for theirs.
  EXPECT_EQ(readsOf(1), 1);
  EXPECT_EQ(readsOf(2), 1 + 2);
  EXPECT_EQ(readsOf(3), 1 + 2);
  EXPECT_EQ(BufferReads, 1);
  EXPECT_EQ(ActualReads, 7);
  EXPECT_EQ(BuffersPerFile, 50);
}

class LocalCopyTest : public MatchLoopTest {
 protected:
  LocalCopyTest() {
    prepareSizes({10, 20});
    openLog();
  }
  static void giveCopy(const std::string& path) { FileTable.FileLocalName.set(1, path); }
};

TEST_F(LocalCopyTest, IsDeletedAfterTheRowOfItsFile) {
  disk.file("C:\\Quernstoke\\Temp\\TMP1", "copy");
  giveCopy("C:\\Quernstoke\\Temp\\TMP1");
  basCompareFiles("SIZE");

  EXPECT_FALSE(disk.exists("C:\\Quernstoke\\Temp\\TMP1"));
  EXPECT_EQ(FileTable.FileLocalName[1], "");
  EXPECT_THAT(logLines(), IsEmpty());
}

TEST_F(LocalCopyTest, ThatIsMissingIsLogged) {
  giveCopy("C:\\Quernstoke\\Temp\\TMP1");
  basCompareFiles("SIZE");

  EXPECT_THAT(logLines(), ElementsAre("Unable to delete temp fileC:\\Quernstoke\\Temp\\TMP1because "
                                      "the file is missing"));
  EXPECT_EQ(FileTable.FileLocalName[1], "");
}

TEST_F(LocalCopyTest, OutsideTempDirIsTold) {
  disk.file("C:\\Other\\TMP1", "copy");
  giveCopy("C:\\Other\\TMP1");
  basCompareFiles("SIZE");

  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Internal error. Local file buffer not in expected temp dir"));
  EXPECT_TRUE(disk.exists("C:\\Other\\TMP1"));
  EXPECT_EQ(FileTable.FileLocalName[1], "C:\\Other\\TMP1");
}

// The deletion minds letter case, the test before it does not.
TEST_F(LocalCopyTest, InOtherLetterCaseIsForgottenButNotDeleted) {
  disk.file("C:\\Quernstoke\\Temp\\TMP1", "copy");
  giveCopy("c:\\quernstoke\\temp\\TMP1");
  basCompareFiles("SIZE");

  EXPECT_TRUE(disk.exists("C:\\Quernstoke\\Temp\\TMP1"));
  EXPECT_EQ(FileTable.FileLocalName[1], "");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_THAT(logLines(), IsEmpty());
}

TEST_F(LocalCopyTest, OfARowThatNeverBeganStays) {
  disk.file("C:\\Quernstoke\\Temp\\TMP1", "copy");
  giveCopy("C:\\Quernstoke\\Temp\\TMP1");
  requestAtYield(1, runState::pauseRequested);
  basCompareFiles("SIZE");

  EXPECT_TRUE(disk.exists("C:\\Quernstoke\\Temp\\TMP1"));
  EXPECT_EQ(FileTable.FileLocalName[1], "C:\\Quernstoke\\Temp\\TMP1");
}

class ExclusionTest : public MatchLoopTest {
 protected:
  // Of a file in one directory with a file in another.
  static bool isExcluded(const std::string& first, const std::string& second) {
    buildCatalogue({{"x", first}, {"y", second}});
    return basCompareFilesCheckExclusion(1, 2);
  }
};

TEST_F(ExclusionTest, KeepsTwoDirectoriesApartInEitherOrder) {
  keepApart("C:\\A", "C:\\B", 1, false);

  EXPECT_TRUE(isExcluded("C:\\A", "C:\\B"));
  EXPECT_TRUE(isExcluded("C:\\B", "C:\\A"));
  EXPECT_TRUE(isExcluded("c:\\a", "c:\\b"));
  EXPECT_FALSE(isExcluded("C:\\A", "C:\\A"));
  EXPECT_FALSE(isExcluded("C:\\B", "C:\\B"));
  EXPECT_FALSE(isExcluded("C:\\A", "C:\\C"));
  EXPECT_FALSE(isExcluded("C:\\A\\Sub", "C:\\B"));
}

// A plain prefix, as in the walk: C:\A with its subdirectories also covers C:\Annex.
TEST_F(ExclusionTest, WithSubdirectoriesCoversAllThatBeginsAlike) {
  keepApart("C:\\A", "C:\\B");

  EXPECT_TRUE(isExcluded("C:\\A\\Sub", "C:\\b\\deep\\er"));
  EXPECT_TRUE(isExcluded("C:\\Annex", "C:\\B"));
  EXPECT_FALSE(isExcluded("C:\\", "C:\\B"));
}

TEST_F(ExclusionTest, SecondHalfBeforeTheFirstCountsForNothing) {
  setDirectory(1, "C:\\B", "2");
  setDirectory(2, "C:\\A", "1");

  EXPECT_FALSE(isExcluded("C:\\A", "C:\\B"));
}

// The halves seen are not forgotten from one pair of slots to the next.
TEST_F(ExclusionTest, FirstHalfSeenCountsForAllSecondHalvesBehindIt) {
  keepApart("C:\\A", "C:\\X");
  keepApart("C:\\Y", "C:\\B", 3);

  EXPECT_TRUE(isExcluded("C:\\A", "C:\\B"));
  EXPECT_FALSE(isExcluded("C:\\X", "C:\\Y"));
}

TEST_F(ExclusionTest, OneFileUnderBothHalvesIsKeptFromAll) {
  keepApart("C:\\A", "C:\\A\\Sub");

  EXPECT_TRUE(isExcluded("C:\\A\\Sub", "C:\\Elsewhere"));
  EXPECT_TRUE(isExcluded("C:\\Elsewhere", "C:\\A\\Sub"));
}

TEST_F(ExclusionTest, OtherKindsOfSlotsArePassedOver) {
  setDirectory(1, "C:\\A", "I");
  setDirectory(2, "C:\\B", "E");
  EXPECT_FALSE(isExcluded("C:\\A", "C:\\B"));

  setDirectory(3, "C:\\A", "1");
  setDirectory(4, "C:\\C", "E");
  setDirectory(5, "C:\\B", "2");
  EXPECT_TRUE(isExcluded("C:\\A", "C:\\B"));
}

TEST_F(ExclusionTest, FirstFreeSlotEndsTheList) {
  setDirectory(1, "C:\\A", "1");
  setDirectory(3, "C:\\B", "2");

  EXPECT_FALSE(isExcluded("C:\\A", "C:\\B"));
}

TEST_F(ExclusionTest, ZipEntriesAreKnownByTheDirectoryShownForThem) {
  buildCatalogue({{"x", "C:\\A"}, {"y", "docs"}});
  DirTable.set(2, {"docs", dirKind::zipFolder, 3});
  DirTable.set(3, {"C:\\B\\b.zip", dirKind::zipFile, noParent});
  setDirectory(1, "C:\\A", "1");
  setDirectory(2, "C:\\B\\b.zip >> docs", "2", false);

  EXPECT_TRUE(basCompareFilesCheckExclusion(1, 2));
}

// Seen by a second file whose directory is not in the table.
TEST_F(ExclusionTest, IsAskedForEachSecondaryEvenIfItIsNoCandidate) {
  setDirectory(1, "C:\\A", "1");
  prepare("SIZE", {{"a", data, 10}, {"b", data, 10, 7}});
  FileTable.FileDirNum[2] = 9999;
  basCompareFiles("SIZE");

  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basGetDirnameFromFilenum", "Subscript out of range(9)")));
}

}  // namespace
}  // namespace quernstoke
