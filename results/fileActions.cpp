#include "results/fileActions.h"

#include <optional>
#include <string>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "catalogue/modUnzip.h"
#include "catalogue/walkedFiles.h"
#include "controls/flexGridModel.h"
#include "core/modMain.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "core/system.h"
#include "core/text.h"
#include "detect/tempStore.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "results/fileRows.h"
#include "results/gridPaging.h"
#include "results/gridSelection.h"
#include "results/gridTicks.h"
#include "results/localCopies.h"
#include "results/resultsControls.h"

namespace quernstoke {

namespace {

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
  if (basShellOpen(path, ShowMode::byDefault, "", "", "open", 0) == "NOASSOC") showNoApplication();
}

}  // namespace

void basDeleteFileFromGrid(Int32 file, bool& deleted) {
  procedure("basDeleteFileFromGrid", [&] {
    deleted = false;
    if (!isListedDirectory(FileTable.FileDirNum[file])) return;
    if (isInZip(file)) {
      dialogs().messageBox("Unable to delete from a zip file");
      return;
    }
    const std::string path = pathOnDisk(file);
    if (!basFileExists(path)) return;
    const Deletion deletion = deleteWalkedFile(file);
    if (!deletion.reason.empty()) return showUndeleted(path, deletion.reason);
    if (deletion.outcome != Deletion::Outcome::done) return;
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
    launch(isInZip(*file) ? localCopyOf(*file) : pathOnDisk(*file));
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
