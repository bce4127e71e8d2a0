#include "dirmatch/dirMatchActions.h"

#include <algorithm>
#include <optional>
#include <string>

#include "catalogue/createDirectories.h"
#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "catalogue/walkRoot.h"
#include "controls/flexGridModel.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "core/system.h"
#include "core/text.h"
#include "dirmatch/dirMatchControls.h"
#include "dirmatch/dirMatchGrid.h"
#include "dirmatch/dirMatchRows.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/fileSystem.h"
#include "platform/platform.h"

namespace quernstoke {

namespace {

const std::string newLine = "\r\n";
const std::string newItem = newLine + "  ";

const std::string& directoryOf(Int32 file) {
  return DirTable[FileTable.FileDirNum[file]].name;
}

std::string nameOf(Int32 file) {
  return std::string(FileTable.FileName[file]);
}

// A file on the disk, with the directory that holds it.
struct FilePath {
  std::string directory;
  std::string name;
  std::string whole() const { return directory + "\\" + name; }
};

// The file that a line shows on a side, or 0.
Int32 fileAt(Int32 line, Int32 side) {
  if (line < 1 || line > DirMatchGridMap.upperBound()) return 0;
  const Int32 entry = DirMatchGridMap[line][static_cast<std::size_t>(side.raw())];
  return entry < 1 ? Int32(0) : DirMatchRows[entry].file;
}

// Where the walk to the file began. A list that has lost this moves and deletes nothing.
std::string_view rootOf(const FilePath& path) {
  const std::optional<std::string_view> root = walkRootOf(path.directory);
  if (!root) fail(FailureNumber::pathNotFound);
  return *root;
}

// What tells a file that has changed from what it was a moment ago.
struct Look {
  std::int32_t size = 0;
  DateTime modified;
};

Look lookAt(const std::string& path) {
  return {files().length(path), files().modified(path)};
}

void remove(const FilePath& path, const Look& look) {
  files().removeWalked({path.whole(), rootOf(path), look.size, look.modified});
}

bool saysAbsent(const Failure& failure) {
  return failure.is(FailureNumber::fileNotFound) || failure.is(FailureNumber::pathNotFound);
}

// Moves the selected files of one side, one after the other. What the person has said about
// sub-directories counts for all of them.
class Mover {
 public:
  explicit Mover(Int32 side)
      : base_(DirMatchBase[static_cast<std::size_t>(side.raw())]),
        source_(side == dirMatchSide::left ? DirMatchDir1 : DirMatchDir2),
        destination_(side == dirMatchSide::left ? DirMatchDir2 : DirMatchDir1) {}

  // Returns whether to go on.
  bool move(Int32 file) {
    const std::string sub = subDirectoryOf(file);
    Target target{DirTable[destination_].name, destination_};
    const Answer answer = sub.empty() ? askForFile(file) : askForSubDirectory(sub);
    if (answer == Answer::cancel) return false;
    if (sub.empty() && answer == Answer::no) return true;
    if (!sub.empty() && answer == Answer::yes && !enterSubDirectory(sub, target)) return true;
    const std::string below = sub.empty() ? "" : "\\" + sub;
    moveFile(file, {DirTable[source_].name + below, nameOf(file)}, target);
    return true;
  }

 private:
  struct Target {
    std::string directory;
    Int32 row;
  };

  std::string subDirectoryOf(Int32 file) const {
    std::string sub = directoryOf(file);
    sub.erase(0, base_.size());
    if (sub.starts_with('\\') || sub.starts_with('/')) sub.erase(0, 1);
    return sub;
  }

  Answer askForFile(Int32 file) const {
    return dialogs().messageBox("Are you sure you want to move the file " + newItem + nameOf(file) +
                                    newLine + "From directory:" + newItem + directoryOf(file) +
                                    newLine + "To directory: " + newItem +
                                    DirTable[destination_].name,
                                Buttons::yesNoCancel, "Move file", Icon::none);
  }

  Answer askForSubDirectory(const std::string& sub) {
    if (!subDirectoryAnswer_)
      subDirectoryAnswer_ = dialogs().messageBox(
          "The file is being moved from the sub-directory:" + newItem + sub + newLine +
              "Do you want to move it to the same sub-directory in the destination directory:" +
              newItem + DirTable[destination_].name + "\\" + sub + newLine +
              "(Answering 'No' will move it to the parent directory.)",
          Buttons::yesNoCancel, "", Icon::none);
    return *subDirectoryAnswer_;
  }

  // Returns false if it can't be made.
  bool enterSubDirectory(const std::string& sub, Target& target) const {
    const std::string parent = target.directory;
    target.directory += "\\" + sub;
    if (!basDirExists(target.directory))
      return !basCreateDirectories(parent, sub, true, destination_, target.row);
    target.row = rowOfDirectory(target.directory);
    return true;
  }

