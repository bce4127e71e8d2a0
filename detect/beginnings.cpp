#include "detect/beginnings.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>

#include "catalogue/fileTable.h"
#include "core/scanState.h"
#include "detect/modLinkedList.h"

namespace quernstoke {

BeginningsTable Beginnings;

namespace {

constexpr std::uint32_t unknown = 0;

constexpr std::uint64_t oddFactor = 0x9E3779B97F4A7C15;

// Four sums side by side, which the processor makes faster than one.
using Sums = std::array<std::uint64_t, 4>;

void add(Sums& sums, const char* bytes) {
  Sums words;
  std::memcpy(words.data(), bytes, sizeof words);
  for (std::size_t lane = 0; lane < sums.size(); ++lane)
    sums[lane] = (std::rotl(sums[lane], 29) ^ words[lane]) * oddFactor;
}

std::uint32_t fingerprint(std::string_view block) {
  Sums sums = {1, 2, 3, 4};
  std::uint64_t all = block.size();
  for (; block.size() >= sizeof sums; block.remove_prefix(sizeof sums))
    add(sums, block.data());
  std::array<char, sizeof sums> rest{};
  block.copy(rest.data(), rest.size());
  add(sums, rest.data());
  for (const std::uint64_t sum : sums)
    all = (all ^ sum ^ (sum >> 32)) * oddFactor;
  const auto print = static_cast<std::uint32_t>(all >> 32);
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

  Prospect prospect(std::int32_t count, std::uint32_t print, std::uint32_t poolHasRoom) const {
    Prospect sum;
    for (std::int32_t i = 0; i < count; ++i) {
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

  // How many files stand before the first that has to be compared. REQUIRES: there is one.
  std::int32_t beforeEarnest(std::uint32_t print, std::uint32_t poolHasRoom) const {
    std::int32_t count = 0;
    while (Columns{matches + count, chains + count, prints + count}
               .prospect(1, print, poolHasRoom)
               .inEarnest == 0)
      ++count;
    return count;
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
  constexpr std::int32_t stretch = 128;
  const std::uint32_t print = prints_[row(primary)];
  const std::uint32_t poolHasRoom = poolHasFreeSlot() ? 1 : 0;
  // A block of the primary that the pool takes now changes the pool.
  if (poolHasRoom != 0 && !isPooled(primary)) return secondary;

  std::int32_t file = secondary.raw();
  while (file <= last.raw() && countersHaveRoom(stretch)) {
    std::int32_t length = std::min(stretch, last.raw() - file + 1);
    const Columns columns{&FileTable.FileStatus[statusMatch][file],
                          &FileTable.FileStatus[statusChain][file], &prints_[row(file)]};
    Prospect pairs = columns.prospect(length, print, poolHasRoom);
    const bool endsHere = pairs.inEarnest != 0;
    if (endsHere) {
      length = columns.beforeEarnest(print, poolHasRoom);
      pairs = columns.prospect(length, print, poolHasRoom);
    }
    countReads(primary, pairs);
    file += length;
    if (endsHere) break;
  }
  return file;
}

}  // namespace quernstoke
