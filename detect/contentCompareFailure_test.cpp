#include <tuple>

#include "catalogue/dirTable.h"
#include "detect/contentCompareTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ContentFailingReadTest : public ContentCompareTest,
                               public testing::WithParamInterface<std::tuple<int, int>> {};

TEST_P(ContentFailingReadTest, StopsThePairAndMarksTheFile) {
  const auto [broken, block] = GetParam();
  const int other = primary + secondary - broken;
  makeGroup({blocks("01234"), blocks("01234")});
  disk.failOn(DiskAction::read, pathOf(broken), FailureNumber::deviceError, block + 1);

  // The blocks before it count as those before a difference: 3 of 5 at the last.
  EXPECT_EQ(compare(), block == 4 ? 60 : 0);
  EXPECT_EQ(stateOf(broken), unreadable);
  EXPECT_EQ(stateOf(other), normal);
  EXPECT_THAT(logLines(), ElementsAre("Error reading from file " + pathOf(broken)));
  EXPECT_EQ(disk.count(DiskAction::read, "C:\\d\\a"), block + 1);
  EXPECT_EQ(disk.count(DiskAction::read, "C:\\d\\b"), broken == primary ? block : block + 1);
  EXPECT_THAT(readCounters(), ElementsAre(broken == primary ? 2 * block + 1 : 2 * block + 2, 0, 0));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  expectOnlyTheLogOpen();
}

INSTANTIATE_TEST_SUITE_P(AnyBlockOfEitherFile, ContentFailingReadTest,
                         testing::Combine(testing::Values(primary, secondary),
                                          testing::Range(0, 5)));

using ContentFailureTest = ContentCompareTest;

TEST_F(ContentFailureTest, FailedBlockIsNotKept) {
  makeGroup({blocks("ab"), blocks("ab"), blocks("ab")});
  LocalCopyActive = true;
  TempSpaceBudgetKB = 100;
  disk.failOn(DiskAction::read, "C:\\d\\a", FailureNumber::deviceError);
  compare();
  EXPECT_EQ(FileTable.FileStatus[statusChain][primary], noChain);
  EXPECT_THAT(disk.names(TempDir), IsEmpty());
}

TEST_F(ContentFailureTest, FailedReadOfTheTailStopsThePair) {
  makeGroup({differentBlocks(60), differentBlocks(60)});
  disk.failOn(DiskAction::read, "C:\\d\\b", FailureNumber::deviceError, 51);
  EXPECT_EQ(compare(), 82);  // 49 of 60.
  EXPECT_EQ(stateOf(secondary), unreadable);
  EXPECT_THAT(logLines(), ElementsAre("Error reading from file C:\\d\\b"));
}

TEST_F(ContentFailureTest, PrimaryThatVanishedIsMarkedSilently) {
  makeGroup({blocks("ab"), blocks("ab")});
  disk.erase("C:\\d\\a");
  EXPECT_EQ(compare(), 0);
  EXPECT_EQ(stateOf(primary), unreadable);
  EXPECT_EQ(stateOf(secondary), normal);
  EXPECT_EQ(timesOpened("C:\\d\\b"), 0);
  EXPECT_THAT(readCounters(), ElementsAre(0, 0, 0));
  EXPECT_THAT(logLines(), IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ContentFailureTest, SecondaryThatVanishedIsMarkedSilently) {
  makeGroup({blocks("ab"), blocks("ab")});
  disk.erase("C:\\d\\b");
  EXPECT_EQ(compare(), 0);
  EXPECT_EQ(stateOf(primary), normal);
  EXPECT_EQ(stateOf(secondary), unreadable);
  EXPECT_THAT(readCounters(), ElementsAre(1, 0, 0));
  EXPECT_THAT(logLines(), IsEmpty());
  expectOnlyTheLogOpen();
}

TEST_F(ContentFailureTest, FileThatMayNotBeOpenedIsMarkedSilently) {
  makeGroup({blocks("ab"), blocks("ab")});
  disk.failOn(DiskAction::open, "C:\\d\\b", FailureNumber::permissionDenied);
  EXPECT_EQ(compare(), 0);
  EXPECT_EQ(stateOf(secondary), unreadable);
  EXPECT_THAT(logLines(), IsEmpty());
}

// A list of directories that was cut off leaves rows without a name.
TEST_F(ContentFailureTest, FileOfANamelessDirectoryIsNotLookedForInTheRoot) {
  makeGroup({blocks("ab"), blocks("ab")});
  DirTable.set(FileTable.FileDirNum[primary], {});
  disk.calls.clear();
  EXPECT_EQ(compare(), 0);
  EXPECT_EQ(stateOf(primary), unreadable);
  EXPECT_THAT(disk.calls, IsEmpty());
}

TEST_F(ContentFailureTest, FileThatVanishesBetweenPairsIsMissedOnlyBeyondThePool) {
  makeGroup({blocks("ab"), blocks("ab"), blocks("ab")});
  compare(primary, secondary);
  disk.erase("C:\\d\\a");
  EXPECT_EQ(compare(primary, third), 100);
  EXPECT_EQ(stateOf(primary), normal);

  exhaustPool();
  FileTable.FileStatus[statusChain][primary] = noChain;
  EXPECT_EQ(compare(primary, third), 0);
  EXPECT_EQ(stateOf(primary), unreadable);
}

TEST_F(ContentFailureTest, OtherFaultIsShownAndLeavesTheFileUnmarked) {
  makeGroup({blocks("ab"), blocks("ab")});
  disk.failOn(DiskAction::seek, "C:\\d\\a", FailureNumber::deviceError);
  EXPECT_EQ(compare(), 0);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("basCompareFileContentReadBlock",
                                                               "Device I/O error(57)")));
  EXPECT_EQ(stateOf(primary), normal);
  expectOnlyTheLogOpen();
}

// Nothing was read of either, and nothing is no content in common.
TEST_F(ContentFailureTest, TwoFilesThatBothFailUnexpectedlyDoNotMatch) {
  makeGroup({blocks("ab"), blocks("ab")});
  disk.failOn(DiskAction::seek, "C:\\d\\a", FailureNumber::deviceError);
  disk.failOn(DiskAction::seek, "C:\\d\\b", FailureNumber::deviceError);
  EXPECT_EQ(compare(), 0);
}

TEST_F(ContentFailureTest, OpeningGivesNoHandleForAMissingFile) {
  EXPECT_EQ(basCompareFileContentOpenFile("C:\\d\\none", OpenMode::sharedBinary), -1);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

}  // namespace
}  // namespace quernstoke
