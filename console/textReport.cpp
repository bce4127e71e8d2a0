#include "console/textReport.h"

#include <string>
#include <unistd.h>
#include <unordered_map>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "console/output.h"
#include "core/scanState.h"
#include "detect/refinement.h"
#include "platform/linux/pathLookup.h"
#include "platform/linux/pathMapping.h"
#include "results/matchGroupIndex.h"

namespace quernstoke {

namespace {

// Turns the program's paths into the machine's.
class MachinePaths {
 public:
  explicit MachinePaths(const DriveTable& drives) : drives_(drives) {}

  std::string of(Int32 file) {
    const Int32 row = FileTable.FileDirNum[file];
    const std::string_view name = FileTable.FileName[file];
    if (DirTable[row].kind == dirKind::zipFolder) return ofEntry(DirTable[row], name);
    return directory(row) + linuxName(name);
  }

 private:
  // A directory with a final slash.
  const std::string& directory(Int32 row) {
    const auto [place, isNew] = directories_.try_emplace(row.raw());
    if (isNew) {
      place->second = found(DirTable[row].name);
      if (!place->second.ends_with('/')) place->second += '/';
    }
    return place->second;
  }

  // A profile may name a directory in another letter case than the machine.
  std::string found(std::string_view programPath) const {
    std::string path = drives_.linuxPath(programPath);
    if (::access(path.c_str(), F_OK) == 0) return path;
    const Place place = locate(path);
    return place.exists ? place.path : path;
  }

  std::string ofEntry(const DirRow& folder, std::string_view name) const {
    std::string path = found(DirTable[folder.parent].name) + " >> ";
    if (!folder.name.empty()) path += linuxName(folder.name) + "/";
    return path.append(linuxName(name));
  }

  const DriveTable& drives_;
  std::unordered_map<std::int32_t, std::string> directories_;  // By row of DirTable.
};

}  // namespace

ReportCounts writeTextReport(const DriveTable& drives, Output& output) {
  ReportCounts counts;
  if (FileCount == 0) return counts;  // The groups would be those of an earlier pass.
  basSortFilesList("MATCHNUM", true);
  basSetupMatchGroupInfo("MATCHNUM", startMode::none);
  MachinePaths paths(drives);
  for (Int32 number = 1; number <= MatchGroupCount; ++number) {
    const MatchGroup group = MatchGroupTable[number];
    if (group.count < 2) continue;  // Its partners were dropped, or have taken a later number.
    if (counts.sets > 0) output.write("\n");
    for (Int32 file = group.first; file < group.first + group.count; ++file)
      output.write(paths.of(file) + "\n");
    ++counts.sets;
    counts.files += group.count.raw();
  }
  return counts;
}

}  // namespace quernstoke
