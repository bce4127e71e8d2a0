#include "catalogue/walkedFiles.h"

#include <optional>
#include <string_view>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "catalogue/walkRoot.h"
#include "platform/dialogs.h"
#include "platform/fileSystem.h"
#include "platform/platform.h"

namespace quernstoke {

namespace {

using Outcome = Deletion::Outcome;

bool livesOnDisk(Int32 file) {
  return isListedDirectory(FileTable.FileDirNum[file]) && !isInZip(file) &&
         !directoryOf(file).name.empty();
}

bool mayBeSame(Int32 file, Int32 other) {
  const Int32 match = FileTable.FileStatus[statusMatch][file];
  const Int32 otherMatch = FileTable.FileStatus[statusMatch][other];
  if (match >= 0 && otherMatch >= 0) return match == otherMatch;
  return FileTable.FileSize[file] == FileTable.FileSize[other];
}

// A file that two directories lead to is listed twice, as its own duplicate. Returns its other
// path, empty if it has none.
std::string otherPathOf(Int32 file, const std::string& path) {
  for (Int32 other = 1; other <= FileCount; ++other) {
    if (other == file || !mayBeSame(file, other) || !livesOnDisk(other)) continue;
    std::string otherPath = pathOnDisk(other);
    if (files().isSameFile(path, otherPath)) return otherPath;
  }
  return {};
}

// Why the file must not go, empty if it may.
std::string reasonToStay(Int32 file, const std::string& path) {
  try {
    const std::string otherPath = otherPathOf(file, path);
    return otherPath.empty() ? "" : "It is the same file as " + otherPath;
  } catch (const Failure& failure) {
    return failure.description;
  }
}

// Whether nothing stands under the very names that the walk came upon, though the path may still
// lead to a file whose name differs in letter case.
bool hasGone(const std::string& path, std::string_view root) {
  try {
    files().lookWalked(path, root);
    return false;
  } catch (const Failure& failure) {
    return failure.isAbsent();
  }
}

Deletion remove(const WalkedFile& file) {
  try {
    files().removeWalked(file);
    return {Outcome::done};
  } catch (const Failure& failure) {
    if (failure.isAbsent()) return {Outcome::absent};
    const bool hasChanged = failure.is(FailureNumber::fileChanged);
    return {hasChanged ? Outcome::refused : Outcome::failed, failure.description};
  }
}

}  // namespace

std::string pathOnDisk(Int32 file) {
  const std::string& directory = directoryOf(file).name;
  if (directory.empty()) fail(FailureNumber::pathNotFound);
  return directory + "\\" + std::string(FileTable.FileName[file]);
}

Deletion deleteWalkedFile(Int32 file) {
  if (isInZip(file)) return {Outcome::absent};
  const std::optional<std::string_view> root = walkRootOf(directoryOf(file).name);
  if (!root) return {Outcome::absent};
  const std::string path = pathOnDisk(file);
  if (hasGone(path, *root)) return {Outcome::absent};
  const std::string reason = reasonToStay(file, path);
  if (!reason.empty()) return {Outcome::refused, reason};
  return remove({path, *root, FileTable.FileSize[file].raw(), FileTable.FileDate[file]});
}

void showUndeleted(const std::string& path, const std::string& reason) {
  dialogs().messageBox("Unable to delete file " + path + "\r\nReason: " + reason);
}

}  // namespace quernstoke
