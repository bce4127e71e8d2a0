#include "catalogue/modUnzip.h"

#include <algorithm>
#include <cstring>

#include "catalogue/dirTable.h"
#include "catalogue/extensions.h"
#include "catalogue/fileTable.h"
#include "core/helpers.h"
#include "core/modMain.h"
#include "core/procedure.h"
#include "core/scanState.h"
#include "core/text.h"
#include "platform/archives.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/utf8.h"

namespace quernstoke {

Table<ZipEntry> ZipEntryList;
Int32 ZipEntryCount;
std::string ZipMessages;
bool ZipPasswordOff;

namespace {

constexpr int roomOfExtraction = 1024;
constexpr int growth = 1024;

// The library must not see a failure in a callback: each goes on at its next statement.

// The listing callback.
void DLLMessage(std::string_view name, Int32 size, CivilTime date) {
  const Int32 row = ZipEntryCount + 1;
  ignoringFailure([&] {
    if (row > ZipEntryList.upperBound()) ZipEntryList.redim(ZipEntryCount + growth, true);
  });
  ignoringFailure([&] {
    ZipEntryList[row].name = firstCharacters(name.substr(0, name.find('\0')), longestEntryName);
  });
  ignoringFailure([&] { ZipEntryList[row].size = size; });
  date.second = 0;
  ignoringFailure([&] { ZipEntryList[row].date = dateTime(date); });
  ++ZipEntryCount;
}

// The print callback.
void DLLPrnt(std::string_view bytes) {
  constexpr std::size_t longestText = 32800;
  const std::string_view text = bytes.substr(0, longestText);
  ignoringFailure([&] { ZipMessages += text.starts_with('\n') ? std::string_view("\r\n") : text; });
}

// The password callback.
int DLLPassword(std::span<char> buffer) {
  constexpr int nothingEntered = 1;
  if (ZipPasswordOff) return nothingEntered;
  std::string answer;
  ignoringFailure([&] { answer = dialogs().inputBox("Please Enter The Password!", "", ""); });
  if (answer.empty() || answer.size() >= buffer.size()) {
    ZipPasswordOff = true;
    return nothingEntered;
  }
  std::fill(buffer.begin(), buffer.end(), '\0');
  std::memcpy(buffer.data(), answer.data(), answer.size());
  return 0;
}

// The overwrite callback.
ReplaceAnswer DLLReplace(std::string_view name) {
  Answer answer = Answer::no;
  ignoringFailure([&] {
    answer = dialogs().messageBox("Overwrite " + std::string(name) + "?", Buttons::yesNoCancel,
                                  "Laipaplez - File Already Exists!", Icon::exclamation);
  });
  switch (answer) {
    case Answer::no:
      return ReplaceAnswer::no;
    case Answer::cancel:
      return ReplaceAnswer::cancel;
    default:
      return ReplaceAnswer::yes;
  }
}

// The service callback, which tells the file in progress; nothing is done with it.
void DLLServ(std::string_view /*name*/) {}

class Callbacks : public ArchiveCallbacks {
 public:
  void print(std::string_view bytes) override { DLLPrnt(bytes); }
  ReplaceAnswer replace(std::string_view name) override { return DLLReplace(name); }
  int password(std::span<char> buffer) override { return DLLPassword(buffer); }
  // An entry of 2 GiB or more has no size to be listed with, as such a file of the disk.
  void message(const ArchiveEntry& entry) override {
    Int32 size;
    if (ignoringFailure([&] { size = entry.size; }) == 0) DLLMessage(entry.name, size, entry.date);
  }
  void service(std::string_view name) override { DLLServ(name); }
};

ArchiveOptions listingOptions(std::string_view path) {
  ArchiveOptions options;
  options.PromptToOverwrite = 1;
  options.nvflag = 1;
  options.ndflag = 1;
  options.lpszZipFN = path;
  return options;
}

ArchiveOptions extractionOptions(std::string_view path) {
  ArchiveOptions options;
  options.noflag = 1;
  options.lpszZipFN = path;
  options.lpszExtractDir = TempDir;
  return options;
}

Int16 basCallUnzip(std::span<const std::string> included, const ArchiveOptions& options) {
  Callbacks callbacks;
  return archives().singleEntryUnzip(included, options, callbacks);
}

void forgetLastCall(Int32 room) {
  ZipMessages.clear();
  ZipEntryCount = 0;
  ZipEntryList.redim(room, false);
}

bool isScanning() {
  return RunState != runState::idle && RunState != runState::paused &&
         RunState != runState::aborted && RunState != runState::finished;
}

bool isOfInterest(const ZipEntry& entry) {
  return !entry.name.ends_with('/') && isWithinSizeLimits(entry.size) &&
         basValidateExtension(basGetFileType(entry.name));
}

// The row of a folder inside a zip file.
Int32 folderRow(const std::string& folder, Int32 zipRow) {
  const Int32 known = DirTable.findFolder(folder, zipRow);
  return known != -1 ? known : appendDirRow(folder, dirKind::zipFolder, zipRow, growth);
}

}  // namespace

std::string basScanThisZip(std::string_view path, Int32 row) {
  return procedure("basScanThisZip", [&]() -> std::string {
    basZipTOC(path);
    if (!isScanning()) {
      const ZipEntry& first = ZipEntryList[1];
      return first.size != 0 ? first.name + ";" + toText(first.size) : "";
    }
    for (Int32 i = 1; i <= ZipEntryCount; ++i) {
      const ZipEntry& entry = ZipEntryList[i];
      if (isOfInterest(entry)) basAddZipEntryToDatabase(entry.name, entry.size, entry.date, row);
    }
    return {};
  });
}

void basAddZipEntryToDatabase(std::string_view name, Int32 size, DateTime date, Int32 zipRow) {
  procedure("basAddZipEntryToDatabase", [&] {
    std::string bareName;
    std::string folder;
    basGetFilePath(name, bareName, folder);
    const Int32 directory = folderRow(folder, zipRow);
    if (!bareName.empty()) appendFileRow(bareName, directory, size, date);
  });
}

std::string basZipTOC(std::string_view path) {
  return procedure("basZipTOC", [&] {
    forgetLastCall(roomOfListing);
    return toText(basCallUnzip({}, listingOptions(path)));
  });
}

Int16 basZipExtract(std::string_view path, std::string& entry) {
  return procedure("basZipExtract", [&] {
    forgetLastCall(roomOfExtraction);
    ZipPasswordOff = true;
    entry = withEscapedBrackets(entry);  // The library takes them for a pattern otherwise.
    return basCallUnzip({&entry, 1}, extractionOptions(path));
  });
}

}  // namespace quernstoke
