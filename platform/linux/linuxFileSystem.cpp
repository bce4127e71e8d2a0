#include "platform/linux/linuxFileSystem.h"

#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/linux/exactPath.h"
#include "platform/linux/exactRemoval.h"
#include "platform/linux/fileCopy.h"
#include "platform/linux/fileFacts.h"
#include "platform/linux/linuxDirectoryListing.h"
#include "platform/linux/pathLookup.h"
#include "platform/linux/renaming.h"
#include "platform/linux/systemCall.h"
#include "platform/linux/systemFailure.h"

namespace quernstoke {

namespace {

// Makes a call at a path: with the path as it is written, or failing that with what locate finds.
// Returns the call's result or the error as a negative number.
template <class Call>
int atPath(const std::string& path, Call call) {
  const int outcome = outcomeOf([&] { return call(AT_FDCWD, path.c_str()); });
  if (outcome >= 0 || !saysAbsent(-outcome)) return outcome;
  const Place place = locate(path);
  if (!place.exists) return -place.error;
  return outcomeOf([&] { return call(place.directory.get(), place.name.c_str()); });
}

void check(int outcome, Subject subject) {
  if (outcome < 0) failWith(-outcome, subject);
}

// One number is kept for a path that exists. Whatever else stands against a new directory must not
// pass for one that is there already.
[[noreturn]] void failMaking(int error) {
  const FailureNumber number = failureFor(error, Subject::directory);
  if (error != EEXIST && number == FailureNumber::pathFileAccess)
    fail(FailureNumber::permissionDenied);
  fail(number);
}

// The facts of what a path leads to, through links.
struct stat factsAt(const std::string& path) {
  struct stat facts;
  check(atPath(path, [&](int at, const char* name) { return ::fstatat(at, name, &facts, 0); }),
        Subject::file);
  return facts;
}

// Read-only is a wish to keep the file as it is, whatever the system would allow.
bool isKept(const struct stat& facts) {
  return S_ISREG(facts.st_mode) && (facts.st_mode & S_IWUSR) == 0;
}

std::string_view lastComponent(std::string_view path) {
  return path.substr(path.rfind('/') + 1);  // With no slash at all, npos + 1 is 0.
}

int flagsOf(OpenMode mode) {
  // Not blocking: opening a FIFO must not wait for its other end.
  constexpr int always = O_CLOEXEC | O_NONBLOCK;
  switch (mode) {
    case OpenMode::input:
      return O_RDONLY | always;
    case OpenMode::output:
      return O_WRONLY | O_TRUNC | always;
    case OpenMode::binary:
      return O_RDWR | always;
    case OpenMode::sharedBinary:
      return O_RDONLY | O_NOFOLLOW | always;
    case OpenMode::update:
      return O_RDWR | O_NOFOLLOW | always;
  }
  fail(FailureNumber::invalidProcedureCall);
}

bool createsMissing(OpenMode mode) {
  return mode == OpenMode::output || mode == OpenMode::binary;
}

// Makes a file that locate hasn't found. Exclusively, so that a link that leads nowhere is not
// written through.
int createFile(const Place& place, int flags) {
  constexpr mode_t permissions = 0666;
  return outcomeOf([&] {
    return ::openat(place.directory.get(), place.name.c_str(), flags | O_CREAT | O_EXCL,
                    permissions);
  });
}

int openOrCreate(const std::string& path, OpenMode mode) {
  const int flags = flagsOf(mode);
  const int outcome = outcomeOf([&] { return ::open(path.c_str(), flags); });
  if (outcome >= 0 || !saysAbsent(-outcome)) return outcome;
  const Place place = locate(path);
  if (place.exists)
    return outcomeOf([&] { return ::openat(place.directory.get(), place.name.c_str(), flags); });
  if (place.error == ENOENT && createsMissing(mode)) return createFile(place, flags);
  return -place.error;
}

bool isWritable(OpenMode mode) {
  return mode != OpenMode::input && mode != OpenMode::sharedBinary;
}

void refuseKeptFile(const std::string& path) {
  struct stat facts;
  const auto look = [&](int at, const char* name) { return ::fstatat(at, name, &facts, 0); };
  if (atPath(path, look) >= 0 && isKept(facts)) fail(FailureNumber::pathFileAccess);
}

// Scanned files skip the question: reading what is no regular file fails soon enough.
bool isOpenableAs(OpenMode mode, int descriptor) {
  struct stat facts;
  return mode == OpenMode::sharedBinary ||
         (::fstat(descriptor, &facts) == 0 && S_ISREG(facts.st_mode));
}

// What stands behind the root, as a relative path.
std::string_view behindRoot(std::string_view path, std::string_view root) {
  if (!path.starts_with(root)) fail(FailureNumber::pathNotFound);
  path.remove_prefix(root.size());
  if (!path.starts_with('\\')) fail(FailureNumber::pathNotFound);
  path.remove_prefix(1);
  return path;
}

bool isSamePlace(const Place& left, const Place& right) {
  struct stat l;
  struct stat r;
  return left.name == right.name && ::fstat(left.directory.get(), &l) == 0 &&
         ::fstat(right.directory.get(), &r) == 0 && isSameEntry(l, r);
}

}  // namespace

LinuxFileSystem::LinuxFileSystem(DriveTable drives) : drives_(std::move(drives)) {}

const std::string& LinuxFileSystem::toLinux(std::string_view path) {
  drives_.assignLinuxPath(path, linuxPath_);
  return linuxPath_;
}

std::unique_ptr<DirectoryListing> LinuxFileSystem::list(std::string_view directory, int mask) {
  const std::string& path = toLinux(directory);
  const int outcome = atPath(path, [](int at, const char* name) {
    return ::openat(at, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  });
  if (outcome < 0 && !saysAbsent(-outcome)) tally_.unreadable.insert(path);
  check(outcome, Subject::directory);
  return std::make_unique<LinuxDirectoryListing>(Descriptor(outcome), path, mask, tally_,
                                                 localTime_);
}

bool LinuxFileSystem::canEnter(std::string_view directory) {
  constexpr int flags = O_PATH | O_DIRECTORY | O_CLOEXEC;
  try {
    const Descriptor there(atPath(
        toLinux(directory), [](int at, const char* name) { return ::openat(at, name, flags); }));
    if (!there.isOpen()) return false;
    const Descriptor here(::open(".", flags));
    // Without a way back only the permission is asked for.
    if (!here.isOpen()) return ::faccessat(there.get(), ".", X_OK, 0) == 0;
    return ::fchdir(there.get()) == 0 && ::fchdir(here.get()) == 0;
  } catch (const Failure&) {
    return false;
  }
}

void LinuxFileSystem::makeDirectory(std::string_view path) {
  constexpr mode_t permissions = 0777;
  const Place place = locate(toLinux(path));
  if (place.exists) failMaking(EEXIST);
  if (place.error != ENOENT) failMaking(place.error);
  const int outcome =
      outcomeOf([&] { return ::mkdirat(place.directory.get(), place.name.c_str(), permissions); });
  if (outcome < 0) failMaking(-outcome);
}

void LinuxFileSystem::removeDirectory(std::string_view path) {
  const Place place = locate(toLinux(path));
  if (!place.exists) failWith(place.error, Subject::directory);
  const int outcome = outcomeOf(
      [&] { return ::unlinkat(place.directory.get(), place.name.c_str(), AT_REMOVEDIR); });
  if (outcome == -ENOTDIR) fail(FailureNumber::pathFileAccess);
  check(outcome, Subject::directory);
}

int LinuxFileSystem::attributes(std::string_view path) {
  const std::string& linuxPath = toLinux(path);
  const struct stat facts = factsAt(linuxPath);
  const std::string_view name = lastComponent(linuxPath);
  const bool isHidden = name.starts_with('.') && name != "." && name != "..";
  return (S_ISDIR(facts.st_mode) ? attributeDirectory : 0) |
         (S_ISREG(facts.st_mode) ? attributeArchive : 0) | (isHidden ? attributeHidden : 0) |
         ((facts.st_mode & S_IWUSR) == 0 ? attributeReadOnly : 0);
}

void LinuxFileSystem::clearAttributes(std::string_view path) {
  constexpr mode_t permissionBits = 07777;
  check(atPath(toLinux(path),
               [](int at, const char* name) {
                 struct stat facts;
                 if (::fstatat(at, name, &facts, 0) != 0) return -1;
                 if ((facts.st_mode & S_IWUSR) != 0) return 0;
                 return ::fchmodat(at, name, (facts.st_mode & permissionBits) | S_IWUSR, 0);
               }),
        Subject::file);
}

std::int32_t LinuxFileSystem::length(std::string_view path) {
  const struct stat facts = factsAt(toLinux(path));
  if (!S_ISREG(facts.st_mode)) return 0;
  if (facts.st_size > std::numeric_limits<std::int32_t>::max()) fail(FailureNumber::overflow);
  return static_cast<std::int32_t>(facts.st_size);
}

DateTime LinuxFileSystem::modified(std::string_view path) {
  return localTime_.at(factsAt(toLinux(path)).st_mtime);
}

void LinuxFileSystem::remove(std::string_view path) {
  check(atPath(toLinux(path),
               [](int at, const char* name) {
                 struct stat facts;
                 if (::fstatat(at, name, &facts, AT_SYMLINK_NOFOLLOW) != 0) return -1;
                 if (isKept(facts)) fail(FailureNumber::pathFileAccess);
                 return ::unlinkat(at, name, 0);
               }),
        Subject::file);
}

Descriptor LinuxFileSystem::openRoot(std::string_view root) {
  const int outcome = atPath(toLinux(root), [](int at, const char* name) {
    return ::openat(at, name, O_PATH | O_DIRECTORY | O_CLOEXEC);
  });
  check(outcome, Subject::directory);
  return Descriptor(outcome);
}

std::string LinuxFileSystem::nameOnDisk(std::string_view path) {
  const Place place = locate(toLinux(path));
  if (!place.exists) failWith(place.error, Subject::file);
  return windowsName(place.name);
}

SeenFile LinuxFileSystem::seen(const struct stat& facts) {
  const timespec& modified = facts.st_mtim;
  const timespec& changed = facts.st_ctim;
  return {facts.st_size,
          localTime_.at(facts.st_mtime),
          {static_cast<std::int64_t>(facts.st_dev), static_cast<std::int64_t>(facts.st_ino)},
          {modified.tv_sec, modified.tv_nsec, changed.tv_sec, changed.tv_nsec}};
}

SeenFile LinuxFileSystem::lookWalked(std::string_view path, std::string_view root) {
  struct stat facts;
  check(lookBelow(openRoot(root), drives_.linuxPath(behindRoot(path, root)), facts), Subject::file);
  return seen(facts);
}

template <class Refuse>
void LinuxFileSystem::removeBelowRoot(std::string_view path, std::string_view root, Refuse refuse) {
  check(removeBelow(openRoot(root), drives_.linuxPath(behindRoot(path, root)),
                    [&](const struct stat& facts) {
                      if (refuse(seen(facts))) fail(FailureNumber::fileChanged);
                    }),
        Subject::file);
}

void LinuxFileSystem::removeWalked(const WalkedFile& file) {
  removeBelowRoot(file.path, file.root, [&](const SeenFile& now) {
    return now.size != file.size || now.modified != file.modified;
  });
}

void LinuxFileSystem::removeSeen(std::string_view path, std::string_view root,
                                 const SeenFile& before) {
  removeBelowRoot(path, root, [&](const SeenFile& now) { return now != before; });
}

WalkedCopy LinuxFileSystem::copyWalked(std::string_view path, std::string_view root,
                                       std::string_view to) {
  const std::string source = drives_.linuxPath(behindRoot(path, root));
  Descriptor directory = openRoot(root);
  const Place target = locate(toLinux(to));
  if (target.exists) fail(FailureNumber::fileAlreadyExists);
  if (target.error != ENOENT) failWith(target.error, Subject::file);
  CopiedFile copied;
  const int outcome =
      copyBelow(std::move(directory), source, target.directory.get(), target.name, copied);
  if (outcome == -changedMeanwhile) fail(FailureNumber::fileChanged);
  check(outcome, Subject::file);
  return {seen(copied.original), seen(copied.copy)};
}

std::optional<struct stat> LinuxFileSystem::factsIfThere(std::string_view path) {
  struct stat facts;
  const int outcome = atPath(
      toLinux(path), [&](int at, const char* name) { return ::fstatat(at, name, &facts, 0); });
  if (outcome == -ENOENT || outcome == -ENOTDIR) return std::nullopt;
  check(outcome, Subject::file);
  return facts;
}

bool LinuxFileSystem::isSameFile(std::string_view path, std::string_view other) {
  const auto left = factsIfThere(path);
  if (!left || left->st_nlink != 1) return false;
  const auto right = factsIfThere(other);
  return right && isSameEntry(*left, *right);
}

void LinuxFileSystem::rename(std::string_view from, std::string_view to) {
  const Place source = locate(toLinux(from));
  if (!source.exists) failWith(source.error, Subject::file);
  const std::string& targetPath = toLinux(to);
  const Place target = locate(targetPath);
  // A name that differs in letter case only is taken too, for a later look-up would find either.
  // Unless it is the file's own: then its case is to change.
  if (target.exact || (target.exists && !isSamePlace(source, target)))
    fail(FailureNumber::fileAlreadyExists);
  if (!target.exists && target.error != ENOENT) failWith(target.error, Subject::file);
  const std::string newName(lastComponent(targetPath));
  check(outcomeOf([&] {
          return renameWithoutReplacing(source.directory.get(), source.name.c_str(),
                                        target.directory.get(), newName.c_str());
        }),
        Subject::file);
}

FileNumber LinuxFileSystem::open(std::string_view path, OpenMode mode) {
  const std::string& linuxPath = toLinux(path);
  if (isWritable(mode)) refuseKeptFile(linuxPath);
  const int outcome = openOrCreate(linuxPath, mode);
  if (outcome < 0 && mode == OpenMode::sharedBinary) tally_.unreadable.insert(linuxPath);
  check(outcome, Subject::file);
  Descriptor descriptor(outcome);
  if (!isOpenableAs(mode, descriptor.get())) fail(FailureNumber::pathFileAccess);
  return openFiles_.add(std::move(descriptor), mode, linuxPath);
}

std::size_t LinuxFileSystem::read(FileNumber file, std::span<char> into) {
  return openFiles_.read(file, into);
}

void LinuxFileSystem::write(FileNumber file, std::string_view bytes) {
  openFiles_.write(file, bytes);
}

void LinuxFileSystem::seek(FileNumber file, std::int64_t position) {
  openFiles_.seek(file, position);
}

std::int64_t LinuxFileSystem::openLength(FileNumber file) {
  return openFiles_.length(file);
}

bool LinuxFileSystem::atEnd(FileNumber file) {
  return openFiles_.atEnd(file);
}

void LinuxFileSystem::close(FileNumber file) {
  openFiles_.close(file);
}

PassedOver LinuxFileSystem::passedOver() const {
  return {tally_.links, tally_.specials, tally_.tooLarge,
          static_cast<std::int64_t>(tally_.unreadable.size())};
}

}  // namespace quernstoke
