#include "platform/linux/exactPath.h"

#include <cerrno>
#include <fcntl.h>

#include "platform/linux/systemCall.h"

namespace quernstoke {

namespace {

bool isName(const std::string& name) {
  return !name.empty() && name != "." && name != "..";
}

int enterDirectory(Descriptor& directory, const std::string& name) {
  if (!isName(name)) return -ENOTDIR;
  const int outcome = outcomeOf([&] {
    return ::openat(directory.get(), name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  });
  if (outcome == -ENOENT || outcome == -ELOOP) return -ENOTDIR;
  if (outcome < 0) return outcome;
  directory = Descriptor(outcome);
  return 0;
}

}  // namespace

int enterExactly(Descriptor& directory, std::string_view relativePath, std::string& name) {
  for (std::size_t slash; (slash = relativePath.find('/')) != std::string_view::npos;) {
    const int outcome = enterDirectory(directory, std::string(relativePath.substr(0, slash)));
    if (outcome < 0) return outcome;
    relativePath.remove_prefix(slash + 1);
  }
  name = relativePath;
  return isName(name) ? 0 : -ENOENT;
}

int lookAtFile(const Descriptor& directory, const std::string& name, struct stat& facts) {
  const int outcome = outcomeOf(
      [&] { return ::fstatat(directory.get(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW); });
  if (outcome < 0) return outcome;
  return S_ISREG(facts.st_mode) ? 0 : -ENOENT;
}

int lookBelow(Descriptor directory, std::string_view relativePath, struct stat& facts) {
  std::string name;
  const int outcome = enterExactly(directory, relativePath, name);
  return outcome < 0 ? outcome : lookAtFile(directory, name, facts);
}

}  // namespace quernstoke
