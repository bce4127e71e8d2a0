#include "catalogue/createDirectories.h"

#include <algorithm>
#include <string>

#include "catalogue/dirTable.h"
#include "core/procedure.h"
#include "core/scanState.h"
#include "platform/fileSystem.h"
#include "platform/platform.h"
#include "platform/utf8.h"

namespace quernstoke {

namespace {

constexpr std::size_t longestPath = 9999;
constexpr int noFailure = 0;
constexpr int alreadyThere = static_cast<int>(FailureNumber::pathFileAccess);

// The relative path with backslashes alone and none in front.
std::string normalised(std::string_view relative) {
  std::string path(relative);
  std::replace(path.begin(), path.end(), '/', '\\');
  if (path.starts_with('\\')) path.erase(0, 1);
  return std::string(firstCharacters(path, longestPath));
}

// Takes the first component off a relative path.
std::string takeComponent(std::string& path) {
  const std::size_t end = std::min(path.find('\\'), path.size());
  std::string component = path.substr(0, end);
  path.erase(0, end + 1);
  return component;
}

}  // namespace

bool basCreateDirectories(std::string_view base, std::string_view relative, bool addToTable,
                          Int32 parent, Int32& row) {
  return procedure("basCreateDirectories", [&] {
    std::string path(base);
    if (path.ends_with('\\')) path.pop_back();
    for (std::string rest = normalised(relative); !rest.empty();) {
      path += '\\' + takeComponent(rest);
      const int failure = ignoringFailure([&] { files().makeDirectory(path); });
      if (failure == alreadyThere) continue;
      if (failure != noFailure) return true;
      if (!addToTable) continue;
      bool existed = false;
      row = basAddDirToList(path, dirKind::directory, parent, existed);
      DirTable.setTemporary(row, RunState == runState::idle);
      parent = row;
    }
    return false;
  });
}

}  // namespace quernstoke
