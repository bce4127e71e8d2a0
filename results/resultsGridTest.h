#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "results/gridPaging.h"
#include "results/gridScrolling.h"
#include "results/resultsGrid.h"
#include "settings/settings.h"
#include "testing/engineTest.h"
#include "testing/resultsControls.h"

namespace quernstoke {

// The results of a profile that asks for equal content, in a window of 20 rows: a page uses 19.
class ResultsGridTest : public EngineTest {
 protected:
  ResultsGridTest() {
    ProfileName = "Music";
    ProfileSettings.ContentMatchingPercent = 100;
    form.scrollBar.onChange = [this] { vscrGridMatches_Change(form); };
  }

  // Files f1, f2 and so on, each a match number of its own, all even.
  static void makeFiles(int count) {
    std::vector<CatalogueFile> files;
    for (int file = 1; file <= count; ++file)
      files.push_back({"f" + std::to_string(file), "C:\\music", 10 * file, 2 * file});
    buildCatalogue(files);
  }
  void build() { basBuildWholeGrid(form, 0, 0); }
  void build(int files) {
    makeFiles(files);
    build();
  }
  // Files without a name, for long lists, in the order of their numbers.
  void buildNameless(int files) {
    FileCount = files;
    basRedimFilesArrays(FileCount, false);
    basBuildWholeGrid(form, 0, 1);
  }
  void fill(std::string_view mode, int position = -1) { basFillGrid(form, mode, position); }
  void select(int from, int to) {
    grid.setRow(from);
    grid.setRowSel(to);
  }

  int cursor() const { return grid.row().raw(); }
  const std::string& text(int row, int col) const { return grid.cell(row, col).text; }
  // The file numbers of the page.
  std::vector<int> page() const {
    std::vector<int> files;
    for (Int32 row = 1; row < grid.rows(); ++row)
      if (grid.rowData(row) >= 0) files.push_back(grid.rowData(row).raw());
    return files;
  }
  int firstOnPage() const { return page().front(); }
  int lastOnPage() const { return page().back(); }

  ScriptedResultsControls form;
  FlexGridModel& grid = form.grid;
};

}  // namespace quernstoke
