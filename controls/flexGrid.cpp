#include "controls/flexGrid.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStringList>
#include <QWheelEvent>
#include <algorithm>

#include "controls/flexGridAccessible.h"
#include "controls/units.h"
#include "platform/qt/qtText.h"

namespace quernstoke {

namespace {

GridKey gridKey(int key) {
  switch (key) {
    case Qt::Key_PageUp:
      return GridKey::pageUp;
    case Qt::Key_PageDown:
      return GridKey::pageDown;
    case Qt::Key_Home:
      return GridKey::home;
    case Qt::Key_End:
      return GridKey::end;
    default:
      return GridKey::none;
  }
}

GridButton gridButton(Qt::MouseButton button) {
  if (button == Qt::RightButton) return GridButton::right;
  return button == Qt::LeftButton ? GridButton::left : GridButton::middle;
}

Qt::ScrollBarPolicy scrollBarPolicy(bool mayBeShown) {
  return mayBeShown ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
}

QString cellText(const GridCell& cell, const GridPictures& pictures) {
  if (!cell.text.empty()) {
    const QString text = qtText(cell.text).trimmed();
    return cell.strikeThrough ? FlexGrid::tr("%1 (struck out)").arg(text) : text;
  }
  const auto picture = pictures.find(cell.picture);
  return picture == pictures.end() ? QString() : picture->second.meaning;
}

}  // namespace

FlexGrid::FlexGrid(QWidget* parent) : QAbstractScrollArea(parent) {
  makeFlexGridsAccessible();
  grid_.showOn(this);
  setFocusPolicy(Qt::StrongFocus);
  setLayoutDirection(Qt::LeftToRight);
  viewport()->setMouseTracking(true);
  measure();
  updateScrollBars();
}

void FlexGrid::addPicture(const std::string& name, const QIcon& icon, QSize size,
                          const QString& meaning) {
  pictures_[name] = {icon, size, meaning};
  viewport()->update();
}

QString FlexGrid::rowText(int row) const {
  QStringList texts;
  for (Int32 col = 0; col < grid_.cols(); ++col) {
    const QString text = cellText(grid_.cell(row, col), pictures_);
    if (!text.isEmpty()) texts.append(text);
  }
  return texts.join(", ");
}

GridLayout FlexGrid::layoutOnScreen() const {
  return {grid_, horizontalScrollBar()->value()};
}

// What the grid asks of its screen.

void FlexGrid::gridChanged() {
  updateScrollBars();
  viewport()->update();
}

void FlexGrid::extentChanged() {
  endDrag();
  updateScrollBars();
}

std::int32_t FlexGrid::gridWidth() const {
  return twipsFromPixels(width() - 2 * frameWidth());
}

std::int32_t FlexGrid::visibleHeight() const {
  return twipsFromPixels(viewport()->height());
}

std::int32_t FlexGrid::headerHeight() const {
  return twipsFromPixels(headerPixels_);
}

std::int32_t FlexGrid::rowHeight() const {
  return twipsFromPixels(rowPixels_);
}

std::int32_t FlexGrid::columnWidthFor(std::string_view text) const {
  const int pixels = fontMetrics().horizontalAdvance(qtText(text));
  return twipsFromPixels(pixels + 2 * gridTextMargin(*this) + 1);
}

std::string FlexGrid::gridFont() const {
  return font().toString().toStdString();
}

// Showing.

void FlexGrid::measure() {
  headerPixels_ = gridTitleHeight(*this);
  rowPixels_ = gridRowHeight(*this);
}

void FlexGrid::updateScrollBars() {
  if (grid_.topRow() > grid_.lastTopRow()) grid_.setTopRow(grid_.lastTopRow());
  setVerticalScrollBarPolicy(scrollBarPolicy(grid_.scrollsVertically()));
  verticalScrollBar()->setRange(0, grid_.scrollsVertically() ? grid_.lastTopRow().raw() - 1 : 0);
  verticalScrollBar()->setPageStep(std::max(grid_.wholeRowsOnScreen().raw(), 1));
  verticalScrollBar()->setValue(grid_.topRow().raw() - 1);

  const int hidden = GridLayout(grid_, 0).edges.back() - viewport()->width();
  setHorizontalScrollBarPolicy(scrollBarPolicy(grid_.scrollsHorizontally()));
  horizontalScrollBar()->setRange(0, grid_.scrollsHorizontally() ? std::max(hidden, 0) : 0);
  horizontalScrollBar()->setPageStep(viewport()->width());
  horizontalScrollBar()->setSingleStep(rowPixels_);
}

void FlexGrid::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const GridLayout layout = layoutOnScreen();
  FlexGridPainter(painter, grid_, layout, pictures_, *this).paint(event->rect());
  tellCurrentRow();
}

