#include "platform/linux/exactRemoval.h"

#include <cerrno>
#include <string>
#include <unistd.h>

#include "platform/linux/exactPath.h"
#include "platform/linux/systemCall.h"

namespace quernstoke {

namespace {

int removeFile(const Descriptor& directory, const std::string& name,
               const std::function<void(const struct stat&)>& refuse) {
  return outcomeOf([&] {
    struct stat facts;
    const int outcome = lookAtFile(directory, name, facts);
    if (outcome < 0) {
      errno = -outcome;
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
