#pragma once

#include <string>
#include <string_view>
#include <sys/stat.h>

#include "platform/fileSystem.h"
#include "platform/linux/directoryReader.h"
#include "platform/linux/localTime.h"
#include "platform/linux/passedOver.h"

namespace quernstoke {

// One open directory. An entry's facts are read at most once, and only when they are needed.
class LinuxDirectoryListing final : public DirectoryListing {
 public:
  // `path` is the directory's Linux path, for the tally. The tally and the local time outlive this.
  LinuxDirectoryListing(Descriptor directory, std::string path, int mask, FileTally& tally,
                        LocalTime& localTime);

  bool next() override;
  std::string_view name() const override { return name_; }
  bool isDirectory() const override { return isDirectory_; }
  int attributes() override;
  std::int32_t size() override;
  DateTime modified() override;

 private:
  bool isGivenOut();
  bool isDirectoryGivenOut();
  bool isPassedOver(int type);
  bool readFacts();
  const struct statx& facts();
  [[noreturn]] void failUnreadable(int error);

  DirectoryReader reader_;
  std::string path_;
  int mask_;
  FileTally& tally_;
  LocalTime& localTime_;

  // Of the current entry.
  bool isDirectory_ = false;
  bool hasFacts_ = false;
  bool isCountedTooLarge_ = false;
  struct statx facts_;
  std::string_view name_;
  std::string mappedName_;
};

}  // namespace quernstoke
