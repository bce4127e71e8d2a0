#include "console/machinePaths.h"

#include <unistd.h>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "platform/failure.h"
#include "platform/linux/pathLookup.h"
#include "platform/linux/pathMapping.h"

namespace quernstoke {

std::string MachinePaths::path(Int32 file) {
  const Int32 row = FileTable.FileDirNum[file];
  const bool isAtArchivesRoot =
      DirTable[row].kind == dirKind::zipFolder && DirTable[row].name.empty();
  std::string path = directoryOfRow(row);
  if (isAtArchivesRoot)
    path += " >> ";
  else if (!path.ends_with('/'))
    path += '/';
  return path += name(file);
}

std::string MachinePaths::name(Int32 file) const {
  return linuxName(FileTable.FileName[file]);
}

std::string MachinePaths::directory(Int32 file) {
  return directoryOfRow(FileTable.FileDirNum[file]);
}

const std::string& MachinePaths::directoryOfRow(Int32 row) {
  const auto [place, isNew] = directories_.try_emplace(row.raw());
  if (!isNew) return place->second;
  const DirRow& directory = DirTable[row];
  if (directory.kind != dirKind::zipFolder) return place->second = found(directory.name);
  std::string path = found(DirTable[directory.parent].name);
  if (!directory.name.empty()) path += " >> " + linuxName(directory.name);
  return place->second = path;
}

// A profile may name a directory in another letter case than the machine.
std::string MachinePaths::found(std::string_view programPath) const {
  std::string path;
  try {
    path = drives_.linuxPath(programPath);
  } catch (const Failure&) {
    return std::string(programPath);  // Its drive is not there today.
  }
  if (::access(path.c_str(), F_OK) == 0) return path;
  const Place place = locate(path);
  return place.exists ? place.path : path;
}

}  // namespace quernstoke
