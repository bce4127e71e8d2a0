// What a person does with the files of the results window.

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QStyleOptionSlider>
#include <utility>

#include "results/frmResultsTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

// Paging.

using ResultsPagingTest = ResultsWindowTest;

TEST_F(ResultsPagingTest, ShortListHasNoScrollBar) {
  showFiles(4);
  EXPECT_FALSE(isShown("vscrGridMatches"));
  EXPECT_THAT(names(), SizeIs(4));
}

TEST_F(ResultsPagingTest, ListOfExactlyAPageHasOne) {
  showFiles(4);
  const int pageRows = GridPageRows.raw();
  click("cmdClose");
  showFiles(pageRows);
  EXPECT_TRUE(isShown("vscrGridMatches"));
  click("cmdClose");
  showFiles(pageRows - 1);
  EXPECT_FALSE(isShown("vscrGridMatches"));
}

TEST_F(ResultsPagingTest, ScrollBarRangesOverTheFiles) {
  showFiles(150);
  EXPECT_EQ(bar().minimum(), 1);
  EXPECT_EQ(bar().maximum(), 151);
  EXPECT_EQ(bar().value(), 1);
  EXPECT_EQ(bar().pageStep(), GridPageRows - 1);
  EXPECT_EQ(bar().singleStep(), 1);
  bar().setValue(40);
  EXPECT_EQ(firstFile(), 40);
  bar().triggerAction(QScrollBar::SliderSingleStepAdd);
  EXPECT_EQ(firstFile(), 41);
  bar().triggerAction(QScrollBar::SliderSingleStepSub);
  EXPECT_EQ(firstFile(), 40);
  EXPECT_TRUE(view().hasFocus());
}

// The first click counts from 0 and goes where the bar stands. The next begins with the file that
// ended the region.
TEST_F(ResultsPagingTest, ClickBesideTheThumbTurnsAPage) {
  showFiles(150);
  const int page = bar().pageStep();
  bar().triggerAction(QScrollBar::SliderPageStepAdd);
  EXPECT_EQ(bar().value(), 1 + page);
  EXPECT_EQ(firstFile(), 1 + page);
  bar().triggerAction(QScrollBar::SliderPageStepAdd);
  EXPECT_EQ(firstFile(), 2 * (1 + page));
  bar().triggerAction(QScrollBar::SliderPageStepSub);
  EXPECT_EQ(firstFile(), 1 + page);
}

TEST_F(ResultsPagingTest, LongListIsScaled) {
  showFiles(40000);
  EXPECT_EQ(bar().maximum(), 32000);
  bar().setValue(16000);
  EXPECT_EQ(firstFile(), 20000);
  bar().setValue(16000 + 7);
  EXPECT_EQ(firstFile(), 20009);
  bar().setValue(bar().maximum());
  EXPECT_EQ(names().back(), "f" + std::to_string(40000));
}

TEST_F(ResultsPagingTest, LongestUnscaledListReachesPastItsLastFile) {
  showFiles(32000);
  EXPECT_EQ(bar().maximum(), 32001);
  bar().setValue(20000);
  EXPECT_EQ(firstFile(), 20000);
}

TEST_F(ResultsPagingTest, KeysTurnPages) {
  showFiles(150);
  press(Qt::Key_PageDown);
  EXPECT_EQ(firstFile(), GridPageRows + 1);
  EXPECT_EQ(grid().row(), Int32(GridPageRows));
  EXPECT_EQ(bar().value(), 1);
  press(Qt::Key_PageUp);
  EXPECT_EQ(firstFile(), 1);
  EXPECT_EQ(grid().row(), 1);
  press(Qt::Key_End);
  EXPECT_EQ(grid().rowData(Int32(GridPageRows)), FileCount);
  EXPECT_EQ(grid().row(), Int32(GridPageRows));
  EXPECT_EQ(bar().value(), bar().maximum());
  press(Qt::Key_Home);
  EXPECT_EQ(firstFile(), 1);
  EXPECT_EQ(bar().value(), 1);
}

