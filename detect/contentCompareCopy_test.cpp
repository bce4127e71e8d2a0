#include "catalogue/dirTable.h"
#include "detect/contentCompareTest.h"
#include "detect/matchLoop.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using ContentFromCopyTest = ContentCompareTest;

TEST_F(ContentFromCopyTest, BlocksThatThePoolDoesNotTakeGoToALocalCopy) {
  makeGroupOfCopies("abc");
  EXPECT_EQ(compare(primary, secondary), 100);
  EXPECT_EQ(FileTable.FileLocalName[primary], copyA);
  EXPECT_EQ(FileTable.FileLocalName[secondary], copyB);
  EXPECT_EQ(disk.content(copyA), blocks("abc"));
  EXPECT_THAT(localRange(primary), ElementsAre(0, 2));

  EXPECT_EQ(compare(primary, third), 100);
  EXPECT_THAT(readCounters(), ElementsAre(9, 3, 0));
  EXPECT_EQ(timesOpened("C:\\d\\a"), 1);
  expectOnlyTheLogOpen();
}

TEST_F(ContentFromCopyTest, PoolIsAskedBeforeTheLocalCopy) {
  makeGroup({blocks("ab"), blocks("ab"), blocks("ab")});
  keepInPool(primary, blocks("ab"));
  giveLocalCopy(primary, blocks("XX"), 0, 1);
  EXPECT_EQ(compare(primary, secondary), 100);
  EXPECT_THAT(readCounters(), ElementsAre(2, 0, 2));
  EXPECT_EQ(timesOpened(copyA), 0);
}

TEST_F(ContentFromCopyTest, BlocksBeyondTheLocalCopyComeFromTheFileAndAreAppended) {
  makeGroup({blocks("abcd"), blocks("abXX"), blocks("abcd")});
  exhaustPool();
  LocalCopyActive = true;
  TempSpaceBudgetKB = 100;
  giveLocalCopy(primary, blocks("ab"), 0, 1);
  EXPECT_EQ(compare(primary, third), 100);
  EXPECT_THAT(positionsRead("C:\\d\\a"), ElementsAre(8, 12));
  EXPECT_EQ(disk.content(copyA), blocks("abcd"));
  EXPECT_THAT(localRange(primary), ElementsAre(0, 3));
}

TEST_F(ContentFromCopyTest, NoneIsMadeUnlessAskedFor) {
  makeGroupOfCopies("abc");
  LocalCopyActive = false;
  EXPECT_EQ(compare(), 100);
  EXPECT_THAT(disk.names(TempDir), IsEmpty());
}

TEST_F(ContentFromCopyTest, OneThatWasMadeIsReadInAGroupOfTwoToo) {
  makeGroup({blocks("ab"), blocks("ab")});
  giveLocalCopy(primary, blocks("ab"), 0, 1);
  EXPECT_EQ(compare(), 100);
  EXPECT_THAT(readCounters(), ElementsAre(2, 2, 0));
}

class TailBesideACopyTest : public ContentFromCopyTest,
                            public testing::WithParamInterface<std::vector<int>> {};

// The tail of a copy would be that of the blocks kept so far. Neither does the number that stands
// for a copy without blocks take it for block -1.
TEST_P(TailBesideACopyTest, TailIsReadFromTheFileItself) {
  makeGroup({"aaaabbbbcccc", ""});
  giveLocalCopy(primary, blocks("XYZ"), GetParam()[0], GetParam()[1]);
  std::vector<char> buffer;
  ComparedFile side(primary, buffer);
  bool readFailed = false;
  basCompareFileContentReadBlock(side, -1, readFailed, 1, FileCount);

  EXPECT_EQ(side.data, "bccc");
  EXPECT_FALSE(readFailed);
  EXPECT_THAT(readCounters(), ElementsAre(1, 0, 0));
  EXPECT_EQ(timesOpened(copyA), 0);
  EXPECT_THAT(positionsRead("C:\\d\\a"), ElementsAre(12 - 5));
}

INSTANTIATE_TEST_SUITE_P(Copies, TailBesideACopyTest,
                         testing::Values(std::vector{0, 2}, std::vector{1, 1},
                                         std::vector{-1, -1}));

