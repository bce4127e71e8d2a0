#include "platform/linux/linuxDirectoryListing.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <limits>
#include <utility>

#include "platform/linux/kernelFileSystems.h"
#include "platform/linux/pathMapping.h"
#include "platform/linux/systemFailure.h"

namespace quernstoke {

namespace {

bool isHidden(const char* name) {
  return name[0] == '.';
}

}  // namespace

LinuxDirectoryListing::LinuxDirectoryListing(Descriptor directory, std::string path, int mask,
                                             FileTally& tally, LocalTime& localTime)
    : reader_(std::move(directory)),
      path_(std::move(path)),
      mask_(mask),
      tally_(tally),
      localTime_(localTime) {}

bool LinuxDirectoryListing::next() {
  while (reader_.next()) {
    hasFacts_ = false;
    isCountedTooLarge_ = false;
    if (!isGivenOut()) continue;
    name_ = reader_.name();
    if (needsWindowsName(name_)) name_ = mappedName_ = windowsName(name_);
    return true;
  }
  if (reader_.error() != 0) {
    tally_.unreadable.insert(path_);
    fail(FailureNumber::deviceError);
  }
  return false;
}

bool LinuxDirectoryListing::isGivenOut() {
  if (reader_.isDots()) {
    isDirectory_ = true;
    return (mask_ & attributeDirectory) != 0;
  }
  if (isHidden(reader_.name()) && (mask_ & attributeHidden) == 0) return false;
  int type = reader_.type();
  if (type == DT_UNKNOWN && readFacts()) type = IFTODT(facts_.stx_mode);
  isDirectory_ = type == DT_DIR;
  if (isDirectory_) return isDirectoryGivenOut();
  if (isPassedOver(type)) return false;
  ++tally_.filesMet;
  return true;
}

bool LinuxDirectoryListing::isDirectoryGivenOut() {
  if ((mask_ & attributeDirectory) == 0) return false;
  // A directory whose facts can't be read is given out, so that its reader learns of the failure.
  if (!readFacts() || !isKernelMount(reader_.descriptor(), reader_.name(), facts_)) return true;
  ++tally_.specials;
  return false;
}

// An entry of a type that can't be told is given out for the same reason.
bool LinuxDirectoryListing::isPassedOver(int type) {
  if (type == DT_REG || type == DT_UNKNOWN) return false;
  ++(type == DT_LNK ? tally_.links : tally_.specials);
  return true;
}

int LinuxDirectoryListing::attributes() {
  if (reader_.isDots()) return attributeDirectory;
  return (isDirectory_ ? attributeDirectory : attributeArchive) |
         (isHidden(reader_.name()) ? attributeHidden : 0) |
         ((facts().stx_mode & S_IWUSR) == 0 ? attributeReadOnly : 0);
}

std::int32_t LinuxDirectoryListing::size() {
  constexpr auto limit = static_cast<std::uint64_t>(std::numeric_limits<std::int32_t>::max());
  const std::uint64_t size = facts().stx_size;
  if (isDirectory_) return 0;
  if (size <= limit) return static_cast<std::int32_t>(size);
  if (!std::exchange(isCountedTooLarge_, true)) ++tally_.tooLarge;
  fail(FailureNumber::overflow);
}

DateTime LinuxDirectoryListing::modified() {
  return localTime_.at(facts().stx_mtime.tv_sec);
}

bool LinuxDirectoryListing::readFacts() {
  if (hasFacts_) return true;
  constexpr int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
  constexpr unsigned wanted = STATX_TYPE | STATX_MODE | STATX_SIZE | STATX_MTIME;
  hasFacts_ = ::statx(reader_.descriptor(), reader_.name(), flags, wanted, &facts_) == 0;
  return hasFacts_;
}

const struct statx& LinuxDirectoryListing::facts() {
  if (!readFacts()) failUnreadable(errno);
  // Something else has taken the entry's place since the directory was read.
  if (!(isDirectory_ ? S_ISDIR(facts_.stx_mode) : S_ISREG(facts_.stx_mode))) failUnreadable(ENOENT);
  return facts_;
}

void LinuxDirectoryListing::failUnreadable(int error) {
  tally_.unreadable.insert(path_ + '/' + reader_.name());
  failWith(error, isDirectory_ ? Subject::directory : Subject::file);
}

}  // namespace quernstoke
