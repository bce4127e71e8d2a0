#include "detect/modLinkedList.h"

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/fileTable.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int noSlot = -1;

// Five files without blocks, and a pool of four slots of eight bytes.
class BlockPoolTest : public EngineTest {
 protected:
  BlockPoolTest() {
    buildCatalogue({{"a", "C:\\"}, {"b", "C:\\"}, {"c", "C:\\"}, {"d", "C:\\"}, {"e", "C:\\"}});
    makePool(4);
  }

  static void makePool(int slots) {
    allocateBlockPool(8, slots);
    basLLInitializeBuffer(1, 5, slots, 5);
  }

  static int write(int file, int block, std::string_view data) {
    return basLLWriteBuffer(file, file, block, data).raw();
  }

  static int remove(int file) {
    Int32 fileCount = 5;
    basLLRemoveFileFromBuffer(file, file, BlockPoolCount, fileCount);
    return fileCount.raw();
  }

  // What a read finds; "-" for nothing.
  static std::string read(int file, int block) {
    std::string_view data = "-";
    const Int32 slot = basLLReadData(file, file, block, data);
    EXPECT_EQ(slot == noSlot, data == "-");
    return std::string(data);
  }

  static std::vector<int> chainFrom(Int32 slot) {
    std::vector<int> slots;
    for (; slot != noSlot; slot = BlockPoolNext[slot])
      slots.push_back(slot.raw());
    return slots;
  }
  static std::vector<int> freeSlots() { return chainFrom(BlockPoolNext[BlockPoolCount + 1]); }
  static std::vector<int> slotsOf(int file) { return chainFrom(head(file)); }
  static Int32& head(int file) { return FileTable.FileStatus[statusChain][file]; }
};

TEST_F(BlockPoolTest, TablesHaveRoomForTheSlotsAndTheHeadOfTheFreeList) {
  EXPECT_EQ(BlockPoolCount, 4);
  EXPECT_EQ(BlockSize, 8);
  EXPECT_EQ(BlockPoolNext.upperBound(), 5);
}

TEST_F(BlockPoolTest, NewPoolHandsItsSlotsOutInOrder) {
  EXPECT_THAT(freeSlots(), ElementsAre(1, 2, 3, 4));
  EXPECT_EQ(write(2, 0, "b0"), 1);
  EXPECT_EQ(write(1, 0, "a0"), 2);
  EXPECT_EQ(write(2, 1, "b1"), 3);
  EXPECT_THAT(freeSlots(), ElementsAre(4));
  EXPECT_THAT(slotsOf(2), ElementsAre(1, 3));
}

TEST_F(BlockPoolTest, NewGroupTakesAllSlotsBack) {
  write(1, 0, "a0");
  write(1, 1, "a1");
  write(2, 0, "b0");
  basLLInitializeBuffer(1, 2, 4, 2);
  EXPECT_THAT(freeSlots(), ElementsAre(1, 2, 3, 4));
  EXPECT_EQ(head(1), noChain);
  EXPECT_EQ(read(1, 0), "-");
  EXPECT_EQ(read(2, 0), "-");
}

TEST_F(BlockPoolTest, NewGroupClearsTheChainsOfItsFilesOnly) {
  for (int file = 1; file <= 5; ++file)
    head(file) = 0;
  basLLInitializeBuffer(2, 4, 4, 3);
  EXPECT_THAT(
      (std::vector<int>{head(1).raw(), head(2).raw(), head(3).raw(), head(4).raw(), head(5).raw()}),
      ElementsAre(0, -1, -1, -1, 0));
}

TEST_F(BlockPoolTest, ShareOfAFileIsRoundedAHalfToTheEvenNumber) {
  EXPECT_EQ(basLLInitializeBuffer(1, 5, 500, 10), 50);
  EXPECT_EQ(basLLInitializeBuffer(1, 5, 5, 3), 2);
  EXPECT_EQ(basLLInitializeBuffer(1, 5, 4, 3), 1);
  EXPECT_EQ(basLLInitializeBuffer(1, 5, 10, 4), 2);
  EXPECT_EQ(basLLInitializeBuffer(1, 5, 14, 4), 4);
}

