#include "progress/scanStatus.h"

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/scanState.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ScanStatusTest : public EngineTest {
 protected:
  // A comparison that began so many seconds ago, over files in C:\Data\Music.
  void compareSince(int seconds, int fileCount = 50) {
    std::vector<CatalogueFile> files(static_cast<std::size_t>(fileCount),
                                     {"song.mp3", "C:\\Data\\Music"});
    buildCatalogue(files);
    RunState = runState::comparing;
    ScanDetailsShown = true;
    ScanStartTime = {clock.time.seconds - seconds};
    EstimatedEndTime = {clock.time.seconds + 300};
  }
  std::string label(const std::string& name) { return statusWindow.labels[name]; }
};

TEST_F(ScanStatusTest, WithoutDetailsOnlyTheStatusLineIsWritten) {
  compareSince(0);
  ScanDetailsShown = false;
  basUpdateStatusFields("Searching...", 20, 0);

  EXPECT_THAT(statusWindow.statusTexts, ElementsAre("Searching..."));
  EXPECT_THAT(statusWindow.labels, IsEmpty());
  EXPECT_EQ(eventLoop.yields, 1);
}

TEST_F(ScanStatusTest, MinimisedWindowTakesTheStatusLineAlone) {
  compareSince(0);
  statusWindow.isMinimised = true;
  basUpdateStatusFields("Searching...", 20, 1);

  EXPECT_THAT(statusWindow.statusTexts, ElementsAre("Searching..."));
  EXPECT_THAT(statusWindow.labels, IsEmpty());
  EXPECT_EQ(eventLoop.yields, 1);
}

TEST_F(ScanStatusTest, EmptyTextLeavesTheStatusLine) {
  basUpdateStatusFields("", -1, 0);

  EXPECT_THAT(statusWindow.statusTexts, IsEmpty());
  EXPECT_EQ(eventLoop.yields, 1);
}

TEST_F(ScanStatusTest, ForceWritesAllLabelsWithoutDetails) {
  compareSince(60);
  ScanDetailsShown = false;
  basUpdateStatusFields("Searching...", 20, 1);

  EXPECT_EQ(label("labFile1"), "C:\\Data\\Music\\song.mp3");
  EXPECT_EQ(label("labElapsedTime"), "1m 0s");
}

TEST_F(ScanStatusTest, LabelsAreWrittenBeforeTheYield) {
  compareSince(0);
  eventLoop.onYield = [this] { EXPECT_EQ(label("labBufferReads"), "0"); };
  basUpdateStatusFields("Searching...", 20, 0);

  EXPECT_EQ(eventLoop.yields, 1);
}

TEST_F(ScanStatusTest, FileIsShownWithItsDirectoryFittedToTheLabel) {
  compareSince(0);
  statusWindow.fileWidth = 22;
  basUpdateStatusFields("", 1, 0);

  EXPECT_EQ(label("labFile1"), "C:\\...\\Music\\song.mp3");
}

TEST_F(ScanStatusTest, ZipEntryIsShownBelowItsArchive) {
  buildCatalogue({{"a.txt", "docs"}});
  DirTable.set(1, {"docs", dirKind::zipFolder, 2});
  DirTable.set(2, {"C:\\a.zip", dirKind::zipFile, noParent});
  basUpdateStatusFields("", 1, 1);

  EXPECT_EQ(label("labFile1"), "C:\\a.zip >> docs\\a.txt");
}

TEST_F(ScanStatusTest, WithoutAFileTheLastOneStays) {
  compareSince(3725);
  statusWindow.labels["labFile1"] = "C:\\Last";
  basUpdateStatusFields("", -1, 0);

  EXPECT_EQ(label("labFile1"), "C:\\Last");
  EXPECT_EQ(label("labElapsedTime"), "1h 2m 5s");
}

TEST_F(ScanStatusTest, ThereIsNoEstimateWhileTheListIsBuilt) {
  compareSince(60);
  RunState = runState::buildingList;
  statusWindow.labels["labRemainingTime"] = statusWindow.labels["labEstimatedTime"] = "9s";
  basUpdateStatusFields("", 20, 0);

  EXPECT_EQ(label("labElapsedTime"), "1m 0s");
  EXPECT_EQ(label("labRemainingTime"), "");
  EXPECT_EQ(label("labEstimatedTime"), "");
}