TEST_F(ResultsPagingTest, EndOfTwoLinesShowsTheLastFileWhole) {
  showFiles(150);
  choose("cboView", 1);
  for (const int height : {500, 520, 540}) {
    resizeTo(900, height);
    press(Qt::Key_End);
    Int32 lastRow = 0;
    for (Int32 row = 1; row < grid().rows(); ++row)
      if (grid().rowData(row) == FileCount) lastRow = row;
    ASSERT_GT(lastRow, 0) << height;
    EXPECT_EQ(grid().rowData(lastRow + 1), rowMark::secondLine);
    EXPECT_TRUE(grid().rowIsVisible(lastRow + 1)) << height;
  }
}

// The grid leaves the wheel to its window.
TEST_F(ResultsPagingTest, WheelMovesByThreeFiles) {
  showFiles(150);
  ASSERT_FALSE(turnWheel(cells(), -1));
  turnWheel(form(), -1);
  EXPECT_EQ(bar().value(), 4);
  EXPECT_EQ(firstFile(), 4);
  turnWheel(bar(), -2);
  EXPECT_EQ(firstFile(), 10);
  turnWheel(form(), 1);
  EXPECT_EQ(firstFile(), 7);
  turnWheel(bar(), 5);
  EXPECT_EQ(firstFile(), 1);
}

// There the bar stands beyond what the page shows, and most places near it lead back to the end.
TEST_F(ResultsPagingTest, WheelLeavesTheEnd) {
  showFiles(150);
  for (QWidget* wheeled : {static_cast<QWidget*>(&form()), static_cast<QWidget*>(&bar())}) {
    view().setFocus();
    press(Qt::Key_End);
    const int last = firstFile();
    turnWheel(*wheeled, 1);
    EXPECT_LT(firstFile(), last);
    turnWheel(*wheeled, 1);
    EXPECT_LE(firstFile(), last - 3);
    EXPECT_GE(firstFile(), last - 6);
  }
}

TEST_F(ResultsPagingTest, PageIsTurnedWhereADragOfTheThumbEnds) {
  showFiles(150);
  const auto thumb = [&] {
    QStyleOptionSlider option;
    option.initFrom(&bar());
    option.orientation = Qt::Vertical;
    option.minimum = bar().minimum();
    option.maximum = bar().maximum();
    option.pageStep = bar().pageStep();
    option.sliderPosition = bar().sliderPosition();
    return bar().style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider,
                                         &bar());
  };
  const auto drag = [&](int pixels) {
    const QPoint from = thumb().center();
    const int step = pixels / 10;
    const int before = firstFile();
    pressMouse(bar(), from);
    for (int moved = 1; moved <= 10; ++moved)
      moveMouse(bar(), from + QPoint(0, moved * step), Qt::LeftButton);
    EXPECT_EQ(firstFile(), before);
    releaseMouse(bar(), from + QPoint(0, 10 * step));
  };
  drag(bar().height() / 3);
  const int there = bar().value();
  ASSERT_GT(there, 20);
  ASSERT_LT(there, 130);
  EXPECT_EQ(firstFile(), there);
  drag(bar().height());
  EXPECT_EQ(bar().value(), bar().maximum());
  EXPECT_EQ(names().back(), "f150");
  drag(-bar().height() / 3);
  EXPECT_LT(bar().value(), 130);
  EXPECT_EQ(firstFile(), bar().value());
  drag(-bar().height());
  EXPECT_EQ(bar().value(), 1);
  EXPECT_EQ(firstFile(), 1);
}

TEST_F(ResultsPagingTest, WheelOverAShortListDoesNothing) {
  showFiles(4);
  turnWheel(form(), -1);
  EXPECT_EQ(firstFile(), 1);
}

// Ticks and selection.

using ResultsSelectionTest = ResultsWindowTest;

TEST_F(ResultsSelectionTest, ClickSelectsAFile) {
  showFiles(20);
  clickCell(4, 2);
  EXPECT_THAT(rows(), Pair(4, 4));
  EXPECT_EQ(grid().colSel(), 4);
  EXPECT_THAT(ticked(), IsEmpty());
}

