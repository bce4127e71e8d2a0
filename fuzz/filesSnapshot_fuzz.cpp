// The snapshot of the files of a scan.

#include <string>

#include "catalogue/fileTable.h"
#include "catalogue/snapshots.h"
#include "core/modMain.h"
#include "fuzz/require.h"
#include "testing/standIns.h"

namespace quernstoke {
namespace {

const std::string path = "C:\\Quernstoke\\Profiles\\Fuzz.files";

void requireBounds() {
  const Int32 upper = FileTable.FileName.upperBound();
  require(FileCount >= 0 && FileCount <= upper, "all files have a row");
  bool sameRows =
      FileTable.FileSize.upperBound() == upper && FileTable.FileDate.upperBound() == upper &&
      FileTable.FileDirNum.upperBound() == upper && FileTable.FileLocalName.upperBound() == upper;
  for (const auto& column : FileTable.FileStatus)
    sameRows = sameRows && column.upperBound() == upper;
  for (const auto& column : FileTable.FileLocalPos)
    sameRows = sameRows && column.upperBound() == upper;
  require(sameRows, "all columns have the same rows");
}

// A quotation mark in a field that was not quoted can't be written; no name of a disk holds one.
// Removed rows are not counted when they are read again, and rows from an empty name on are not
// written.
bool canBeWrittenAsItIs() {
  for (Int32 file = 1; file <= FileCount; ++file) {
    const std::string_view name = FileTable.FileName[file];
    if (name.empty() || FileTable.FileStatus[statusState][file] == fileState::removed) return false;
    if (name.find('"') != name.npos || FileTable.FileLocalName[file].find('"') != name.npos)
      return false;
  }
  return true;
}

void load() {
  basRedimFilesArrays(10, false);  // Grows by 5000 rows, seldom enough.
  require(basLoadFilesList(), "a snapshot is found");
  requireBounds();
}

void tryLoading(const std::string& bytes) {
  StandIns engine;
  ProfileName = "Fuzz";
  engine.disk.file(path, bytes);
  load();
  require(engine.disk.openFiles() == 0, "the snapshot is closed");
  const auto& messages = engine.dialogBoxes.messages;
  require(messages.empty() || FileCount == 0, "of a damaged snapshot nothing is taken");
  require(messages.size() <= 1, "damage is told of once");

  engine.dialogBoxes.messages.clear();
  const Int32 count = FileCount;
  const bool isWhole = canBeWrittenAsItIs();
  basSaveFilesList();
  const std::string saved = engine.disk.content(path);
  load();
  if (!isWhole) return;
  require(messages.empty(), "a snapshot that was saved can be loaded");
  require(FileCount == count, "all files are saved");
  basSaveFilesList();
  require(engine.disk.content(path) == saved, "a snapshot is loaded as it was saved");
}

}  // namespace
}  // namespace quernstoke

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  quernstoke::tryLoading({data, data + size});
  return 0;
}
