#include "detect/tempStore.h"

#include <algorithm>
#include <utility>

#include "catalogue/modUnzip.h"
#include "core/helpers.h"
#include "core/log.h"
#include "core/modMain.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "core/scanState.h"
#include "core/text.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "progress/scanStatus.h"

namespace quernstoke {

bool LocalCopyActive;
Int32 TempSpaceBudgetKB;
Int32 TempUsedKB;
Int32 TempFileCounter;

namespace {

constexpr int bytesPerKB = 1024;

std::string tempName(Int32 number) {
  return TempDir + "\\TMP" + toText(number);
}

// Runs a statement and logs its failure; `message` makes the line from the failure.
template <class Statement, class Message>
void orLog(Statement statement, Message message) {
  try {
    statement();
  } catch (const Failure& failure) {
    basLogMsg(message(failure));
  }
}

// Whether anything has this path, letter case apart. Fails if that can't be told.
bool isTaken(const std::string& path) {
  try {
    files().attributes(path);
    return true;
  } catch (const Failure& failure) {
    if (failure.isAbsent()) return false;
    throw;
  }
}

void logFailedExtraction(const std::string& entry, const std::string& zipPath,
                         const std::string& reason) {
  basLogMsg("Unable to extract file " + entry + " from zip file " + zipPath +
            ". Reason: " + reason);
}

// Whether the entry was unpacked.
bool unpackIntoTempDir(const std::string& zipPath, std::string entry, const std::string& target) {
  // The extraction leaves the entry as it was asked for, brackets escaped, and so it is logged.
  if (basZipExtract(zipPath, entry) != 0) {
    logFailedExtraction(entry, zipPath, ZipMessages);
    return false;
  }
  ignoringFailure([&] { files().clearAttributes(target); });
  return true;
}

// False if something has that name after all, such as a link that leads nowhere.
bool renameUnlessTaken(const std::string& from, const std::string& to) {
  try {
    files().rename(from, to);
    return true;
  } catch (const Failure& failure) {
    if (failure.is(FailureNumber::fileAlreadyExists)) return false;
    throw;
  }
}

// A file that an entry has become. It goes again unless it is kept, so that whatever fails leaves
// none that nobody knows of: under its own name it would be in the way of each entry of that name
// to come.
class ExtractedFile {
 public:
  explicit ExtractedFile(std::string path) : path_(std::move(path)) {}
  ~ExtractedFile() {
    if (path_.empty()) return;
    ignoringFailure([&] {
      if (isTaken(path_)) files().remove(path_);
    });
  }
  ExtractedFile(const ExtractedFile&) = delete;
  ExtractedFile& operator=(const ExtractedFile&) = delete;

  const std::string& path() const { return path_; }

  void moveToTempName() {
    for (;; ++TempFileCounter) {
      std::string name = tempName(TempFileCounter);
      if (isTaken(name) || !renameUnlessTaken(path_, name)) continue;
      path_ = std::move(name);
      return;
    }
  }
  std::string keep() { return std::exchange(path_, {}); }

 private:
  std::string path_;
};

// Returns 0 if a link that leads nowhere has that name: a file that is missing would be made.
FileNumber openUnlessTaken(const std::string& path) {
  try {
    return files().open(path, OpenMode::binary);
  } catch (const Failure& failure) {
    if (failure.is(FailureNumber::fileAlreadyExists) || failure.is(FailureNumber::fileNotFound))
      return 0;
    throw;
  }
}

void deleteFileOfTempDir(const std::string& path) {
  orLog(
      [&] {
        TempUsedKB -= Int32(files().length(path)) / bytesPerKB;
        files().clearAttributes(path);
        files().remove(path);
      },
      [&](const Failure& failure) {
        return "Unable to delete temp file " + path + ". Reason=" + failure.description;
      });
}

void removeDirectoryOfTempDir(const std::string& path) {
  orLog(
      [&] {
        files().clearAttributes(path);
        files().removeDirectory(path);
      },
      [&](const Failure&) { return "Error deleting directory " + path; });
}

// Whether a path below TempDir leads out of it again.
bool leadsUpward(std::string_view path) {
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of("\\/"), path.size());
    if (path.substr(0, end) == "..") return true;
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return false;
}

void deleteInTempDir(const std::string& path) {
  int attributes = 0;
  if (ignoringFailure([&] { attributes = files().attributes(path); }) != 0) return;
  if ((attributes & attributeDirectory) != 0)
    removeDirectoryOfTempDir(path);
  else
    deleteFileOfTempDir(path);
}

}  // namespace

FileNumber basOpenTempFile(std::string& name) {
  return procedure("basOpenTempFile", [&]() -> FileNumber {
    if (!name.empty()) return files().open(basFileExists(name) ? name : "", OpenMode::binary);
    for (;;) {
      std::string path = tempName(TempFileCounter);
      ++TempFileCounter;
      if (isTaken(path)) continue;
      name = std::move(path);
      const FileNumber file = openUnlessTaken(name);
      if (file != 0) return file;
      name.clear();
    }
  });
}

std::string basExtractZipEntry(const std::string& zipPath, const std::string& innerDir,
                               const std::string& fileName, bool keepName) {
  return procedure("basExtractZipEntry", [&]() -> std::string {
    if (RunState == runState::comparing) {
      std::string archive;
      std::string directory;
      basGetFilePath(zipPath, archive, directory);
      basUpdateStatusFields("Extracting data from Zip file " + archive, -1, 0);
    }
    if (TempUsedKB > TempSpaceBudgetKB) {
      dialogs().messageBox("Temp directory Full. File not extracted from Zip or compared");
      return {};
    }
    const std::string entry = innerDir.empty() ? fileName : innerDir + "/" + fileName;
    std::string extracted = TempDir + "\\" + fileName;
    // What lies there already may be a person's own, and is neither replaced nor taken for the
    // entry.
    if (isTaken(extracted)) {
      ZipMessages.clear();  // Those are of another extraction.
      logFailedExtraction(entry, zipPath, extracted + " exists");
      return {};
    }
    const bool unpacked = unpackIntoTempDir(zipPath, entry, extracted);
    const bool isSeen = basFileExists(extracted);
    if (!unpacked && !isSeen) return {};
    ExtractedFile file(std::move(extracted));
    if (!isSeen) return {};

    if (!keepName) file.moveToTempName();
    TempUsedKB += Int32(files().length(file.path())) / bytesPerKB;
    ++TempFileCounter;
    return file.keep();
  });
}

void basDeleteTempFile(const std::string& path) {
  procedure("basDeleteTempFile", [&] {
    if (path.empty() || !path.starts_with(TempDir)) return;
    std::string rest = path.substr(TempDir.size());
    // Another directory's name may begin like that of TempDir.
    if (rest.find_first_of("\\/") != 0) return;
    rest.erase(0, rest.find_first_not_of("\\/"));
    if (leadsUpward(rest)) return;
    while (!rest.empty()) {
      deleteInTempDir(TempDir + "\\" + rest);
      const std::size_t cut = rest.find_last_of("\\/:");
      rest.erase(cut == std::string::npos ? 0 : cut);
    }
  });
}

}  // namespace quernstoke