// By now everything that belongs to a change has been done.
void FlexGrid::tellCurrentRow() {
  if (!QAccessible::isActive() || !hasFocus()) return;
  const QString text = rowText(grid_.row().raw());
  if (text == toldRow_) return;
  toldRow_ = text;
  tellRowFocused(*this);
}

void FlexGrid::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  updateScrollBars();
}

void FlexGrid::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
  measure();
  gridChanged();
}

void FlexGrid::scrollContentsBy(int /*dx*/, int dy) {
  const Int32 top = std::min(Int32(verticalScrollBar()->value() + 1), grid_.lastTopRow());
  if (dy != 0 && grid_.topRow() != top) grid_.setTopRow(top);
  viewport()->update();
}

void FlexGrid::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  toldRow_.clear();
  viewport()->update();
}

void FlexGrid::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  endDrag();  // A menu or another window takes the button's release for itself.
  pressedKeys_.clear();
  viewport()->update();
}

// The mouse.

void FlexGrid::mousePressEvent(QMouseEvent* event) {
  const QPoint position = event->position().toPoint();
  endDrag();
  if (event->button() == Qt::LeftButton && !pressColumnEdge(position)) {
    const GridLayout layout = layoutOnScreen();
    const int row = layout.rowAt(position.y()), col = layout.colAt(position.x());
    if (row > 0 && col >= 0) pressCell(row, col, event->modifiers() & Qt::ShiftModifier);
  }
  emit mouseDown(gridButton(event->button()), twipsFromPixels(position.x()),
                 twipsFromPixels(position.y()));
}

void FlexGrid::pressCell(int row, int col, bool extend) {
  drag_ = Drag::selection;
  extend ? grid_.setRowSel(row) : grid_.setRow(row);
  extend ? grid_.setColSel(col) : grid_.setCol(col);
}

bool FlexGrid::pressColumnEdge(QPoint position) {
  const GridLayout layout = layoutOnScreen();
  const int col = layout.columnEdgeAt(position.x());
  if (layout.rowAt(position.y()) != 0 || col < 0) return false;
  drag_ = Drag::columnEdge;
  draggedCol_ = col;
  return true;
}

void FlexGrid::mouseMoveEvent(QMouseEvent* event) {
  pointer_ = event->position().toPoint();
  if (!(event->buttons() & Qt::LeftButton)) endDrag();
  if (drag_ == Drag::none) showPointerFor(pointer_);
  if (drag_ == Drag::columnEdge) dragColumnEdge(pointer_.x());
  if (drag_ == Drag::selection) {
    dragSelection(pointer_);
    scrollWhileOutside(pointer_);
  }
}

// The last seen of the button need not be its release.
void FlexGrid::endDrag() {
  drag_ = Drag::none;
  scrolling_.stop();
}

void FlexGrid::showPointerFor(QPoint position) {
  const GridLayout layout = layoutOnScreen();
  const bool onEdge = layout.rowAt(position.y()) == 0 && layout.columnEdgeAt(position.x()) >= 0;
  viewport()->setCursor(onEdge ? Qt::SplitHCursor : Qt::ArrowCursor);
}

void FlexGrid::dragColumnEdge(int x) {
  constexpr int narrowest = 8;  // So that one can still take hold of it.
  const int left = layoutOnScreen().edge(draggedCol_);
  grid_.setColWidth(draggedCol_, twipsFromPixels(std::max(x - left, narrowest)));
}

void FlexGrid::dragSelection(QPoint position) {
  const GridLayout layout = layoutOnScreen();
  moveRow(layout.nearestRow(position.y()), true);
  grid_.setColSel(layout.nearestCol(position.x()));
}

