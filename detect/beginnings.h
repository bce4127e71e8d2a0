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

  void remember(Int32 file, std::string_view block);
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
  bool isInGroup(Int32 file) const;

  Int32 first_ = 1;
  Table<std::uint32_t> prints_;  // Equal for equal blocks; 0 for a file whose block is not known.
};

extern BeginningsTable Beginnings;

}  // namespace quernstoke
