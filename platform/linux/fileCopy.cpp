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
#include "platform/linux/fileFacts.h"
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
  return isSameEntry(before, after) && before.st_size == after.st_size &&
         isSameTime(before.st_mtim, after.st_mtim) && isSameTime(before.st_ctim, after.st_ctim);
}

// No more than the length that the file had, as one that grows all the time has no end.
int copyContent(int source, int target, off_t length) {
  const auto buffer = std::make_unique<char[]>(bufferSize);
  for (off_t position = 0; position < length;) {
    const std::size_t wanted = std::min(bufferSize, static_cast<std::size_t>(length - position));
    const ssize_t got = ::pread(source, buffer.get(), wanted, position);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return -errno;
    if (got == 0) return -changedMeanwhile;  // It has been cut.
    const int outcome = writeAll(target, {buffer.get(), static_cast<std::size_t>(got)});
    if (outcome < 0) return outcome;
    position += got;
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
  // A new owner would end the rights that some attributes lend. Bits that lend the owner's rights
  // must not lend those of another one.
  const bool keepsOwner = ::fchown(target, facts.st_uid, facts.st_gid) == 0;
  copyExtendedAttributes(source, target);
  ::fchmod(target, facts.st_mode & (keepsOwner ? allBits : plainBits));
  const timespec times[] = {facts.st_atim, facts.st_mtim};
  ::futimens(target, times);
}

// An entry is on the disk only when its directory is, and that only when the one above it is: each
// may be as new as the file. Goes up to where another file system begins.
int syncWayTo(int directory, int anyFileInIt) {
  struct stat facts;
  if (::fstat(directory, &facts) != 0) return -errno;
  Descriptor at;
  for (const char* next = ".";; next = "..") {
    Descriptor above(
        ::openat(at.isOpen() ? at.get() : directory, next, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // What can't be read can't be synced by itself.
    if (!above.isOpen()) return outcomeOf([&] { return ::syncfs(anyFileInIt); });
    struct stat here;
    if (::fstat(above.get(), &here) != 0) return -errno;
    const bool isRoot = at.isOpen() && isSameEntry(facts, here);
    if (here.st_dev != facts.st_dev || isRoot) return 0;
    const int outcome = outcomeOf([&] { return ::fsync(above.get()); });
    // That error is of a file system that has nothing to write.
    if (outcome < 0 && outcome != -EINVAL) return outcome;
    at = std::move(above);
    facts = here;
  }
}

// A file to be copied, found and open.
struct Source {
  Descriptor directory;
  std::string name;
  Descriptor file;
  struct stat facts {};

  int open() {
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    const int outcome = outcomeOf([&] { return ::openat(directory.get(), name.c_str(), flags); });
    if (outcome < 0) return outcome == -ELOOP ? -ENOENT : outcome;
    file.reset(outcome);
    if (::fstat(file.get(), &facts) != 0) return -errno;
    return S_ISREG(facts.st_mode) ? 0 : -ENOENT;
  }
  // Whether it is still what its name leads to, and as it was.
  int check() const {
    struct stat now;
    const int outcome = lookAtFile(directory, name, now);
    if (outcome < 0) return outcome;
    return isUnchanged(facts, now) ? 0 : -changedMeanwhile;
  }
};

int fill(int target, int source, const struct stat& facts) {
  int outcome = reserveRoom(target, facts.st_size);
  if (outcome >= 0) outcome = copyContent(source, target, facts.st_size);
  if (outcome < 0) return outcome;
  copyFacts(facts, source, target);
  return outcomeOf([&] { return ::fsync(target); });
}

// Fills a new file, while its original stays as it is.
int complete(const UnfinishedFile& copy, const Source& source) {
  if (copy.descriptor() < 0) return copy.descriptor();
  const int outcome = fill(copy.descriptor(), source.file.get(), source.facts);
  return outcome < 0 ? outcome : source.check();
}

// Takes the name away again, unless it has come to be another file's.
void unpublish(int copy, int directory, const std::string& name) {
  struct stat facts;
  struct stat now;
  if (::fstat(copy, &facts) == 0 &&
      ::fstatat(directory, name.c_str(), &now, AT_SYMLINK_NOFOLLOW) == 0 && isSameEntry(facts, now))
    ::unlinkat(directory, name.c_str(), 0);
}

int finish(int copy, int directory, const std::string& name, struct stat& facts) {
  int outcome = syncWayTo(directory, copy);
  if (outcome >= 0) outcome = outcomeOf([&] { return ::fstat(copy, &facts); });
  if (outcome < 0) unpublish(copy, directory, name);
  return outcome;
}

}  // namespace

int copyBelow(Descriptor directory, std::string_view relativePath, int targetDirectory,
              const std::string& targetName, CopiedFile& copied) {
  Source source{std::move(directory), {}, {}, {}};
  int outcome = enterExactly(source.directory, relativePath, source.name);
  if (outcome >= 0) outcome = source.open();
  if (outcome < 0) return outcome;
  copied.original = source.facts;
  // Some systems make a file without a name and won't name it then.
  for (const auto make : {&UnfinishedFile::in, &UnfinishedFile::namedIn}) {
    UnfinishedFile copy = make(targetDirectory);
    outcome = complete(copy, source);
    if (outcome < 0) return outcome;
    const bool isNamed = copy.isNamed();
    outcome = copy.publish(targetName);
    if (outcome >= 0) return finish(copy.descriptor(), targetDirectory, targetName, copied.copy);
    if (isNamed || outcome == -EEXIST) return outcome;
  }
  return outcome;
}

}  // namespace quernstoke
