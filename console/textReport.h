#pragma once

#include <cstdint>

namespace quernstoke {

class DriveTable;
class Output;

struct ReportCounts {
  std::int64_t sets = 0;
  std::int64_t files = 0;  // Of all sets.
};

// Writes the sets of the finished scan in the order of their match numbers, a path of this machine
// a line and a blank line between two sets. Afterwards the catalogue is sorted by match number.
ReportCounts writeTextReport(const DriveTable& drives, Output& output);

}  // namespace quernstoke
