#include "catalogue/dirTable.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "core/procedure.h"
#include "core/scanState.h"

namespace quernstoke {

DirectoryTable DirTable;
Int32 DirCount;

namespace {

std::uint32_t hashOf(std::string_view name) {
  const std::size_t hash = std::hash<std::string_view>()(name);
  return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

// The rows of a stretch are tested at once: with their number known and no branch among them, the
// compiler compares several hashes with one instruction, also without its highest optimisation.
constexpr std::size_t stretch = 256;

bool holds(const std::uint32_t* hashes, std::uint32_t wanted) {
  unsigned found = 0;
  for (std::size_t i = 0; i < stretch; ++i)
    found |= hashes[i] == wanted ? 1U : 0U;
  return found != 0;
}

}  // namespace

void DirectoryTable::redim(Int32 upper, bool preserve) {
  rows_.redim(upper, preserve);
  const Int32 kept = preserve ? std::min(hashes_.upperBound(), upper) : Int32(-1);
  hashes_.redim(upper, preserve);
  for (Int32 row = kept + 1; row <= upper; ++row)
    hashes_[row] = hashOf({});
}

void DirectoryTable::set(Int32 row, DirRow content) {
  hashes_[row] = hashOf(content.name);
  rows_[row] = std::move(content);
}

// The first row from 1 to `last` with this name that fits, or -1.
template <class Fits>
Int32 DirectoryTable::findFirst(std::string_view name, Int32 last, Fits fits) const {
  const std::uint32_t wanted = hashOf(name);
  const std::uint32_t* hashes = hashes_.data();
  // After a damaged file of directories DirCount may be anything.
  const auto end = static_cast<std::size_t>(std::clamp(last, Int32(0), upperBound()).raw()) + 1;
  for (std::size_t start = 1; start < end; start += stretch) {
    const std::size_t stop = std::min(start + stretch, end);
    if (stop - start == stretch && !holds(hashes + start, wanted)) continue;
    for (std::size_t row = start; row < stop; ++row)
      if (hashes[row] == wanted && rows_.data()[row].name == name && fits(rows_.data()[row]))
        return row;
  }
  return -1;
}

Int32 DirectoryTable::find(std::string_view name) const {
  return findFirst(name, upperBound(), [](const DirRow&) { return true; });
}

Int32 DirectoryTable::findFolder(std::string_view name, Int32 zipRow) const {
  return findFirst(name, DirCount, [&](const DirRow& row) {
    return row.kind == dirKind::zipFolder && row.parent == zipRow;
  });
}

Int32 appendDirRow(std::string name, char kind, Int32 parent, int growth) {
  if (DirCount >= DirTable.upperBound()) DirTable.redim(DirCount + growth, true);
  ++DirCount;
  DirTable.set(DirCount, {std::move(name), kind, parent, RunState == runState::idle});
  return DirCount;
}

Int32 basAddDirToList(std::string_view name, char kind, Int32 parent, bool& existed) {
  return procedure("basAddDirToList", [&] {
    constexpr int growth = 8192;
    const Int32 known = DirTable.find(name);
    existed = known != -1;
    return existed ? known : appendDirRow(std::string(name), kind, parent, growth);
  });
}

bool isListedDirectory(Int32 row) {
  return row >= 1 && row <= DirCount && row <= DirTable.upperBound();
}

const DirRow& listedDirectory(Int32 row) {
  if (!isListedDirectory(row)) fail(FailureNumber::subscriptOutOfRange);
  return DirTable[row];
}

Int32 basFindDirInList(std::string_view name) {
  return procedure("basFindDirInList", [&] { return DirTable.find(name); });
}

}  // namespace quernstoke
