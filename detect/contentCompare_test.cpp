#include "detect/contentCompare.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/log.h"
#include "core/modMain.h"
#include "core/scanState.h"
#include "detect/modLinkedList.h"
#include "detect/tempStore.h"
#include "progress/scanStatus.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::AnyOf;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr int primary = 1;
constexpr int secondary = 2;
constexpr int third = 3;
constexpr int normal = fileState::normal;
constexpr int unreadable = fileState::unreadable;

// A text with each of its characters made a whole block.
std::string blocks(std::string_view letters) {
  std::string text;
  for (const char letter : letters)
    text.append(static_cast<std::size_t>(BlockSize.raw()), letter);
  return text;
}

// So many blocks, each different from all others.
std::string differentBlocks(int count) {
  std::string letters;
  for (int block = 0; block < count; ++block)
    letters += static_cast<char>('!' + block);
  return blocks(letters);
}

std::string withChangedByte(std::string text, std::size_t fromEnd) {
  text[text.size() - fromEnd] = '\n';
  return text;
}

int stateOf(Int32 file) {
  return FileTable.FileStatus[statusState][file].raw();
}

std::vector<int> localRange(Int32 file) {
  return {FileTable.FileLocalPos[localPosLowest][file].raw(),
          FileTable.FileLocalPos[localPosHighest][file].raw()};
}

std::string pathOf(Int32 file) {
  return "C:\\d\\" + std::string(FileTable.FileName[file]);
}

// As if all slots were taken.
void exhaustPool() {
  BlockPoolNext[BlockPoolCount + 1] = -1;
}

void keepInPool(Int32 file, std::string_view content) {
  const auto length = static_cast<std::size_t>(BlockSize.raw());
  for (Int32 block = 0; !content.empty(); ++block) {
    ASSERT_NE(basLLWriteBuffer(file, file, block, content.substr(0, length)), -1);
    content.remove_prefix(length);
  }
}

class ContentCompareTest : public EngineTest {
 protected:
  ContentCompareTest() {
    openLog();
    allocateBlockPool(4, 200);
    ContentPercentLimit = 50;
  }

  // Makes these files, named "a", "b"... in the directory C:\d, the one group of the catalogue.
  void makeGroup(const std::vector<std::string>& contents) {
    std::vector<CatalogueFile> rows;
    for (const std::string& content : contents) {
      const std::string name(1, static_cast<char>('a' + rows.size()));
      disk.file("C:\\d\\" + name, content);
      rows.push_back({name, "C:\\d", static_cast<int>(content.size())});
    }
    buildCatalogue(rows);
    basLLInitializeBuffer(1, FileCount, BlockPoolCount, FileCount);
  }

  // A group of three equal files that finds no room in the pool, so that local copies are made.
  void makeGroupOfCopies(std::string_view letters) {
    makeGroup({blocks(letters), blocks(letters), blocks(letters)});
    exhaustPool();
    LocalCopyActive = true;
    TempSpaceBudgetKB = 100;
    TempFileCounter = 1;
  }

  // Gives a file a local copy of this content, as an earlier pair would have left it.
  void giveLocalCopy(Int32 file, const std::string& content, int lowest, int highest) {
    disk.file(copyA, content);
    FileTable.FileLocalName.set(file, copyA);
    FileTable.FileLocalPos[localPosLowest][file] = lowest;
    FileTable.FileLocalPos[localPosHighest][file] = highest;
  }

  static int compare(Int32 one = primary, Int32 other = secondary) {
    return basCompareFileContent(one, other, 1, FileCount).raw();
  }

  int comparePair(const std::string& one, const std::string& other) {
    makeGroup({one, other});
    return compare();
  }

  std::vector<std::int64_t> positionsRead(const std::string& path) const {
    std::vector<std::int64_t> positions;
    for (const DiskCall& call : disk.calls)
      if (call.action == DiskAction::read && call.path == path) positions.push_back(call.position);
    return positions;
  }

