#include "dirmatch/dirMatchActions.h"

#include <algorithm>
#include <optional>
#include <string>

#include "catalogue/createDirectories.h"
#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "catalogue/walkRoot.h"
#include "catalogue/walkedFiles.h"
#include "controls/flexGridModel.h"
#include "core/probes.h"
#include "core/procedure.h"
#include "core/system.h"
#include "dirmatch/dirMatchControls.h"
#include "dirmatch/dirMatchGrid.h"
#include "dirmatch/dirMatchRows.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/fileSystem.h"
#include "platform/platform.h"
#include "results/gridSelection.h"

namespace quernstoke {

namespace {

const std::string newLine = "\r\n";
const std::string newItem = newLine + "  ";

const std::string& nameOfDirectory(Int32 row) {
  return listedDirectory(row).name;
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
  const Int32 entry = DirMatchGridMap[line][sideIndex(side)];
  return entry < 1 ? Int32(0) : DirMatchRows[entry].file;
}

// Where the walk to the file began. A list that has lost this moves and deletes nothing.
std::string_view rootOf(const FilePath& path) {
  const std::optional<std::string_view> root = walkRootOf(path.directory);
  if (!root) fail(FailureNumber::pathNotFound);
  return *root;
}

// The path below a directory with the names as the disk spells them, as far as it leads there.
std::string asOnDisk(const std::string& directory, const std::string& sub) {
  std::string path = directory;
  for (std::size_t begin = 0; begin < sub.size();) {
    const std::size_t end = std::min(sub.find('\\', begin), sub.size());
    const std::string written = path + "\\" + sub.substr(begin, end - begin);
    try {
      path += "\\" + files().nameOnDisk(written);
    } catch (const Failure& failure) {
      if (!failure.isAbsent()) throw;
      return (path + "\\" + sub.substr(begin)).substr(directory.size() + 1);
    }
    begin = end + 1;
  }
  return path.substr(directory.size() + 1);
}

// Moves the selected files of one side, one after the other. What the person has said about
// sub-directories counts for all of them.
class Mover {
 public:
  explicit Mover(Int32 side)
      : side_(side),
        source_(side == dirMatchSide::left ? DirMatchDir1 : DirMatchDir2),
        destination_(side == dirMatchSide::left ? DirMatchDir2 : DirMatchDir1) {}

  // Returns whether to go on.
  bool move(Int32 file) {
    const std::string sub = subDirectoryOf(FileTable.FileDirNum[file], side_);
    Target target{nameOfDirectory(destination_), destination_};
    const Answer answer = sub.empty() ? askForFile(file) : askForSubDirectory(sub);
    if (answer == Answer::cancel) return false;
    if (sub.empty() && answer == Answer::no) return true;
    if (!sub.empty() && answer == Answer::yes && !enterSubDirectory(sub, target)) return true;
    const std::string below = sub.empty() ? "" : "\\" + sub;
    moveFile(file, {nameOfDirectory(source_) + below, nameOf(file)}, target);
    return true;
  }

 private:
  struct Target {
    std::string directory;
    Int32 row;
  };

  Answer askForFile(Int32 file) const {
    return dialogs().messageBox("Are you sure you want to move the file " + newItem + nameOf(file) +
                                    newLine + "From directory:" + newItem + directoryOf(file).name +
                                    newLine + "To directory: " + newItem +
                                    nameOfDirectory(destination_),
                                Buttons::yesNoCancel, "Move file", Icon::none);
  }

  Answer askForSubDirectory(const std::string& sub) {
    if (!subDirectoryAnswer_)
      subDirectoryAnswer_ = dialogs().messageBox(
          "The file is being moved from the sub-directory:" + newItem + sub + newLine +
              "Do you want to move it to the same sub-directory in the destination directory:" +
              newItem + nameOfDirectory(destination_) + "\\" + sub + newLine +
              "(Answering 'No' will move it to the parent directory.)",
          Buttons::yesNoCancel, "", Icon::none);
    return *subDirectoryAnswer_;
  }

  // Returns false if it can't be made. Where the disk has it in another letter case, that is it.
  bool enterSubDirectory(const std::string& sub, Target& target) const {
    const std::string parent = target.directory;
    const std::string spelt = asOnDisk(parent, sub);
    target.directory += "\\" + spelt;
    if (!basDirExists(target.directory) &&
        basCreateDirectories(parent, spelt, true, destination_, target.row))
      return false;
    target.row = rowOfDirectory(target.directory);
    return true;
  }

  // The list may not have a directory that no scan has entered. A file must have a row all the
  // same.
  Int32 rowOfDirectory(const std::string& path) const {
    bool existed = false;
    return basAddDirToList(path, dirKind::directory, destination_, existed);
  }

