#include "console/textReport.h"

#include "console/machinePaths.h"
#include "console/output.h"
#include "results/matchGroupIndex.h"

namespace quernstoke {

void writeTextReport(MachinePaths& paths, Output& output) {
  for (Int32 number = 1; number <= MatchGroupCount; ++number) {
    const MatchGroup group = MatchGroupTable[number];
    if (number > 1) output.write("\n");
    for (Int32 file = group.first; file < group.first + group.count; ++file)
      output.write(paths.path(file) + "\n");
  }
}

}  // namespace quernstoke
