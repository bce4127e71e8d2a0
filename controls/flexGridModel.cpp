#include "controls/flexGridModel.h"

#include <algorithm>

#include "platform/failure.h"

namespace quernstoke {

namespace {

bool lieBetween(Int32 value, Int32 oneEnd, Int32 otherEnd) {
  return value >= std::min(oneEnd, otherEnd) && value <= std::max(oneEnd, otherEnd);
}

std::size_t checkedIndex(Int32 index, std::size_t count) {
  if (index < 0 || index >= Int32(count)) fail(FailureNumber::subscriptOutOfRange);
  return static_cast<std::size_t>(index.raw());
}

std::size_t checkedCount(Int32 count) {
  if (count < 1) fail(FailureNumber::invalidProcedureCall);
  return static_cast<std::size_t>(count.raw());
}

// Takes the mark off a title.
CellAlignment takeAlignment(std::string_view& title) {
  const char mark = title.empty() ? '\0' : title.front();
  if (mark != '<' && mark != '^' && mark != '>') return CellAlignment::leftCentre;
  title.remove_prefix(1);
  if (mark == '^') return CellAlignment::centreCentre;
  return mark == '>' ? CellAlignment::rightCentre : CellAlignment::leftCentre;
}

}  // namespace

FlexGridModel::FlexGridModel() : rows_(2), columns_(2) {}

void FlexGridModel::setRows(Int32 count) {
  rows_.resize(checkedCount(count));
  const Int32 last = count - 1;
  row_ = std::min(row_, last);
  rowSel_ = std::min(rowSel_, last);
  topRow_ = std::clamp(topRow_, Int32(1), std::max(last, Int32(1)));
  extentChanged();
}

void FlexGridModel::setCols(Int32 count) {
  columns_.resize(checkedCount(count));
  for (Row& row : rows_)
    if (row.cells.size() > columns_.size()) row.cells.resize(columns_.size());
  col_ = std::min(col_, count - 1);
  colSel_ = std::min(colSel_, count - 1);
  extentChanged();
}

void FlexGridModel::clear() {
  for (Row& row : rows_)
    row.cells.clear();
  if (screen_) screen_->cellsCleared();
  changed();
}

void FlexGridModel::setFormatString(std::string_view titles) {
  const Int32 count = Int32(std::count(titles.begin(), titles.end(), '|')) + 1;
  if (cols() < count) setCols(count);
  for (Int32 col = 0; col < count; ++col) {
    const std::size_t end = titles.find('|');
    setTitle(col, titles.substr(0, end));
    titles.remove_prefix(end == std::string_view::npos ? titles.size() : end + 1);
  }
}

void FlexGridModel::setTitle(Int32 col, std::string_view title) {
  columns_[colIndex(col)].alignment = takeAlignment(title);
  editCell(0, col).text = title;
  setColWidth(col, screen_ ? screen_->columnWidthFor(title) : 0);
}

const GridCell& FlexGridModel::cell(Int32 row, Int32 col) const {
  static const GridCell empty;
  const std::vector<GridCell>& cells = rows_[rowIndex(row)].cells;
  const std::size_t index = colIndex(col);
  return index < cells.size() ? cells[index] : empty;
}

GridCell& FlexGridModel::editCell(Int32 row, Int32 col) {
  std::vector<GridCell>& cells = rows_[rowIndex(row)].cells;
  const std::size_t index = colIndex(col);
  if (index >= cells.size()) cells.resize(columns_.size());
  changed();
  return cells[index];
}

CellAlignment FlexGridModel::alignmentOf(Int32 row, Int32 col) const {
  return cell(row, col).alignment.value_or(columns_[colIndex(col)].alignment);
}

void FlexGridModel::setColWidth(Int32 col, Int32 width) {
  columns_[colIndex(col)].width = std::max(width, Int32(0));
  changed();
}

void FlexGridModel::setRow(Int32 row) {
  rowIndex(row);
  row_ = rowSel_ = row;
  changed();
}

void FlexGridModel::setCol(Int32 col) {
  colIndex(col);
  col_ = colSel_ = col;
  changed();
}

void FlexGridModel::setRowSel(Int32 row) {
  rowIndex(row);
  rowSel_ = row;
  changed();
}

void FlexGridModel::setColSel(Int32 col) {
  colIndex(col);
  colSel_ = col;
  changed();
}

bool FlexGridModel::isSelected(Int32 row, Int32 col) const {
  return lieBetween(row, row_, rowSel_) && lieBetween(col, col_, colSel_);
}

void FlexGridModel::setTopRow(Int32 row) {
  if (row != 1) rowIndex(row);  // Also of a grid that has none but the titles.
  topRow_ = std::clamp(row, Int32(1), lastTopRow());
  changed();
}

void FlexGridModel::scrollIntoView(Int32 row) {
  rowIndex(row);
  if (row < 1) return;
  if (row < topRow_) return setTopRow(row);
  const Int32 whole = std::max(wholeRowsOnScreen(), Int32(1));
  if (row >= topRow_ + whole) setTopRow(row - whole + 1);
}

Int32 FlexGridModel::wholeRowsOnScreen() const {
  if (!screen_) return 0;
  return std::max(screen_->visibleHeight() - screen_->headerHeight(), 0) / screen_->rowHeight();
}

Int32 FlexGridModel::lastTopRow() const {
  return std::max(rows() - std::max(wholeRowsOnScreen(), Int32(1)), Int32(1));
}

bool FlexGridModel::rowIsVisible(Int32 row) const {
  if (row < 0 || row >= rows() || !screen_) return false;
  if (row == 0) return true;
  return row >= topRow_ && row < topRow_ + wholeRowsOnScreen();
}

Int32 FlexGridModel::rowPos(Int32 row) const {
  rowIndex(row);
  if (row == 0) return 0;
  return rowHeight(0) + (row - topRow_) * rowHeight(row);
}

Int32 FlexGridModel::rowHeight(Int32 row) const {
  rowIndex(row);
  if (!screen_) return 0;
  return row == 0 ? screen_->headerHeight() : screen_->rowHeight();
}

void FlexGridModel::setRedraw(bool redraw) {
  redraw_ = redraw;
  changed();
}

void FlexGridModel::setScrollBars(ScrollBars bars) {
  scrollBars_ = bars;
  changed();
}

bool FlexGridModel::scrollsVertically() const {
  return scrollBars_ == ScrollBars::vertical || scrollBars_ == ScrollBars::both;
}

bool FlexGridModel::scrollsHorizontally() const {
  return scrollBars_ == ScrollBars::horizontal || scrollBars_ == ScrollBars::both;
}

void FlexGridModel::setVisible(bool visible) {
  visible_ = visible;
  if (screen_) screen_->showGrid(visible);
}

void FlexGridModel::setEnabled(bool enabled) {
  enabled_ = enabled;
  if (screen_) screen_->enableGrid(enabled);
}

void FlexGridModel::setFocus() {
  if (screen_) screen_->focusGrid();
}

std::size_t FlexGridModel::rowIndex(Int32 row) const {
  return checkedIndex(row, rows_.size());
}

std::size_t FlexGridModel::colIndex(Int32 col) const {
  return checkedIndex(col, columns_.size());
}

void FlexGridModel::changed() {
  if (redraw_ && screen_) screen_->gridChanged();
}

void FlexGridModel::extentChanged() {
  if (screen_) screen_->extentChanged();
  changed();
}

}  // namespace quernstoke
