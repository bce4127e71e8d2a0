#pragma once

#include <string>
#include <vector>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/scanState.h"
#include "dirmatch/dirMatchGrid.h"
#include "dirmatch/dirMatchRows.h"
#include "dirmatch/dirMatchSelection.h"
#include "results/matchGroupIndex.h"
#include "testing/dirMatchControls.h"
#include "testing/engineTest.h"

namespace quernstoke {

// The directories C:\left and C:\right side by side, after a finished scan.
class DirMatchTest : public EngineTest {
 protected:
  DirMatchTest() {
    disk.directory("C:\\left");
    disk.directory("C:\\right");
  }

  // The catalogue has these files, in groups by their match numbers; loose ones, which have none,
  // come last and are temporary. All are on the disk.
  void build(const std::vector<CatalogueFile>& files) {
    std::vector<CatalogueFile> all = files;
    for (const char* name : {"C:\\left", "C:\\right"})
      all.push_back({"placeholder", name, 0, noMatch});
    buildCatalogue(all);
    FileCount -= 2;  // Their directories stay.
    for (Int32 file = 1; file <= FileCount; ++file)
      if (FileTable.FileStatus[statusMatch][file] == noMatch)
        FileTable.FileStatus[statusTemporary][file] = 1;
    for (const CatalogueFile& file : files)
      disk.file(file.directory + "\\" + file.name, contentOf(file.name, file.size));
    basSetupMatchGroupInfo("MATCHNUM", startMode::none);
    RunState = runState::finished;
    choose("C:\\left", "C:\\right");
  }
  // As long as the catalogue has the file, and another one for each name.
  static std::string contentOf(const std::string& name, int size = 1) {
    std::string content;
    while (content.size() < static_cast<std::size_t>(size))
      content += name;
    content.resize(static_cast<std::size_t>(size));
    return content;
  }
  static void choose(const std::string& left, const std::string& right) {
    DirMatchDir1 = basFindDirInList(left);
    DirMatchDir2 = basFindDirInList(right);
    DirMatchBase = {left, right};
  }
  void show(const std::vector<CatalogueFile>& files, bool all = false) {
    build(files);
    form.showAll = all;
    basProcessFiles(form);
  }
  void select(int from, int to, int col = 0) {
    grid.setRow(from);
    grid.setRowSel(to);
    grid.setCol(col);
  }
  void clickCell(int row, int col) {
    select(row, row, col);
    griddir_Click(form);
  }

  // What the lines below the titles show, as "left | right": names with their sub-directories,
  // "--" for a separator.
  std::vector<std::string> lines() const {
    std::vector<std::string> result;
    for (Int32 row = 1; row < grid.rows(); ++row) {
      const bool isDark = grid.cell(row, 0).backColour == Colour{0x202020};
      result.push_back(isDark ? "--" : shown(row, 0) + " | " + shown(row, 6));
    }
    return result;
  }
  const std::string& text(int row, int col) const { return grid.cell(row, col).text; }
  static std::string directoryOf(int file) { return DirTable[FileTable.FileDirNum[file]].name; }
  bool onDisk(const std::string& path) const { return disk.exists("C:\\" + path); }

  static constexpr int left = dirMatchSide::left;
  static constexpr int right = dirMatchSide::right;
  ScriptedDirMatchControls form;
  FlexGridModel& grid = form.grid;

 private:
  std::string shown(Int32 row, int col) const {
    const std::string& sub = grid.cell(row, col + 1).text;
    return (sub.empty() ? "" : sub + "/") + grid.cell(row, col).text;
  }
};

}  // namespace quernstoke
