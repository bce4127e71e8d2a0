#include "catalogue/fileTable.h"

#include "catalogue/dirTable.h"
#include "core/procedure.h"
#include "core/scanState.h"
#include "core/text.h"

namespace quernstoke {

FileTableRecord FileTable;
Int32 FileCount;

namespace {

constexpr int growth = 5000;

// The number of the file of this name in this directory, or 0.
Int32 findFile(std::string_view name, Int32 directory) {
  const std::string wanted = lower(name);
  for (Int32 file = 1; file <= FileCount; ++file)
    if (FileTable.FileDirNum[file] == directory && lower(FileTable.FileName[file]) == wanted)
      return file;
  return 0;
}

}  // namespace

void basRedimFilesArrays(Int32 upper, bool preserve) {
  procedure("basRedimFilesArrays", [&] {
    FileTable.FileName.redim(upper, preserve);
    FileTable.FileSize.redim(upper, preserve);
    FileTable.FileDate.redim(upper, preserve);
    FileTable.FileDirNum.redim(upper, preserve);
    for (auto& column : FileTable.FileStatus)
      column.redim(upper, preserve);
    FileTable.FileLocalName.redim(upper, preserve);
    for (auto& column : FileTable.FileLocalPos)
      column.redim(upper, preserve);
    if (preserve) return;
    for (Int32 row = 0; row <= upper; ++row) {
      FileTable.FileLocalPos[localPosLowest][row] = -1;
      FileTable.FileLocalPos[localPosHighest][row] = -1;
    }
  });
}

void appendFileRow(std::string_view name, Int32 directory, Int32 size, DateTime date) {
  ++FileCount;
  if (FileCount >= FileTable.FileName.upperBound()) basRedimFilesArrays(FileCount + growth, true);
  FileTable.FileName.set(FileCount, name);
  FileTable.FileDirNum[FileCount] = directory;
  FileTable.FileSize[FileCount] = size;
  FileTable.FileDate[FileCount] = date;
  FileTable.FileStatus[statusMatch][FileCount] = noMatch;
  FileTable.FileStatus[statusTick][FileCount] = 0;
  FileTable.FileStatus[statusState][FileCount] = fileState::normal;
  FileTable.FileStatus[statusTemporary][FileCount] = RunState == runState::idle ? 1 : 0;
}

Int32 basAddFileToList(std::string_view name, Int32 directory, Int32 size, DateTime date) {
  return procedure("basAddFileToList", [&] {
    if (RunState == runState::idle) {
      const Int32 known = findFile(name, directory);
      if (known != 0) return known;
    }
    appendFileRow(name, directory, size, date);
    FileTable.FileStatus[statusChain][FileCount] = noChain;
    return FileCount;
  });
}

std::string basGetDirnameFromFilenum(Int32 file) {
  return procedure("basGetDirnameFromFilenum", [&] {
    const DirRow& row = DirTable[FileTable.FileDirNum[file]];
    if (row.kind != dirKind::zipFolder) return row.name;
    std::string name = DirTable[row.parent].name;
    if (!row.name.empty()) name += " >> " + row.name;
    return name;
  });
}

const DirRow& directoryOf(Int32 file) {
  return listedDirectory(FileTable.FileDirNum[file]);
}

bool isInZip(Int32 file) {
  return directoryOf(file).kind == dirKind::zipFolder;
}

const std::string& containerDirectory(Int32 file) {
  const DirRow& directory = directoryOf(file);
  if (directory.kind != dirKind::zipFolder) return directory.name;
  return listedDirectory(listedDirectory(directory.parent).parent).name;
}

void copyFileRow(Int32 from, Int32 to) {
  FileTable.FileSize[to] = FileTable.FileSize[from];
  FileTable.FileDate[to] = FileTable.FileDate[from];
  FileTable.FileDirNum[to] = FileTable.FileDirNum[from];
  FileTable.FileName.copy(from, to);
  for (auto& column : FileTable.FileStatus)
    column[to] = column[from];
}

}  // namespace quernstoke
