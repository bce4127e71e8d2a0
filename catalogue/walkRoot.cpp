#include "catalogue/walkRoot.h"

#include <string_view>

#include "catalogue/dirTable.h"

namespace quernstoke {

namespace {

bool liesIn(std::string_view directory, std::string_view above) {
  return directory.starts_with(above) &&
         (directory.size() == above.size() || directory[above.size()] == '\\');
}

}  // namespace

std::string walkRootOf(const std::string& directory) {
  std::string root;
  for (Int32 row = 1; row <= DirCount; ++row) {
    const DirRow& start = DirTable[row];
    if (start.kind == dirKind::directory && start.parent == noParent &&
        start.name.size() > root.size() && liesIn(directory, start.name))
      root = start.name;
  }
  return root.empty() ? directory : root;
}

}  // namespace quernstoke
