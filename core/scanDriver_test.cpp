#include "core/scanDriver.h"

#include <ostream>

#include "catalogue/dirTable.h"
#include "catalogue/directoryWalk.h"
#include "catalogue/fileTable.h"
#include "core/log.h"
#include "core/modMain.h"
#include "core/scanDriverTest.h"
#include "core/scanState.h"
#include "detect/modLinkedList.h"
#include "detect/tempStore.h"
#include "results/matchGroupIndex.h"

namespace quernstoke {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAreArray;

// Start and stop.

TEST_F(ScanDriverTest, AScanWipesTheLogOfTheStart) {
  ASSERT_THAT(logLines(), ElementsAre("Starting quernstoke"));
  basStartScan();
  EXPECT_EQ(disk.content(logPath), "");
}

TEST_F(ScanDriverTest, TheLogIsOpenDuringAScanAlone) {
  bool open = false;
  at(building, [&] { open = LogFileNumber > 0; });
  basStartScan();
  EXPECT_TRUE(open);
  EXPECT_EQ(LogFileNumber, 0);
  EXPECT_EQ(disk.openFiles(), 0);
}

TEST_F(ScanDriverTest, EachScanWritesALogOfItsOwn) {
  setDirectory(2, "C:\\Gone", "I");
  basStartScan();
  EXPECT_THAT(logLines(), ElementsAre("Error reading directory C:\\Gone"));
  basStartScan();
  EXPECT_THAT(logLines(), ElementsAre("Error reading directory C:\\Gone"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// After a first scan the program has no log.
TEST_F(ScanDriverTest, AfterAScanADirectoryThatCannotBeReadIsShown) {
  basStartScan();
  Int32 row = noParent;
  basScanThisDirectory("C:\\Gone", row);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Error reading directory C:\\Gone"));
  EXPECT_EQ(disk.content(logPath), "");
}

TEST_F(ScanDriverTest, AScanWithoutALogDoesNotRun) {
  disk.failOn(DiskAction::open, logPath, FailureNumber::permissionDenied);
  basStartScan();
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basStartScan", "Permission denied(70)")));
  EXPECT_THAT(windows, IsEmpty());
}

TEST_F(ScanDriverTest, TheScanDatesTheFirstProfileOfItsNameWhateverTheCase) {
  ProfileList.ProfileNameList[3] = "MUSIC";
  ProfileList.ProfileNameList[4] = "Music";
  ProfileList.ProfileNameList[2] = "Pictures";
  basStartScan();
  EXPECT_EQ(ProfileList.ProfileDateList[2], "");
  EXPECT_EQ(ProfileList.ProfileDateList[3], "2004-11-02 16:41:08");
  EXPECT_EQ(ProfileList.ProfileDateList[4], "");
}

// The search begins at the slot that is always empty, so that no name finds that one.
TEST_F(ScanDriverTest, AScanWithoutAProfileDatesSlotZero) {
  ProfileName.clear();
  basStartScan();
  EXPECT_EQ(ProfileList.ProfileDateList[0], "2004-11-02 16:41:08");
  EXPECT_EQ(ProfileList.ProfileDateList[3], "");
}

TEST_F(ScanDriverTest, AProfileInTheLastSlotIsDatedToo) {
  ProfileList.ProfileNameList[2] = "";
  ProfileList.ProfileNameList[32] = "Music";
  basStartScan();
  EXPECT_EQ(ProfileList.ProfileDateList[32], "2004-11-02 16:41:08");
}

TEST_F(ScanDriverTest, LocalCopiesAreClearedWhereTheLastScanLeftThem) {
  TempDir = "C:\\OldTemp";
  GlobalSettings.TempPath = "C:\\NewTemp";
  for (const char* path :
       {"C:\\OldTemp\\TMP1", "C:\\OldTemp\\tmp2.x", "C:\\OldTemp\\keep", "C:\\NewTemp\\TMP1"})
    disk.file(path, "");
  basStartScan();
  EXPECT_THAT(disk.names("C:\\OldTemp"), ElementsAre("keep"));
  EXPECT_THAT(disk.names("C:\\NewTemp"), ElementsAre("TMP1"));
  EXPECT_EQ(TempDir, "C:\\NewTemp");
  basStartScan();
  EXPECT_THAT(disk.names("C:\\NewTemp"), IsEmpty());
}

TEST_F(ScanDriverTest, NothingToClearIsNoFailure) {
  TempDir = "C:\\Gone";
  basStartScan();
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(RunState, runState::finished);
}

// The fields of a scan.

TEST_F(ScanDriverTest, AScanBeginsByReplacingTheMainWindow) {
  StatusFileNumber = 9;
  WindowLog windowsSoFar;
  Int16 state;
  Int32 position = -1;
  at(initializing, [&] {
    windowsSoFar = windows;
    state = RunState;
    position = StatusFileNumber;
  });
  basStartScan();
  EXPECT_THAT(windowsSoFar, ElementsAre("frmScanStatus show", "frmMain unload"));
  EXPECT_EQ(statusWindow.statusTexts.front(), initializing);
  EXPECT_EQ(state, runState::buildingList);
  EXPECT_EQ(position, 0);
}

TEST_F(ScanDriverTest, TheSettingsBecomeTheFieldsOfTheScan) {
  ProfileSettings.MinimumSize = 3;
  ProfileSettings.MinimumSizeMeasure = "KB";
  ProfileSettings.MaximumSize = 2;
  ProfileSettings.MaximumSizeMeasure = "GB";
  ProfileSettings.ContentMatchingPercent = 75;
  GlobalSettings.FileBufferSize = 512;
  GlobalSettings.NumberOfFileBuffers = 20;
  ActualReads = LocalReads = BufferReads = TempFileCounter = 5;
  at(building, [&] {
    EXPECT_EQ(MinSizeBytes.toDouble(), 3072);
    EXPECT_EQ(MaxSizeBytes.toDouble(), 2147483648.0);
    EXPECT_EQ(ContentPercentLimit, 75);
    EXPECT_EQ(BlockSize, 512);
    EXPECT_EQ(BlockPoolCount, 20);
    EXPECT_EQ(BlockPoolNext.upperBound(), 21);
    EXPECT_EQ(ActualReads + LocalReads + BufferReads, 0);
    EXPECT_EQ(TempFileCounter, 1);
    EXPECT_EQ(ScanStartTime, clock.time);
    EXPECT_EQ(EstimatedEndTime.seconds, clock.time.seconds + 300);
  });
  basStartScan();
  EXPECT_THAT(statusWindow.statusTexts, Contains(building));
}

TEST_F(ScanDriverTest, HiddenAndSystemFilesAddTheirAttributes) {
  const auto attributes = [&](bool hidden, bool system) {
    ProfileSettings.ScanHiddenFiles = hidden;
    ProfileSettings.ScanSystemFiles = system;
    basStartScan();
    return ScanAttributes;
  };
  EXPECT_EQ(attributes(false, false), 49);
  EXPECT_EQ(attributes(true, false), 51);
  EXPECT_EQ(attributes(false, true), 53);
  EXPECT_EQ(attributes(true, true), 55);
}

TEST_F(ScanDriverTest, LocalCopiesNeedBothTheirSettings) {
  const auto localCopies = [&](bool slow, bool local) {
    ProfileSettings.SlowNetwork = slow;
    GlobalSettings.TransferFileLocally = local;
    basStartScan();
    return LocalCopyActive;
  };
  EXPECT_FALSE(localCopies(false, false));
  EXPECT_FALSE(localCopies(true, false));
  EXPECT_FALSE(localCopies(false, true));
  EXPECT_TRUE(localCopies(true, true));
}

TEST_F(ScanDriverTest, TheTempSpaceIsRoundedToKilobytesAHalfToTheEvenOne) {
  const auto budget = [&](int size, const char* measure) {
    GlobalSettings.TransferMaxDiskSpace = size;
    GlobalSettings.TransferMaxDiskSpaceMeasure = measure;
    basStartScan();
    return TempSpaceBudgetKB;
  };
  EXPECT_EQ(budget(50, "MB"), 51200);
  EXPECT_EQ(budget(512, "B"), 0);
  EXPECT_EQ(budget(1536, "B"), 2);
  EXPECT_EQ(budget(2560, "B"), 2);
  EXPECT_EQ(budget(2561, "B"), 3);
  EXPECT_EQ(budget(4, "GB"), 4194304);
}

TEST_F(ScanDriverTest, ATempSpaceThatOverflowsIsNoneAndTheScanGoesOn) {
  GlobalSettings.TransferMaxDiskSpace = 2048;
  GlobalSettings.TransferMaxDiskSpaceMeasure = "MB";
  basStartScan();
  EXPECT_EQ(TempSpaceBudgetKB, 0);
  EXPECT_EQ(RunState, runState::finished);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("basConvertSize", "Overflow(6)")));
}

// What an earlier scan left in the temp directory still takes its room.
TEST_F(ScanDriverTest, TheTempSpaceInUseIsCarriedFromScanToScan) {
  TempUsedKB = 7;
  basStartScan();
  EXPECT_EQ(TempUsedKB, 7);
}

// Only a continued scan keeps the lists; but without a mode they are not emptied before the walk.
TEST_F(ScanDriverTest, AScanWithoutAModeWalksAndAddsToTheLists) {
  disk.file("C:\\Data\\a.txt", "same");
  buildCatalogue({{"old.txt", "C:\\Old", 4}});
  StartMode = startMode::none;
  std::vector<std::string> atFirst;
  at(building, [&] { atFirst = fileNames(); });
  basDoScan();
  EXPECT_THAT(atFirst, ElementsAre("old.txt"));
  EXPECT_THAT(statusWindow.statusTexts, Contains(building));
  EXPECT_THAT(filePaths(), ElementsAre("C:\\Old\\old.txt", "C:\\Data\\a.txt"));
}

TEST_F(ScanDriverTest, ASizeThatOverflowsBecomesZeroAndTheScanGoesOn) {
  twoEqualFiles();
  ProfileSettings.MaximumSize = 2048;
  ProfileSettings.MaximumSizeMeasure = "MB";
  basStartScan();
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("basConvertSize", "Overflow(6)")));
  EXPECT_EQ(MaxSizeBytes, FixedPoint());
  EXPECT_EQ(FileCount, 0);
  EXPECT_EQ(RunState, runState::finished);
}

