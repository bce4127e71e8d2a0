#pragma once

#include <string>
#include <vector>

#include "console/options.h"

namespace quernstoke {

// Which directories a scan walks, and which it doesn't enter: absolute, and without links, so that
// they can be compared with what a walk meets.
struct ScanPlan {
  std::vector<std::string> includes;
  std::vector<std::string> excludes;
  std::vector<std::string> remarks;  // What was asked for and is not done, a line each.
};

// No include of the plan is met on the walk of another one: its files would be listed twice and
// found to be equal to themselves. None lies in an excluded directory. Throws a ScanError for a
// directory that isn't there.
ScanPlan planScan(const DirectoryScan& scan);

}  // namespace quernstoke
