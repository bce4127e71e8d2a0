#include "platform/linux/fileCopy.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>

#include "platform/linux/exactPath.h"
#include "platform/linux/systemCall.h"
#include "platform/linux/unfinishedFile.h"
#include "platform/linux/writeAll.h"

namespace quernstoke {

namespace {

constexpr std::size_t bufferSize = std::size_t{1} << 20;

bool isSameTime(const timespec& left, const timespec& right) {
  return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

// Whether two looks saw one file with nothing done to it between them.
bool isUnchanged(const struct stat& before, const struct stat& after) {
  return before.st_dev == after.st_dev && before.st_ino == after.st_ino &&
         before.st_size == after.st_size && isSameTime(before.st_mtim, after.st_mtim) &&
         isSameTime(before.st_ctim, after.st_ctim);
}

// No more than the length that the file had, as one that grows all the time has no end.
int copyContent(int source, int target, off_t length) {
  const auto buffer = std::make_unique<char[]>(bufferSize);
  while (length > 0) {
    const std::size_t wanted = std::min(bufferSize, static_cast<std::size_t>(length));
    const ssize_t got = ::read(source, buffer.get(), wanted);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return -errno;
    if (got == 0) return -EAGAIN;  // It has been cut.
    const int outcome = writeAll(target, buffer.get(), static_cast<std::size_t>(got));
    if (outcome < 0) return outcome;
    length -= got;
  }
  return 0;
}

// So that a file that doesn't fit is refused before the disk is full of it.
int reserveRoom(int target, off_t length) {
  if (length == 0) return 0;
  const int outcome = outcomeOf([&] { return ::fallocate(target, 0, 0, length); });
  return outcome == -ENOSPC || outcome == -EDQUOT || outcome == -EFBIG ? outcome : 0;
}

// Which also hold the finer permissions. Those that the other file system doesn't know are lost.
void copyExtendedAttributes(int source, int target) {
  const ssize_t length = ::flistxattr(source, nullptr, 0);
  if (length <= 0) return;
  std::string names(static_cast<std::size_t>(length), '\0');
  if (::flistxattr(source, names.data(), names.size()) != length) return;
  for (const char* name = names.data(); name < names.data() + names.size();
       name += std::char_traits<char>::length(name) + 1) {
    const ssize_t size = ::fgetxattr(source, name, nullptr, 0);
    if (size < 0) continue;
    std::string value(static_cast<std::size_t>(size), '\0');
    if (::fgetxattr(source, name, value.data(), value.size()) == size)
      ::fsetxattr(target, name, value.data(), value.size(), 0);
  }
}

// As far as the target's file system and the person's rights go.
void copyFacts(const struct stat& facts, int source, int target) {
  constexpr mode_t allBits = 07777;
  constexpr mode_t plainBits = 0777;
  copyExtendedAttributes(source, target);
  // Bits that lend the owner's rights must not lend those of another one.
  const bool keepsOwner = ::fchown(target, facts.st_uid, facts.st_gid) == 0;
  ::fchmod(target, facts.st_mode & (keepsOwner ? allBits : plainBits));
  const timespec times[] = {facts.st_atim, facts.st_mtim};
  ::futimens(target, times);
}

// An entry is on the disk only when its directory is.
int syncDirectory(int directory, int anyFileInIt) {
  const Descriptor readable(::openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!readable.isOpen()) return outcomeOf([&] { return ::syncfs(anyFileInIt); });
  const int outcome = outcomeOf([&] { return ::fsync(readable.get()); });
  return outcome == -EINVAL ? 0 : outcome;  // Of a file system that has nothing to write.
}

int openSource(const Descriptor& directory, const std::string& name, struct stat& facts) {
  constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
  const int outcome = outcomeOf([&] { return ::openat(directory.get(), name.c_str(), flags); });
  if (outcome < 0) return outcome == -ELOOP ? -ENOENT : outcome;
  Descriptor file(outcome);
  if (::fstat(file.get(), &facts) != 0) return -errno;
  return S_ISREG(facts.st_mode) ? file.release() : -ENOENT;
}

int fill(int target, int source, const struct stat& facts) {
  int outcome = reserveRoom(target, facts.st_size);
  if (outcome >= 0) outcome = copyContent(source, target, facts.st_size);
  if (outcome < 0) return outcome;
  copyFacts(facts, source, target);
  return outcomeOf([&] { return ::fsync(target); });
}

int publish(UnfinishedFile& copy, int directory, const std::string& name) {
  int outcome = copy.publish(name);
  if (outcome < 0) return outcome;
  outcome = syncDirectory(directory, copy.descriptor());
  if (outcome < 0) ::unlinkat(directory, name.c_str(), 0);
  return outcome;
}

}  // namespace

int copyBelow(Descriptor directory, std::string_view relativePath, int targetDirectory,
              const std::string& targetName) {
  std::string name;
  int outcome = enterExactly(directory, relativePath, name);
  if (outcome < 0) return outcome;
  struct stat before;
  outcome = openSource(directory, name, before);
  if (outcome < 0) return outcome;
  const Descriptor source(outcome);
  UnfinishedFile copy = UnfinishedFile::in(targetDirectory);
  if (copy.descriptor() < 0) return copy.descriptor();
  outcome = fill(copy.descriptor(), source.get(), before);
  if (outcome < 0) return outcome;
  struct stat after;
  if (::fstatat(directory.get(), name.c_str(), &after, AT_SYMLINK_NOFOLLOW) != 0) return -errno;
  if (!isUnchanged(before, after)) return -EAGAIN;
  return publish(copy, targetDirectory, targetName);
}

}  // namespace quernstoke
