#include "results/directoryMatch.h"

#include <array>
#include <string>

#include "catalogue/dirTable.h"
#include "catalogue/directoryWalk.h"
#include "catalogue/extensions.h"
#include "catalogue/fileTable.h"
#include "controls/flexGridModel.h"
#include "core/procedure.h"
#include "core/scanState.h"
#include "core/text.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/windows.h"
#include "results/directoryChoice.h"
#include "results/filters.h"
#include "results/gridSelection.h"
#include "results/resultsControls.h"
#include "results/resultsGrid.h"

namespace quernstoke {

namespace {

constexpr int openMatchWindow = 2;  // The index behind those of the two directories.
constexpr int left = 0;
constexpr int right = 1;

void pickDirectory(ResultsControls& form, Int16 index) {
  const FlexGridModel& grid = form.gridMatches();
  if (grid.row() < 1) return;
  const std::string directory =
      chooseDirectory(containerDirectory(selectedFile(grid)), choiceBox::asItIs, choiceBox::asItIs)
          .directory;
  if (directory.empty()) return;
  const Int32 number = basFindDirInList(directory);
  if (number == -1) {
    dialogs().messageBox(
        "The directory you have choosen was not part of the original duplicate scan selection. "
        "Please try again.");
    return;
  }
  DirectoryButtonControl& button = form.cmdSetDir(index);
  button.setToolTip("Directory " + directory);
  button.setTag(toText(number));
  button.setBold(true);
}

void showStatus(const std::string& text) {
  frmScanStatus().labScanStatus(text);
  frmScanStatus().refresh();
}

void walk(const std::string& directory) {
  showStatus("Scanning directory  " + directory);
  Int32 row = noParent;
  basScanThisDirectory(directory, row);
}

// A stop that is asked for in the midst of the walk changes RunState, and what came in after it
// would pass for results.
void markTemporaryBehind(Int32 lastFile, Int32 lastDirectory) {
  for (Int32 file = lastFile + 1; file <= FileCount; ++file)
    FileTable.FileStatus[statusTemporary][file] = 1;
  for (Int32 row = lastDirectory + 1; row <= DirCount; ++row)
    DirTable.setTemporary(row, true);
}

void walkBoth(const std::array<Int32, 2>& directories) {
  RunState = runState::idle;
  frmScanStatus().show();
  showStatus("Preparing to scan directories...");
  ExtensionList.redim(lastExtensionSlot, false);
  ExtensionList[1] = "*";
  prepareWalk();
  const Int32 lastFile = FileCount;
  const Int32 lastDirectory = DirCount;
  for (const Int32 number : directories) {
    const std::string name = DirTable[number].name;  // A copy: the table moves while it grows.
    walk(name);
  }
  markTemporaryBehind(lastFile, lastDirectory);
  showStatus("Compiling files list...");
}

void compare(ResultsControls& form, const std::array<Int32, 2>& directories) {
  form.setTag("IGNORE");
  frmScanStatus().unload();
  RunState = runState::finished;
  form.takeInput(true);
  DirMatchDir1 = directories[left];
  DirMatchDir2 = directories[right];
  modalForms.frmDirMatch();
  form.setTag("");
  basRemoveTemporaryEntries();
}

void resetDirectories(ResultsControls& form) {
  for (const int index : {left, right}) {
    DirectoryButtonControl& button = form.cmdSetDir(index);
    button.setBold(false);
    button.setToolTip(index == left ? "Set Directory 1" : "Set Directory 2");
    button.setTag("");
  }
}

void matchDirectories(ResultsControls& form) {
  const std::string first = form.cmdSetDir(left).tag();
  const std::string second = form.cmdSetDir(right).tag();
  if (first.empty() || second.empty()) {
    dialogs().messageBox(
        "You must set both directories before you can open the Directory match window");
    return;
  }
  const std::array<Int32, 2> directories = {toNumber(first), toNumber(second)};
  // The walk yields, and whatever sorts the catalogue then would mix its rows with those to go.
  form.takeInput(false);
  walkBoth(directories);
  compare(form, directories);
  resetDirectories(form);
  // The number of a grid row, taken for that of a file: the page goes near the top of the list.
  basFillGrid(form, "POS", form.gridMatches().row());
}

}  // namespace

void cmdSetDir_Click(ResultsControls& form, Int16 index) {
  procedureGoingOn(
      "cmdSetDir_Click",
      [&] { index == openMatchWindow ? matchDirectories(form) : pickDirectory(form, index); },
      [&] { form.takeInput(true); });
}

}  // namespace quernstoke