  static void moveFile(Int32 file, const FilePath& from, const Target& target) {
    const FilePath to{target.directory, from.name};
    if (basFileExists(to.whole())) {
      dialogs().messageBox("Destination file already exists. Move failed");
      return;
    }
    WalkedCopy copied;
    if (!copy(file, from, to, copied) || !removeOriginal(from, to, copied)) return;
    takeDate(file, copied);
    FileTable.FileDirNum[file] = target.row;
    if (FileTable.FileStatus[statusTemporary][file] == 1) DirTable.setTemporary(target.row, false);
  }

  static bool copy(Int32 file, const FilePath& from, const FilePath& to, WalkedCopy& copied) {
    try {
      copied = copyToItsPlace(file, from, to);
      return true;
    } catch (const Failure& failure) {
      dialogs().messageBox("Move of file '" + from.name + "' has failed." + newLine +
                           "Reason: " + failure.description);
      return false;
    }
  }

  static WalkedCopy copyToItsPlace(Int32 file, const FilePath& from, const FilePath& to) {
    // What is below a directory by its first characters alone need not be where it is looked for.
    if (isInZip(file) || from.whole() != pathOnDisk(file)) fail(FailureNumber::fileNotFound);
    WalkedCopy copied = files().copyWalked(from.whole(), rootOf(from), to.whole());
    // Its directory may have been renamed or thrown away meanwhile.
    const SeenFile there = lookAtCopy(to, copied.copy);
    if (there.identity != copied.copy.identity) fail(FailureNumber::fileNotFound);
    copied.copy = there;
    return copied;
  }

  // A copy that can't be seen is taken back, as far as that can be done then.
  static SeenFile lookAtCopy(const FilePath& to, const SeenFile& copy) {
    try {
      return files().lookWalked(to.whole(), to.directory);
    } catch (const Failure&) {
      ignoringFailure([&] { files().removeSeen(to.whole(), to.directory, copy); });
      throw;
    }
  }

  // Returns whether the copy is the file from now on.
  static bool removeOriginal(const FilePath& from, const FilePath& to, const WalkedCopy& copied) {
    try {
      files().removeSeen(from.whole(), rootOf(from), copied.original);
    } catch (const Failure& failure) {
      // Somebody else has removed it: what there is of it now is the copy.
      if (failure.isAbsent()) return true;
      dialogs().messageBox("Unable to delete original file. Move aborted!. Reason: " +
                           failure.description);
      // A failing disk may not tell what it has done, and another file may stand there now. The
      // copy goes only for the very original that is there to be seen.
      if (isThere(from, copied.original)) files().removeSeen(to.whole(), to.directory, copied.copy);
      return false;
    }
    return true;
  }

  static bool isThere(const FilePath& path, const SeenFile& before) {
    bool same = false;
    ignoringFailure([&] { same = files().lookWalked(path.whole(), rootOf(path)) == before; });
    return same;
  }

  // Disks differ in how finely they keep dates, and a date that isn't the file's would pass for a
  // change since the scan. One that was changed since then is still to be told as such.
  static void takeDate(Int32 file, const WalkedCopy& copied) {
    const SeenFile& original = copied.original;
    if (original.size == FileTable.FileSize[file].raw() &&
        original.modified == FileTable.FileDate[file])
      FileTable.FileDate[file] = copied.copy.modified;
  }

  const Int32 side_;
  const Int32 source_;
  const Int32 destination_;
  std::optional<Answer> subDirectoryAnswer_;
};

// Calls `act` with each file of a side in the lines that were selected at first, until it returns
// false.
template <class Act>
void eachSelectedFile(const FlexGridModel& grid, Int32 side, Act act) {
  const RowArea lines = selectedRows(grid);
  for (Int32 line = lines.firstRow; line <= lines.lastRow; ++line) {
    const Int32 file = fileAt(line, side);
    if (file != 0 && !act(file)) return;
  }
}

// What the disk doesn't delete leaves the list all the same; what must not be deleted stays there.
void deleteIfWanted(DirMatchControls& form, Int32 file) {
  const std::string path = pathOnDisk(file);
  const Answer answer =
      dialogs().messageBox("Are you sure you want to delete the file: " + newItem + path,
                           Buttons::yesNo, "Delete file", Icon::none);
  if (answer != Answer::yes) return;
  const Deletion deletion = deleteWalkedFile(file);
  if (deletion.outcome == Deletion::Outcome::refused) return showUndeleted(path, deletion.reason);
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
  procedureGoingOn(
      "lstFileExtensions_DblClick",
      [&] {
        Mover mover(side);
        eachSelectedFile(form.griddir(), side, [&](Int32 file) { return mover.move(file); });
      },
      [&] { basProcessFiles(form); });
}

void cmdOpen_Click(DirMatchControls& form, Int32 side) {
  procedure("cmdOpen_Click", [&] {
    const Int32 file = fileAt(form.griddir().row(), side);
    if (file == 0) return dialogs().beep();
    const std::string path = pathOnDisk(file);
    const std::string result = basShellOpen(path, ShowMode::byDefault, "", "", "open", form.hWnd());
    if (result == "NOASSOC")
      showNoApplication();
    else if (result != "OK")
      showUnopenable(path);
  });
}

}  // namespace quernstoke