TEST_F(ResultsSelectionTest, ClickOnATickTogglesIt) {
  showFiles(20);
  clickCell(4, 0);
  EXPECT_THAT(ticked(), ElementsAre(text(4, 1)));
  EXPECT_EQ(view().rowText(4).left(6), "ticked");
  clickCell(4, 0);
  EXPECT_THAT(ticked(), IsEmpty());
}

TEST_F(ResultsSelectionTest, EitherOfTwoLinesTogglesOnce) {
  showFiles(20);
  choose("cboView", 1);
  clickCell(4, 0);
  EXPECT_THAT(ticked(), ElementsAre(text(3, 1)));
  EXPECT_THAT(rows(), Pair(3, 4));
}

TEST_F(ResultsSelectionTest, DraggingOverTicksTogglesThemAll) {
  showFiles(20);
  dragCells(3, 7, 0);
  EXPECT_THAT(ticked(), SizeIs(5));
  EXPECT_THAT(rows(), Pair(3, 7));
}

TEST_F(ResultsSelectionTest, TicksSurviveTurningThePage) {
  showFiles(150);
  clickCell(2, 0);
  const std::vector<std::string> before = ticked();
  press(Qt::Key_PageDown);
  press(Qt::Key_PageUp);
  EXPECT_THAT(ticked(), before);
  EXPECT_EQ(grid().cell(2, 0).picture, "SmallTick");
}

TEST_F(ResultsSelectionTest, SpaceTogglesTheSelectedFiles) {
  showFiles(20);
  press(Qt::Key_Down);
  press(Qt::Key_Space);
  EXPECT_THAT(ticked(), ElementsAre(text(2, 1)));
  press(Qt::Key_Down, Qt::ShiftModifier);
  press(Qt::Key_Space);
  EXPECT_THAT(ticked(), ElementsAre(text(3, 1)));
  EXPECT_THAT(rows(), Pair(2, 3));
}

TEST_F(ResultsSelectionTest, SpaceOnAnEmptyRowTicksNothing) {
  showFiles(4);
  clickCell(2, 1);
  for (int i = 0; i < 5; ++i)
    press(Qt::Key_Down);
  ASSERT_EQ(grid().rowData(grid().row()), rowMark::empty);
  press(Qt::Key_Space);
  EXPECT_THAT(ticked(), IsEmpty());
}

TEST_F(ResultsSelectionTest, SpaceOnAButtonIsItsOwn) {
  showFiles(4);
  button("cmdAutoResize").setFocus();
  press(Qt::Key_Space);
  EXPECT_THAT(ticked(), IsEmpty());
  EXPECT_EQ(button("cmdAutoResize").property("Tag"), "0");
}

TEST_F(ResultsSelectionTest, ClickBelowTheLastFileSelectsIt) {
  showFiles(5);
  clickCell(9, 0);
  EXPECT_THAT(rows(), Pair(5, 5));
  EXPECT_THAT(ticked(), ElementsAre(text(5, 1)));
}

// The release belongs to a row that is no longer there.
TEST_F(ResultsSelectionTest, PageTurnedUnderTheButtonTicksNothing) {
  showFiles(150);
  pressMouse(cells(), cellCentre(2, 0));
  press(Qt::Key_PageDown);
  releaseMouse(cells(), cellCentre(2, 0));
  settle();
  EXPECT_THAT(ticked(), IsEmpty());
  EXPECT_EQ(firstFile(), GridPageRows + 1);
}

// Choosing by keyboard gives the focus to the grid, which then sees the key go up.
TEST_F(ResultsPagingTest, KeyThatChoosesFromAListTurnsNoPage) {
  for (const Qt::Key key : {Qt::Key_End, Qt::Key_PageDown}) {
    showFiles(150);
    for (const char* list : {"cboView", "cboGroup"}) {
      control<QComboBox>(list).setFocus();
      press(key);
      EXPECT_EQ(control<QComboBox>(list).currentIndex(), 1) << list;
      EXPECT_TRUE(view().hasFocus()) << list;
      EXPECT_EQ(firstFile(), 1) << list;
    }
    click("cmdClose");
  }
}

// Widths.

