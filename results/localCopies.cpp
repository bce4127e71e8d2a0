#include "results/localCopies.h"

#include <set>

#include "catalogue/fileTable.h"
#include "core/probes.h"
#include "core/text.h"
#include "detect/tempStore.h"

namespace quernstoke {

namespace {

void removeCopy(const std::string& copy) {
  if (basFileExists(copy)) basDeleteTempFile(copy);
}

}  // namespace

void deleteLocalCopy(Int32 file) {
  const std::string copy(FileTable.FileLocalName[file]);
  if (copy.empty()) return;
  removeCopy(copy);
  if (!basFileExists(copy)) FileTable.FileLocalName.set(file, "");
}

void deleteLocalCopiesAt(std::string_view path) {
  const std::string wanted = lower(path);
  for (Int32 file = 1; file <= FileCount; ++file)
    if (lower(FileTable.FileLocalName[file]) == wanted) deleteLocalCopy(file);
}

std::vector<std::string> localCopies() {
  std::vector<std::string> copies;
  for (Int32 file = 1; file <= FileCount; ++file)
    if (!FileTable.FileLocalName[file].empty()) copies.emplace_back(FileTable.FileLocalName[file]);
  return copies;
}

void deleteLostCopies(const std::vector<std::string>& copies) {
  std::set<std::string> named;
  for (const std::string& copy : localCopies())
    named.insert(lower(copy));
  for (const std::string& copy : copies)
    if (!named.contains(lower(copy))) removeCopy(copy);
}

}  // namespace quernstoke