  std::vector<OpenMode> modesOpened(const std::string& path) const {
    std::vector<OpenMode> modes;
    for (const DiskCall& call : disk.calls)
      if (call.action == DiskAction::open && call.path == path) modes.push_back(call.mode);
    return modes;
  }

  int timesOpened(const std::string& path) const { return disk.count(DiskAction::open, path); }

  // Actual reads, local reads and reads from the pool.
  static std::vector<int> readCounters() {
    return {ActualReads.raw(), LocalReads.raw(), BufferReads.raw()};
  }

  void expectOnlyTheLogOpen() const { EXPECT_EQ(disk.openFiles(), 1); }

  const std::string copyA = TempDir + "\\TMP1";
  const std::string copyB = TempDir + "\\TMP2";
};

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

// The tail. Blocks 0 to 49 have been read when it comes up.

using ContentTailTest = ContentCompareTest;

std::vector<std::int64_t> blockStarts(int first, int last) {
  std::vector<std::int64_t> starts;
  for (int block = first; block <= last; ++block)
    starts.push_back(std::int64_t{block} * BlockSize.raw());
  return starts;
}

// The tail starts a byte early and ends a byte early, and the blocks behind it lag by one.
TEST_F(ContentTailTest, TailComesUpOnceAndTheBlocksBehindItLag) {
  EXPECT_EQ(comparePair(differentBlocks(53), differentBlocks(53)), 100);
  std::vector<std::int64_t> expected = blockStarts(0, 49);
  for (const std::int64_t position : {212 - 5, 200, 204})
    expected.push_back(position);
  EXPECT_EQ(positionsRead("C:\\d\\a"), expected);
  EXPECT_EQ(positionsRead("C:\\d\\b"), expected);
  EXPECT_THAT(readCounters(), ElementsAre(106, 0, 0));
}

TEST_F(ContentTailTest, FiftyOneBlocksHaveTheirTailReadAsTheLast) {
  EXPECT_EQ(comparePair(differentBlocks(51), differentBlocks(51)), 100);
  EXPECT_EQ(positionsRead("C:\\d\\a").back(), 204 - 5);
}

TEST_F(ContentTailTest, FiftyBlocksAreReadStraightOn) {
  EXPECT_EQ(comparePair(differentBlocks(50), withChangedByte(differentBlocks(50), 1)), 96);
  EXPECT_EQ(positionsRead("C:\\d\\a"), blockStarts(0, 49));
}

// The price of the early look at the end.
TEST_F(ContentTailTest, DifferenceInTheLastByteAloneGoesUnseen) {
  EXPECT_EQ(comparePair(differentBlocks(53), withChangedByte(differentBlocks(53), 1)), 100);
}

TEST_F(ContentTailTest, DifferenceBeforeTheLastByteIsSeenAtOnce) {
  EXPECT_EQ(comparePair(differentBlocks(100), withChangedByte(differentBlocks(100), 2)), 0);
  EXPECT_THAT(positionsRead("C:\\d\\a"), SizeIs(51));
}

// Equal tails are counted at the place that the comparison had come to.
TEST_F(ContentTailTest, DifferenceBehindTheTailCountsOneBlockLate) {
  const std::string content = differentBlocks(90);
  std::string changed = content;
  changed[240] = '\n';
  EXPECT_EQ(comparePair(content, changed), 67);  // Found as block 61; 60 of 90.
}

TEST_F(ContentTailTest, EndsOfTheirOwnAreLookedAtInFilesOfDifferentLength) {
  comparePair(differentBlocks(51), differentBlocks(60));
  EXPECT_EQ(positionsRead("C:\\d\\a").back(), 204 - 5);
  EXPECT_EQ(positionsRead("C:\\d\\b").back(), 240 - 5);
}

TEST_F(ContentTailTest, NoTailIsReadWhileOneSideComesFromThePool) {
  const std::string content = differentBlocks(53);
  makeGroup({content, content, withChangedByte(content, 1)});
  keepInPool(primary, content);
  EXPECT_EQ(compare(primary, third), 96);  // The last of 53 blocks differs: 51 of 53.
  EXPECT_EQ(positionsRead("C:\\d\\c"), blockStarts(0, 52));
}