TEST_F(ResultsSelectionTest, AutoResizeButtonSwitchesOverAndFillsNothing) {
  showFiles(150);
  EXPECT_EQ(button("cmdAutoResize").property("Tag"), "1");
  EXPECT_EQ(button("cmdAutoResize").accessibleDescription(), "On");
  press(Qt::Key_PageDown);
  const int before = firstFile();
  click("cmdAutoResize");
  EXPECT_EQ(button("cmdAutoResize").property("Tag"), "0");
  EXPECT_EQ(button("cmdAutoResize").accessibleDescription(), "Off");
  EXPECT_EQ(firstFile(), before);
}

TEST_F(ResultsSelectionTest, DraggedWidthStaysOnlyWithoutAutoResize) {
  showFiles(150);
  const Int32 fitted = grid().colWidth(1);
  grid().setColWidth(1, 3000);
  press(Qt::Key_PageDown);
  EXPECT_EQ(grid().colWidth(1), fitted);
  click("cmdAutoResize");
  grid().setColWidth(1, 3000);
  view().setFocus();
  press(Qt::Key_PageDown);
  EXPECT_EQ(grid().colWidth(1), 3000);
}

// Menus.

class ResultsMenuTest : public ResultsWindowTest {
 protected:
  // As desktops tell of it.
  void pressMenuKey() {
    const QPoint at = view().rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, at, view().mapToGlobal(at));
    QApplication::sendEvent(&view(), &event);
  }
};

TEST_F(ResultsMenuTest, MenusHaveTheirItemsInOrder) {
  showFiles(4);
  EXPECT_EQ(control<QMenu>("mnuRightClickSingleFile").title(), "Right Click Single File");
  EXPECT_THAT(itemsOf("mnuRightClickSingleFile"),
              ElementsAre("mnuOpenFile: Open file", "mnuOpenDirectory: Open container Directory",
                          "mnuDeleteThisSelectedFile: Delete this files",
                          "mnuDeleteTickedFiles: Delete all Ticked files",
                          "mnuFilterDirectory: Filter File"));
  EXPECT_EQ(control<QMenu>("mnuRightClickMultpleFile").title(), "Right Click Mulple File");
  EXPECT_THAT(itemsOf("mnuRightClickMultpleFile"),
              ElementsAre("mnuDeleteAllSelectedFiles: Delete all Selected Files"));
}

TEST_F(ResultsMenuTest, RightClickSelectsTheRowAndShowsItsMenu) {
  showFiles(20);
  rightClickRow(6);
  EXPECT_TRUE(isUp("mnuRightClickSingleFile"));
  EXPECT_EQ(grid().row(), 6);
  chooseItem("mnuOpenFile");
  ASSERT_THAT(desk.opened, SizeIs(1));
  EXPECT_EQ(desk.opened[0].file, "C:\\music\\" + text(6, 1));
}

TEST_F(ResultsMenuTest, RightClickInASelectionKeepsIt) {
  showFiles(20);
  dragCells(3, 5, 1);
  rightClickRow(4);
  EXPECT_TRUE(isUp("mnuRightClickMultpleFile"));
  EXPECT_THAT(rows(), Pair(3, 5));
  const std::vector<std::string> chosen = {text(3, 1), text(4, 1), text(5, 1)};
  chooseItem("mnuDeleteAllSelectedFiles");
  for (const std::string& name : chosen)
    EXPECT_FALSE(onDisk(name)) << name;
}

TEST_F(ResultsMenuTest, RightClickOutsideASelectionLeavesIt) {
  showFiles(20);
  dragCells(3, 5, 1);
  rightClickRow(8);
  EXPECT_TRUE(isUp("mnuRightClickSingleFile"));
  EXPECT_THAT(rows(), Pair(8, 8));
}

TEST_F(ResultsMenuTest, RightClickOnTheTitlesDoesNothing) {
  showFiles(20);
  pressMouse(cells(), {50, 3}, Qt::RightButton);
  settle();
  EXPECT_FALSE(isUp("mnuRightClickSingleFile"));
}

