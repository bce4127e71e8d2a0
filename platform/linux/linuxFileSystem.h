#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <sys/stat.h>

#include "platform/fileSystem.h"
#include "platform/linux/descriptor.h"
#include "platform/linux/localTime.h"
#include "platform/linux/openFiles.h"
#include "platform/linux/passedOver.h"
#include "platform/linux/pathMapping.h"

namespace quernstoke {

// The disk as Linux has it. A path that isn't found as it is written is looked for again without
// regard to letter case; what is made new keeps the case given. It outlives its listings.
class LinuxFileSystem final : public FileSystem {
 public:
  explicit LinuxFileSystem(DriveTable drives = DriveTable::fromEnvironment());

  std::unique_ptr<DirectoryListing> list(std::string_view directory, int mask) override;
  bool canEnter(std::string_view directory) override;
  void makeDirectory(std::string_view path) override;
  void removeDirectory(std::string_view path) override;

  int attributes(std::string_view path) override;
  void clearAttributes(std::string_view path) override;
  std::int32_t length(std::string_view path) override;
  DateTime modified(std::string_view path) override;
  void remove(std::string_view path) override;
  std::string nameOnDisk(std::string_view path) override;
  SeenFile lookWalked(std::string_view path, std::string_view root) override;
  void removeWalked(const WalkedFile& file) override;
  void removeSeen(std::string_view path, std::string_view root, const SeenFile& before) override;
  WalkedCopy copyWalked(std::string_view path, std::string_view root, std::string_view to) override;
  bool isSameFile(std::string_view path, std::string_view other) override;
  void rename(std::string_view from, std::string_view to) override;

  FileNumber open(std::string_view path, OpenMode mode) override;
  std::size_t read(FileNumber file, std::span<char> into) override;
  void write(FileNumber file, std::string_view bytes) override;
  void seek(FileNumber file, std::int64_t position) override;
  std::int64_t openLength(FileNumber file) override;
  bool atEnd(FileNumber file) override;
  void close(FileNumber file) override;

  const DriveTable& drives() const { return drives_; }
  PassedOver passedOver() const;
  // Regular files that listings have given out.
  std::int64_t filesMet() const { return tally_.filesMet; }

 private:
  const std::string& toLinux(std::string_view path);
  Descriptor openRoot(std::string_view root);
  SeenFile seen(const struct stat& facts);
  template <class Refuse>
  void removeBelowRoot(std::string_view path, std::string_view root, Refuse refuse);
  // Nothing if the path leads nowhere.
  std::optional<struct stat> factsIfThere(std::string_view path);

  DriveTable drives_;
  LocalTime localTime_;
  FileTally tally_;
  OpenFiles openFiles_{tally_};
  std::string linuxPath_;  // Of the path at hand; kept so that its memory is used again.
};

}  // namespace quernstoke
