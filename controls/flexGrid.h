#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QIcon>
#include <QPoint>
#include <QSize>
#include <QString>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "controls/flexGridModel.h"
#include "controls/flexGridPainter.h"
#include "controls/gridLayout.h"

namespace quernstoke {

// Shows a FlexGridModel, which it owns. The person selects cells with mouse and keyboard and drags
// the edges of the titles; the titles themselves are dead. Visible and enabled are set through the
// model.
class FlexGrid : public QAbstractScrollArea, private GridScreen {
  Q_OBJECT

 public:
  explicit FlexGrid(QWidget* parent = nullptr);

  FlexGridModel& model() { return grid_; }
  const FlexGridModel& model() const { return grid_; }

  // A picture that cells can name. `meaning` is what is told to those who can't see it.
  void addPicture(const std::string& name, const QIcon& icon, QSize size,
                  const QString& meaning = {});

  // What a row says, its cells separated by commas.
  QString rowText(int row) const;
  GridLayout layoutOnScreen() const;

 signals:
  // The left button was pressed on a cell and released; a selection may have been dragged between.
  // The second click of a double click is none.
  void click();
  void dblClick();                                  // On a cell, with the left button.
  void mouseDown(GridButton button, int x, int y);  // Anywhere, in twips from the grid's corner.
  void keyUp(GridKey key);                          // Of a key that was pressed here.

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  enum class Drag { none, selection, columnEdge };

  void gridChanged() override;
  void extentChanged() override;
  void cellsCleared() override { endDrag(); }
  void showGrid(bool visible) override { setVisible(visible); }
  void enableGrid(bool enabled) override { setEnabled(enabled); }
  void focusGrid() override { setFocus(); }
  std::int32_t gridWidth() const override;
  std::int32_t visibleHeight() const override;
  std::int32_t headerHeight() const override;
  std::int32_t rowHeight() const override;
  std::int32_t columnWidthFor(std::string_view text) const override;
  std::string gridFont() const override;

  void measure();
  void updateScrollBars();
  void endDrag();
  void pressCell(int row, int col, bool extend);
  bool pressColumnEdge(QPoint position);
  void dragSelection(QPoint position);
  void dragColumnEdge(int x);
  void scrollWhileOutside(QPoint position);
  void showPointerFor(QPoint position);
  bool moveByKey(int key, bool extend);
  void moveRow(int row, bool extend);
  void moveCol(int col, bool extend);
  int lastReachableRow() const;
  void tellCurrentRow();

  FlexGridModel grid_;
  GridPictures pictures_;
  int headerPixels_ = 0;
  int rowPixels_ = 1;
  Drag drag_ = Drag::none;
  int draggedCol_ = 0;
  QPoint pointer_;
  QBasicTimer scrolling_;
  QString toldRow_;
  std::set<int> pressedKeys_;
};

}  // namespace quernstoke
