#include "catalogue/walkRoot.h"

#include "catalogue/dirTable.h"

namespace quernstoke {

namespace {

bool liesIn(std::string_view directory, std::string_view above) {
  return directory.starts_with(above) &&
         (directory.size() == above.size() || directory[above.size()] == '\\');
}

}  // namespace

std::optional<std::string_view> walkRootOf(std::string_view directory) {
  std::optional<std::string_view> root;
  for (Int32 row = 1; isListedDirectory(row); ++row) {
    const DirRow& start = DirTable[row];
    if (start.kind == dirKind::directory && start.parent == noParent &&
        liesIn(directory, start.name) && (!root || start.name.size() > root->size()))
      root = start.name;
  }
  return root;
}

}  // namespace quernstoke
