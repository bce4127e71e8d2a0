#pragma once

#include "catalogue/dirTable.h"
#include "core/scanState.h"
#include "results/fileActions.h"
#include "results/gridSelection.h"
#include "results/matchGroupIndex.h"
#include "results/resultsGridTest.h"

namespace quernstoke {

// What the person does to the files of the list.
class FileActionsTest : public ResultsGridTest {
 protected:
  // Files f1, f2 and so on in C:\music, also on the disk.
  void showFiles(int count) {
    for (int file = 1; file <= count; ++file)
      disk.file("C:\\music\\f" + std::to_string(file), contentOfSize(10 * file));
    build(count);
  }
  void showTwoLines(int count) {
    ResultsView = resultsView::twoLines;
    showFiles(count);
  }
  static std::string contentOfSize(int size) {
    return std::string(static_cast<std::size_t>(size), 'x');
  }
  // One entry of C:\data\a.zip, as a scan finds it in a folder of it, shown and selected.
  void showZipEntry(const std::string& name, const std::string& folder = "in") {
    archiveLibrary.contents["C:\\data\\a.zip"] = {{folder + "/" + name, "content"}};
    disk.file("C:\\data\\a.zip", "archive");
    buildCatalogue({{"first", "C:\\data", 1, 2}});
    DirTable.set(2, {"C:\\data\\a.zip", dirKind::zipFile, 1, false});
    DirTable.set(3, {folder, dirKind::zipFolder, 2, false});
    DirCount = 3;
    RunState = runState::buildingList;
    basAddFileToList(name, 3, 1, {});
    RunState = runState::finished;
    FileTable.FileStatus[statusMatch][2] = 2;
    build();
    select(2, 2);
  }
  void select(int from, int to) {
    ResultsGridTest::select(from, to);
    grid.setCol(1);
    grid.setColSel(grid.cols() - 1);
  }
  static void tick(int file) { FileTable.FileStatus[statusTick][file] = 1; }
  // Ticks files and shows it.
  void tickAll(const std::vector<int>& files) {
    for (const int file : files)
      tick(file);
    fill("POS", 1);
  }
  void deleteSelected() { basDeleteFile(form, deletionMode::selected); }
  void deleteTicked(Answer answer = Answer::yes) {
    dialogBoxes.answers.push_back(answer);
    basDeleteFile(form, deletionMode::ticked);
  }

  bool onDisk(int file) const { return disk.exists("C:\\music\\f" + std::to_string(file)); }
  std::vector<int> left(int count) const {
    std::vector<int> files;
    for (int file = 1; file <= count; ++file)
      if (onDisk(file)) files.push_back(file);
    return files;
  }
  bool isStruck(int row) const { return grid.cell(row, 1).strikeThrough; }
  static int tickOf(int file) { return FileTable.FileStatus[statusTick][file].raw(); }
};

}  // namespace quernstoke
