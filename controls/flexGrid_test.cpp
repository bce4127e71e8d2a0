#include "controls/flexGrid.h"

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QPixmap>
#include <QProxyStyle>
#include <QScrollBar>
#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "controls/measuringLabel.h"
#include "controls/units.h"
#include "testing/qt/input.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A grid of four columns, 100 pixels each, on a screen that holds ten rows and a bit of one.
class FlexGridTest : public testing::Test {
 protected:
  FlexGridTest() : model(grid.model()) {
    grid.setFrameShape(QFrame::NoFrame);
    model.setFormatString("|<Name|<Dir|>Size");
    for (Int32 col = 0; col < 4; ++col)
      model.setColWidth(col, twipsFromPixels(100));
    rowPixels = pixelsFromTwips(model.rowHeight(1).raw());
    titlePixels = pixelsFromTwips(model.rowHeight(0).raw());
    grid.resize(500, titlePixels + 10 * rowPixels + 5);
    grid.show();
    setRows(10);
    QObject::connect(&grid, &FlexGrid::click, [this] { log.emplace_back("click"); });
    QObject::connect(&grid, &FlexGrid::dblClick, [this] { log.emplace_back("dblClick"); });
  }

  // Rows besides that of the titles.
  void setRows(int count) {
    model.setRows(count + 1);
    for (Int32 row = 1; row <= count; ++row)
      model.editCell(row, 1).text = "file " + std::to_string(row.raw());
    QApplication::processEvents();
  }
  QWidget& view() { return *grid.viewport(); }
  QPoint cellAt(int row, int col) const {
    return grid.layoutOnScreen().cellRect(row, col).center();
  }
  std::vector<int> selection() const {
    return {model.row().raw(), model.col().raw(), model.rowSel().raw(), model.colSel().raw()};
  }
  QImage picture() {
    QImage image(grid.size(), QImage::Format_RGB32);
    grid.render(&image);
    return image;
  }

  FlexGrid grid;
  FlexGridModel& model;
  int rowPixels = 0;
  int titlePixels = 0;
  std::vector<std::string> log;
};

// A list that is being filled may have shrunk under a scroll bar that stood far below.
TEST_F(FlexGridTest, RowsThatGoWhileNothingIsRedrawnTakeTheScrollBarAlong) {
  setRows(100);
  model.setTopRow(80);
  model.setRedraw(false);
  model.setRows(3);
  EXPECT_EQ(grid.verticalScrollBar()->maximum(), 0);
  for (const int notches : {-5, 5}) {
    QApplication::processEvents();
    turnWheel(view(), notches);
  }
  model.setRows(21);
  EXPECT_EQ(grid.verticalScrollBar()->maximum(), 10);
  turnWheel(view(), -50);
  EXPECT_EQ(model.topRow(), 11);
  picture();
}

// A style may ask for margins wider than what a fitted column has to spare.
class WideHeaderStyle : public QProxyStyle {
 public:
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    return metric == PM_HeaderMargin ? 12 : QProxyStyle::pixelMetric(metric, option, widget);
  }
};

TEST_F(FlexGridTest, AFittedColumnShowsItsTextInEveryStyle) {
  WideHeaderStyle wide;
  MeasuringLabel ruler(&grid);
  ruler.setFont(model.font());
  for (QStyle* style : {QApplication::style(), static_cast<QStyle*>(&wide)}) {
    grid.setStyle(style);
    for (const std::string text : {"Recurse", "All files", "fi"}) {
      const int room = pixelsFromTwips(ruler.width(text + "X")) - 2 * gridTextMargin(grid);
      EXPECT_GE(room, grid.fontMetrics().horizontalAdvance(QString::fromStdString(text))) << text;
    }
  }
}

// A number that is cut short at its end looks like any other that begins like it.
TEST_F(FlexGridTest, NumbersOfTenDigitsAreWholeInAColumnForEight) {
  model.setRow(9);
  model.setColWidth(3, MeasuringLabel(&grid).width("--99999999"));
  const QRect cell = grid.layoutOnScreen().cellRect(2, 3);
  const auto drawn = [&](const char* number) {
    model.editCell(2, 3).text = number;
    return picture().copy(cell);
  };
  EXPECT_NE(drawn("999999991"), drawn("999999992"));
  EXPECT_NE(drawn("199999999"), drawn("299999999"));
  EXPECT_NE(drawn("2147483646"), drawn("2147483647"));
  EXPECT_NE(drawn("1147483647"), drawn("2147483647"));
}

