#include "detect/modLinkedList.h"

#include <algorithm>
#include <cstring>

#include "catalogue/fileTable.h"
#include "core/procedure.h"
#include "core/rounding.h"

namespace quernstoke {

BlockStore BlockPoolData;
Table<Int32> BlockPoolNext;
Int32 BlockPoolCount;
Int32 BlockSize;
Int32 BuffersPerFile;

namespace {

constexpr int endOfChain = -1;
constexpr int unreadLength = -1;
constexpr int missingLength = -2;

Int32& freeHead() {
  return BlockPoolNext[BlockPoolCount + 1];
}

Int32 lengthToStore(std::string_view block) {
  if (isUnread(block)) return unreadLength;
  if (isMissing(block)) return missingLength;
  return Int32(block.size());
}

// The first slot of a file's chain. Rows that were reloaded have 0 there, which names no slot.
Int32 chainHead(Int32 file) {
  const Int32 head = FileTable.FileStatus[statusChain][file];
  return head == 0 ? Int32(endOfChain) : head;
}

Int32 equalShare(Int32 poolCount, Int32 fileCount) {
  if (fileCount == 0) fail(FailureNumber::divisionByZero);
  return std::max<std::int64_t>(roundedQuotient(poolCount.raw(), fileCount.raw()), 1);
}

}  // namespace

void BlockStore::redim(Int32 slots, Int32 blockSize) {
  lengths_.redim(slots, false);
  blockSize_ = static_cast<std::size_t>(blockSize.raw());
  bytes_.reset();
  bytes_.reset(new char[(static_cast<std::size_t>(slots.raw()) + 1) * blockSize_]);
}

std::string_view BlockStore::operator[](Int32 slot) const {
  if (lengths_[slot] == unreadLength) return unreadBlock;
  if (lengths_[slot] == missingLength) return missingBlock;
  const auto length = static_cast<std::size_t>(lengths_[slot].raw());
  return {bytes_.get() + static_cast<std::size_t>(slot.raw()) * blockSize_, length};
}

void BlockStore::store(Int32 slot, std::string_view block) {
  if (block.size() > blockSize_) fail(FailureNumber::subscriptOutOfRange);
  lengths_[slot] = lengthToStore(block);
  if (block.empty()) return;
  std::memcpy(bytes_.get() + static_cast<std::size_t>(slot.raw()) * blockSize_, block.data(),
              block.size());
}

void allocateBlockPool(Int32 blockSize, Int32 slots) {
  if (blockSize < 1) fail(FailureNumber::invalidProcedureCall);
  BlockSize = blockSize;
  BlockPoolCount = slots;
  BlockPoolData.redim(slots, blockSize);
  BlockPoolNext.redim(slots + 1, false);
}

void releaseBlockPool() {
  BlockPoolData = {};
  BlockPoolNext.redim(0, false);
  BlockPoolCount = BlockSize = 0;
}

Int32 basLLInitializeBuffer(Int32 first, Int32 last, Int32 poolCount, Int32 fileCount) {
  return procedure("basLLInitializeBuffer", [&] {
    for (Int32 file = first; file <= last; ++file)
      FileTable.FileStatus[statusChain][file] = noChain;
    for (Int32 slot = 1; slot < BlockPoolCount; ++slot)
      BlockPoolNext[slot] = slot + 1;
    freeHead() = 1;
    BlockPoolNext[BlockPoolCount] = endOfChain;
    return equalShare(poolCount, fileCount);
  });
}

bool poolHasFreeSlot() {
  return freeHead() != endOfChain;
}

Int32 basLLReadData(Int32 file, Int32 /*position*/, Int32 block, std::string_view& data) {
  return procedure("basLLReadData", [&]() -> Int32 {
    Int32 slot = chainHead(file);
    for (Int32 link = 0; link < block && slot != endOfChain; ++link)
      slot = BlockPoolNext[slot];
    if (slot == endOfChain) return -1;
    data = BlockPoolData[slot];
    return slot;
  });
}

Int32 basLLWriteBuffer(Int32 file, Int32 /*position*/, Int32 block, std::string_view data) {
  return procedure("basLLWriteBuffer", [&]() -> Int32 {
    const Int32 slot = freeHead();
    if (slot == endOfChain) return -1;

    const Int32 head = chainHead(file);
    Int32 last = head;
    if (head != endOfChain) {
      Int32 length = 1;
      for (; BlockPoolNext[last] != endOfChain; ++length)
        last = BlockPoolNext[last];
      if (length != block) return -1;
    }

    freeHead() = BlockPoolNext[slot];
    Int32& link =
        head == endOfChain ? FileTable.FileStatus[statusChain][file] : BlockPoolNext[last];
    link = slot;
    BlockPoolNext[slot] = endOfChain;
    BlockPoolData.store(slot, data);
    return slot;
  });
}

Int32 basLLRemoveFileFromBuffer(Int32 file, Int32 /*position*/, Int32 poolCount, Int32& fileCount) {
  return procedure("basLLRemoveFileFromBuffer", [&]() -> Int32 {
    Int32 slot = chainHead(file);
    FileTable.FileStatus[statusChain][file] = noChain;
    while (slot != endOfChain) {
      const Int32 next = BlockPoolNext[slot];
      BlockPoolNext[slot] = freeHead();
      freeHead() = slot;
      slot = next;
    }
    --fileCount;
    return fileCount > 0 ? equalShare(poolCount, fileCount) : Int32(-1);
  });
}

}  // namespace quernstoke
