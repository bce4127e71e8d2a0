#include "catalogue/snapshots.h"

#include <string>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "catalogue/sequentialText.h"
#include "core/modMain.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "platform/dialogs.h"
#include "platform/platform.h"

namespace quernstoke {

namespace {

std::string snapshotPath(const char* extension) {
  return ProfilesDir + "\\" + ProfileName + extension;
}

// Runs the steps of a procedure that tells of any failure in words of its own.
template <class Steps>
void orTell(const std::string& message, Steps steps) {
  if (ignoringFailure(steps) != 0) dialogs().messageBox(message);
}

void writeFileRow(SequentialWriter& writer, Int32 file) {
  writer.field(FileTable.FileName[file])
      .field(FileTable.FileDirNum[file])
      .field(FileTable.FileSize[file])
      .field(FileTable.FileDate[file])
      .field(FileTable.FileStatus[statusMatch][file])
      .field(FileTable.FileStatus[statusTick][file])
      .field(FileTable.FileStatus[statusState][file])
      .field(FileTable.FileLocalName[file])
      .endRecord();
}

void readFileRow(SequentialReader& reader, Int32 file) {
  FileTable.FileName.set(file, reader.text());
  FileTable.FileDirNum[file] = reader.number();
  FileTable.FileSize[file] = reader.number();
  FileTable.FileDate[file] = reader.date();
  FileTable.FileStatus[statusMatch][file] = reader.number();
  FileTable.FileStatus[statusTick][file] = reader.number();
  FileTable.FileStatus[statusState][file] = reader.number();
  FileTable.FileLocalName.set(file, reader.text());
}

void readFileRows(SequentialReader& reader) {
  constexpr int growth = 5000;
  for (Int32 row = 1; !reader.atEnd(); ++row) {
    if (ignoringFailure([&] { readFileRow(reader, row); }) != 0) {
      dialogs().messageBox("Error loading old files list. List ignored");
      FileCount = 0;
      return;
    }
    // Removed rows keep their place and are not counted, so that as many rows at the end of the
    // table are cut off.
    if (FileTable.FileStatus[statusState][row] != fileState::removed) ++FileCount;
    if (row >= FileTable.FileName.upperBound()) basRedimFilesArrays(row + growth, true);
  }
}

// The number of a line, which is the count of directories so far. Rows are written without gaps, so
// that a number far ahead of the lines before it is damage: neither the table nor anybody who goes
// by DirCount must take all of the machine's memory for it.
Int32 readDirCount(SequentialReader& reader, Int32 row) {
  constexpr int farthestAhead = 1000000;
  const Int32 number = reader.number();
  if (number >= DirTable.upperBound() && number > row + farthestAhead)
    fail(FailureNumber::outOfMemory);
  return number;
}

// Makes room for row DirCount.
void growDirTable() {
  constexpr int growth = 1024;
  if (DirCount >= DirTable.upperBound()) DirTable.redim(DirCount + growth, true);
}

}  // namespace

void basSaveFilesList() {
  const std::string path = snapshotPath(".files");
  orTell("Error saving results to file '" + path + "'. Process aborted", [&] {
    const FileNumber file = files().open(path, OpenMode::output);
    SequentialWriter writer(file);
    for (Int32 i = 1; i <= FileCount && !FileTable.FileName[i].empty(); ++i)
      writeFileRow(writer, i);
    writer.flush();
    files().close(file);
  });
}

void basSaveDirTable() {
  const std::string path = snapshotPath(".dir");
  orTell("Error saving results to file '" + path + "'. Process aborted", [&] {
    const FileNumber file = files().open(path, OpenMode::output);
    SequentialWriter writer(file);
    for (Int32 i = 1; i <= DirCount; ++i) {
      const DirRow& row = DirTable[i];
      writer.field(i).field(row.name).field(std::string_view(&row.kind, 1)).field(row.parent);
      writer.endRecord();
    }
    writer.flush();
    files().close(file);
  });
}

bool basLoadFilesList() {
  return procedure("basLoadFilesList", [&] {
    FileCount = 0;
    const std::string path = snapshotPath(".files");
    if (!basFileExists(path)) return false;
    const FileNumber file = files().open(path, OpenMode::input);
    SequentialReader reader(file);
    readFileRows(reader);
    files().close(file);
    if (FileCount > 0) basRedimFilesArrays(FileCount, true);
    return true;
  });
}

void basLoadDirTable() {
  const std::string path = snapshotPath(".dir");
  orTell("Error loading results from file '" + path + "'. Process aborted", [&] {
    DirCount = 0;
    if (!basFileExists(path)) return;
    const FileNumber file = files().open(path, OpenMode::input);
    SequentialReader reader(file);
    for (Int32 row = 1; !reader.atEnd(); ++row) {
      DirCount = readDirCount(reader, row);
      const std::string name = reader.text();
      const std::string kind = reader.text();
      const Int32 parent = reader.number();
      growDirTable();
      const bool temporary = DirTable[row].temporary;
      DirTable.set(row, {name, kind.empty() ? dirKind::none : kind.front(), parent, temporary});
    }
    DirTable.redim(DirCount < 0 ? Int32(0) : DirCount, true);
    files().close(file);
  });
}

void basResetLocalFilesList() {
  procedure("basResetLocalFilesList", [&] {
    for (Int32 file = 1; file <= FileCount; ++file)
      FileTable.FileLocalName.set(file, "");
  });
}

}  // namespace quernstoke
