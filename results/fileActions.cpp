#include "results/fileActions.h"

#include <algorithm>
#include <optional>
#include <string>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "catalogue/modUnzip.h"
#include "catalogue/walkRoot.h"
#include "controls/flexGridModel.h"
#include "core/modMain.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "core/system.h"
#include "core/text.h"
#include "detect/tempStore.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/fileSystem.h"
#include "platform/platform.h"
#include "results/fileRows.h"
#include "results/gridPaging.h"
#include "results/gridSelection.h"
#include "results/gridTicks.h"
#include "results/localCopies.h"
#include "results/resultsControls.h"

namespace quernstoke {

namespace {

const DirRow& directoryOf(Int32 file) {
  return listedDirectory(FileTable.FileDirNum[file]);
}

bool isInZip(const DirRow& directory) {
  return directory.kind == dirKind::zipFolder;
}

std::string pathOnDisk(Int32 file) {
  return directoryOf(file).name + "\\" + std::string(FileTable.FileName[file]);
}

bool isNotThere(const Failure& failure) {
  return failure.is(FailureNumber::fileNotFound) || failure.is(FailureNumber::pathNotFound);
}

// Removes the file. Returns whether it was there.
bool removeFromDisk(Int32 file, const std::string& path) {
  const std::optional<std::string_view> root = walkRootOf(directoryOf(file).name);
  if (!root) return false;
  try {
    files().removeWalked({path, *root, FileTable.FileSize[file].raw(), FileTable.FileDate[file]});
    return true;
  } catch (const Failure& failure) {
    if (isNotThere(failure)) return false;
    throw;
  }
}

bool livesOnDisk(Int32 file) {
  return FileTable.FileStatus[statusState][file] != fileState::deleted &&
         isListedDirectory(FileTable.FileDirNum[file]) && !isInZip(directoryOf(file));
}

bool holds(std::string_view directory, std::string_view name) {
  constexpr int anything =
      attributeReadOnly | attributeHidden | attributeSystem | attributeDirectory | attributeArchive;
  const auto listing = files().list(directory, anything);
  while (listing->next())
    if (listing->name() == name) return true;
  return false;
}

// Whether the file stands under the very names that the walk came upon. What can't be told counts
// as standing.
bool standsAsWalked(Int32 file) {
  const std::optional<std::string_view> root = walkRootOf(directoryOf(file).name);
  if (!root) return false;
  const std::string path = pathOnDisk(file);
  const std::string_view names = path;
  try {
    for (std::size_t at = root->size(); at < names.size();) {
      const std::size_t end = std::min(names.find('\\', at + 1), names.size());
      if (!holds(names.substr(0, at), names.substr(at + 1, end - at - 1))) return false;
      at = end;
    }
  } catch (const Failure& failure) {
    return !isNotThere(failure);
  }
  return true;
}

// A file that two directories of the profile lead to is listed twice, as its own duplicate. Returns
// its other path, empty if it has none. One that has gone has none either, though its path may
// still lead to a file whose name differs in letter case.
std::string otherPathOf(Int32 file, const std::string& path) {
  const Table<Int32>& matches = FileTable.FileStatus[statusMatch];
  if (matches[file] < 0) return {};
  for (Int32 other = 1; other <= FileCount; ++other) {
    if (other == file || matches[other] != matches[file] || !livesOnDisk(other)) continue;
    std::string otherPath = pathOnDisk(other);
    if (files().isSameFile(path, otherPath)) return standsAsWalked(file) ? otherPath : "";
  }
  return {};
}

void showUndeleted(const std::string& path, const std::string& reason) {
  dialogs().messageBox("Unable to delete file " + path + "\r\nReason: " + reason);
}

void deleteRow(FlexGridModel& grid, Int32 row) {
  const Int32 file = grid.rowData(row);
  bool deleted = false;
  basDeleteFileFromGrid(file, deleted);
  if (!deleted) return;
  grid.setRow(row);
  grid.setCol(resultsColumn::name);
  grid.editCell(row, resultsColumn::name).strikeThrough = true;
  basFlexCheckMark(file, grid, row, resultsColumn::tick, FileTable.FileStatus[statusTick][file]);
}

void deleteSelected(FlexGridModel& grid) {
  const RowArea range = selectedRows(grid);
  for (Int32 row = range.firstRow; row <= range.lastRow; ++row)
    if (grid.rowData(row) >= 0) deleteRow(grid, row);
}

bool isTicked(Int32 file) {
  return FileTable.FileStatus[statusTick][file] == 1;
}

// Those of all pages.
Int16 countTicked() {
  Int16 count;
  for (Int32 file = 1; file <= FileCount; ++file)
    if (isTicked(file)) ++count;
  return count;
}

void deleteTicked(FlexGridModel& grid) {
  const Int16 count = countTicked();
  if (count == 0) {
    dialogs().messageBox("Nothing selected");
    return;
  }
  const Answer answer =
      dialogs().messageBox("Delete all " + toText(Int32(count)) + " selected files?",
                           Buttons::yesNo, "Delete warning", Icon::none);
  if (answer != Answer::yes) return;
  for (Int32 row = 1; row < grid.rows(); ++row)
    if (grid.rowData(row) >= 0 && isTicked(grid.rowData(row))) deleteRow(grid, row);
}

void showUnopenable(const std::string& path) {
  dialogs().messageBox("Can't open file '" + path + "'");
}

std::string extract(Int32 file) {
  const std::string name(FileTable.FileName[file]);
  const std::string path = TempDir + "\\" + name;
  // A copy of another row gives way. What is nobody's copy is a person's own, and stays.
  deleteLocalCopiesAt(path);
  if (basFileExists(path)) {
    showUnopenable(path);
    return {};
  }
  const DirRow& folder = directoryOf(file);
  std::string copy =
      basExtractZipEntry(listedDirectory(folder.parent).name, folder.name, name, true);
  if (copy.empty() && lower(ZipMessages).find("incorrect password") != std::string::npos)
    dialogs().messageBox("Can not launch file as the Zip file requires a password");
  return copy;
}

// The copy of a file in an archive, made when it is first asked for. Empty if there is none.
std::string localCopyOf(Int32 file) {
  if (FileTable.FileLocalName[file].empty()) FileTable.FileLocalName.set(file, extract(file));
  return std::string(FileTable.FileLocalName[file]);
}

void launch(const std::string& path) {
  if (path.empty()) return;
  if (!basFileExists(path)) {
    showUnopenable(path);
    return;
  }
  if (basShellOpen(path, ShowMode::byDefault, "", "", "open", 0) == "NOASSOC")
    dialogs().messageBox("This file has no associated application");
}

}  // namespace

void basDeleteFileFromGrid(Int32 file, bool& deleted) {
  procedure("basDeleteFileFromGrid", [&] {
    deleted = false;
    if (!isListedDirectory(FileTable.FileDirNum[file])) return;
    if (isInZip(directoryOf(file))) {
      dialogs().messageBox("Unable to delete from a zip file");
      return;
    }
    const std::string path = pathOnDisk(file);
    if (!basFileExists(path)) return;
    const std::string otherPath = otherPathOf(file, path);
    if (!otherPath.empty()) return showUndeleted(path, "It is the same file as " + otherPath);
    try {
      if (!removeFromDisk(file, path)) return;
    } catch (const Failure& failure) {
      return showUndeleted(path, failure.description);
    }
    FileTable.FileStatus[statusState][file] = fileState::deleted;
    FileTable.FileStatus[statusTick][file] = 0;
    deleted = true;
  });
}

void basDeleteFile(ResultsControls& form, Int16 mode) {
  FlexGridModel& grid = form.gridMatches();
  procedureGoingOn(
      "basDeleteFile",
      [&] {
        grid.setRedraw(false);
        mode == deletionMode::selected ? deleteSelected(grid) : deleteTicked(grid);
      },
      [&] {
        grid.setRedraw(true);
        focusIfVisible(grid);
      });
}

void basOpenFile(ResultsControls& form) {
  procedure("basOpenFile", [&] {
    FlexGridModel& grid = form.gridMatches();
    focusIfVisible(grid);
    const std::optional<Int32> file = onlySelectedFile(grid);
    if (!file) return dialogs().beep();
    launch(isInZip(directoryOf(*file)) ? localCopyOf(*file) : pathOnDisk(*file));
  });
}

void basOpenDir(ResultsControls& form) {
  procedure("basOpenDir", [&] {
    FlexGridModel& grid = form.gridMatches();
    if (!oneFileIsSelected(grid)) return dialogs().beep();
    Int32 row = grid.row();
    const RowArea area = basSelectedRowArea(row, grid);
    if (area.firstRow < 1) return dialogs().beep();
    const std::string& directory = containerDirectory(grid.rowData(area.firstRow));
    basShellOpen("\"" + directory + "\"", ShowMode::byDefault, "", "", "explore", form.hWnd());
    focusIfVisible(grid);
  });
}

}  // namespace quernstoke