TEST_F(FlexGridTest, NumberInAColumnThatIsFarTooNarrowIsCutWithAnEllipsis) {
  model.setRow(9);
  model.setColWidth(3, MeasuringLabel(&grid).width("99999"));
  const QRect cell = grid.layoutOnScreen().cellRect(2, 3);
  model.editCell(2, 3).text = "2147483646";
  const QImage drawn = picture().copy(cell);
  model.editCell(2, 3).text = "2147483647";
  EXPECT_EQ(picture().copy(cell), drawn);
}

TEST_F(FlexGridTest, ARulerTakesItsFont) {
  QFont large = grid.font();
  large.setPointSize(large.pointSize() * 2);
  grid.setFont(large);
  MeasuringLabel ruler;
  ruler.setFont(model.font());
  EXPECT_EQ(ruler.font(), large);
}

TEST_F(FlexGridTest, AClickMakesTheCellCurrent) {
  clickMouse(view(), cellAt(3, 2));
  EXPECT_THAT(selection(), ElementsAre(3, 2, 3, 2));
  EXPECT_THAT(log, ElementsAre("click"));
}

TEST_F(FlexGridTest, ASelectionIsDraggedAndThenClicked) {
  pressMouse(view(), cellAt(3, 0));
  moveMouse(view(), cellAt(7, 0), Qt::LeftButton);
  EXPECT_THAT(log, IsEmpty());
  releaseMouse(view(), cellAt(7, 0));
  EXPECT_THAT(selection(), ElementsAre(3, 0, 7, 0));
  EXPECT_THAT(log, ElementsAre("click"));
}

TEST_F(FlexGridTest, ASelectionMayBeDraggedUpward) {
  pressMouse(view(), cellAt(7, 2));
  moveMouse(view(), cellAt(4, 1), Qt::LeftButton);
  releaseMouse(view(), cellAt(4, 1));
  EXPECT_THAT(selection(), ElementsAre(7, 2, 4, 1));
}

TEST_F(FlexGridTest, ShiftClickExtendsTheSelection) {
  clickMouse(view(), cellAt(3, 1));
  clickMouse(view(), cellAt(6, 3), Qt::LeftButton, Qt::ShiftModifier);
  EXPECT_THAT(selection(), ElementsAre(3, 1, 6, 3));
}