TEST_F(BlockPoolTest, ShareOfAFileIsAtLeastOne) {
  EXPECT_EQ(basLLInitializeBuffer(1, 5, 500, 1000), 1);
  EXPECT_EQ(basLLInitializeBuffer(1, 5, 4, 1000), 1);
}

TEST_F(BlockPoolTest, GroupWithoutFilesIsADivisionByZero) {
  EXPECT_EQ(basLLInitializeBuffer(1, 0, 4, 0), 0);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basLLInitializeBuffer", "Division by zero(11)")));
}

TEST_F(BlockPoolTest, BlocksAreFoundByTheirNumber) {
  write(1, 0, "zero");
  write(1, 1, "one");
  write(2, 0, "other");
  write(1, 2, "");
  EXPECT_EQ(read(1, 0), "zero");
  EXPECT_EQ(read(1, 1), "one");
  EXPECT_EQ(read(1, 2), "");
  EXPECT_EQ(read(1, 3), "-");
  EXPECT_EQ(read(1, 300), "-");
  EXPECT_EQ(read(2, 0), "other");
  EXPECT_EQ(read(3, 0), "-");
}

TEST_F(BlockPoolTest, ReadTellsTheSlot) {
  write(2, 0, "b0");
  write(1, 0, "a0");
  write(1, 1, "a1");
  std::string_view data;
  EXPECT_EQ(basLLReadData(1, 1, 1, data), 3);
}

TEST_F(BlockPoolTest, BlockKeepsAllItsBytes) {
  const std::string bytes("\0\xFF\0\x01 \r\n\0", 8);
  write(1, 0, bytes);
  EXPECT_EQ(read(1, 0), bytes);
}

TEST_F(BlockPoolTest, BlockIsACopyOfWhatWasWritten) {
  std::string block = "before";
  write(1, 0, block);
  block = "behind";
  EXPECT_EQ(read(1, 0), "before");
}

TEST_F(BlockPoolTest, OnlyTheDirectSuccessorIsKept) {
  write(1, 0, "0");
  write(1, 1, "1");
  write(1, 2, "2");
  for (int block : {5, 2, 0, 4, -3})
    EXPECT_EQ(write(1, block, "no"), noSlot) << block;
  EXPECT_THAT(slotsOf(1), ElementsAre(1, 2, 3));
  EXPECT_THAT(freeSlots(), ElementsAre(4));
  EXPECT_EQ(read(1, 2), "2");
  EXPECT_EQ(write(1, 3, "3"), 4);
}

// A file that comes late begins with the block that it has, whatever its number: the chain counts
// from there, and the block answers to number 0.
TEST_F(BlockPoolTest, FirstBlockOfAFileMayHaveAnyNumber) {
  EXPECT_EQ(write(1, 7, "7"), 1);
  EXPECT_EQ(read(1, 0), "7");
  EXPECT_EQ(read(1, 7), "-");
  EXPECT_EQ(write(1, 8, "8"), noSlot);
  EXPECT_EQ(write(1, 1, "1"), 2);
}

TEST_F(BlockPoolTest, FirstFileMayTakeTheWholePool) {
  for (int block = 0; block < 4; ++block)
    EXPECT_EQ(write(1, block, "a"), block + 1);
  EXPECT_THAT(freeSlots(), IsEmpty());
}

TEST_F(BlockPoolTest, FullPoolKeepsNothingMore) {
  for (int block = 0; block < 4; ++block)
    write(1, block, std::to_string(block));
  EXPECT_EQ(write(1, 4, "4"), noSlot);
  EXPECT_EQ(write(2, 0, "b"), noSlot);
  EXPECT_EQ(head(2), noChain);
  EXPECT_THAT(slotsOf(1), ElementsAre(1, 2, 3, 4));
  EXPECT_EQ(read(1, 0), "0");
}