void FlexGrid::scrollWhileOutside(QPoint position) {
  constexpr int milliseconds = 50;
  const bool outside = position.y() < headerPixels_ || position.y() >= viewport()->height();
  if (!outside)
    scrolling_.stop();
  else if (!scrolling_.isActive())
    scrolling_.start(milliseconds, this);
}

void FlexGrid::timerEvent(QTimerEvent* event) {
  if (event->timerId() != scrolling_.timerId()) return QAbstractScrollArea::timerEvent(event);
  dragSelection(pointer_);
}

void FlexGrid::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const Drag ended = drag_;
  endDrag();
  if (ended == Drag::selection) emit click();
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint position = event->position().toPoint();
  const GridLayout layout = layoutOnScreen();
  const bool onCell = layout.rowAt(position.y()) > 0 && layout.colAt(position.x()) >= 0;
  if (event->button() != Qt::LeftButton || !onCell) return mousePressEvent(event);
  emit mouseDown(GridButton::left, twipsFromPixels(position.x()), twipsFromPixels(position.y()));
  emit dblClick();
}

// A grid that has nothing to scroll leaves the wheel to its window, which may turn its page.
void FlexGrid::wheelEvent(QWheelEvent* event) {
  const bool sideways = event->angleDelta().y() == 0 || (event->modifiers() & Qt::AltModifier);
  if (!sideways && verticalScrollBar()->maximum() == 0)
    event->ignore();
  else
    QAbstractScrollArea::wheelEvent(event);
}

// The keyboard.

void FlexGrid::keyPressEvent(QKeyEvent* event) {
  pressedKeys_.insert(event->key());
  if (!moveByKey(event->key(), event->modifiers() & Qt::ShiftModifier)) event->ignore();
}

// Also while the key repeats: holding it turns page after page. A key that was pressed elsewhere,
// as in a list that gives the focus to the grid when an entry is chosen, has done what it was meant
// to.
void FlexGrid::keyReleaseEvent(QKeyEvent* event) {
  if (!pressedKeys_.contains(event->key())) return event->ignore();
  if (!event->isAutoRepeat()) pressedKeys_.erase(event->key());
  emit keyUp(gridKey(event->key()));
}

bool FlexGrid::moveByKey(int key, bool extend) {
  const int row = (extend ? grid_.rowSel() : grid_.row()).raw();
  const int col = (extend ? grid_.colSel() : grid_.col()).raw();
  const int page = std::max(grid_.wholeRowsOnScreen().raw() - 1, 1);
  switch (key) {
    case Qt::Key_Up:
      moveRow(row - 1, extend);
      return true;
    case Qt::Key_Down:
      moveRow(row + 1, extend);
      return true;
    case Qt::Key_PageUp:
      moveRow(row - page, extend);
      return true;
    case Qt::Key_PageDown:
      moveRow(row + page, extend);
      return true;
    case Qt::Key_Home:
      moveRow(1, extend);
      return true;
    case Qt::Key_End:
      moveRow(lastReachableRow(), extend);
      return true;
    case Qt::Key_Left:
      moveCol(col - 1, extend);
      return true;
    case Qt::Key_Right:
      moveCol(col + 1, extend);
      return true;
    default:
      return false;
  }
}

// To the nearest row that there is.
void FlexGrid::moveRow(int row, bool extend) {
  if (grid_.rows() < 2) return;
  const int target = std::clamp(row, 1, std::max(lastReachableRow(), 1));
  extend ? grid_.setRowSel(target) : grid_.setRow(target);
  if (grid_.scrollsVertically()) grid_.scrollIntoView(target);
}

void FlexGrid::moveCol(int col, bool extend) {
  const int target = std::clamp(col, 0, grid_.cols().raw() - 1);
  extend ? grid_.setColSel(target) : grid_.setCol(target);
}

// Where a page is turned by somebody else, what it has below the screen belongs to nobody.
int FlexGrid::lastReachableRow() const {
  const Int32 last = grid_.rows() - 1;
  if (grid_.scrollsVertically()) return last.raw();
  return std::min(last, grid_.topRow() + grid_.wholeRowsOnScreen() - 1).raw();
}

}  // namespace quernstoke
