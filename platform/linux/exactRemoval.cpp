#include "platform/linux/exactRemoval.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <utility>

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

int removeFile(const Descriptor& directory, const std::string& name,
               const std::function<void(const struct stat&)>& refuse) {
  if (!isName(name)) return -ENOENT;
  return outcomeOf([&] {
    struct stat facts;
    if (::fstatat(directory.get(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0) return -1;
    if (!S_ISREG(facts.st_mode)) {
      errno = ENOENT;
      return -1;
    }
    refuse(facts);
    return ::unlinkat(directory.get(), name.c_str(), 0);
  });
}

}  // namespace

int removeBelow(Descriptor directory, std::string_view relativePath,
                const std::function<void(const struct stat&)>& refuse) {
  for (std::size_t slash; (slash = relativePath.find('/')) != std::string_view::npos;) {
    const int outcome = enterDirectory(directory, std::string(relativePath.substr(0, slash)));
    if (outcome < 0) return outcome;
    relativePath.remove_prefix(slash + 1);
  }
  return removeFile(directory, std::string(relativePath), refuse);
}

}  // namespace quernstoke