TEST_F(BlockPoolTest, SlotsOfAFileThatLeavesAreHandedOutLastOneFirst) {
  write(1, 0, "a0");
  write(2, 0, "b0");
  write(1, 1, "a1");
  EXPECT_EQ(remove(1), 4);
  EXPECT_EQ(head(1), noChain);
  EXPECT_THAT(freeSlots(), ElementsAre(3, 1, 4));
  EXPECT_EQ(write(2, 1, "b1"), 3);
  EXPECT_EQ(read(2, 0), "b0");
  EXPECT_EQ(read(1, 0), "-");
}

TEST_F(BlockPoolTest, FileThatLeavesAFullPoolMakesRoom) {
  for (int block = 0; block < 4; ++block)
    write(1, block, "a");
  remove(1);
  EXPECT_EQ(write(2, 0, "b"), 4);
}

TEST_F(BlockPoolTest, FileWithoutBlocksOnlyLowersTheCount) {
  write(1, 0, "a0");
  EXPECT_EQ(remove(2), 4);
  EXPECT_EQ(head(2), noChain);
  EXPECT_THAT(freeSlots(), ElementsAre(2, 3, 4));
  EXPECT_THAT(slotsOf(1), ElementsAre(1));
}

TEST_F(BlockPoolTest, ShareGrowsWithEachFileThatLeavesUntilNoneIsLeft) {
  Int32 fileCount = 3;
  EXPECT_EQ(basLLRemoveFileFromBuffer(1, 1, 5, fileCount), 2);
  EXPECT_EQ(fileCount, 2);
  EXPECT_EQ(basLLRemoveFileFromBuffer(2, 2, 5, fileCount), 5);
  EXPECT_EQ(basLLRemoveFileFromBuffer(3, 3, 5, fileCount), -1);
  EXPECT_EQ(fileCount, 0);
}

TEST_F(BlockPoolTest, ShareOfTheFilesLeftIsAtLeastOne) {
  Int32 fileCount = 1000;
  EXPECT_EQ(basLLRemoveFileFromBuffer(1, 1, 4, fileCount), 1);
}

// Rows that a snapshot brought back have 0 for their chain, which is no slot.
TEST_F(BlockPoolTest, ReloadedRowHasNoBlocks) {
  head(1) = 0;
  EXPECT_EQ(read(1, 0), "-");
  EXPECT_EQ(remove(1), 4);
  EXPECT_EQ(head(1), noChain);
  EXPECT_THAT(freeSlots(), ElementsAre(1, 2, 3, 4));
}

TEST_F(BlockPoolTest, ReloadedRowBeginsANewChain) {
  head(1) = 0;
  EXPECT_EQ(write(1, 6, "6"), 1);
  EXPECT_EQ(head(1), 1);
  EXPECT_EQ(read(1, 0), "6");
}

TEST_F(BlockPoolTest, BlockThatNoSlotCanHoldFails) {
  EXPECT_EQ(write(1, 0, "nine byte"), 0);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basLLWriteBuffer", "Subscript out of range(9)")));
}

TEST_F(BlockPoolTest, PoolNeedsBlocksOfAtLeastOneByte) {
  EXPECT_THROW(allocateBlockPool(0, 4), Failure);
}

TEST_F(BlockPoolTest, ReleasedPoolHasNoSlots) {
  releaseBlockPool();
  EXPECT_EQ(BlockPoolCount, 0);
  EXPECT_EQ(BlockPoolNext.upperBound(), 0);
  EXPECT_EQ(write(1, 0, "a"), 0);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basLLWriteBuffer", "Subscript out of range(9)")));
}

}  // namespace
}  // namespace quernstoke