// A copy is written from its start whatever the block, but read at the block's own place. It costs
// the match of two equal files.
TEST_F(ContentFromCopyTest, CopyThatDoesNotBeginWithBlockZeroIsReadAtTheWrongPlace) {
  allocateBlockPool(4, 1);
  makeGroup({blocks("abcd"), blocks("abcd"), blocks("abcd")});
  LocalCopyActive = true;
  TempSpaceBudgetKB = 100;
  TempFileCounter = 1;
  ASSERT_EQ(compare(primary, secondary), 100);
  EXPECT_EQ(FileTable.FileLocalName[primary], copyB);
  EXPECT_EQ(disk.content(copyB), blocks("bcd"));
  EXPECT_THAT(localRange(primary), ElementsAre(1, 3));

  EXPECT_EQ(compare(primary, third), 0);
  EXPECT_THAT(positionsRead(copyB), ElementsAre(4));
}

// Nothing would equal nothing, and two files that differ would be called duplicates.
TEST_F(ContentFromCopyTest, TwoCopiesThatEndTooEarlyMakeNoMatch) {
  makeGroup({blocks("ab"), blocks("ac"), blocks("zz")});
  keepInPool(primary, blocks("a"));
  keepInPool(secondary, blocks("a"));
  giveLocalCopy(primary, blocks("b"), 1, 1);
  giveLocalCopy(secondary, blocks("c"), 1, 1);

  EXPECT_EQ(compare(), 0);
  EXPECT_THAT(readCounters(), ElementsAre(0, 2, 2));
  // Neither when the pool has taken what was read.
  EXPECT_EQ(compare(), 0);
  EXPECT_THAT(readCounters(), ElementsAre(0, 2, 6));
}

// The pool is too small for the second blocks of the files that begin alike. Those of c to g go
// to copies, from which they are later read at a place that they don't have.
TEST_F(ContentFromCopyTest, FilesThatDifferAreNoMatchHoweverTheirCopiesAreRead) {
  allocateBlockPool(4, 7);
  ContentPercentLimit = 100;
  MatchByContent = true;
  CurrentMatchNum = -1;
  TempFileCounter = 1;
  LocalCopyActive = true;
  TempSpaceBudgetKB = 100;
  makeGroup({blocks("xa"), blocks("yb"), blocks("yc"), blocks("yd"), blocks("ye"), blocks("yf"),
             blocks("yg")});
  groupAll();
  basCompareFiles("SIZE");

  EXPECT_THAT(matchNumbers(), testing::Each(noMatch));
  EXPECT_GT(LocalReads, 0);
}

// A file that became shorter is as long as it is.
TEST_F(ContentFromCopyTest, FilesThatEndEarlyAreEqualFromThePoolToo) {
  makeGroup({blocks("ab"), blocks("ab"), blocks("ab")});
  for (const Int32 file : {primary, secondary})
    disk.file(pathOf(file), blocks("a"));
  EXPECT_EQ(compare(), 100);
  EXPECT_EQ(compare(), 100);
}

TEST_F(ContentFromCopyTest, HighestBlockRisesAndTheLowestStays) {
  makeGroupOfCopies("abcd");
  giveLocalCopy(primary, "", 2, 2);
  compare(primary, secondary);
  EXPECT_THAT(localRange(primary), ElementsAre(2, 3));
}