TEST_F(ContentTailTest, NoTailIsReadWhileTheOtherSideComesFromThePool) {
  const std::string content = differentBlocks(53);
  makeGroup({content, content, content});
  keepInPool(secondary, content);

  EXPECT_EQ(compare(primary, secondary), 100);
  EXPECT_EQ(positionsRead("C:\\d\\a"), blockStarts(0, 52));
}

TEST_F(ContentTailTest, TailIsReadAsSoonAsBothFilesThemselvesAreRead) {
  const std::string content = differentBlocks(60);
  makeGroup({content, content, content});
  keepInPool(primary, differentBlocks(53));

  EXPECT_EQ(compare(primary, secondary), 100);
  EXPECT_THAT(positionsRead("C:\\d\\a"),
              ElementsAre(53 * 4, 240 - 5, 54 * 4, 55 * 4, 56 * 4, 57 * 4, 58 * 4));
}

TEST_F(ContentTailTest, TailIsKeptNowhere) {
  const std::string content = differentBlocks(51);
  makeGroup({content, content, content});
  LocalCopyActive = true;
  TempSpaceBudgetKB = 100;
  compare(primary, secondary);

  std::string_view data;
  EXPECT_NE(basLLReadData(primary, 1, 49, data), -1);
  EXPECT_EQ(basLLReadData(primary, 1, 50, data), -1);
  EXPECT_THAT(disk.names(TempDir), IsEmpty());
}

// The block behind the tail is no successor of those in the pool.
TEST_F(ContentTailTest, LaggingBlocksAreNotKeptInThePool) {
  const std::string content = differentBlocks(53);
  makeGroup({content, content, content});
  compare(primary, secondary);
  std::string_view data;
  EXPECT_EQ(basLLReadData(primary, 1, 50, data), -1);
}

TEST_F(ContentTailTest, TailOfAFileThatShrankBelowABlockIsAnUnexpectedFailure) {
  makeGroup({differentBlocks(51), differentBlocks(51)});
  disk.file("C:\\d\\a", "abcd");
  disk.file("C:\\d\\b", "abcd");
  compare();
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Procedure error in 'basCompareFileContentReadBlock'.  Reason: "
                          "Invalid procedure call or argument(5).",
                          "Procedure error in 'basCompareFileContentReadBlock'.  Reason: "
                          "Invalid procedure call or argument(5)."));
  expectOnlyTheLogOpen();
}

// The pool.

using ContentFromPoolTest = ContentCompareTest;

TEST_F(ContentFromPoolTest, SecondPairTakesThePrimaryFromThePool) {
  makeGroup({blocks("abc"), blocks("abc"), blocks("abc")});
  EXPECT_EQ(compare(primary, secondary), 100);
  EXPECT_THAT(readCounters(), ElementsAre(6, 0, 0));
  EXPECT_EQ(compare(primary, third), 100);
  EXPECT_THAT(readCounters(), ElementsAre(9, 0, 3));
  EXPECT_EQ(compare(secondary, third), 100);
  EXPECT_THAT(readCounters(), ElementsAre(9, 0, 9));
  EXPECT_EQ(timesOpened("C:\\d\\a"), 1);
}

TEST_F(ContentFromPoolTest, BlocksOfBothFilesAreKeptInTurn) {
  makeGroup({blocks("ab"), blocks("aX"), blocks("ab")});
  compare(primary, secondary);
  const std::vector<std::string> kept = {blocks("a"), blocks("a"), blocks("b"), blocks("X")};
  for (std::size_t slot = 0; slot < kept.size(); ++slot)
    EXPECT_EQ(BlockPoolData[slot + 1], kept[slot]);
}