TEST_F(ScanStatusTest, FirstNineFilesLeaveTheEstimateAlone) {
  compareSince(100);
  const DateTime firstEstimate = EstimatedEndTime;
  statusWindow.labels["labRemainingTime"] = statusWindow.labels["labEstimatedTime"] = "0d 0h 0m 0s";
  basUpdateStatusFields("", 9, 0);

  EXPECT_EQ(EstimatedEndTime, firstEstimate);
  EXPECT_EQ(label("labRemainingTime"), "0d 0h 0m 0s");
  EXPECT_EQ(label("labEstimatedTime"), "0d 0h 0m 0s");

  basUpdateStatusFields("", 10, 0);
  EXPECT_EQ(label("labEstimatedTime"), "8m 20s");  // 100 seconds for 10 of 50 files.
}

TEST_F(ScanStatusTest, RemainingTimeGoesByTheEstimateOfTheUpdateBefore) {
  compareSince(100);
  basUpdateStatusFields("", 20, 0);
  EXPECT_EQ(label("labRemainingTime"), "5m 0s");
  EXPECT_EQ(label("labEstimatedTime"), "4m 10s");
  EXPECT_EQ(EstimatedEndTime.seconds, ScanStartTime.seconds + 250);

  basUpdateStatusFields("", 20, 0);
  EXPECT_EQ(label("labRemainingTime"), "2m 30s");
}

TEST_F(ScanStatusTest, EstimateIsRoundedToWholeSeconds) {
  compareSince(100, 30);
  basUpdateStatusFields("", 11, 0);

  EXPECT_EQ(EstimatedEndTime.seconds, ScanStartTime.seconds + 273);  // 272.7
}

TEST_F(ScanStatusTest, EstimateInThePastGivesANegativeRemainingTime) {
  compareSince(100);
  EstimatedEndTime = {clock.time.seconds - 65};
  basUpdateStatusFields("", 20, 0);

  EXPECT_EQ(label("labRemainingTime"), "-1m -5s");
}

TEST_F(ScanStatusTest, ReadCountersAreShown) {
  BufferReads = 1;
  LocalReads = 22;
  ActualReads = 1333;
  basUpdateStatusFields("", -1, 1);

  EXPECT_EQ(label("labBufferReads"), "1");
  EXPECT_EQ(label("labLocalFileReads"), "22");
  EXPECT_EQ(label("labRemoteFileReads"), "1333");
}

TEST_F(ScanStatusTest, FailureIsTold) {
  basUpdateStatusFields("Searching...", 9999, 1);

  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basGetDirnameFromFilenum", "Subscript out of range(9)"),
                          procedureError("basUpdateStatusFields", "Subscript out of range(9)")));
}

TEST_F(ScanStatusTest, PercentageIsShownInTheCaptionOfAMinimisedWindowOnly) {
  FileCount = 3;
  StatusFileNumber = 2;
  showPercentWhenMinimised();
  showPositionInStatusBar();
  EXPECT_EQ(statusWindow.caption, "");
  EXPECT_EQ(statusWindow.refreshes, 1);
  EXPECT_EQ(statusWindow.statusBarUpdates, 1);

  statusWindow.isMinimised = true;
  showPercentWhenMinimised();
  EXPECT_EQ(statusWindow.caption, "Scanning...66%");
  StatusFileNumber = 3;
  showPositionInStatusBar();
  EXPECT_EQ(statusWindow.caption, "Scanning...100%");
  EXPECT_EQ(statusWindow.refreshes, 1);
  EXPECT_EQ(statusWindow.statusBarUpdates, 1);
}

TEST_F(ScanStatusTest, EmptyListIsAt0Percent) {
  statusWindow.isMinimised = true;
  showPercentWhenMinimised();

  EXPECT_EQ(statusWindow.caption, "Scanning...0%");
}

}  // namespace
}  // namespace quernstoke
