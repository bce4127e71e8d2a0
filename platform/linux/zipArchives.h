#pragma once

#include <memory>
#include <span>
#include <string>

#include "platform/archives.h"
#include "platform/linux/pathMapping.h"

namespace quernstoke {

// Zip archives, read by libzip. Entry names come out as text whatever the archive's encoding, each
// component as the program's names are, so that none can be taken for a path or break a record.
// The directory of the archive used last is remembered, as its entries are mostly asked for one
// after the other. Its file is open only during a call, so that nothing keeps a medium in use.
class ZipArchives final : public Archives {
 public:
  explicit ZipArchives(DriveTable drives = DriveTable::fromEnvironment());
  ~ZipArchives() override;
  ZipArchives(const ZipArchives&) = delete;
  ZipArchives& operator=(const ZipArchives&) = delete;

  int singleEntryUnzip(std::span<const std::string> included, const ArchiveOptions& options,
                       ArchiveCallbacks& callbacks) override;

 private:
  class OpenArchive;

  OpenArchive* open(const std::string& programPath);

  DriveTable drives_;
  std::unique_ptr<OpenArchive> last_;
};

}  // namespace quernstoke
