#include "detect/contentCompare.h"

#include "detect/contentCompareTest.h"

namespace quernstoke {
namespace {

using testing::AnyOf;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(ContentCompareTest, EqualFilesAreEqualAltogether) {
  EXPECT_EQ(comparePair(blocks("abc") + "d", blocks("abc") + "d"), 100);
  EXPECT_THAT(readCounters(), ElementsAre(8, 0, 0));
  expectOnlyTheLogOpen();
}

TEST_F(ContentCompareTest, FilesWithoutContentAreEqualUnopened) {
  EXPECT_EQ(comparePair("", "abc"), 100);
  EXPECT_EQ(timesOpened("C:\\d\\a") + timesOpened("C:\\d\\b"), 0);
}

TEST_F(ContentCompareTest, DifferenceInTheOnlyBlockGivesNothing) {
  EXPECT_EQ(comparePair("abcd", "abce"), 0);
}

TEST_F(ContentCompareTest, DifferenceInTheFirstBlockGivesNothingWhateverThePassMark) {
  ContentPercentLimit = 0;
  EXPECT_EQ(comparePair(blocks("abcd"), blocks("Xbcd")), 0);
  EXPECT_THAT(positionsRead("C:\\d\\a"), ElementsAre(0));
}

TEST_F(ContentCompareTest, PercentageIsTheStartOfTheLastEqualBlock) {
  EXPECT_EQ(comparePair(blocks("0123456789"), blocks("0123456X89")), 60);
  EXPECT_THAT(positionsRead("C:\\d\\b"), ElementsAre(0, 4, 8, 12, 16, 20, 24, 28));
}

TEST_F(ContentCompareTest, LittleInCommonGivesNothing) {
  EXPECT_EQ(comparePair(blocks("0123456789AB"), blocks("012345X789AB")), 0);  // 41 percent.
}

// The caller takes a pair that reaches the mark, but the mark itself is not given as a result.
TEST_F(ContentCompareTest, ExactlyThePassMarkGivesNothing) {
  EXPECT_EQ(comparePair(blocks("0123456789"), blocks("012345X789")), 0);
}

// 4 of 6 is 66.67 percent.
TEST_F(ContentCompareTest, PercentageIsCutForThePassMarkAndRoundedForTheResult) {
  ContentPercentLimit = 65;
  EXPECT_EQ(comparePair(blocks("012345"), blocks("01234X")), 67);
  ContentPercentLimit = 66;
  EXPECT_EQ(compare(), 0);
}

TEST_F(ContentCompareTest, ReadingGoesOnBeyondThePassMark) {
  comparePair(blocks("0123456789"), blocks("0123456789"));
  EXPECT_THAT(positionsRead("C:\\d\\a"), SizeIs(10));
}

TEST_F(ContentCompareTest, EveryByteCountsAsItIs) {
  EXPECT_EQ(comparePair("abcd", "abcD"), 0);
  EXPECT_EQ(comparePair({"a\0b", 3}, {"a\0c", 3}), 0);
  EXPECT_EQ(comparePair("\xFF\xFE", "\xFF\xFD"), 0);
}

TEST_F(ContentCompareTest, LongerSecondaryIsComparedOverTheLengthOfThePrimary) {
  EXPECT_EQ(comparePair(blocks("ab"), blocks("abcd")), 100);
}

TEST_F(ContentCompareTest, LongerSecondaryDiffersWithinTheLastShortBlock) {
  ContentPercentLimit = 10;
  EXPECT_EQ(comparePair("aaaabbbbcc", "aaaabbbbccc"), 40);
}

TEST_F(ContentCompareTest, ShorterSecondaryDiffersWhereItEnds) {
  ContentPercentLimit = 10;
  EXPECT_EQ(comparePair(blocks("abc"), blocks("ab")), 33);
}

TEST_F(ContentCompareTest, RecordedSizeOfTheSecondaryPlaysNoPart) {
  makeGroup({blocks("ab"), blocks("ab")});
  FileTable.FileSize[secondary] = 0;
  EXPECT_EQ(compare(), 100);
  EXPECT_THAT(positionsRead("C:\\d\\b"), ElementsAre(0, 4));
}

TEST_F(ContentCompareTest, BytesPastTheEndTakeNoPart) {
  ASSERT_EQ(comparePair("aaaabb", "aaaabb"), 100);  // Leaves "bb" in the read buffers.
  EXPECT_EQ(comparePair("aaaabb", "aaaab"), 0);
}

TEST_F(ContentCompareTest, FileThatShrankIsComparedAsFarAsItGoes) {
  ContentPercentLimit = 10;
  makeGroup({blocks("abcd"), blocks("abcd")});
  disk.file("C:\\d\\b", blocks("ab") + "c");
  EXPECT_EQ(compare(), 25);
  EXPECT_EQ(stateOf(secondary), normal);
  EXPECT_THAT(logLines(), IsEmpty());
}

TEST_F(ContentCompareTest, WhatGrewOntoAFileIsLeftOut) {
  makeGroup({blocks("abcd"), blocks("abcd")});
  disk.file("C:\\d\\a", blocks("abcde"));
  disk.file("C:\\d\\b", blocks("abcdX"));
  EXPECT_EQ(compare(), 100);
  EXPECT_THAT(positionsRead("C:\\d\\a"), SizeIs(4));
}

TEST_F(ContentCompareTest, SmallestBlockWorks) {
  allocateBlockPool(1, 10);
  EXPECT_EQ(comparePair("0123456789", "0123456X89"), 60);
}

TEST_F(ContentCompareTest, FilesOfAUserAreOpenedForSharedReadingAlone) {
  makeGroupOfCopies("abcd");
  disk.setAttributes("C:\\d\\a", attributeReadOnly);
  compare(primary, secondary);
  compare(primary, third);

  for (const DiskCall& call : disk.calls) {
    if (!call.path.starts_with("C:\\d")) continue;
    EXPECT_THAT(call.action,
                AnyOf(DiskAction::open, DiskAction::seek, DiskAction::read, DiskAction::close));
  }
  for (const char* path : {"C:\\d\\a", "C:\\d\\b", "C:\\d\\c"})
    EXPECT_THAT(modesOpened(path), Each(OpenMode::sharedBinary));
  EXPECT_THAT(modesOpened(copyA), ElementsAre(OpenMode::binary, OpenMode::update));
}

TEST_F(ContentCompareTest, EveryPairOpensItsFilesAnew) {
  makeGroup({blocks("ab"), blocks("ab")});
  compare();
  compare();
  EXPECT_EQ(timesOpened("C:\\d\\a"), 2);
  EXPECT_EQ(timesOpened("C:\\d\\b"), 2);
}

TEST_F(ContentCompareTest, PairUsesNeitherPoolNorLocalCopy) {
  makeGroup({blocks("abc"), blocks("abc")});
  LocalCopyActive = true;
  TempSpaceBudgetKB = 100;
  keepInPool(primary, blocks("xyz"));
  EXPECT_EQ(compare(), 100);
  EXPECT_THAT(readCounters(), ElementsAre(6, 0, 0));
  EXPECT_EQ(FileTable.FileStatus[statusChain][secondary], noChain);
  EXPECT_THAT(disk.names(TempDir), IsEmpty());
}

// Positions are 32-bit numbers.

class ContentOfHugeFileTest : public ContentCompareTest {
 protected:
  ContentOfHugeFileTest() { BlockSize = 1 << 20; }

  void makeEmptyFilesOfSize(int size) {
    makeGroup({"", ""});
    for (const char* path : {"C:\\d\\a", "C:\\d\\b"})
      disk.emptyFileOfLength(path, size);
    FileTable.FileSize[primary] = size;
  }
};

TEST_F(ContentOfHugeFileTest, PositionBehindTheLastBlockOfNearlyTwoGigabytesOverflows) {
  makeEmptyFilesOfSize(INT32_MAX);
  EXPECT_EQ(compare(), 0);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basCompareFileContent", "Overflow(6)")));
  EXPECT_EQ(disk.count(DiskAction::read, "C:\\d\\a"), 2048);
  expectOnlyTheLogOpen();
}

TEST_F(ContentOfHugeFileTest, OneBlockLessIsComparedToItsEnd) {
  makeEmptyFilesOfSize(2047 << 20);
  EXPECT_EQ(compare(), 100);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

}  // namespace
}  // namespace quernstoke
