#include "core/probes.h"

#include <string>
#include <vector>

#include "core/procedure.h"
#include "core/text.h"
#include "platform/fileSystem.h"
#include "platform/platform.h"
#include "platform/wildcards.h"

namespace quernstoke {

namespace {

constexpr int anyFile = attributeReadOnly | attributeHidden | attributeSystem | attributeArchive;

// The directory of a path with its separator, and the pattern behind it.
struct PatternPath {
  std::string_view directory;
  std::string_view pattern;
};

PatternPath splitPattern(std::string_view path) {
  const std::size_t separator = path.find_last_of("\\/");
  const std::size_t cut = separator == std::string_view::npos ? 0 : separator + 1;
  return {path.substr(0, cut), path.substr(cut)};
}

// Calls `visit` with the name of each file that the path's last component fits, as long as it
// returns true.
template <class Visit>
void eachMatchingFile(std::string_view path, int mask, Visit visit) {
  const PatternPath parts = splitPattern(path);
  const std::string pattern = lower(parts.pattern);
  const auto listing = files().list(parts.directory.empty() ? "." : parts.directory, mask);
  while (listing->next()) {
    const std::string_view name = listing->name();
    if (name == "." || name == ".." || (listing->attributes() & attributeDirectory) != 0) continue;
    if (matchesWildcards(lower(name), pattern) && !visit(name)) return;
  }
}

}  // namespace

bool basDirExists(std::string_view path) {
  return files().canEnter(path);
}

bool basFileExists(std::string_view path) {
  bool found = false;
  ignoringFailure([&] {
    if (hasWildcards(splitPattern(path).pattern)) {
      eachMatchingFile(path, anyFile, [&](std::string_view) {
        found = true;
        return false;
      });
    } else {
      found = (files().attributes(path) & attributeArchive) != 0;
    }
  });
  return found;
}

void deleteFiles(std::string_view path) {
  std::vector<std::string> found;
  ignoringFailure([&] {
    eachMatchingFile(path, attributeReadOnly | attributeArchive, [&](std::string_view name) {
      found.push_back(std::string(splitPattern(path).directory).append(name));
      return true;
    });
  });
  for (const std::string& file : found)
    ignoringFailure([&] { files().remove(file); });
}

}  // namespace quernstoke
