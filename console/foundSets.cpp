#include "console/foundSets.h"

#include <filesystem>
#include <system_error>

#include "catalogue/fileTable.h"
#include "console/machinePaths.h"
#include "core/scanState.h"
#include "detect/refinement.h"
#include "results/matchGroupIndex.h"

namespace quernstoke {

bool leaveOut(const std::string& path, MachinePaths& paths) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return false;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  bool leftOut = false;
  for (Int32 file = 1; file <= FileCount; ++file) {
    Int32& match = FileTable.FileStatus[statusMatch][file];
    if (match == noMatch || static_cast<std::uintmax_t>(FileTable.FileSize[file].raw()) != size)
      continue;
    if (!std::filesystem::equivalent(path, paths.path(file), error)) continue;
    match = noMatch;
    leftOut = true;
  }
  return leftOut;
}

SetCounts groupSets() {
  SetCounts counts;
  // Without files the groups would stay those of an earlier pass.
  MatchGroupCount = 0;
  if (FileCount > 0) {
    basSortFilesList("MATCHNUM", true);
    basSetupMatchGroupInfo("MATCHNUM", startMode::none);
  }
  Int32 kept;
  for (Int32 number = 1; number <= MatchGroupCount; ++number) {
    const MatchGroup group = MatchGroupTable[number];
    if (group.count < 2) continue;  // Its partners were dropped, or have taken a later number.
    MatchGroupTable[++kept] = group;
    ++counts.sets;
    counts.files += group.count.raw();
  }
  MatchGroupCount = kept;
  MatchGroupTable.redim(kept, true);
  return counts;
}

}  // namespace quernstoke