TEST_F(FlexGridTest, TheTitlesAreDead) {
  clickMouse(view(), cellAt(3, 1));
  log.clear();
  clickMouse(view(), cellAt(0, 2));
  doubleClickMouse(view(), cellAt(0, 2));
  EXPECT_THAT(selection(), ElementsAre(3, 1, 3, 1));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(FlexGridTest, BesideAndBelowTheCellsNothingIsClicked) {
  setRows(3);
  clickMouse(view(), QPoint(450, cellAt(2, 1).y()));
  clickMouse(view(), QPoint(50, cellAt(3, 1).y() + rowPixels));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(FlexGridTest, ADoubleClickIsAClickFirst) {
  doubleClickMouse(view(), cellAt(5, 1));
  EXPECT_THAT(log, ElementsAre("click", "dblClick"));
  EXPECT_THAT(selection(), ElementsAre(5, 1, 5, 1));
}

TEST_F(FlexGridTest, ARightButtonSelectsNothingAndTellsWhereItIsPressed) {
  clickMouse(view(), cellAt(3, 1));
  log.clear();
  int y = 0;
  GridButton button = GridButton::left;
  QObject::connect(&grid, &FlexGrid::mouseDown, [&](GridButton pressed, int, int at) {
    button = pressed;
    y = at;
  });
  clickMouse(view(), cellAt(6, 1), Qt::RightButton);
  EXPECT_EQ(button, GridButton::right);
  EXPECT_GE(y, model.rowPos(6));
  EXPECT_LT(y, model.rowPos(6) + model.rowHeight(6));
  EXPECT_THAT(selection(), ElementsAre(3, 1, 3, 1));
  EXPECT_THAT(log, IsEmpty());
}

// A menu that the right button pops up takes the left one's release for itself.
TEST_F(FlexGridTest, DragEndsWhenItsButtonIsSeenUp) {
  pressMouse(view(), cellAt(3, 1));
  moveMouse(view(), cellAt(4, 1), Qt::LeftButton);
  moveMouse(view(), cellAt(7, 1));
  moveMouse(view(), cellAt(8, 1), Qt::LeftButton);
  EXPECT_THAT(selection(), ElementsAre(3, 1, 4, 1));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(FlexGridTest, DragEndsWithAnotherButton) {
  pressMouse(view(), cellAt(3, 1));
  pressMouse(view(), cellAt(3, 1), Qt::RightButton);
  moveMouse(view(), cellAt(7, 1), Qt::LeftButton);
  EXPECT_THAT(selection(), ElementsAre(3, 1, 3, 1));
}

TEST_F(FlexGridTest, DragEndsWithTheFocus) {
  pressMouse(view(), cellAt(3, 1));
  QFocusEvent lost(QEvent::FocusOut, Qt::PopupFocusReason);
  QApplication::sendEvent(&grid, &lost);
  moveMouse(view(), cellAt(7, 1), Qt::LeftButton);
  EXPECT_THAT(selection(), ElementsAre(3, 1, 3, 1));
}

// The button was pressed on a row that isn't there any more.
TEST_F(FlexGridTest, DragEndsWhenTheGridIsFilledAnew) {
  for (const bool rowsChange : {false, true}) {
    pressMouse(view(), cellAt(3, 1));
    rowsChange ? model.setRows(9) : model.clear();
    moveMouse(view(), cellAt(7, 1), Qt::LeftButton);
    releaseMouse(view(), cellAt(7, 1));
    EXPECT_THAT(selection(), ElementsAre(3, 1, 3, 1));
    EXPECT_THAT(log, IsEmpty());
  }
}

TEST_F(FlexGridTest, DragOfAnEdgeEndsWhenItsButtonIsSeenUp) {
  const QPoint edge(200, titlePixels / 2);
  pressMouse(view(), edge);
  moveMouse(view(), edge + QPoint(50, 0));
  EXPECT_EQ(model.colWidth(1), twipsFromPixels(100));
}

TEST_F(FlexGridTest, ArrowKeysMoveTheCurrentCellWithinTheGrid) {
  clickMouse(view(), cellAt(1, 0));
  typeKey(grid, Qt::Key_Up);
  typeKey(grid, Qt::Key_Left);
  EXPECT_THAT(selection(), ElementsAre(1, 0, 1, 0));
  typeKey(grid, Qt::Key_Down);
  typeKey(grid, Qt::Key_Right);
  EXPECT_THAT(selection(), ElementsAre(2, 1, 2, 1));
}

TEST_F(FlexGridTest, AWholeRowStaysSelectedWhileOneMovesUpAndDown) {
  model.setRow(2);
  model.setCol(1);
  model.setColSel(3);
  typeKey(grid, Qt::Key_Down);
  EXPECT_THAT(selection(), ElementsAre(3, 1, 3, 3));
}

TEST_F(FlexGridTest, ShiftedKeysExtendTheSelection) {
  model.setRow(2);
  model.setCol(1);
  typeKey(grid, Qt::Key_Down, Qt::ShiftModifier);
  typeKey(grid, Qt::Key_Down, Qt::ShiftModifier);
  typeKey(grid, Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_THAT(selection(), ElementsAre(2, 1, 4, 2));
}

TEST_F(FlexGridTest, HomeAndEndGoToTheFirstAndLastRow) {
  setRows(200);
  model.setRow(50);
  typeKey(grid, Qt::Key_End);
  EXPECT_EQ(model.row(), 200);
  EXPECT_TRUE(model.rowIsVisible(200));
  typeKey(grid, Qt::Key_Home);
  EXPECT_EQ(model.row(), 1);
  EXPECT_EQ(model.topRow(), 1);
}

TEST_F(FlexGridTest, PageKeysMoveByAScreenful) {
  setRows(200);
  model.setRow(1);
  typeKey(grid, Qt::Key_PageDown);
  EXPECT_EQ(model.row(), 10);
  typeKey(grid, Qt::Key_PageDown);
  EXPECT_EQ(model.row(), 19);
  EXPECT_TRUE(model.rowIsVisible(19));
  typeKey(grid, Qt::Key_PageUp);
  EXPECT_EQ(model.row(), 10);
}

TEST_F(FlexGridTest, KeysOnTitlesAloneDoNothing) {
  setRows(0);
  for (const int key : {Qt::Key_Down, Qt::Key_End, Qt::Key_PageDown, Qt::Key_Home})
    typeKey(grid, key);
  EXPECT_EQ(model.row(), 0);
}

TEST_F(FlexGridTest, KeysByWhichPagesAreTurnedAreTold) {
  std::vector<GridKey> keys;
  QObject::connect(&grid, &FlexGrid::keyUp, [&](GridKey key) { keys.push_back(key); });
  for (const int key : {Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_End, Qt::Key_Home, Qt::Key_A})
    typeKey(grid, key);
  EXPECT_THAT(keys, ElementsAre(GridKey::pageUp, GridKey::pageDown, GridKey::end, GridKey::home,
                                GridKey::none));
}

TEST_F(FlexGridTest, OnlyTheReleaseOfAKeyThatWasPressedHereIsTold) {
  int told = 0;
  QObject::connect(&grid, &FlexGrid::keyUp, [&](GridKey) { ++told; });
  const auto send = [&](QEvent::Type type, int key, bool repeats = false) {
    QKeyEvent event(type, key, Qt::NoModifier, {}, repeats);
    QApplication::sendEvent(&grid, &event);
  };
  send(QEvent::KeyRelease, Qt::Key_End);
  EXPECT_EQ(told, 0);
  send(QEvent::KeyPress, Qt::Key_End);
  QFocusEvent lost(QEvent::FocusOut);
  QApplication::sendEvent(&grid, &lost);
  send(QEvent::KeyRelease, Qt::Key_End);
  EXPECT_EQ(told, 0);
  send(QEvent::KeyPress, Qt::Key_PageDown);
  send(QEvent::KeyPress, Qt::Key_Shift);
  send(QEvent::KeyRelease, Qt::Key_PageDown, true);
  send(QEvent::KeyPress, Qt::Key_PageDown, true);
  send(QEvent::KeyRelease, Qt::Key_PageDown);
  EXPECT_EQ(told, 2);
  send(QEvent::KeyRelease, Qt::Key_PageDown);
  EXPECT_EQ(told, 2);
}

// The screen shows one page of a longer list; below it there are spare rows of no file.
TEST_F(FlexGridTest, AGridThatCannotScrollKeepsToItsScreen) {
  setRows(12);
  model.setScrollBars(ScrollBars::horizontal);
  model.setRow(1);
  typeKey(grid, Qt::Key_PageDown);
  typeKey(grid, Qt::Key_PageDown);
  EXPECT_EQ(model.row(), 10);
  typeKey(grid, Qt::Key_Down);
  EXPECT_EQ(model.row(), 10);
  EXPECT_EQ(model.topRow(), 1);
  EXPECT_FALSE(grid.verticalScrollBar()->isVisible());
}

TEST_F(FlexGridTest, AGridThatCannotScrollLeavesTheWheelToItsWindow) {
  setRows(12);
  model.setScrollBars(ScrollBars::horizontal);
  EXPECT_FALSE(turnWheel(view(), -1));
  model.setScrollBars(ScrollBars::both);
  EXPECT_TRUE(turnWheel(view(), -1));
  EXPECT_GT(model.topRow(), 1);
}

TEST_F(FlexGridTest, TheScrollBarFollowsTheTopRowAndMovesIt) {
  setRows(200);
  EXPECT_TRUE(grid.verticalScrollBar()->isVisible());
  EXPECT_EQ(grid.verticalScrollBar()->maximum(), 190);
  model.setTopRow(50);
  EXPECT_EQ(grid.verticalScrollBar()->value(), 49);
  grid.verticalScrollBar()->setValue(99);
  EXPECT_EQ(model.topRow(), 100);
}

TEST_F(FlexGridTest, FewerRowsBringTheViewBackUp) {
  setRows(200);
  model.setTopRow(150);
  setRows(5);
  EXPECT_EQ(model.topRow(), 1);
  EXPECT_FALSE(grid.verticalScrollBar()->isVisible());
}

TEST_F(FlexGridTest, ATallerWindowBringsTheViewBackUp) {
  setRows(20);
  model.setTopRow(11);
  grid.resize(500, titlePixels + 30 * rowPixels);
  EXPECT_EQ(model.topRow(), 1);
}

TEST_F(FlexGridTest, DraggingBelowTheViewScrollsOn) {
  setRows(200);
  pressMouse(view(), cellAt(9, 1));
  moveMouse(view(), QPoint(150, view().height() + 2 * rowPixels), Qt::LeftButton);
  const Int32 first = model.rowSel();
  EXPECT_GT(first, 10);
  QElapsedTimer waited;
  waited.start();
  while (model.rowSel() == first && waited.elapsed() < 10000)
    QApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
  EXPECT_GT(model.rowSel(), first);
  releaseMouse(view(), QPoint(150, view().height()));
  EXPECT_EQ(model.row(), 9);
}

TEST_F(FlexGridTest, ColumnsAreResizedByTheEdgesOfTheirTitles) {
  const QPoint edge(200, titlePixels / 2);
  pressMouse(view(), edge);
  moveMouse(view(), edge + QPoint(50, 0), Qt::LeftButton);
  releaseMouse(view(), edge + QPoint(50, 0));
  EXPECT_EQ(model.colWidth(1), twipsFromPixels(150));
  EXPECT_EQ(model.colWidth(2), twipsFromPixels(100));
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(FlexGridTest, AColumnIsNeverDraggedAway) {
  const QPoint edge(200, titlePixels / 2);
  pressMouse(view(), edge);
  moveMouse(view(), QPoint(0, edge.y()), Qt::LeftButton);
  releaseMouse(view(), QPoint(0, edge.y()));
  EXPECT_GT(model.colWidth(1), 0);
}

TEST_F(FlexGridTest, AColumnWithoutWidthCanBePulledOut) {
  model.setColWidth(2, 0);
  const QPoint edge(200, titlePixels / 2);
  pressMouse(view(), edge);
  moveMouse(view(), edge + QPoint(40, 0), Qt::LeftButton);
  releaseMouse(view(), edge + QPoint(40, 0));
  EXPECT_EQ(model.colWidth(1), twipsFromPixels(100));
  EXPECT_EQ(model.colWidth(2), twipsFromPixels(40));
}

TEST_F(FlexGridTest, WideColumnsScrollSideways) {
  EXPECT_FALSE(grid.horizontalScrollBar()->isVisible());
  model.setColWidth(2, twipsFromPixels(400));
  QApplication::processEvents();
  EXPECT_TRUE(grid.horizontalScrollBar()->isVisible());
  grid.horizontalScrollBar()->setValue(100);
  EXPECT_EQ(grid.layoutOnScreen().colAt(0), 1);
  clickMouse(view(), QPoint(10, cellAt(2, 1).y()));
  EXPECT_EQ(model.col(), 1);
}

// Widths in twips need not be whole pixels.
TEST_F(FlexGridTest, ColumnsThatFillTheGridNeedNoScrollBar) {
  const Int32 width = model.width();
  model.setColWidth(0, 423);
  model.setColWidth(1, 1111);
  model.setColWidth(2, 2222);
  model.setColWidth(3, width - 423 - 1111 - 2222);
  QApplication::processEvents();
  EXPECT_FALSE(grid.horizontalScrollBar()->isVisible());
  EXPECT_EQ(grid.layoutOnScreen().edges.back(), grid.width());
}

TEST_F(FlexGridTest, OnlyWholeRowsCountAsVisible) {
  setRows(99);
  EXPECT_TRUE(model.rowIsVisible(10));
  EXPECT_FALSE(model.rowIsVisible(11));
  grid.resize(500, titlePixels + 11 * rowPixels);
  EXPECT_TRUE(model.rowIsVisible(11));
}

TEST_F(FlexGridTest, TheModelShowsEnablesAndFocusesTheGrid) {
  grid.activateWindow();
  QApplication::processEvents();
  grid.clearFocus();
  model.setFocus();
  EXPECT_TRUE(grid.hasFocus());
  model.setEnabled(false);
  EXPECT_FALSE(grid.isEnabled());
  model.setVisible(false);
  EXPECT_FALSE(grid.isVisible());
  model.setVisible(true);
  EXPECT_TRUE(grid.isVisible());
}

QPalette darkPalette() {
  QPalette palette;
  palette.setColor(QPalette::Base, Qt::black);
  palette.setColor(QPalette::Text, Qt::white);
  return palette;
}

struct Lightness {
  int darkest = 255;
  int lightest = 0;
};

Lightness lightnessIn(const QImage& image, const QRect& area) {
  Lightness found;
  for (int y = area.top(); y <= area.bottom(); ++y)
    for (int x = area.left(); x <= area.right(); ++x) {
      const int lightness = qGray(image.pixel(x, y));
      found.darkest = std::min(found.darkest, lightness);
      found.lightest = std::max(found.lightest, lightness);
    }
  return found;
}

TEST_F(FlexGridTest, TextOnAFixedBackColourIsBlackInADarkTheme) {
  grid.setPalette(darkPalette());
  model.setRow(9);
  model.editCell(2, 1).backColour = 0xE0E0E0;
  const QImage image = picture();
  const QRect fixed = grid.layoutOnScreen().cellRect(2, 1);
  const QRect plain = grid.layoutOnScreen().cellRect(3, 1);
  EXPECT_EQ(image.pixelColor(fixed.right() - 2, fixed.top() + 1), QColor(0xE0, 0xE0, 0xE0));
  EXPECT_LT(lightnessIn(image, fixed).darkest, 50);
  EXPECT_EQ(lightnessIn(image, fixed).lightest, 0xE0);
  EXPECT_EQ(image.pixelColor(plain.right() - 2, plain.top() + 1), QColor(Qt::black));
  EXPECT_GT(lightnessIn(image, plain).lightest, 200);
}

TEST_F(FlexGridTest, ACellHasItsOwnForeColour) {
  model.setRow(9);
  model.editCell(2, 1).backColour = 0x202020;
  model.editCell(2, 1).foreColour = 0xFFFFFF;
  const QImage image = picture();
  const Lightness found = lightnessIn(image, grid.layoutOnScreen().cellRect(2, 1));
  EXPECT_EQ(found.darkest, 0x20);
  EXPECT_GT(found.lightest, 200);
}

TEST_F(FlexGridTest, SelectedCellsAreInTheDesktopsHighlight) {
  model.editCell(2, 2).backColour = 0xE0E0E0;
  model.setRow(2);
  model.setCol(1);
  model.setColSel(2);
  const QPoint corner = grid.layoutOnScreen().cellRect(2, 2).topLeft();
  const QPalette::ColorGroup group = grid.isActiveWindow() ? QPalette::Active : QPalette::Inactive;
  EXPECT_EQ(picture().pixelColor(corner), grid.palette().color(group, QPalette::Highlight));
}

TEST_F(FlexGridTest, TheCurrentCellShowsTheFocus) {
  grid.activateWindow();
  grid.setFocus();
  model.setRow(2);
  model.setCol(1);
  model.setColSel(2);
  const QRect cell = grid.layoutOnScreen().cellRect(2, 1);
  const QImage focused = picture().copy(cell);
  model.setCol(2);
  model.setColSel(1);
  EXPECT_NE(picture().copy(cell), focused);
}

TEST_F(FlexGridTest, BoldAndStruckTextIsDrawnSo) {
  model.setRow(9);
  const QRect cell = grid.layoutOnScreen().cellRect(2, 1);
  const QImage plain = picture().copy(cell);
  model.editCell(2, 1).strikeThrough = true;
  const QImage struck = picture().copy(cell);
  EXPECT_NE(struck, plain);
  model.editCell(2, 1).bold = true;
  EXPECT_NE(picture().copy(cell), struck);
}

class FlexGridPicturesTest : public FlexGridTest {
 protected:
  FlexGridPicturesTest() {
    QPixmap red(20, 10);
    red.fill(Qt::red);
    grid.addPicture("Half", QIcon(red), QSize(20, 10), "ticked");
    model.setRow(9);
  }
  QRect redPart(int row, CellAlignment alignment) {
    model.editCell(row, 0).picture = "Half";
    model.editCell(row, 0).pictureAlignment = alignment;
    const QImage image = picture();
    const QRect cell = grid.layoutOnScreen().cellRect(row, 0);
    QRect found;
    for (int y = cell.top(); y <= cell.bottom(); ++y)
      for (int x = cell.left(); x <= cell.right(); ++x)
        if (image.pixelColor(x, y) == QColor(Qt::red)) found |= QRect(x, y, 1, 1);
    return found;
  }
};

TEST_F(FlexGridPicturesTest, HalvesOfAPictureMeetAcrossTwoRows) {
  const QRect upper = redPart(2, CellAlignment::centreBottom);
  const QRect lower = redPart(3, CellAlignment::centreTop);
  EXPECT_EQ(upper.size(), QSize(20, 10));
  EXPECT_EQ(lower.size(), QSize(20, 10));
  EXPECT_EQ(upper.bottom() + 1, lower.top());
  EXPECT_EQ(upper.left(), lower.left());
  EXPECT_EQ(upper.left(), 40);
}

TEST_F(FlexGridPicturesTest, APictureMayLieInTheMiddleOfItsCell) {
  const QRect red = redPart(2, CellAlignment::centreCentre);
  const QRect cell = grid.layoutOnScreen().cellRect(2, 0);
  EXPECT_EQ(red.center(), cell.center());
}

TEST_F(FlexGridPicturesTest, APictureThatIsNotKnownLeavesTheCellEmpty) {
  const QImage before = picture();
  model.editCell(2, 0).picture = "Unknown";
  EXPECT_EQ(picture(), before);
}

TEST_F(FlexGridPicturesTest, APictureIsSaidByItsMeaning) {
  redPart(2, CellAlignment::centreCentre);
  EXPECT_EQ(grid.rowText(2), "ticked, file 2");
}

TEST_F(FlexGridTest, ALargerFontMakesHigherRows) {
  const Int32 before = model.rowHeight(1);
  QFont font = grid.font();
  font.setPointSize(font.pointSize() * 3);
  grid.setFont(font);
  EXPECT_GT(model.rowHeight(1), before);
  EXPECT_GT(model.rowHeight(0), before);
}

TEST_F(FlexGridTest, TitlesFitIntoTheColumnsThatTheyMake) {
  model.setFormatString("|<Name|<Dir|>A rather long title");
  EXPECT_GT(model.colWidth(3),
            twipsFromPixels(grid.fontMetrics().horizontalAdvance("A rather long title")));
}

TEST_F(FlexGridTest, ScreenReadersSeeAListOfRows) {
  model.editCell(3, 2).text = "C:\\Music";
  model.setRow(3);
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&grid);
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->role(), QAccessible::List);
  EXPECT_EQ(list->childCount(), 10);
  EXPECT_EQ(list->text(QAccessible::Value), "file 3, C:\\Music");

  QAccessibleInterface* row = list->child(2);
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->text(QAccessible::Name), "file 3, C:\\Music");
  EXPECT_TRUE(row->state().selected);
  EXPECT_FALSE(list->child(3)->state().selected);
  EXPECT_EQ(list->indexOfChild(row), 2);
  EXPECT_EQ(list->focusChild(), row);
  EXPECT_EQ(list->child(10), nullptr);
  const QPoint middle = row->rect().center();
  EXPECT_EQ(list->childAt(middle.x(), middle.y()), row);
}

TEST_F(FlexGridTest, TitlesAloneAreAnEmptyListForScreenReaders) {
  setRows(0);
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&grid);
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->childCount(), 0);
  EXPECT_EQ(list->text(QAccessible::Value), "");
  EXPECT_EQ(list->focusChild(), nullptr);
}

TEST_F(FlexGridTest, TheLastOfManyRowsIsScrolledIntoView) {
  setRows(20000);
  model.setRow(20000);
  model.scrollIntoView(20000);
  const QRect last = grid.layoutOnScreen().rowRect(20000);
  EXPECT_TRUE(view().rect().contains(last.topLeft()));
}

}  // namespace
}  // namespace quernstoke