TEST_F(ContentFromCopyTest, BudgetMustNotBeReached) {
  allocateBlockPool(1024, 10);
  makeGroupOfCopies("abc");
  TempSpaceBudgetKB = 3;
  EXPECT_EQ(compare(), 100);
  EXPECT_EQ(TempUsedKB, 2);
  EXPECT_EQ(disk.content(copyA).size(), 1024U);
  EXPECT_EQ(disk.content(copyB).size(), 1024U);
  EXPECT_THAT(logLines(), IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ContentFromCopyTest, BudgetOfNothingStoresNothing) {
  makeGroupOfCopies("abc");
  TempSpaceBudgetKB = 0;
  EXPECT_EQ(compare(), 100);
  EXPECT_THAT(disk.names(TempDir), IsEmpty());
}

TEST_F(ContentFromCopyTest, BlocksBelowAKilobyteAreNeverCounted) {
  allocateBlockPool(1023, 10);
  makeGroupOfCopies("abc");
  TempSpaceBudgetKB = 1;
  compare();
  EXPECT_EQ(TempUsedKB, 0);
  EXPECT_EQ(disk.content(copyA), blocks("abc"));
}

TEST_F(ContentFromCopyTest, KilobytesOfABlockAreCutToWholeOnes) {
  allocateBlockPool(2047, 10);
  makeGroupOfCopies("abc");
  compare();
  EXPECT_EQ(TempUsedKB, 6);
}

TEST_F(ContentFromCopyTest, ShortLastBlockIsCountedWhole) {
  allocateBlockPool(1024, 10);
  makeGroupOfCopies("a");
  FileTable.FileSize[primary] = 1025;
  compare();
  EXPECT_EQ(TempUsedKB, 4);
}

TEST_F(ContentFromCopyTest, FailedWriteIsLoggedAndNotCounted) {
  allocateBlockPool(1024, 10);
  makeGroupOfCopies("ab");
  disk.failOn(DiskAction::write, copyA, FailureNumber::diskFull, 2);
  EXPECT_EQ(compare(), 100);
  EXPECT_THAT(logLines(), ElementsAre("Error writting to temp file " + copyA));
  EXPECT_EQ(TempUsedKB, 3);
  EXPECT_THAT(localRange(primary), ElementsAre(0, 0));
  EXPECT_THAT(localRange(secondary), ElementsAre(0, 1));
  EXPECT_EQ(stateOf(primary), normal);
}

TEST_F(ContentFromCopyTest, CopyThatCannotBeMadeDoesNotStopTheComparison) {
  makeGroupOfCopies("a");
  disk.failOn(DiskAction::open, copyA, FailureNumber::permissionDenied);
  EXPECT_EQ(compare(), 100);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basOpenTempFile", "Permission denied(70)")));
  EXPECT_THAT(logLines(), ElementsAre("Error writting to temp file " + copyA));
  EXPECT_THAT(localRange(primary), ElementsAre(-1, -1));
  expectOnlyTheLogOpen();
}

TEST_F(ContentFromCopyTest, LengthThatCannotBeReadIsLoggedOnly) {
  makeGroup({blocks("ab"), blocks("ab")});
  giveLocalCopy(primary, blocks("ab"), 0, 1);
  disk.failOn(DiskAction::length, copyA, FailureNumber::permissionDenied, 2);
  EXPECT_EQ(compare(), 100);
  EXPECT_THAT(logLines(), ElementsAre("Error getting file length from file " + copyA));
  EXPECT_EQ(LocalReads, 2);
}

TEST_F(ContentFromCopyTest, CopyThatIsGoneMakesItsFileUnreadable) {
  makeGroup({blocks("ab"), blocks("ab")});
  giveLocalCopy(primary, blocks("ab"), 0, 1);
  disk.erase(copyA);
  EXPECT_EQ(compare(), 0);
  EXPECT_THAT(logLines(), ElementsAre("Error getting file length from file " + copyA));
  EXPECT_EQ(stateOf(primary), unreadable);
  EXPECT_THAT(readCounters(), ElementsAre(0, 0, 0));
}

TEST_F(ContentFromCopyTest, FailedReadOfACopyIsCountedAndMakesItsFileUnreadable) {
  makeGroup({blocks("abcde"), blocks("abcde")});
  giveLocalCopy(secondary, blocks("abcde"), 0, 4);
  disk.failOn(DiskAction::read, copyA, FailureNumber::deviceError, 5);
  EXPECT_EQ(compare(), 60);
  EXPECT_THAT(logLines(), ElementsAre("Error reading from file " + copyA));
  EXPECT_EQ(stateOf(secondary), unreadable);
  EXPECT_THAT(readCounters(), ElementsAre(5, 5, 0));
  expectOnlyTheLogOpen();
}

// Entries of zip files.

class ContentOfZipEntryTest : public ContentCompareTest {
 protected:
  // Moves a file of the group into a folder of an archive that isn't there.
  static void makeEntryOf(Int32 file, const std::string& folder = "in") {
    bool existed = false;
    const Int32 archive = basAddDirToList("C:\\d\\gone.zip", dirKind::zipFile, 1, existed);
    FileTable.FileDirNum[file] = basAddDirToList(folder, dirKind::zipFolder, archive, existed);
  }
};

TEST_F(ContentOfZipEntryTest, EntryThatCannotBeExtractedIsUnreadable) {
  makeGroup({blocks("a"), blocks("a")});
  makeEntryOf(primary);
  EXPECT_EQ(compare(), 0);
  EXPECT_EQ(stateOf(primary), unreadable);
  EXPECT_EQ(FileTable.FileLocalName[primary], "");
  EXPECT_THAT(positionsRead("C:\\d\\b"), IsEmpty());
}

// An extracted entry counts as a local copy without blocks, and its own path is none of the disk's.
TEST_F(ContentOfZipEntryTest, ExtractedEntryIsUnreadableAllTheSame) {
  makeGroup({blocks("a"), blocks("a")});
  makeEntryOf(secondary);
  giveLocalCopy(secondary, blocks("a"), -1, -1);
  EXPECT_EQ(compare(), 0);
  EXPECT_EQ(stateOf(secondary), unreadable);
  EXPECT_EQ(timesOpened(copyA), 0);
}

TEST_F(ContentOfZipEntryTest, EntryIsNotMistakenForAFileOfItsPath) {
  makeGroup({blocks("a"), blocks("a")});
  disk.file("C:\\other\\b", blocks("a"));
  makeEntryOf(secondary, "C:\\other");
  giveLocalCopy(secondary, blocks("a"), -1, -1);
  EXPECT_EQ(compare(), 0);
  EXPECT_EQ(stateOf(secondary), unreadable);
  EXPECT_EQ(timesOpened("C:\\other\\b"), 0);
}

TEST_F(ContentOfZipEntryTest, EntryIsExtractedOnceAndItsCopyNoted) {
  makeGroup({blocks("a"), blocks("a")});
  makeEntryOf(secondary, "docs/old");
  archiveLibrary.contents["C:\\d\\gone.zip"] = {{"docs/old/b", blocks("a")}};
  TempSpaceBudgetKB = 100;
  compare();
  EXPECT_EQ(FileTable.FileLocalName[secondary],
            "C:\\Quernstoke\\Temp\\TMP" + std::to_string(TempFileCounter.raw() - 1));
  EXPECT_EQ(disk.content(std::string(FileTable.FileLocalName[secondary])), blocks("a"));
  compare();
  EXPECT_EQ(archiveLibrary.calls.size(), 1U);
}

// Rows that a growing table added say of block 0 that it is in the copy.
TEST_F(ContentOfZipEntryTest, EntryOfOneBlockInAnAddedRowIsComparedFromItsCopy) {
  makeGroup({blocks("a"), blocks("a")});
  makeEntryOf(secondary);
  giveLocalCopy(secondary, blocks("a"), 0, 0);
  EXPECT_EQ(compare(), 100);
}

TEST_F(ContentOfZipEntryTest, EntryOfOneBlockInAnAddedRowIsExtractedAndCompared) {
  makeGroup({blocks("a"), blocks("a")});
  makeEntryOf(secondary);
  FileTable.FileLocalPos[localPosLowest][secondary] = 0;
  FileTable.FileLocalPos[localPosHighest][secondary] = 0;
  archiveLibrary.contents["C:\\d\\gone.zip"] = {{"in/b", blocks("a")}};
  TempSpaceBudgetKB = 100;
  TempFileCounter = 1;
  EXPECT_EQ(compare(), 100);
  EXPECT_EQ(FileTable.FileLocalName[secondary], copyA);
  EXPECT_EQ(stateOf(secondary), normal);
  EXPECT_THAT(readCounters(), ElementsAre(1, 1, 0));
}

TEST_F(ContentOfZipEntryTest, LongerEntryInAnAddedRowIsUnreadable) {
  makeGroup({blocks("ab"), blocks("ab")});
  makeEntryOf(secondary);
  giveLocalCopy(secondary, blocks("ab"), 0, 0);
  EXPECT_EQ(compare(), 0);
  EXPECT_EQ(stateOf(secondary), unreadable);
  EXPECT_EQ(LocalReads, 1);
}

}  // namespace
}  // namespace quernstoke
