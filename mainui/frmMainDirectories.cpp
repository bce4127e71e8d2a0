// The directory list of the main window.

#include <algorithm>

#include "controls/flexGrid.h"
#include "controls/measuringLabel.h"
#include "core/modMain.h"
#include "core/procedure.h"
#include "core/text.h"
#include "mainui/frmMain.h"
#include "mainui/modalForms.h"
#include "mainui/ui_frmMain.h"
#include "pictures/pictures.h"
#include "results/gridWidths.h"
#include "settings/settings.h"

namespace quernstoke::forms {

namespace {

constexpr int pictureColumn = 0;
constexpr int directoryColumn = 1;
constexpr int recurseColumn = 2;
constexpr int fileTypesColumn = 3;

constexpr const char* columnTitles = " |<Directory|Recurse|File Types";

// The halves of a pair lie against their common edge, so that they join into one mark.
void setKindPicture(GridCell& cell, std::string_view includeExclude) {
  cell.pictureAlignment = CellAlignment::centreCentre;
  if (includeExclude == "I") cell.picture = "SmallPlus";
  if (includeExclude == "E") cell.picture = "SmallMinus";
  if (includeExclude == "1") {
    cell.picture = "ExcludeTwoTop";
    cell.pictureAlignment = CellAlignment::centreBottom;
  }
  if (includeExclude == "2") {
    cell.picture = "ExcludeTwoBottom";
    cell.pictureAlignment = CellAlignment::centreTop;
  }
}

// A number stands for a row of the table of file types, any other text for itself.
std::string fileTypesText(const std::string& extensions) {
  return isNumeric(extensions) ? FileTypeTable.FileTypeDescription[toNumber(extensions)]
                               : extensions;
}

}  // namespace

FlexGridModel& frmMain::gridList() const {
  return ui_->gridList->model();
}

void frmMain::prepareDirectoryGrid() {
  const std::initializer_list<std::pair<const char*, QString>> kinds = {
      {"SmallPlus", tr("included")},
      {"SmallMinus", tr("excluded")},
      {"ExcludeTwoTop", tr("not compared with the next")},
      {"ExcludeTwoBottom", tr("not compared with the one before")}};
  for (const auto& [name, meaning] : kinds)
    ui_->gridList->addPicture(name, picture(name), pictureSize(name), meaning);
  gridList().setRows(1);
  gridList().setFormatString(columnTitles);
  gridList().setEnabled(false);
}

void frmMain::basUpdateDirGrid() {
  procedure("basUpdateDirGrid", [this] {
    const bool hasProfile = !ProfileName.empty();
    gridList().setEnabled(hasProfile);
    for (QWidget* button : {ui_->cmdAddList, ui_->cmdDelList, ui_->cmdEditList})
      button->setEnabled(hasProfile);
    const Int32 rowBefore = gridList().row();
    gridList().setRedraw(false);
    gridList().setRows(1);
    gridList().setFormatString(columnTitles);
    for (Int32 slot = 1; slot <= ProfileDirList.upperBound(); ++slot) {
      if (ProfileDirList[slot].Dir.empty()) break;
      addDirectoryRow(slot);
    }
    fitColumns();
    restoreSelectedRow(rowBefore);
    gridList().setRedraw(true);
    updateHelp();
  });
}

void frmMain::addDirectoryRow(Int32 slot) {
  const DirSpec& spec = ProfileDirList[slot];
  gridList().setRows(slot + 1);
  setKindPicture(gridList().editCell(slot, pictureColumn), spec.IncludeExclude);
  gridList().setColWidth(pictureColumn, pictureWidth() + 20);
  gridList().editCell(slot, directoryColumn).text = spec.Dir;
  gridList().editCell(slot, recurseColumn).text = spec.RecurseSubDirs ? "YES" : "No";
  if (spec.IncludeExclude == "I")
    gridList().editCell(slot, fileTypesColumn).text = fileTypesText(spec.IncludeExtensions);
}

void frmMain::fitColumns() {
  basAutoSetGridWidth(gridList(), directoryColumn, *labSizer_, Int16(pictureWidth() + 100));
  fittedWidth_ = gridList().width();
}

// At its first showing, too: only then does the grid have its size. The current cell stays.
void frmMain::Form_Resize() {
  FlexGridModel& grid = gridList();
  if (grid.width() == fittedWidth_) return;
  const Int32 colBefore = grid.col();
  const Int32 colSelBefore = grid.colSel();
  fitColumns();
  grid.setCol(colBefore);
  grid.setColSel(colSelBefore);
}

void frmMain::restoreSelectedRow(Int32 rowBefore) {
  FlexGridModel& grid = gridList();
  if (grid.rows() < 2) return;
  grid.setRow(std::min(rowBefore, grid.rows() - 1));
  grid.setCol(directoryColumn);
  grid.setColSel(grid.cols() - 1);
}

void frmMain::basAddEditDir(Int16 row) {
  procedure("basAddEditDir", [&] {
    DialogValue = row;
    modalForms.frmGetDirName();
    basUpdateDirGrid();
  });
}

void frmMain::cmdAddList_Click() {
  procedure("cmdAddList_Click", [this] { basAddEditDir(-1); });
}

void frmMain::cmdEditList_Click() {
  procedure("cmdEditList_Click", [this] { editCurrentRow(); });
}

void frmMain::gridList_DblClick() {
  procedure("gridList_DblClick", [this] { editCurrentRow(); });
}

void frmMain::editCurrentRow() {
  if (gridList().row() > 0) basAddEditDir(gridList().row());
}

void frmMain::cmdDelList_Click() {
  procedure("cmdDelList_Click", [this] {
    const Int32 row = gridList().row();
    if (row <= 0) return;
    Int32 first = row;
    Int32 last = row;
    // From the lower half of a pair, the entry behind the pair goes as well.
    if (ProfileDirList[row].IncludeExclude == "1") last = row + 1;
    if (ProfileDirList[row].IncludeExclude == "2") {
      first = row - 1;
      last = row + 1;
    }
    const Int32 end = ProfileDirList.upperBound();
    for (Int32 to = first, from = last + 1; to < end; ++to, ++from)
      if (from <= end) ProfileDirList[to] = ProfileDirList[from];
    ProfileDirList[end].Dir.clear();
    basUpdateDirGrid();
  });
}

// The selection covers a whole entry, of a pair both rows.
void frmMain::gridList_Click() {
  procedure("gridList_Click", [this] {
    FlexGridModel& grid = gridList();
    if (grid.rows() < 2) return;
    Int32 first = grid.row();
    Int32 last = first;
    if (ProfileDirList[first].IncludeExclude == "1")
      last = first + 1;
    else if (ProfileDirList[first].IncludeExclude == "2")
      first = first - 1;
    grid.setRow(first);
    grid.setCol(directoryColumn);
    grid.setRowSel(std::min(last, grid.rows() - 1));
    grid.setColSel(grid.cols() - 1);
  });
}

}  // namespace quernstoke::forms
