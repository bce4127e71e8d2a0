#pragma once

#include <string_view>

#include "core/integers.h"
#include "core/table.h"

namespace quernstoke {

// A run of files that share a key, as file numbers.
struct MatchGroup {
  Int32 first;
  Int32 count;
};

// The runs of the sorted catalogue, groups 1 to MatchGroupCount; group 0 is empty. Valid only as
// long as the catalogue's order stands.
extern Table<MatchGroup> MatchGroupTable;
extern Int32 MatchGroupCount;

// Lists the runs of a key: "NAME", "SIZE", "MATCHNUM" or "DIRECTORY".
// startMode::refresh also counts DuplicateCount anew. REQUIRES: the catalogue is sorted on that
// key.
void basSetupMatchGroupInfo(std::string_view key, Int16 mode);

}  // namespace quernstoke
