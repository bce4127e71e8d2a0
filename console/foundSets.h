#pragma once

#include <cstdint>
#include <string>

namespace quernstoke {

class MachinePaths;

struct SetCounts {
  std::int64_t sets = 0;
  std::int64_t files = 0;  // Of all sets.
};

// Takes the matches off what the path leads to, which a report is about to replace. Returns whether
// there was one.
bool leaveOut(const std::string& path, MachinePaths& paths);

// Makes the groups of MatchGroupTable the sets of the finished scan, in the order of their match
// numbers, by which the catalogue is sorted then.
SetCounts groupSets();

}  // namespace quernstoke