TEST_F(ContentFromPoolTest, FileIsOpenedAtTheFirstBlockThatThePoolLacks) {
  allocateBlockPool(4, 3);
  makeGroup({blocks("abcd"), blocks("abcd"), blocks("abcd")});
  compare(primary, secondary);  // Keeps the blocks a, b of the primary and a of the secondary.
  disk.calls.clear();
  EXPECT_EQ(compare(primary, third), 100);
  EXPECT_EQ(BufferReads, 2);
  EXPECT_THAT(positionsRead("C:\\d\\a"), ElementsAre(8, 12));
  EXPECT_THAT(positionsRead("C:\\d\\c"), ElementsAre(0, 4, 8, 12));
}

TEST_F(ContentFromPoolTest, PoolIsLeftAloneOnceTheFileItselfIsOpen) {
  makeGroup({blocks("abcd"), blocks("abcd"), blocks("abcd")});
  keepInPool(primary, blocks("xy"));
  std::vector<char> buffer;
  ComparedFile side(primary, buffer);
  bool readFailed = false;
  basCompareFileContentReadBlock(side, 2, readFailed, 1, 3);
  EXPECT_EQ(side.data, "cccc");
  basCompareFileContentReadBlock(side, 1, readFailed, 1, 3);
  EXPECT_EQ(side.data, "dddd");  // Where the file stood.
  EXPECT_THAT(readCounters(), ElementsAre(2, 0, 0));
  EXPECT_FALSE(readFailed);
}

TEST_F(ContentFromPoolTest, TailIsLookedUpInThePoolByItsBlock) {
  makeGroup({blocks("abc"), blocks("abc"), blocks("abc")});
  keepInPool(primary, blocks("abc"));
  std::vector<char> buffer;
  ComparedFile side(primary, buffer);
  bool readFailed = false;
  basCompareFileContentReadBlock(side, -2, readFailed, 1, 3);
  EXPECT_EQ(side.data, "cccc");
}

TEST_F(ContentFromPoolTest, TwoFilesLeftOfAGroupNoLongerUseThePool) {
  makeGroup({blocks("abc"), blocks("abc"), blocks("abc")});
  compare(primary, secondary);
  EXPECT_EQ(basCompareFileContent(secondary, third, 1, 2), 100);
  EXPECT_THAT(readCounters(), ElementsAre(12, 0, 0));
}

TEST_F(ContentFromPoolTest, BlockFromALocalCopyIsKeptToo) {
  makeGroup({blocks("ab"), blocks("ab"), blocks("ab")});
  giveLocalCopy(primary, blocks("ab"), 0, 1);
  compare(primary, secondary);
  compare(primary, third);
  EXPECT_THAT(readCounters(), ElementsAre(4, 2, 2));
}

// Local copies.

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
              ElementsAre("Procedure error in 'basOpenTempFile'.  Reason: Permission denied(70)."));
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

// Rows that a growing table added say of block 0 that it is in the copy.
TEST_F(ContentOfZipEntryTest, EntryOfOneBlockInAnAddedRowIsComparedFromItsCopy) {
  makeGroup({blocks("a"), blocks("a")});
  makeEntryOf(secondary);
  giveLocalCopy(secondary, blocks("a"), 0, 0);
  EXPECT_EQ(compare(), 100);
}

TEST_F(ContentOfZipEntryTest, LongerEntryInAnAddedRowIsUnreadable) {
  makeGroup({blocks("ab"), blocks("ab")});
  makeEntryOf(secondary);
  giveLocalCopy(secondary, blocks("ab"), 0, 0);
  EXPECT_EQ(compare(), 0);
  EXPECT_EQ(stateOf(secondary), unreadable);
  EXPECT_EQ(LocalReads, 1);
}

// Failures.

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
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Procedure error in 'basCompareFileContentReadBlock'.  Reason: "
                          "Device I/O error(57)."));
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
              ElementsAre("Procedure error in 'basCompareFileContent'.  Reason: Overflow(6)."));
  EXPECT_EQ(disk.count(DiskAction::read, "C:\\d\\a"), 2048);
  expectOnlyTheLogOpen();
}