TEST_F(ScanDriverTest, AMissingTempDirectoryIsMade) {
  GlobalSettings.TempPath = "C:\\NewTemp";
  basStartScan();
  EXPECT_TRUE(disk.exists("C:\\NewTemp"));
  EXPECT_EQ(RunState, runState::finished);
}

TEST_F(ScanDriverTest, ATempDirectoryThatCannotBeMadeEndsTheScan) {
  GlobalSettings.TempPath = "C:\\missing\\deep";
  GlobalSettings.TransferMaxDiskSpace = 2048;  // Overflows, but is not reached.
  basStartScan();
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Unable to create temporary directory C:\\missing\\deep"));
  EXPECT_THAT(windows, ElementsAre("frmScanStatus show", "frmMain unload", "frmScanStatus unload",
                                   "frmMain show"));
  // Left as it was; the next scan overwrites it.
  EXPECT_EQ(RunState, runState::buildingList);
  EXPECT_THAT(openedProfileFiles(), IsEmpty());
  EXPECT_EQ(statusWindow.tag, "");
  EXPECT_EQ(LogFileNumber, 0);
}

TEST_F(ScanDriverTest, AnUnexpectedFailureLeavesTheStatusWindowOpen) {
  GlobalSettings.NumberOfFileBuffers = -1;
  basStartScan();
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basDoScan", "Subscript out of range(9)")));
  EXPECT_THAT(windows, ElementsAre("frmScanStatus show", "frmMain unload"));
  EXPECT_EQ(LogFileNumber, 0);
}

