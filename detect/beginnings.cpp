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

// The fingerprint of pieces of the block, evenly spread from its first byte to its last.
std::uint32_t sampleOf(std::string_view block) {
  constexpr std::size_t pieces = 32;
  constexpr std::size_t pieceLength = 16;
  std::array<char, pieces * pieceLength> sample;
  if (block.size() <= sample.size()) return fingerprint(block);
  const std::size_t lastPiece = block.size() - pieceLength;
  for (std::size_t i = 0; i < pieces; ++i)
    std::memcpy(&sample[i * pieceLength], &block[i * lastPiece / (pieces - 1)], pieceLength);
  return fingerprint({sample.data(), sample.size()});
}

// Twice as many files with one instruction, where the processor can.
#if defined(__x86_64__)
#define ALSO_FOR_WIDE_REGISTERS __attribute__((target_clones("avx2", "default")))
#else
#define ALSO_FOR_WIDE_REGISTERS
#endif

// What a comparison of the primary with each of several files would do.
struct Prospect {
  std::uint32_t inEarnest = 0;  // Files that may have to be compared.
  std::uint32_t open = 0;       // Files without a number.
  std::uint32_t pooled = 0;     // Those of them whose block lies in the pool.
};

// The columns of the files in question, beginning with the one at hand. They are looked at without
// a branch among them, so that the compiler takes several files with one instruction.
struct Columns {
  const Int32* matches;
  const Int32* chains;
  const std::uint32_t* samples;
  std::uint32_t sample;  // The primary's.
  std::uint32_t poolHasRoom;

  std::uint32_t isOpen(std::int32_t i) const { return matches[i].raw() == noMatch ? 1 : 0; }
  std::uint32_t isPooled(std::int32_t i) const { return chains[i].raw() > 0 ? 1 : 0; }

  std::uint32_t isInEarnest(std::int32_t i) const {
    const std::uint32_t likely = samples[i] == sample || samples[i] == unknown ? 1 : 0;
    return isOpen(i) & (likely | ((isPooled(i) ^ 1U) & poolHasRoom));
  }

  ALSO_FOR_WIDE_REGISTERS Prospect prospect(std::int32_t count) const {
    Prospect sum;
    for (std::int32_t i = 0; i < count; ++i) {
      sum.inEarnest += isInEarnest(i);
      sum.open += isOpen(i);
      sum.pooled += isOpen(i) & isPooled(i);
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
  samples_.redim(count, false);
  prints_.redim(count, false);
}

std::size_t BeginningsTable::lengthToRead(Int32 blockSize) {
  constexpr std::size_t page = 4096;  // The system has read as much at any rate.
  return std::min(page, static_cast<std::size_t>(blockSize.raw()));
}

void BeginningsTable::remember(Int32 file, std::string_view beginning) {
  samples_[row(file)] = sampleOf(beginning);
}

void BeginningsTable::tellApart(Int32 one, std::string_view oneBlock, Int32 other,
                                std::string_view otherBlock) {
  if (!knows(one) || !knows(other) || samples_[row(one)] != samples_[row(other)]) return;
  prints_[row(one)] = fingerprint(oneBlock);
  prints_[row(other)] = fingerprint(otherBlock);
}

bool BeginningsTable::isInGroup(Int32 file) const {
  return row(file) >= 1 && row(file) <= samples_.upperBound();
}

bool BeginningsTable::knows(Int32 file) const {
  return isInGroup(file) && samples_[row(file)] != unknown;
}

bool BeginningsTable::differ(Int32 one, Int32 other) const {
  if (!knows(one) || !knows(other)) return false;
  if (samples_[row(one)] != samples_[row(other)]) return true;
  const std::uint32_t print = prints_[row(one)];
  const std::uint32_t otherPrint = prints_[row(other)];
  return print != unknown && otherPrint != unknown && print != otherPrint;
}

Int32 BeginningsTable::passOverDifferent(Int32 primary, Int32 secondary, Int32 last) const {
  constexpr std::int32_t stretch = 128;
  const bool poolHasRoom = poolHasFreeSlot();
  // A block of the primary that the pool takes now changes the pool.
  if (poolHasRoom && !isPooled(primary)) return secondary;

  std::int32_t file = secondary.raw();
  bool isAtItsEnd = false;
  while (!isAtItsEnd && file <= last.raw() && countersHaveRoom(stretch)) {
    std::int32_t length = std::min(stretch, last.raw() - file + 1);
    const Columns columns{&FileTable.FileStatus[statusMatch][file],
                          &FileTable.FileStatus[statusChain][file], &samples_[row(file)],
                          samples_[row(primary)], poolHasRoom ? 1U : 0U};
    Prospect pairs = columns.prospect(length);
    if (pairs.inEarnest != 0) {
      std::int32_t count = 0;
      while (count < length && (columns.isInEarnest(count) == 0 ||
                                canPassOver(primary, Int32(file + count), poolHasRoom)))
        ++count;
      isAtItsEnd = count < length;
      length = count;
      pairs = columns.prospect(length);
    }
    countReads(primary, pairs);
    file += length;
  }
  return file;
}

bool BeginningsTable::canPassOver(Int32 primary, Int32 file, bool poolHasRoom) const {
  return differ(primary, file) && (!poolHasRoom || isPooled(file));
}

}  // namespace quernstoke
