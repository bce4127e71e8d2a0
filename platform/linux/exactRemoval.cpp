#include "platform/linux/exactRemoval.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <utility>

#include "platform/linux/exactPath.h"
#include "platform/linux/systemCall.h"

namespace quernstoke {

namespace {

int removeFile(const Descriptor& directory, const std::string& name,
               const std::function<void(const struct stat&)>& refuse) {
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
  std::string name;
  const int outcome = enterExactly(directory, relativePath, name);
  return outcome < 0 ? outcome : removeFile(directory, name, refuse);
}

}  // namespace quernstoke
