#include "detect/contentCompareTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

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

}  // namespace
}  // namespace quernstoke
