#include "detect/contentCompareTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

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
  EXPECT_EQ(compare(), 96);  // The blocks before were equal, 49 of 51 without the last of them.
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basCompareFileContentReadBlock",
                                         "Invalid procedure call or argument(5)"),
                          procedureError("basCompareFileContentReadBlock",
                                         "Invalid procedure call or argument(5)")));
  expectOnlyTheLogOpen();
}

}  // namespace
}  // namespace quernstoke