// A new scan.

TEST_F(ScanDriverTest, ANewScanBeginsWithAnEmptyCatalogue) {
  buildCatalogue({{"old.txt", "C:\\Old", 5}});
  basRedimFilesArrays(7, true);
  DirTable.redim(9, true);
  ProfileSettings.MatchNum = 7;
  ProfileSettings.RestartPointNumDuplicates = 4;
  ProfileSettings.ElapsedTime = 90;
  DuplicateCount = 3;
  at(building, [&] {
    EXPECT_EQ(FileCount, 0);
    EXPECT_EQ(DirCount, 0);
    EXPECT_EQ(DuplicateCount, 0);
    EXPECT_EQ(CurrentMatchNum, -1);
    EXPECT_EQ(FileTable.FileName.upperBound(), 1000);
    EXPECT_EQ(DirTable.upperBound(), 1024);
    EXPECT_EQ(ScanStartTime, clock.time);
  });
  basStartScan();
  EXPECT_THAT(statusWindow.statusTexts, Contains(building));
  EXPECT_EQ(FileCount, 0);
}

TEST_F(ScanDriverTest, ANewScanRefreshesTheStatusWindow) {
  basStartScan();
  EXPECT_EQ(statusWindow.refreshes, 1);
  EXPECT_EQ(statusWindow.caption, "");
}

