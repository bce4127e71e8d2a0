#include "detect/tempStore.h"

#include <algorithm>
#include <optional>
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

void unpackIntoTempDir(const std::string& zipPath, std::string entry, const std::string& target) {
  // The extraction leaves the entry as it was asked for, brackets escaped, and so it is logged.
  if (basZipExtract(zipPath, entry) != 0)
    basLogMsg("Unable to extract file " + entry + " from zip file " + zipPath +
              ". Reason: " + ZipMessages);
  else
    ignoringFailure([&] { files().clearAttributes(target); });
}

// Whether a file lies at a path. Fails if that can't be told.
bool fileLiesAt(const std::string& path) {
  try {
    return (files().attributes(path) & attributeArchive) != 0;
  } catch (const Failure& failure) {
    if (failure.is(FailureNumber::fileNotFound) || failure.is(FailureNumber::pathNotFound))
      return false;
    throw;
  }
}

// A file of the temp directory that has the name of an entry to be extracted. As it may be a
// person's own, it is out of the way meanwhile, and has its name back afterwards.
class SetAside {
 public:
  explicit SetAside(const std::string& path) : path_(path) {
    if (!fileLiesAt(path)) return;
    Int32 number = 1;
    while (fileLiesAt(asideName(number)))
      ++number;
    std::string name = asideName(number);
    files().rename(path, name);
    aside_ = std::move(name);
  }
  ~SetAside() {
    if (aside_.empty()) return;
    ignoringFailure([&] {
      // An entry that could not be moved away would keep the name.
      if (fileLiesAt(path_)) files().remove(path_);
    });
    if (ignoringFailure([&] { files().rename(aside_, path_); }) != 0)
      basLogMsg("Unable to rename file " + aside_ + " back to " + path_);
  }
  SetAside(const SetAside&) = delete;
  SetAside& operator=(const SetAside&) = delete;

 private:
  static std::string asideName(Int32 number) { return TempDir + "\\KEPT" + toText(number); }

  std::string path_;
  std::string aside_;
};

std::string moveToTempName(const std::string& extracted) {
  while (basFileExists(tempName(TempFileCounter)))
    ++TempFileCounter;
  files().rename(extracted, tempName(TempFileCounter));
  return tempName(TempFileCounter);
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
    std::string path;
    if (!name.empty()) {
      if (basFileExists(name)) path = name;
    } else {
      do {
        path = tempName(TempFileCounter);
        ++TempFileCounter;
      } while (basFileExists(path));
      name = path;
    }
    return files().open(path, OpenMode::binary);
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
    const std::string extracted = TempDir + "\\" + fileName;
    std::optional<SetAside> inTheWay;
    if (!keepName) inTheWay.emplace(extracted);
    unpackIntoTempDir(zipPath, innerDir.empty() ? fileName : innerDir + "/" + fileName, extracted);
    if (!basFileExists(extracted)) return {};

    std::string result = keepName ? extracted : moveToTempName(extracted);
    TempUsedKB += Int32(files().length(result)) / bytesPerKB;
    ++TempFileCounter;
    return result;
  });
}

void basDeleteTempFile(const std::string& path) {
  procedure("basDeleteTempFile", [&] {
    if (path.empty() || !path.starts_with(TempDir)) return;
    std::string rest = path.substr(std::min(TempDir.size() + 1, path.size()));
    if (leadsUpward(rest)) return;
    while (!rest.empty()) {
      deleteInTempDir(TempDir + "\\" + rest);
      const std::size_t cut = rest.find_last_of("\\/:");
      rest.erase(cut == std::string::npos ? 0 : cut);
    }
  });
}

}  // namespace quernstoke