  // The row of a directory on the disk. The list may have it in another letter case, or not at all
  // if no scan has entered it; a file must have a row all the same.
  Int32 rowOfDirectory(const std::string& path) const {
    const Int32 exact = basFindDirInList(path);
    if (exact != -1) return exact;
    for (Int32 row = 1; row <= DirCount; ++row)
      if (DirTable[row].kind == dirKind::directory && equalIgnoringCase(DirTable[row].name, path))
        return row;
    bool existed = false;
    return basAddDirToList(path, dirKind::directory, destination_, existed);
  }

  static void moveFile(Int32 file, const FilePath& from, const Target& target) {
    const FilePath to{target.directory, from.name};
    if (basFileExists(to.whole())) {
      dialogs().messageBox("Destination file already exists. Move failed");
      return;
    }
    Look look;
    if (!copy(from, to, look) || !removeOriginal(from, to, look)) return;
    FileTable.FileDirNum[file] = target.row;
    if (FileTable.FileStatus[statusTemporary][file] == 1) DirTable.setTemporary(target.row, false);
  }

  static bool copy(const FilePath& from, const FilePath& to, Look& look) {
    try {
      look = lookAt(from.whole());
      files().copyWalked(from.whole(), rootOf(from), to.whole());
      return true;
    } catch (const Failure& failure) {
      dialogs().messageBox("Move of file '" + from.name + "' has failed." + newLine +
                           "Reason: " + failure.description);
      return false;
    }
  }

  // Returns whether the copy is the file from now on.
  static bool removeOriginal(const FilePath& from, const FilePath& to, const Look& look) {
    try {
      remove(from, look);
    } catch (const Failure& failure) {
      // Somebody else has removed it: what there is of it now is the copy.
      if (saysAbsent(failure)) return true;
      dialogs().messageBox("Unable to delete original file. Move aborted!. Reason: " +
                           failure.description);
      // A failing disk may not tell what it has done. The copy goes only for an original that is
      // there to be seen.
      if (basFileExists(from.whole())) {
        const Look copied = lookAt(to.whole());
        files().removeWalked({to.whole(), to.directory, copied.size, copied.modified});
      }
      return false;
    }
    return true;
  }

  const std::string base_;
  const Int32 source_;
  const Int32 destination_;
  std::optional<Answer> subDirectoryAnswer_;
};

// Calls `act` with each file of a side in the lines that were selected at first, until it returns
// false.
template <class Act>
void eachSelectedFile(const FlexGridModel& grid, Int32 side, Act act) {
  const Int32 last = std::max(grid.row(), grid.rowSel());
  for (Int32 line = std::min(grid.row(), grid.rowSel()); line <= last; ++line) {
    const Int32 file = fileAt(line, side);
    if (file != 0 && !act(file)) return;
  }
}

void deleteIfWanted(DirMatchControls& form, Int32 file) {
  const FilePath path{directoryOf(file), nameOf(file)};
  Look look;
  ignoringFailure([&] { look = lookAt(path.whole()); });
  const Answer answer =
      dialogs().messageBox("Are you sure you want to delete the file: " + newItem + path.whole(),
                           Buttons::yesNo, "Delete file", Icon::none);
  if (answer != Answer::yes) return;
  ignoringFailure([&] { remove(path, look); });
  FileTable.FileStatus[statusState][file] = fileState::deleted;
  basProcessFiles(form);
}

}  // namespace

void cmdDelete_Click(DirMatchControls& form, Int32 side) {
  procedure("cmdDelete_Click", [&] {
    eachSelectedFile(form.griddir(), side, [&](Int32 file) {
      deleteIfWanted(form, file);
      return true;
    });
  });
}

// The name in the box is one that it has always had.
void cmdMove_Click(DirMatchControls& form, Int32 side) {
  procedure("lstFileExtensions_DblClick", [&] {
    Mover mover(side);
    eachSelectedFile(form.griddir(), side, [&](Int32 file) { return mover.move(file); });
    basProcessFiles(form);
  });
}

void cmdOpen_Click(DirMatchControls& form, Int32 side) {
  procedure("cmdOpen_Click", [&] {
    const Int32 file = fileAt(form.griddir().row(), side);
    if (file == 0) return dialogs().beep();
    const std::string path = directoryOf(file) + "\\" + nameOf(file);
    const std::string result = basShellOpen(path, ShowMode::byDefault, "", "", "open", form.hWnd());
    if (result == "NOASSOC")
      dialogs().messageBox("This file has no associated application");
    else if (result != "OK")
      dialogs().messageBox("Can't open file '" + path + "'");
  });
}

}  // namespace quernstoke