TEST_F(ScanDriverTest, AMinimisedStatusWindowShowsThePercentageInstead) {
  statusWindow.isMinimised = true;
  basStartScan();
  EXPECT_EQ(statusWindow.refreshes, 0);
  EXPECT_EQ(statusWindow.caption, "Scanning...0%");
}

// The stages.

struct CriteriaCase {
  std::string criteria;
  int passes;
  std::vector<std::string> files;  // What is left in the catalogue.
};

void PrintTo(const CriteriaCase& scan, std::ostream* out) {
  *out << '"' << scan.criteria << '"';
}

class ScanStagesTest : public ScanDriverTest, public testing::WithParamInterface<CriteriaCase> {
 protected:
  // Pairs alike in name, in size, and in content; three files alike in all; and one, first in
  // every order, that spares the others the short count of the first run.
  ScanStagesTest() {
    disk.file("C:\\Data\\0", "0");
    disk.file("C:\\Data\\1\\n", "nnn");
    disk.file("C:\\Data\\2\\n", "nnnn");
    disk.file("C:\\Data\\s1", "s-one");
    disk.file("C:\\Data\\s2", "s-two");
    disk.file("C:\\Data\\c1", "cccccc");
    disk.file("C:\\Data\\c2", "cccccc");
    for (const char* directory : {"1", "2", "3"})
      disk.file("C:\\Data\\" + std::string(directory) + "\\all", "ALLALIKE");
  }
};