TEST_F(ResultsMenuTest, MenuKeyIsARightClickOnTheCurrentRow) {
  showFiles(20);
  clickCell(5, 1);
  pressMenuKey();
  EXPECT_TRUE(isUp("mnuRightClickSingleFile"));
  EXPECT_EQ(grid().row(), 5);
  control<QMenu>("mnuRightClickSingleFile").close();
  form().activateWindow();
  settle();
  dragCells(5, 8, 1);
  ASSERT_THAT(rows(), Pair(5, 8));
  pressMenuKey();
  EXPECT_TRUE(isUp("mnuRightClickMultpleFile"));
  EXPECT_THAT(rows(), Pair(5, 8));
}

TEST_F(ResultsMenuTest, ItemsDoWhatTheirButtonsDo) {
  showFiles(20);
  clickCell(3, 0);
  rightClickRow(5);
  const std::string tickedName = ticked().front();
  const std::string selectedName = text(5, 1);
  chooseItem("mnuOpenDirectory");
  ASSERT_THAT(desk.opened, SizeIs(1));
  EXPECT_EQ(desk.opened[0].file, "\"C:\\music\"");
  EXPECT_EQ(desk.opened[0].window, static_cast<std::intptr_t>(form().winId()));
  chooseItem("mnuDeleteThisSelectedFile");
  EXPECT_FALSE(onDisk(selectedName));
  EXPECT_TRUE(onDisk(tickedName));
  dialogBoxes.answers = {Answer::yes};
  chooseItem("mnuDeleteTickedFiles");
  EXPECT_FALSE(onDisk(tickedName));
}

// The list may be sorted anew below a menu, which must not act on the file that comes to lie there.
TEST_F(ResultsMenuTest, MenuGoesWhenTheListIsBuiltAnew) {
  showFiles(20);
  rightClickRow(6);
  resizeTo(900, 500);
  EXPECT_FALSE(isUp("mnuRightClickSingleFile"));
}

// Deletion.

using ResultsDeletionTest = ResultsWindowTest;

TEST_F(ResultsDeletionTest, SelectedFileIsStruckThrough) {
  showFiles(20);
  clickCell(3, 1);
  const std::string name = text(3, 1);
  click("cmdDeleteFile_0");
  EXPECT_FALSE(onDisk(name));
  EXPECT_TRUE(grid().cell(3, 1).strikeThrough);
  EXPECT_EQ(view().rowText(3), "not ticked, " + QString::fromStdString(name) +
                                   " (struck out), C:\\music, 1970-01-01, 10");
  EXPECT_EQ(panel(3), "Files:20");
  EXPECT_TRUE(view().hasFocus());
  resizeTo(900, 500);
  EXPECT_THAT(names(), testing::Contains(name));
}

TEST_F(ResultsDeletionTest, SelectionExtendedUpwardsByKeysIsDeleted) {
  showFiles(6);
  clickCell(5, 1);
  press(Qt::Key_Up, Qt::ShiftModifier);
  const std::vector<std::string> chosen = {text(4, 1), text(5, 1)};
  click("cmdDeleteFile_0");
  EXPECT_FALSE(onDisk(chosen[0]));
  EXPECT_FALSE(onDisk(chosen[1]));
  EXPECT_THAT(disk.names("C:\\music"), SizeIs(4));
}

TEST_F(ResultsDeletionTest, DragBelowTheLastFileDeletesNothing) {
  showFiles(6);
  dragCells(9, 12, 1);
  click("cmdDeleteFile_0");
  EXPECT_THAT(disk.names("C:\\music"), SizeIs(6));
}

TEST_F(ResultsDeletionTest, TickedFilesAreAskedFor) {
  showFiles(20);
  clickCell(3, 0);
  clickCell(5, 0);
  const std::vector<std::string> chosen = ticked();
  dialogBoxes.answers = {Answer::no};
  click("cmdDeleteFile_1");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Delete all 2 selected files?"));
  for (const std::string& name : chosen)
    EXPECT_TRUE(onDisk(name));
  dialogBoxes.answers = {Answer::yes};
  click("cmdDeleteFile_1");
  for (const std::string& name : chosen)
    EXPECT_FALSE(onDisk(name));
  EXPECT_THAT(ticked(), IsEmpty());
}

TEST_F(ResultsDeletionTest, NothingTickedIsTold) {
  showFiles(4);
  click("cmdDeleteFile_1");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Nothing selected"));
}