TEST_F(ContentOfHugeFileTest, OneBlockLessIsComparedToItsEnd) {
  makeEmptyFilesOfSize(2047 << 20);
  EXPECT_EQ(compare(), 100);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// What the window is told.

using ContentStatusTest = ContentCompareTest;

TEST_F(ContentStatusTest, ShortComparisonNeitherReportsNorYields) {
  comparePair(differentBlocks(9), differentBlocks(9));
  EXPECT_THAT(statusWindow.statusTexts, IsEmpty());
  EXPECT_EQ(eventLoop.yields, 0);
}

TEST_F(ContentStatusTest, TenBlocksAreReportedAtTheEnd) {
  comparePair(differentBlocks(10), differentBlocks(10));
  EXPECT_THAT(statusWindow.statusTexts, ElementsAre("Scanning duplicates..."));
  EXPECT_EQ(eventLoop.yields, 1);
}

TEST_F(ContentStatusTest, LongComparisonNamesItsFileAtTheEleventhBlock) {
  int readsSeen = 0;
  eventLoop.onYield = [&] {
    if (eventLoop.yields == 1) readsSeen = ActualReads.raw();
  };
  comparePair(differentBlocks(60), differentBlocks(60));
  EXPECT_THAT(statusWindow.statusTexts,
              ElementsAre("Checking a  [ Size 240 ]", "Scanning duplicates..."));
  EXPECT_EQ(readsSeen, 20);
  EXPECT_EQ(eventLoop.yields, 2);
  EXPECT_THAT(statusWindow.labels, IsEmpty());
}

TEST_F(ContentStatusTest, DifferenceInTheEleventhBlockIsReportedToo) {
  comparePair(differentBlocks(11), withChangedByte(differentBlocks(11), 1));
  EXPECT_THAT(statusWindow.statusTexts, SizeIs(2));
}

TEST_F(ContentStatusTest, DifferenceInTheTenthBlockIsNot) {
  comparePair(differentBlocks(10), withChangedByte(differentBlocks(10), 1));
  EXPECT_THAT(statusWindow.statusTexts, IsEmpty());
}

TEST_F(ContentStatusTest, LongNamesAreCutAndSizesGrouped) {
  BlockSize = 100'000;
  makeGroup({"", ""});
  FileTable.FileSize[primary] = 1'234'567;
  const std::string name = "A file name that is just forty long.flac";
  for (const std::string& shown : {name, name + "."}) {
    FileTable.FileName.set(primary, shown);
    disk.file("C:\\d\\" + shown, "");
    compare();
  }
  EXPECT_THAT(
      statusWindow.statusTexts,
      ElementsAre("Checking " + name + "  [ Size 1,234,567 ]", "Scanning duplicates...",
                  "Checking " + name + "...  [ Size 1,234,567 ]", "Scanning duplicates..."));
}

TEST_F(ContentStatusTest, LongViewShowsThePercentageEveryThousandBlocks) {
  ScanDetailsShown = true;
  allocateBlockPool(1, 1);
  const std::string content(3000, 'x');
  comparePair(content, content);
  EXPECT_THAT(statusWindow.statusTexts,
              ElementsAre("Loading / comparing file content (33%)",
                          "Loading / comparing file content (67%)", "Scanning duplicates..."));
  EXPECT_EQ(statusWindow.labels["labFile1"], "C:\\d\\a");
}

TEST_F(ContentStatusTest, LongViewIsLeftAloneUntilBlockAThousand) {
  ScanDetailsShown = true;
  allocateBlockPool(1, 1);
  comparePair(std::string(1000, 'x'), std::string(1000, 'x'));
  EXPECT_THAT(statusWindow.statusTexts, ElementsAre("Scanning duplicates..."));
}

TEST_F(ContentStatusTest, FilesAreClosedBeforeTheLastYield) {
  eventLoop.onYield = [&] { expectOnlyTheLogOpen(); };
  comparePair(differentBlocks(10), differentBlocks(10));
  EXPECT_EQ(eventLoop.yields, 1);
}

TEST_F(ContentStatusTest, NothingIsTraced) {
  makeGroupOfCopies("abc");
  compare(primary, secondary);
  compare(primary, third);
  EXPECT_THAT(logLines(), IsEmpty());
}

}  // namespace
}  // namespace quernstoke