TEST_P(ScanStagesTest, TheLettersChooseThePasses) {
  ProfileSettings.MatchingCriteria = GetParam().criteria;
  basStartScan();

  EXPECT_THAT(fileNames(), UnorderedElementsAreArray(GetParam().files));
  EXPECT_THAT(matchNumbers(), Not(Contains(noMatch)));
  EXPECT_EQ(RunState, runState::finished);
  // Each pass saves the profile, and so does the end of the scan.
  EXPECT_EQ(disk.count(DiskAction::open, ProfilesDir + "\\Music.profile"), GetParam().passes + 1);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

const std::vector<std::string> alikeInName = {"n", "n", "all", "all", "all"};
const std::vector<std::string> alikeInSize = {"s1", "s2", "c1", "c2", "all", "all", "all"};
const std::vector<std::string> alikeInContent = {"c1", "c2", "all", "all", "all"};
const std::vector<std::string> alikeInAll = {"all", "all", "all"};
// The second pass compares nothing, as all files have numbers; it only prunes, and never a first
// run of one.
const std::vector<std::string> alikeInNameThenSize = {"n", "all", "all", "all"};

INSTANTIATE_TEST_SUITE_P(
    Letters, ScanStagesTest,
    testing::Values(CriteriaCase{"N", 1, alikeInName}, CriteriaCase{"C", 1, alikeInContent},
                    CriteriaCase{"S", 1, alikeInSize}, CriteriaCase{"CS", 1, alikeInContent},
                    CriteriaCase{"NC", 2, alikeInAll}, CriteriaCase{"NS", 2, alikeInNameThenSize},
                    CriteriaCase{"NCS", 2, alikeInAll},
                    // Without a letter the size pass runs all the same.
                    CriteriaCase{"", 1, alikeInSize},
                    // A set of letters of either case, not a word.
                    CriteriaCase{"sn", 2, alikeInNameThenSize},
                    CriteriaCase{"Size", 1, alikeInSize}, CriteriaCase{"x-y", 1, alikeInSize}));

TEST_F(ScanDriverTest, AScanWithoutFilesFinishes) {
  basStartScan();
  EXPECT_EQ(RunState, runState::finished);
  EXPECT_EQ(windows.back(), "frmResults show");
  EXPECT_EQ(saved().NumDuplicates, 0);
}

TEST_F(ScanDriverTest, OnlyNewScansAndRefreshesPrune) {
  const auto namesAfter = [](std::int16_t start) {
    buildCatalogue({{"0", "C:\\", 1}, {"a", "C:\\", 5}, {"b", "C:\\", 9}, {"c", "C:\\", 9}});
    basPrepareFilesListForCompare("SIZE", start);
    return fileNames();
  };
  EXPECT_THAT(namesAfter(startMode::newScan), ElementsAre("0", "b", "c"));
  EXPECT_THAT(namesAfter(startMode::refresh), ElementsAre("0", "b", "c"));
  EXPECT_THAT(namesAfter(startMode::continueScan), ElementsAre("0", "a", "b", "c"));
}

TEST_F(ScanDriverTest, PreparingSortsAndGroups) {
  buildCatalogue({{"c", "C:\\", 9}, {"a", "C:\\", 5}, {"b", "C:\\", 9}});
  basPrepareFilesListForCompare("SIZE", startMode::continueScan);
  EXPECT_THAT(fileSizes(), ElementsAre(5, 9, 9));
  EXPECT_EQ(MatchGroupCount, 2);
  EXPECT_EQ(MatchGroupTable[2].first, 2);
  EXPECT_EQ(MatchGroupTable[2].count, 2);
}

TEST_F(ScanDriverTest, ARefreshCountsTheDuplicatesOfWhatItKeeps) {
  buildMatches({3, 1, 2, 1, 3, 1});
  basPrepareFilesListForCompare("MATCHNUM", startMode::refresh);
  EXPECT_THAT(matchNumbers(), ElementsAre(1, 1, 1, 3, 3));
  EXPECT_EQ(DuplicateCount, 3);
}

// The end of a scan.

TEST_F(ScanDriverTest, AFinishedScanShowsItsResults) {
  twoEqualFiles();
  disk.file("C:\\Data\\c.txt", "same");
  at(searching, [&] { clock.time.seconds += 42; });
  basStartScan();
  EXPECT_THAT(windows, ElementsAre("frmScanStatus show", "frmMain unload", "frmScanStatus unload",
                                   "frmResults show"));
  EXPECT_EQ(statusWindow.tag, "OK");
  const ProfileSettingsRecord profile = saved();
  EXPECT_EQ(profile.RunMode, 6);
  EXPECT_EQ(profile.NumDuplicates, 2);
  EXPECT_EQ(profile.ElapsedTime, 42);
  EXPECT_EQ(profile.RestartPoint, 0);
}

TEST_F(ScanDriverTest, TheSnapshotsAreWrittenBeforeTheProfileIsSaved) {
  basStartScan();
  EXPECT_THAT(openedProfileFiles(), ElementsAre(".files", ".dir", ".profile"));
}

struct OutcomeCase {
  std::int16_t before;  // RunState as the last pass leaves it.
  std::int16_t after;
  std::string window;
};

void PrintTo(const OutcomeCase& outcome, std::ostream* out) {
  *out << outcome.before << " to " << outcome.after;
}

class ScanOutcomeTest : public ScanDriverTest, public testing::WithParamInterface<OutcomeCase> {};

TEST_P(ScanOutcomeTest, TheRunStateSettles) {
  twoEqualFiles();
  at(searching, [&] { RunState = GetParam().before; });
  basStartScan();
  EXPECT_EQ(RunState, GetParam().after);
  EXPECT_EQ(windows.back(), GetParam().window);
  EXPECT_TRUE(disk.exists(filesSnapshot));
  EXPECT_TRUE(disk.exists(dirSnapshot));
  EXPECT_EQ(saved().RunMode, GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    States, ScanOutcomeTest,
    testing::Values(OutcomeCase{1, 6, "frmResults show"}, OutcomeCase{3, 2, "frmMain show"},
                    OutcomeCase{5, 4, "frmMain show"}, OutcomeCase{7, 4, "frmMain show"},
                    // Any other value stays.
                    OutcomeCase{0, 0, "frmResults show"}, OutcomeCase{2, 2, "frmMain show"},
                    OutcomeCase{4, 4, "frmMain show"}, OutcomeCase{6, 6, "frmResults show"}));

// In spite of what the message says.
TEST_F(ScanDriverTest, AScanGoesOnWhenItsFilesCannotBeSaved) {
  twoEqualFiles();
  disk.failOn(DiskAction::write, filesSnapshot, FailureNumber::diskFull);
  basStartScan();
  EXPECT_THAT(
      dialogBoxes.messages,
      ElementsAre(
          "Error saving results to file 'C:\\Quernstoke\\Profiles\\Music.files'. Process aborted"));
  EXPECT_EQ(disk.content(dirSnapshot), "1,\"C:\\Data\",\"D\",-1\r\n");
  EXPECT_EQ(ProfileSettings.RunMode, runState::finished);
  EXPECT_EQ(windows.back(), "frmResults show");
}

TEST_F(ScanDriverTest, APausedScanKeepsFilesWithoutAMatch) {
  twoEqualFiles();
  disk.file("C:\\Data\\0", "0");
  at(searching, [] { RunState = runState::pauseRequested; });
  basStartScan();
  EXPECT_THAT(fileNames(), ElementsAre("0", "a.txt", "b.txt"));
  EXPECT_THAT(matchNumbers(), Each(noMatch));
  EXPECT_EQ(saved().RestartPoint, 2);
}

TEST_F(ScanDriverTest, APauseAfterTheNamePassLeavesTheSizePassOut) {
  twoEqualFiles();
  ProfileSettings.MatchingCriteria = "NC";
  at(searching, [] { RunState = runState::pauseRequested; });
  basStartScan();
  EXPECT_EQ(saved().RestartPoint, 1);
  EXPECT_THAT(openedProfileFiles(),
              ElementsAre(".profile", ".files", ".dir", ".profile", ".profile"));
}

TEST_F(ScanDriverTest, AnAbortedWalkLeavesWhatItFound) {
  for (const char* name : {"1", "2", "3"})
    disk.file("C:\\Data\\" + std::string(name), "same");
  disk.before = [](const DiskCall& call) {
    if (call.action == DiskAction::entrySize && call.path == "C:\\Data\\2")
      RunState = runState::abortRequested;
  };
  basStartScan();
  EXPECT_THAT(fileNames(), ElementsAre("1", "2"));
  EXPECT_NE(disk.content(filesSnapshot), "");
  EXPECT_NE(disk.content(dirSnapshot), "");
  EXPECT_THAT(statusWindow.statusTexts, Not(Contains(searching)));
  EXPECT_EQ(windows.back(), "frmMain show");
  EXPECT_EQ(saved().RunMode, 4);
}

}  // namespace
}  // namespace quernstoke
