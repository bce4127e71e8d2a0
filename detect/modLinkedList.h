#pragma once

#include <memory>
#include <string_view>

#include "core/integers.h"
#include "core/table.h"

namespace quernstoke {

// The block pool: the beginnings of the files of the group that is being compared. Invariants:
// 1. The chain of a file holds its blocks 0, 1, 2... in order, unless its first block came later.
// 2. A slot is in exactly one chain or in the free list.
// 3. A chain's head is in FileStatus. A head of 0 or below stands for no chain.

// Stands for a block of a file that nobody has needed so far. It is to be read when somebody does.
constexpr std::string_view unreadBlock{};

inline bool isUnread(std::string_view block) {
  return block.data() == nullptr;
}

// Stands for a block that lies behind the end of a local copy. It equals nothing, however often it
// is asked for, while an empty block of a file that has become shorter equals another.
inline constexpr char behindTheEnd[] = "?";
constexpr std::string_view missingBlock = std::string_view(behindTheEnd).substr(1);

inline bool isMissing(std::string_view block) {
  return block.data() == missingBlock.data();
}

// What the slots hold: blocks of at most BlockSize bytes, in one piece of memory.
class BlockStore {
 public:
  // Fails when there is not the memory for `slots` blocks of `blockSize` bytes.
  void redim(Int32 slots, Int32 blockSize);

  // Valid until the slot is stored into again. Both fail with a subscript out of range.
  std::string_view operator[](Int32 slot) const;
  void store(Int32 slot, std::string_view block);

 private:
  std::unique_ptr<char[]> bytes_;
  std::size_t blockSize_ = 0;
  Table<Int32> lengths_;
};

extern BlockStore BlockPoolData;
// The slot after each one, -1 at the end of a chain. The last element, BlockPoolCount + 1, is the
// head of the free list, -1 when the pool is exhausted.
extern Table<Int32> BlockPoolNext;
extern Int32 BlockPoolCount;
extern Int32 BlockSize;  // Bytes.
// Slots for each file of the group, if they were shared out equally. Nothing keeps to it.
extern Int32 BuffersPerFile;

// Makes the pool anew, with slots 1 to `slots`. Fails for a block size below 1 or no memory.
void allocateBlockPool(Int32 blockSize, Int32 slots);

// Gives the memory of the pool back; it then has no slots.
void releaseBlockPool();

// Empties the pool for a new group. Returns the slots for each file.
Int32 basLLInitializeBuffer(Int32 first, Int32 last, Int32 poolCount, Int32 fileCount);

bool poolHasFreeSlot();

// Finds a block of a file. Returns its slot, or -1. The block is a view of the pool.
Int32 basLLReadData(Int32 file, Int32 position, Int32 block, std::string_view& data);

// Keeps a block behind those that the file has. Returns its slot; -1, with nothing changed, when
// the pool is full or the block is not the next one.
Int32 basLLWriteBuffer(Int32 file, Int32 position, Int32 block, std::string_view data);

// Takes a file out of the pool and lowers `fileCount`. Returns the slots for each file left, -1
// when none is.
Int32 basLLRemoveFileFromBuffer(Int32 file, Int32 position, Int32 poolCount, Int32& fileCount);

}  // namespace quernstoke
