#include "platform/linux/unfinishedFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/linux/renaming.h"
#include "platform/linux/systemCall.h"

namespace quernstoke {

namespace {

constexpr mode_t ownerOnly = 0600;

// Where the system shows open files, through which a file without a name gets one.
constexpr const char* openFiles = "/proc/self/fd";

}  // namespace

UnfinishedFile::UnfinishedFile(int directory, std::string ownName, int outcome)
    : directory_(directory), ownName_(std::move(ownName)) {
  if (outcome < 0)
    error_ = outcome;
  else
    file_.reset(outcome);
}

UnfinishedFile::UnfinishedFile(UnfinishedFile&& other) noexcept
    : directory_(other.directory_),
      ownName_(std::exchange(other.ownName_, {})),
      error_(other.error_),
      file_(std::move(other.file_)) {}

UnfinishedFile::~UnfinishedFile() {
  if (file_.isOpen() && !ownName_.empty()) ::unlinkat(directory_, ownName_.c_str(), 0);
}

UnfinishedFile UnfinishedFile::in(int directory) {
  if (::access(openFiles, X_OK) == 0) {
    const int outcome = outcomeOf(
        [&] { return ::openat(directory, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, ownerOnly); });
    if (outcome >= 0) return {directory, {}, outcome};
  }
  return namedIn(directory);
}

UnfinishedFile UnfinishedFile::namedIn(int directory) {
  constexpr int flags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  for (int number = 1;; ++number) {
    std::string name = ".quernstoke-" + std::to_string(number) + ".part";
    const int outcome =
        outcomeOf([&] { return ::openat(directory, name.c_str(), flags, ownerOnly); });
    if (outcome != -EEXIST) return {directory, std::move(name), outcome};
  }
}

int UnfinishedFile::publish(const std::string& name) {
  if (ownName_.empty()) {
    const std::string path = openFiles + ('/' + std::to_string(file_.get()));
    return outcomeOf([&] {
      return ::linkat(AT_FDCWD, path.c_str(), directory_, name.c_str(), AT_SYMLINK_FOLLOW);
    });
  }
  const int outcome = outcomeOf([&] {
    return renameWithoutReplacing(directory_, ownName_.c_str(), directory_, name.c_str());
  });
  if (outcome >= 0) ownName_.clear();
  return outcome;
}

}  // namespace quernstoke
