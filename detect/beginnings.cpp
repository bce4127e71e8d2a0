#include "detect/beginnings.h"

#include <algorithm>
#include <functional>
#include <limits>

#include "catalogue/fileTable.h"
#include "core/scanState.h"
#include "detect/modLinkedList.h"

namespace quernstoke {

BeginningsTable Beginnings;

namespace {

constexpr std::uint32_t unknown = 0;

std::uint32_t fingerprint(std::string_view block) {
  const auto print = static_cast<std::uint32_t>(std::hash<std::string_view>()(block));
  return print == unknown ? 1 : print;
}

// What a comparison of the primary with each of several files would do.
struct Prospect {
  std::uint32_t inEarnest = 0;  // Files that have to be compared.
  std::uint32_t open = 0;       // Files without a number.
  std::uint32_t pooled = 0;     // Those of them whose block lies in the pool.
};

// The columns of the files in question, beginning with the one at hand. They are looked at without
// a branch among them, so that the compiler takes several files with one instruction.
struct Columns {
  const Int32* matches;
  const Int32* chains;
  const std::uint32_t* prints;

  Prospect prospect(std::size_t count, std::uint32_t print, std::uint32_t poolHasRoom) const {
    Prospect sum;
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint32_t open = matches[i].raw() == noMatch ? 1 : 0;
      const std::uint32_t pooled = chains[i].raw() > 0 ? 1 : 0;
      const std::uint32_t likely = prints[i] == print || prints[i] == unknown ? 1 : 0;
      const std::uint32_t stored = (pooled ^ 1U) & poolHasRoom;
      sum.inEarnest += open & (likely | stored);
      sum.open += open;
      sum.pooled += open & pooled;
    }
    return sum;
  }
};

bool isPooled(Int32 file) {
  return FileTable.FileStatus[statusChain][file] > 0;
}

// Both sides of each pair are read, from the pool or from the file.
void countReads(Int32 primary, const Prospect& pairs) {
  BufferReads += pairs.pooled + (isPooled(primary) ? pairs.open : 0);
  ActualReads += (pairs.open - pairs.pooled) + (isPooled(primary) ? 0 : pairs.open);
}

// Leaves room in the counters for two reads of each file of a stretch.
bool countersHaveRoom(std::int32_t files) {
  const std::int64_t most = std::numeric_limits<std::int32_t>::max() - 2 * std::int64_t{files};
  return BufferReads.raw() < most && ActualReads.raw() < most;
}

}  // namespace

void BeginningsTable::redim(Int32 first, Int32 count) {
  first_ = first;
  prints_.redim(count, false);
}

void BeginningsTable::remember(Int32 file, std::string_view block) {
  if (isInGroup(file)) prints_[row(file)] = fingerprint(block);
}

bool BeginningsTable::isInGroup(Int32 file) const {
  return row(file) >= 1 && row(file) <= prints_.upperBound();
}

bool BeginningsTable::knows(Int32 file) const {
  return isInGroup(file) && prints_[row(file)] != unknown;
}

bool BeginningsTable::differ(Int32 one, Int32 other) const {
  return knows(one) && knows(other) && prints_[row(one)] != prints_[row(other)];
}

Int32 BeginningsTable::passOverDifferent(Int32 primary, Int32 secondary, Int32 last) const {
  constexpr std::int32_t stretch = 64;
  const std::uint32_t print = prints_[row(primary)];
  const std::uint32_t poolHasRoom = poolHasFreeSlot() ? 1 : 0;
  // A block of the primary that the pool takes now changes the pool.
  if (poolHasRoom != 0 && !isPooled(primary)) return secondary;

  std::int32_t length = stretch;
  for (std::int32_t file = secondary.raw(); file <= last.raw();) {
    length = std::min(length, last.raw() - file + 1);
    const Columns columns{&FileTable.FileStatus[statusMatch][file],
                          &FileTable.FileStatus[statusChain][file], &prints_[row(file)]};
    const Prospect pairs = columns.prospect(static_cast<std::size_t>(length), print, poolHasRoom);
    if (pairs.inEarnest == 0 && countersHaveRoom(length)) {
      countReads(primary, pairs);
      file += length;
    } else if (length == 1) {
      return file;
    } else {
      length = 1;  // The file in question lies in this stretch.
    }
  }
  return last + 1;
}

}  // namespace quernstoke
