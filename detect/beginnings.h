#pragma once

#include <cstdint>
#include <string_view>

#include "catalogue/textColumn.h"
#include "core/integers.h"
#include "core/table.h"

namespace quernstoke {

// The first blocks of the files of the group in progress, as far as they were read from the files
// themselves. Most pairs of a large group are told apart by a look at four bytes of each file,
// without opening them again. A match is never made from memory.
class BeginningsTable {
 public:
  // Forgets all, and makes room for the files of a group.
  void redim(Int32 first, Int32 count);

  // Beyond 64 MiB nothing more is remembered.
  void remember(Int32 file, std::string_view block);
  bool knows(Int32 file) const;
  // Whether both blocks are remembered and differ.
  bool differ(Int32 one, Int32 other) const;
  std::string_view operator[](Int32 file) const;  // REQUIRES: knows(file).

  // The first file from `secondary` to `last` that has to be compared with the primary in earnest,
  // or the one behind `last`. Those before it have a number, or their first block is known to
  // differ: their reads are counted as if they had been made. REQUIRES: knows(primary); the pool is
  // in use; all are files of the group.
  Int32 passOverDifferent(Int32 primary, Int32 secondary, Int32 last) const;

 private:
  Int32 row(Int32 file) const { return file - first_ + 1; }

  Int32 first_ = 1;
  TextColumn blocks_;
  Table<std::uint32_t> known_;    // 1 for a file whose block is remembered.
  Table<std::uint32_t> samples_;  // Four bytes from the middle of it: equal in equal blocks.
  std::size_t size_ = 0;
};

extern BeginningsTable Beginnings;

}  // namespace quernstoke
