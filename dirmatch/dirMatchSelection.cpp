#include "dirmatch/dirMatchSelection.h"

#include <string>

#include "catalogue/fileTable.h"
#include "catalogue/fullFilePath.h"
#include "controls/flexGridModel.h"
#include "core/procedure.h"
#include "core/text.h"
#include "dirmatch/dirMatchControls.h"
#include "dirmatch/dirMatchGrid.h"
#include "dirmatch/dirMatchRows.h"
#include "platform/locale.h"
#include "platform/platform.h"

namespace quernstoke {

namespace {

Int32 sideOfColumn(Int32 col) {
  return col >= dirMatchColumn::spacer ? dirMatchSide::right : dirMatchSide::left;
}

void selectSide(FlexGridModel& grid, Int32 side) {
  grid.setCol(columnOfSide(side, dirMatchColumn::name));
  grid.setColSel(columnOfSide(side, dirMatchColumn::dups));
}

Int32 entryAt(const FlexGridModel& grid, Int32 line, Int32 side) {
  const std::size_t index = sideIndex(side);
  const Int32 entry = DirMatchGridMap[line][index];
  const bool isLast = line >= grid.rows() - 1;
  return entry == dirMatchEntry::separator && !isLast ? DirMatchGridMap[line + 1][index] : entry;
}

void showDetails(DirMatchControls& form, const DirMatchRow& row) {
  const Int32 file = row.file;
  form.setText("labFileName", FileTable.FileName[file]);
  form.setText("labDirectory",
               basBuildFullFilePath(form.width("labDirectory"), basGetDirnameFromFilenum(file), "",
                                    form.labSizer()));
  form.setText("labSize", grouped(FileTable.FileSize[file].raw()));
  form.setText("labDate", userLocale().shortDate(FileTable.FileDate[file]));
  form.setText("labCount1", toText(row.countInBoth));
  form.setText("labCount2", toText(row.countInGroup));
}

void showPaneOrMessage(DirMatchControls& form, bool severalLines, bool hasFile) {
  form.setVisible("picFileDetails", !severalLines && hasFile);
  form.setVisible("labFileDetailsMessage_0", severalLines);
  form.setVisible("labFileDetailsMessage_1", !severalLines && !hasFile);
}

}  // namespace

void griddir_Click(DirMatchControls& form) {
  procedure("griddir_Click", [&] {
    FlexGridModel& grid = form.griddir();
    const Int32 line = grid.row();
    if (line == 0 || line > DirMatchGridMap.upperBound()) return;
    const Int32 side = sideOfColumn(grid.col());
    selectSide(grid, side);
    const Int32 entry = entryAt(grid, line, side);
    if (entry != dirMatchEntry::nothing) showDetails(form, DirMatchRows[entry]);
    showPaneOrMessage(form, grid.rowSel() != line, entry != dirMatchEntry::nothing);
    basUpdateControls(form);
  });
}

void griddir_KeyUp(DirMatchControls& form, Int32 colBefore) {
  procedure("griddir_KeyUp", [&] {
    FlexGridModel& grid = form.griddir();
    const Int32 side = sideOfColumn(colBefore);
    const Int32 first = columnOfSide(side, dirMatchColumn::name);
    if (side == dirMatchSide::left && grid.col() > first)
      selectSide(grid, dirMatchSide::right);
    else if (side == dirMatchSide::right && grid.col() < first)
      selectSide(grid, dirMatchSide::left);
    griddir_Click(form);
  });
}

void basUpdateControls(DirMatchControls& form) {
  procedure("basUpdateControls", [&] {
    const FlexGridModel& grid = form.griddir();
    const bool several = grid.rowSel() > grid.row();
    const Int32 current = sideOfColumn(grid.col());
    for (const int side : {dirMatchSide::left, dirMatchSide::right}) {
      const bool hasFile =
          grid.row() > 0 && side == current &&
          !grid.cell(grid.row(), columnOfSide(side, dirMatchColumn::name)).text.empty();
      const std::string index = "_" + std::to_string(side);
      form.setEnabled("cmdOpen" + index, hasFile && !several);
      form.setEnabled("cmdDelete" + index, hasFile);
      form.setEnabled("cmdMove" + index, hasFile);
    }
  });
}

}  // namespace quernstoke
