#include "platform/linux/extractedFile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/systemCall.h"
#include "platform/linux/writeAll.h"

namespace quernstoke {

ExtractedFile::ExtractedFile(const Descriptor& directory)
    : directory_(directory.get()), workingName_("TMP-extracting-" + std::to_string(::getpid())) {
  ::unlinkat(directory_, workingName_.c_str(), 0);  // Of a process that had our number.
  constexpr mode_t permissions = 0600;
  file_.reset(outcomeOf([&] {
    return ::openat(directory_, workingName_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                    permissions);
  }));
  isOurs_ = file_.isOpen();
}

ExtractedFile::~ExtractedFile() {
  if (isOurs_) ::unlinkat(directory_, workingName_.c_str(), 0);
}

bool ExtractedFile::write(std::span<const char> bytes) {
  return writeAll(file_.get(), {bytes.data(), bytes.size()}) == 0;
}

bool ExtractedFile::keepAs(const std::string& name) {
  // Some file systems report only now that what was written had no room.
  if (::close(file_.release()) != 0 && errno != EINTR) return false;
  struct stat facts;
  if (::fstatat(directory_, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0 &&
      !S_ISREG(facts.st_mode))
    return false;
  if (::renameat(directory_, workingName_.c_str(), directory_, name.c_str()) != 0) return false;
  isOurs_ = false;
  return true;
}

}  // namespace quernstoke
