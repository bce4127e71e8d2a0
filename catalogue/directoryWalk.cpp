#include "catalogue/directoryWalk.h"

#include <memory>
#include <utility>

#include "catalogue/dirTable.h"
#include "catalogue/extensions.h"
#include "catalogue/fileTable.h"
#include "catalogue/modUnzip.h"
#include "core/helpers.h"
#include "core/log.h"
#include "core/modMain.h"
#include "core/procedure.h"
#include "core/scanState.h"
#include "core/sizesAndDurations.h"
#include "core/text.h"
#include "platform/clock.h"
#include "platform/fileSystem.h"
#include "platform/platform.h"
#include "platform/windows.h"
#include "progress/scanStatus.h"
#include "settings/settings.h"

namespace quernstoke {

namespace {

// Rows of directories and zip files that are still to be entered.
class PendingRows {
 public:
  PendingRows() { rows_.redim(growth, false); }

  void append(Int32 row) {
    if (count_ > rows_.upperBound()) rows_.redim(rows_.upperBound() + growth, true);
    rows_[count_] = row;
    ++count_;
  }
  Int32 count() const { return count_; }
  Int32 operator[](Int32 index) const { return rows_[index]; }

 private:
  static constexpr int growth = 255;

  Table<Int32> rows_;
  Int32 count_;
};

void showWalkProgress() {
  if (ScanDetailsShown)
    frmScanStatus().labElapsedTime(basDateToDuration(ScanStartTime, systemClock().now(), 0));
  basUpdateStatusFields("", -1, 0);
}

// A directory at its first entry, whose reading belongs to the opening. Null if there is none or,
// with a line in the log, if the directory can't be read.
std::unique_ptr<DirectoryListing> listOrLog(const std::string& path) {
  std::unique_ptr<DirectoryListing> listing;
  bool hasEntry = false;
  const int failure = ignoringFailure([&] {
    listing = files().list(path, ScanAttributes.raw());
    hasEntry = listing->next();
  });
  if (failure != 0) basLogMsg("Error reading directory " + path);
  return hasEntry ? std::move(listing) : nullptr;
}

// An entry whose attributes can't be read counts as a file.
int attributesOrLog(DirectoryListing& entry, const std::string& path) {
  int attributes = 0;
  if (ignoringFailure([&] { attributes = entry.attributes(); }) != 0)
    basLogMsg("Error reading directory entry " + path + "\\" + std::string(entry.name()));
  return attributes;
}

bool isExcluded(const std::string& path) {
  for (Int16 slot = 1; !ProfileDirList[slot].Dir.empty(); ++slot) {
    const DirSpec& spec = ProfileDirList[slot];
    if (spec.IncludeExclude == "E" && appliesTo(spec, path)) return true;
  }
  return false;
}

bool isPassedOver(const std::string& path) {
  // The two names are compared with the whole path: those of a drive are scanned as any other.
  return equalIgnoringCase(path, TempDir) || equalIgnoringCase(path, "system volume information") ||
         equalIgnoringCase(path, "recycled") || isExcluded(path);
}

// A file as the walk finds it.
struct FoundFile {
  char kind = dirKind::none;
  Int32 size;
  DateTime modified;
};

FoundFile examineFile(DirectoryListing& entry) {
  FoundFile found;
  const std::string extension = basGetFileType(entry.name());
  if (extension == "ZIP" && ProfileSettings.ProcessZip) {
    found.kind = dirKind::zipFile;
    return found;
  }
  if (ignoringFailure([&] { found.size = entry.size(); }) != 0) return found;
  found.modified = entry.modified();
  if (basValidateExtension(extension) && isWithinSizeLimits(found.size)) found.kind = dirKind::file;
  return found;
}

void addPending(const std::string& path, char kind, Int32 parent, PendingRows& pending) {
  bool existed = false;
  pending.append(basAddDirToList(path, kind, parent, existed));
}

void takeEntry(DirectoryListing& entry, const std::string& path, Int32 row, PendingRows& pending) {
  const auto fullPath = [&] { return path + "\\" + std::string(entry.name()); };
  if ((attributesOrLog(entry, path) & attributeDirectory) != 0) {
    const std::string directory = fullPath();
    if (!isPassedOver(directory)) addPending(directory, dirKind::directory, row, pending);
    return;
  }
  const FoundFile found = examineFile(entry);
  if (found.kind == dirKind::zipFile)
    addPending(fullPath(), dirKind::zipFile, row, pending);
  else if (found.kind == dirKind::file)
    basAddFileToList(entry.name(), row, found.size, found.modified);
}

void takeEntries(DirectoryListing& listing, const std::string& path, Int32 row,
                 PendingRows& pending) {
  constexpr int filesPerUpdate = 500;
  for (bool hasEntry = true; hasEntry && basCheckRunState(); hasEntry = listing.next()) {
    if (listing.name() == "." || listing.name() == "..") continue;
    if (ScanDetailsShown && FileCount % filesPerUpdate == 0) showWalkProgress();
    takeEntry(listing, path, row, pending);
  }
}

void enterPending(const PendingRows& pending, Int32& row) {
  for (Int32 i = 0; i < pending.count(); ++i) {
    row = pending[i];
    // Copies: the table moves while it grows.
    const std::string name = DirTable[row].name;
    const char kind = DirTable[row].kind;
    if (kind == dirKind::directory) basScanThisDirectory(name, row);
    if (kind == dirKind::zipFile) basScanThisZip(name, row);
    if (!basCheckRunState()) return;
  }
}

}  // namespace

void prepareWalk() {
  constexpr int readOnlyDirectoryAndArchive =
      attributeReadOnly | attributeDirectory | attributeArchive;
  MinSizeBytes = basConvertSize(ProfileSettings.MinimumSize, ProfileSettings.MinimumSizeMeasure);
  MaxSizeBytes = basConvertSize(ProfileSettings.MaximumSize, ProfileSettings.MaximumSizeMeasure);
  ScanAttributes = readOnlyDirectoryAndArchive +
                   (ProfileSettings.ScanHiddenFiles ? attributeHidden : 0) +
                   (ProfileSettings.ScanSystemFiles ? attributeSystem : 0);
}

void basBuildDirectoryList() {
  procedure("basBuildDirectoryList", [&] {
    basUpdateStatusFields("Building file list...  ", -1, 0);
    for (Int16 slot = 1; !ProfileDirList[slot].Dir.empty(); ++slot) {
      const DirSpec& spec = ProfileDirList[slot];
      if (spec.IncludeExclude != "I") continue;
      std::string path = spec.Dir;
      if (path.ends_with('\\')) path.pop_back();
      basBuildExtensionList(spec.IncludeExtensions, ExtensionList);
      // After an abort each remaining include still gets its row, and ends at once.
      Int32 row = noParent;
      basScanThisDirectory(path, row);
    }
    if (DirCount > 0) DirTable.redim(DirCount, true);
  });
}

void basScanThisDirectory(const std::string& path, Int32& row) {
  procedure("basScanThisDirectory", [&] {
    constexpr int rowsPerUpdate = 50;
    PendingRows pending;
    if (row % rowsPerUpdate == 0) {
      showWalkProgress();
      showPercentWhenMinimised();
    }
    if (row == noParent) {
      bool existed = false;
      row = basAddDirToList(path, dirKind::directory, noParent, existed);
    }
    if (const auto listing = listOrLog(path)) takeEntries(*listing, path, row, pending);
    enterPending(pending, row);
  });
}

}  // namespace quernstoke