// Under a message the desktop may resize the window, which sorts the list and turns to its first
// page: the rows still to be deleted would then be other files.
TEST_F(ResultsDeletionTest, PageStaysAsItIsWhileAMessageIsUp) {
  showFiles(150);
  press(Qt::Key_PageDown);
  dragCells(2, 4, 1);
  const std::vector<std::string> chosen = {text(2, 1), text(3, 1), text(4, 1)};
  disk.failOn(DiskAction::remove, "C:\\music\\" + chosen[0], FailureNumber::permissionDenied);
  dialogBoxes.onBox = [&] { resizeTo(900, 480); };
  const std::size_t before = disk.names("C:\\music").size();
  click("cmdDeleteFile_0");
  ASSERT_THAT(dialogBoxes.messages, SizeIs(1));
  EXPECT_TRUE(onDisk(chosen[0]));
  EXPECT_FALSE(onDisk(chosen[1]));
  EXPECT_FALSE(onDisk(chosen[2]));
  EXPECT_EQ(disk.names("C:\\music").size(), before - 2);
  EXPECT_EQ(firstFile(), 1) << "the resize is made up for";
}

// What works the controls without mouse and keyboard isn't held off by a message.
TEST_F(ResultsDeletionTest, NothingElseIsDoneWhileAMessageIsUp) {
  showFiles(150);
  dragCells(2, 4, 1);
  const std::vector<std::string> chosen = {text(2, 1), text(3, 1), text(4, 1)};
  disk.failOn(DiskAction::remove, "C:\\music\\" + chosen[0], FailureNumber::permissionDenied);
  const std::size_t before = disk.names("C:\\music").size();
  const std::vector<std::string> pageBefore = names();
  dialogBoxes.onBox = [&] {
    choose("cboView", 1);
    choose("cboGroup", 1);
    view().setFocus();
    press(Qt::Key_PageDown);
    press(Qt::Key_Space);
    bar().setValue(60);
    click("cmdDeleteFile_0");
    click("cmdSHowHideHelp");
    click("cmdClose");
    form().findChild<QAction*>("mnuFilterDirectory")->trigger();
    EXPECT_EQ(names(), pageBefore);
  };
  click("cmdDeleteFile_0");
  EXPECT_THAT(dialogBoxes.messages, SizeIs(1));
  EXPECT_EQ(disk.names("C:\\music").size(), before - 2);
  EXPECT_TRUE(onDisk(chosen[0]));
  EXPECT_THAT(ticked(), IsEmpty());
  EXPECT_EQ(control<QComboBox>("cboView").currentIndex(), 0);
  EXPECT_EQ(control<QComboBox>("cboGroup").currentIndex(), 0);
  EXPECT_TRUE(form().isVisible());
  EXPECT_EQ(firstFile(), 60) << "the movement of the bar is made up for";
}

// The other buttons.

TEST_F(ResultsWindowTest, OpenButtonsActOnTheSelectedFile) {
  showFiles(20);
  clickCell(7, 1);
  click("cmdOpenFile");
  click("cmdOpenDir");
  ASSERT_THAT(desk.opened, SizeIs(2));
  EXPECT_EQ(desk.opened[0].file, "C:\\music\\" + text(7, 1));
  EXPECT_EQ(desk.opened[1].file, "\"C:\\music\"");
}

TEST_F(ResultsWindowTest, SelectionOfTwoLinesIsOneFile) {
  showFiles(20);
  choose("cboView", 1);
  clickCell(6, 1);
  click("cmdOpenFile");
  ASSERT_THAT(desk.opened, SizeIs(1));
  EXPECT_EQ(desk.opened[0].file, "C:\\music\\" + text(5, 1));
  EXPECT_EQ(dialogBoxes.beeps, 0);
}

TEST_F(ResultsWindowTest, ExportHasAFormOfItsOwn) {
  int shown = 0;
  modalForms.frmExportResults = [&] { ++shown; };
  showFiles(4);
  click("cmdExport");
  EXPECT_EQ(shown, 1);
}

}  // namespace
}  // namespace quernstoke
