#include "results/filters.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "controls/flexGridModel.h"
#include "core/procedure.h"
#include "core/scanDriver.h"
#include "core/scanState.h"
#include "core/table.h"
#include "core/text.h"
#include "detect/refinement.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "results/directoryChoice.h"
#include "results/gridSelection.h"
#include "results/localCopies.h"
#include "results/resultsControls.h"
#include "results/resultsGrid.h"
#include "settings/profileStore.h"
#include "settings/settings.h"

namespace quernstoke {

namespace {

constexpr int clearSelection = 2;  // The index behind those of the two directories.

std::string realDirectory(Int32 file) {
  return lower(containerDirectory(file));
}

// A list may come without some of its directories.
bool hasRealDirectory(Int32 file) {
  const Int32 row = FileTable.FileDirNum[file];
  if (!isListedDirectory(row)) return false;
  if (DirTable[row].kind != dirKind::zipFolder) return true;
  const Int32 archive = DirTable[row].parent;
  return isListedDirectory(archive) && isListedDirectory(DirTable[archive].parent);
}

std::string selectedDirectory(const ResultsControls& form) {
  return realDirectory(selectedFile(form.gridMatches()));
}

// The extensions of the slot stay: only included directories have any.
void storeInSlot(Int32 slot, const std::string& directory, const char* kind, bool recurse) {
  DirSpec& spec = ProfileDirList[slot];
  spec.Dir = directory;
  spec.IncludeExclude = kind;
  spec.RecurseSubDirs = recurse;
}

// Tells for each file whether its directory is the one chosen, or with `recurse` begins like it.
// Files are many and directories few, so each row of DirTable is looked at once.
class DirectoryFilter {
 public:
  DirectoryFilter(std::string directory, bool recurse)
      : directory_(std::move(directory)), recurse_(recurse) {
    verdicts_.redim(DirTable.upperBound(), false);
  }

  bool takes(Int32 file) {
    if (!hasRealDirectory(file)) return false;
    Verdict& verdict = verdicts_[FileTable.FileDirNum[file]];
    if (verdict == Verdict::open)
      verdict = matches(realDirectory(file)) ? Verdict::yes : Verdict::no;
    return verdict == Verdict::yes;
  }

 private:
  enum class Verdict : std::uint8_t { open, yes, no };

  // A plain prefix: c:\data also takes c:\database.
  bool matches(const std::string& directory) const {
    return recurse_ ? directory.starts_with(directory_) : directory == directory_;
  }

  std::string directory_;
  bool recurse_;
  Table<Verdict> verdicts_;
};

void markFiltered(DirectoryFilter filter) {
  for (Int32 file = 1; file <= FileCount; ++file)
    if (filter.takes(file)) FileTable.FileStatus[statusState][file] = fileState::removed;
}

void resetTwoDirs(ResultsControls& form) {
  form.mnuFilterTwoDirs(0).setTag("");
  form.mnuFilterTwoDirs(1).setTag("");
  form.mnuFilterTwoDirs(0).setCaption("Set Directory 1");
  form.mnuFilterTwoDirs(1).setCaption("Set Directory 2");
}

void storePair(ResultsControls& form) {
  const Int32 slot = firstFreeDirSlot();
  const bool recurse = form.lastSubDirectories();
  storeInSlot(slot, form.mnuFilterTwoDirs(0).tag(), "1", recurse);
  // Whatever stands there gives way.
  storeInSlot(slot + 1, form.mnuFilterTwoDirs(1).tag(), "2", recurse);
  basSaveProfile("PROFILE");
  dialogs().messageBox(
      "You need to rerun this profile to exclude comparisions between these two directories.\r\n"
      "These exclusions have been saved to the profile.");
}

void pickOfTwoDirs(ResultsControls& form, Int16 index) {
  const DirectoryChoice choice = chooseDirectory(
      selectedDirectory(form), form.lastSubDirectories() ? choiceBox::ticked : choiceBox::unticked,
      choiceBox::undecided);
  MenuItemControl& item = form.mnuFilterTwoDirs(index);
  if (!choice.directory.empty()) {
    item.setTag(choice.directory);
    item.setCaption(choice.directory);
  }
  if (form.mnuFilterTwoDirs(0).tag().empty() || form.mnuFilterTwoDirs(1).tag().empty()) return;
  form.lastSubDirectories() = choice.subDirectories == choiceBox::ticked;
  if (choice.makePermanent >= choiceBox::ticked) storePair(form);
  resetTwoDirs(form);
}

}  // namespace

void cmdFilter_Click(ResultsControls& form) {
  procedure("cmdFilter_Click", [&] {
    constexpr int gap = 20;
    form.mnuFilter(0).setCaption("Exclude all files from the display based on directory " +
                                 selectedDirectory(form));
    form.popUpBeside("mnuFilterMain", "cmdFilter", gap);
    focusIfUsable(form.gridMatches());
  });
}

void mnuFilter_Click(ResultsControls& form, Int16 index) {
  procedure("mnuFilter_Click", [&] {
    if (index == 0) basFilterDirectory(form);
  });
}

void basFilterDirectory(ResultsControls& form) {
  procedure("basFilterDirectory", [&] {
    const std::optional<Int32> file = onlySelectedFile(form.gridMatches());
    if (!file) return dialogs().beep();
    const DirectoryChoice choice =
        chooseDirectory(realDirectory(*file), choiceBox::ticked, choiceBox::unticked);
    if (choice.directory.empty()) return;
    const std::string directory = lower(choice.directory);
    const bool recurse = choice.subDirectories == choiceBox::ticked;
    if (choice.makePermanent == choiceBox::ticked) {
      storeInSlot(firstFreeDirSlot(), directory, "E", recurse);
      form.exclusionStored() = true;
    }
    markFiltered({directory, recurse});
    basFilterRefresh(form);
  });
}

void basFilterRefresh(ResultsControls& form) {
  procedure("basFilterRefresh", [&] {
    FlexGridModel& grid = form.gridMatches();
    const Int32 row = grid.row();
    const std::vector<std::string> copies = localCopies();
    basRemoveFilesByCriteria("PRUNED");
    basPrepareFilesListForCompare("MATCHNUM", startMode::refresh);
    if (MatchByName) basPrepareFilesListForCompare("NAME", startMode::refresh);
    if (MatchByContent || MatchBySize) basPrepareFilesListForCompare("SIZE", startMode::refresh);
    deleteLostCopies(copies);
    basBuildWholeGrid(form, 0, 0);
    form.basUpdateStatusBar();
    if (row < grid.rows() - 1) grid.setRow(row);
  });
}

void mnuFilterTwoDirs_Click(ResultsControls& form, Int16 index) {
  procedure("mnuFilterTwoDirs_Click",
            [&] { index == clearSelection ? resetTwoDirs(form) : pickOfTwoDirs(form, index); });
}

void basRemoveTemporaryEntries() {
  procedure("basRemoveTemporaryEntries", [] {
    basRemoveFilesByCriteria("TEMPORARY");
    basRemoveDirsByCriteria("TEMPORARY");
  });
}

}  // namespace quernstoke
