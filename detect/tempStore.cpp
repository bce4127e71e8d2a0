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

void unpackIntoTempDir(const std::string& zipPath, std::string entry, const std::string& target) {
  // The extraction leaves the entry as it was asked for, brackets escaped, and so it is logged.
  if (basZipExtract(zipPath, entry) != 0)
    logFailedExtraction(entry, zipPath, ZipMessages);
  else
    ignoringFailure([&] { files().clearAttributes(target); });
}

// A file that can't have a temp name goes: under its own it would be in the way of each entry of
// that name to come.
std::string moveToTempName(const std::string& extracted) {
  try {
    while (isTaken(tempName(TempFileCounter)))
      ++TempFileCounter;
    files().rename(extracted, tempName(TempFileCounter));
  } catch (const Failure&) {
    ignoringFailure([&] { files().remove(extracted); });
    throw;
  }
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
      } while (isTaken(path));
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
    const std::string entry = innerDir.empty() ? fileName : innerDir + "/" + fileName;
    const std::string extracted = TempDir + "\\" + fileName;
    // What lies there already may be a person's own, and is neither replaced nor taken for the
    // entry.
    if (isTaken(extracted)) {
      ZipMessages.clear();  // Those are of another extraction.
      logFailedExtraction(entry, zipPath, extracted + " exists");
      return {};
    }
    unpackIntoTempDir(zipPath, entry, extracted);
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
