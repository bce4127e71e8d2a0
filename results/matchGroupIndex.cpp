#include "results/matchGroupIndex.h"

#include "catalogue/fileTable.h"
#include "core/procedure.h"
#include "core/scanState.h"
#include "detect/runKey.h"

namespace quernstoke {

Table<MatchGroup> MatchGroupTable;
Int32 MatchGroupCount;

namespace {

constexpr int growth = 2000;

void storeGroup(const MatchGroup& group, Int16 mode) {
  const Int32 number = MatchGroupCount + 1;
  if (number > MatchGroupTable.upperBound()) MatchGroupTable.redim(number + growth, true);
  MatchGroupTable[number] = group;
  MatchGroupCount = number;
  if (mode == startMode::refresh) DuplicateCount += group.count - 1;
}

}  // namespace

void basSetupMatchGroupInfo(std::string_view key, Int16 mode) {
  procedure("basSetupMatchGroupInfo", [&] {
    if (FileCount == 0) return;
    MatchGroupTable.redim(growth, false);
    MatchGroupCount = 0;
    if (mode == startMode::refresh) DuplicateCount = 0;

    RunKey runKey(key);
    MatchGroup group{1, 1};
    bool firstFile = true;
    // One round more than there are files closes the last group.
    for (Int32 i = 1; i <= FileCount + 1; ++i) {
      const bool atEnd = i > FileCount;
      const RunStep step = atEnd ? RunStep{} : runKey.next(i);
      if (step.skip) {
        if (i == group.first) ++group.first;
      } else if (step.same) {
        ++group.count;
      } else if (firstFile) {
        firstFile = false;
      } else {
        storeGroup(group, mode);
        if (!atEnd) group = {i, 1};
      }
    }
    MatchGroupTable.redim(MatchGroupCount, true);
  });
}

}  // namespace quernstoke
