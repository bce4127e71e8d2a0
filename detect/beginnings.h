#pragma once

#include <cstdint>
#include <string_view>

#include "core/integers.h"
#include "core/table.h"

namespace quernstoke {

// Fingerprints of the first blocks of the files of the group in progress, as far as they were read
// from the files themselves. Most pairs of a large group are told apart by these, without opening
// the files again. A match is never made of them.
class BeginningsTable {
 public:
  // Forgets all, and makes room for the files of a group.
  void redim(Int32 first, Int32 count);

  // How many bytes of a first block are read to remember it.
  static std::size_t lengthToRead(Int32 blockSize);

  bool isInGroup(Int32 file) const;
  // REQUIRES: the group has the file.
  void remember(Int32 file, std::string_view beginning);
  // Two first blocks that were compared and differ. If what is remembered of them is the same, more
  // of them is remembered from now on.
  void tellApart(Int32 one, std::string_view oneBlock, Int32 other, std::string_view otherBlock);
  bool knows(Int32 file) const;
  // Whether both blocks are known and differ.
  bool differ(Int32 one, Int32 other) const;

  // The first file from `secondary` to `last` that has to be compared with the primary in earnest,
  // or the one behind `last`. Those before it have a number, or their first block is known to
  // differ: their reads are counted as if they had been made. REQUIRES: knows(primary); the pool is
  // in use; all are files of the group.
  Int32 passOverDifferent(Int32 primary, Int32 secondary, Int32 last) const;

 private:
  Int32 row(Int32 file) const { return file - first_ + 1; }
  bool canPassOver(Int32 primary, Int32 file, bool poolHasRoom) const;

  Int32 first_ = 1;
  // Equal for equal blocks; 0 for a file whose block is not known. A sample tells most blocks apart
  // and is quickly taken; the print of the whole block is for those that it doesn't.
  Table<std::uint32_t> samples_;
  Table<std::uint32_t> prints_;
};

extern BeginningsTable Beginnings;

}  // namespace quernstoke
