#include "results/frmResults.h"

#include <QAccessible>
#include <QApplication>
#include <QScreen>

#include "controls/units.h"
#include "core/scanState.h"
#include "pictures/pictures.h"
#include "results/frmResultsTest.h"
#include "testing/gridScreen.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The controls.

struct ButtonCase {
  const char* control;
  const char* caption;
  const char* toolTip;
  bool hasPicture;
};

TEST_F(ResultsWindowTest, ButtonsHaveTheirCaptionsAndToolTips) {
  showFiles(4);
  EXPECT_EQ(form().windowTitle(), "Scan Results");
  const ButtonCase cases[] = {{"cmdAutoResize", "Auto resize", "", true},
                              {"cmdFilter", "Filter", "", false},
                              {"cmdDeleteFile_0", "Selected", "Delete selected file(s)", false},
                              {"cmdDeleteFile_1", "Ticked", "Delete selected file(s)", false},
                              {"cmdOpenFile", "", "Open file", true},
                              {"cmdOpenDir", "", "Open Container directory", true},
                              {"cmdSetDir_0", "", "Set Directory 1", true},
                              {"cmdSetDir_1", "", "Set Directory 2", true},
                              {"cmdSetDir_2", "", "Open directory match window", true},
                              {"cmdExport", "Export results", "", false},
                              {"cmdClose", "Close", "", false}};
  for (const auto& [name, caption, toolTip, hasPicture] : cases) {
    SCOPED_TRACE(name);
    EXPECT_EQ(button(name).text(), caption);
    EXPECT_EQ(button(name).toolTip(), toolTip);
    EXPECT_EQ(!button(name).icon().isNull(), hasPicture);
    EXPECT_TRUE(button(name).isEnabled());
    EXPECT_TRUE(button(name).isVisible());
    EXPECT_FALSE(button(name).isDefault());
  }
}

TEST_F(ResultsWindowTest, LabelsStandByTheirControls) {
  showFiles(4);
  const auto entries = [&](const char* list) {
    auto& box = control<QComboBox>(list);
    return std::pair(box.itemText(0), box.itemText(1));
  };
  EXPECT_EQ(entries("cboView"), std::pair(QString("1 Line"), QString("2 Lines")));
  EXPECT_EQ(entries("cboGroup"), std::pair(QString("Match"), QString("Directory")));
  EXPECT_EQ(control<QLabel>("labView").text(), "View");
  EXPECT_EQ(control<QLabel>("labGroup").text(), "Group by");
  EXPECT_EQ(control<QLabel>("labDirectoryMatch").text(), "Dir Match");
  EXPECT_EQ(control<QLabel>("Label23").text(), "Help");
  EXPECT_FALSE(isShown("labSizer"));
  EXPECT_FALSE(isShown("labNoDuplicates"));
}

TEST_F(ResultsWindowTest, HelpButtonShowsWhatItDoes) {
  const auto shows = [&](const char* key) {
    const auto drawn = [](const QIcon& icon) { return icon.pixmap(32).toImage(); };
    return drawn(button("cmdSHowHideHelp").icon()) == drawn(picture(key));
  };
  ASSERT_NE(picture("HelpHide").pixmap(32).toImage(), picture("HelpUnhide").pixmap(32).toImage());
  showFiles(4);
  EXPECT_TRUE(shows("HelpUnhide"));
  click("cmdSHowHideHelp");
  EXPECT_TRUE(shows("HelpHide"));
  click("cmdSHowHideHelp");
  EXPECT_TRUE(shows("HelpUnhide"));
  control<QWidget>("fraHelp").show();
  resizeTo(form().width() + 50, form().height());
  EXPECT_TRUE(shows("HelpHide"));
}

TEST_F(ResultsWindowTest, ColumnOfTicksIsAsWideAsItsTitle) {
  showFiles(4);
  EXPECT_EQ(grid().colWidth(0), pictureUnitsFromPixels(pictureSize("SimpleTick").width()));
}

TEST_F(ResultsWindowTest, ColumnOfTicksIsWiderThanATickWhileNothingIsShown) {
  EXPECT_EQ(grid().colWidth(0), pictureUnitsFromPixels(pictureSize("SmallTick").width()) + 100);
}

TEST_F(ResultsWindowTest, EveryControlHasANameForThoseWhoCannotSeeIt) {
  showFiles(4);
  for (const char* name :
       {"gridMatches", "vscrGridMatches", "cboView", "cboGroup", "cmdAutoResize", "cmdFilter",
        "cmdDeleteFile_0", "cmdDeleteFile_1", "cmdOpenFile", "cmdOpenDir", "cmdSetDir_0",
        "cmdSetDir_1", "cmdSetDir_2", "cmdExport", "cmdClose", "cmdSHowHideHelp", "txtHelp"}) {
    auto* const accessible = QAccessible::queryAccessibleInterface(&control<QWidget>(name));
    EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty()) << name;
  }
  EXPECT_EQ(view().rowText(1), "not ticked, f1, C:\\music, 1970-01-01, 10");
}

TEST_F(ResultsWindowTest, TabGoesThroughTheControlsInOrder) {
  showFiles(4);
  view().setFocus();
  std::vector<std::string> order;
  for (QWidget* at = &view(); order.empty() || at != &view();) {
    order.push_back(at->objectName().toStdString());
    press(Qt::Key_Tab);
    at = QApplication::focusWidget();
    ASSERT_LT(order.size(), 30u);
  }
  EXPECT_THAT(order, ElementsAre("gridMatches", "cboView", "cboGroup", "cmdAutoResize", "cmdFilter",
                                 "cmdDeleteFile_0", "cmdDeleteFile_1", "cmdOpenFile", "cmdOpenDir",
                                 "cmdSetDir_0", "cmdSetDir_1", "cmdSetDir_2", "cmdExport",
                                 "cmdClose", "cmdSHowHideHelp"));
}

TEST_F(ResultsWindowTest, NothingIsDeletedByEnter) {
  showFiles(4);
  press(Qt::Key_Return);
  press(Qt::Key_Delete);
  EXPECT_TRUE(onDisk("f1"));
  EXPECT_TRUE(window.isLoaded());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// Display.

TEST_F(ResultsWindowTest, FirstShowSortsByMatchAndPaintsOneLineAFile) {
  show({{"b", "C:\\two", 5, 1}, {"a", "C:\\one", 7, 0}, {"c", "C:\\two", 7, 0}});
  EXPECT_EQ(control<QComboBox>("cboView").currentText(), "1 Line");
  EXPECT_EQ(control<QComboBox>("cboGroup").currentText(), "Match");
  EXPECT_THAT(titlesOf(grid()), ElementsAre("  ", "Name", "Dir", "Date", "Size"));
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, 1));
  EXPECT_EQ(names().back(), "b");
  EXPECT_EQ(text(3, 2), "C:\\two");
  EXPECT_EQ(text(3, 4), "5");
  EXPECT_EQ(grid().row(), 1);
  EXPECT_EQ(grid().colSel(), 4);
  EXPECT_EQ(DuplicateCount, 1);
}

TEST_F(ResultsWindowTest, StatusBarTellsTheScan) {
  ProfileSettings.ElapsedTime = 65;
  showFiles(4);
  EXPECT_EQ(panel(1), "Profile:Music");
  EXPECT_EQ(panel(3), "Files:4");
  EXPECT_EQ(panel(5), "Duplicates:2");
  EXPECT_EQ(panel(7), "Scan time: 1m 5s");
  for (const int separator : {2, 4, 6})
    EXPECT_EQ(panel(separator), "");
}

TEST_F(ResultsWindowTest, ViewOfTwoLinesShowsTheDirectoryBelowTheName) {
  showFiles(4);
  choose("cboView", 1);
  EXPECT_EQ(ResultsView, resultsView::twoLines);
  EXPECT_EQ(grid().cols(), 3);
  EXPECT_EQ(text(3, 1), "f2");
  EXPECT_EQ(text(4, 1), "   C:\\music");
  EXPECT_TRUE(view().hasFocus());
  choose("cboView", 0);
  EXPECT_EQ(grid().cols(), 5);
}

TEST_F(ResultsWindowTest, GroupingByDirectoryCountsAnew) {
  show({{"a", "C:\\one", 7, 0},
        {"b", "C:\\two", 7, 0},
        {"c", "C:\\one", 5, 1},
        {"d", "C:\\two", 5, 1},
        {"e", "C:\\three", 5, 1}});
  EXPECT_EQ(panel(5), "Duplicates:3");
  choose("cboGroup", 1);
  EXPECT_EQ(ResultsGroup, resultsGroup::directory);
  EXPECT_EQ(text(2, 2), "C:\\one");
  EXPECT_EQ(text(3, 2), "C:\\two");
  EXPECT_EQ(panel(5), "Duplicates:2");
  choose("cboGroup", 0);
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, 1, 1, 1));
  EXPECT_EQ(panel(5), "Duplicates:3");
}

TEST_F(ResultsWindowTest, ChangeOfViewSortsAnew) {
  show({{"a", "C:\\", 1, 0}, {"b", "C:\\", 1, 0}});
  FileTable.FileStatus[statusMatch][1] = 5;
  choose("cboView", 1);
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 5));
}

TEST_F(ResultsWindowTest, ChoosingGoesBackToTheFirstPage) {
  showFiles(150);
  for (const char* list : {"cboView", "cboGroup"}) {
    press(Qt::Key_PageDown);
    EXPECT_GT(firstFile(), 1);
    choose(list, 1);
    EXPECT_EQ(firstFile(), 1) << list;
  }
}

TEST_F(ResultsWindowTest, NeitherChoiceIsKeptForTheNextOpening) {
  showFiles(4);
  choose("cboView", 1);
  choose("cboGroup", 1);
  click("cmdClose");
  show();
  EXPECT_EQ(ResultsView, resultsView::oneLine);
  EXPECT_EQ(ResultsGroup, resultsGroup::match);
  EXPECT_EQ(control<QComboBox>("cboView").currentIndex(), 0);
  EXPECT_EQ(control<QComboBox>("cboGroup").currentIndex(), 0);
}

TEST_F(ResultsWindowTest, MarkedChoicesDoNothingOnce) {
  showFiles(150);
  for (const char* list : {"cboView", "cboGroup"}) {
    press(Qt::Key_PageDown);
    const int before = firstFile();
    control<QComboBox>(list).setProperty("Tag", "IGNORE");
    choose(list, 1);
    EXPECT_EQ(firstFile(), before) << list;
    EXPECT_EQ(control<QComboBox>(list).property("Tag"), "") << list;
    choose(list, 1);
    EXPECT_EQ(firstFile(), 1) << list;
  }
}

TEST_F(ResultsWindowTest, WheelOverAListChangesNothing) {
  showFiles(4);
  turnWheel(control<QComboBox>("cboView"), -1);
  EXPECT_EQ(control<QComboBox>("cboView").currentIndex(), 0);
}

TEST_F(ResultsWindowTest, PercentColumnComesWithAContentLimit) {
  ProfileSettings.ContentMatchingPercent = 50;
  showFiles(4);
  EXPECT_THAT(titlesOf(grid()), ElementsAre("  ", "Name", "Dir", "Date", "Size", "%"));
}

// The empty list.

TEST_F(ResultsWindowTest, EmptyListIsToldAndItsButtonsAreDisabled) {
  buildCatalogue({});
  show();
  EXPECT_TRUE(isShown("labNoDuplicates"));
  EXPECT_EQ(control<QLabel>("labNoDuplicates").text(), "No duplicates found");
  EXPECT_FALSE(isShown("gridMatches"));
  EXPECT_FALSE(isShown("vscrGridMatches"));
  for (const char* name :
       {"cmdOpenFile", "cmdOpenDir", "cmdFilter", "cmdDeleteFile_0", "cmdDeleteFile_1", "cboGroup",
        "cboView", "cmdSetDir_0", "cmdSetDir_1", "cmdSetDir_2"})
    EXPECT_FALSE(isEnabled(name)) << name;
  for (const char* name : {"cmdAutoResize", "cmdExport", "cmdClose", "cmdSHowHideHelp"})
    EXPECT_TRUE(isEnabled(name)) << name;
}

TEST_F(ResultsWindowTest, EmptyListsLabelLiesInTheMiddleOfGridAndBar) {
  buildCatalogue({});
  show();
  const QRect label = control<QLabel>("labNoDuplicates").geometry();
  EXPECT_EQ(label.top(), form().height() / 2);
  EXPECT_EQ(label.width(), view().width() + bar().width());
  EXPECT_EQ(label.left(), view().x());
}

// Layout.

class ResultsLayoutTest : public ResultsWindowTest {
 protected:
  QRect place(const char* name) { return control<QWidget>(name).geometry(); }
  // One past the right edge.
  static int rightOf(const QRect& rect) { return rect.x() + rect.width(); }
  static int bottomOf(const QRect& rect) { return rect.y() + rect.height(); }
  void expectColumnsJoin() {
    const int margin = place("picResultButtons").x();
    const bool help = isShown("fraHelp");
    EXPECT_EQ(rightOf(place("cmdSHowHideHelp")), form().width());
    EXPECT_EQ(rightOf(place("fraHelp")), place("cmdSHowHideHelp").x());
    EXPECT_EQ(rightOf(place("vscrGridMatches")),
              help ? place("fraHelp").x() : place("cmdSHowHideHelp").x());
    EXPECT_EQ(rightOf(place("gridMatches")), place("vscrGridMatches").x());
    EXPECT_GT(place("gridMatches").x(), rightOf(place("picResultButtons")));
    const int columnHeight = form().height() - place("sbarStatus").height() - 2 * margin;
    for (const char* name : {"picResultButtons", "gridMatches", "vscrGridMatches", "fraHelp"})
      EXPECT_EQ(place(name).height(), columnHeight) << name;
    EXPECT_EQ(bottomOf(place("cmdClose")), columnHeight - 2 * margin);
    const QRect button = place("cmdSHowHideHelp");
    EXPECT_EQ(button.y(), (form().height() - button.height()) / 2);
    EXPECT_EQ(bottomOf(place("sbarStatus")), form().height());
    EXPECT_EQ(place("sbarStatus").width(), form().width());
  }
};

TEST_F(ResultsLayoutTest, ControlsFillTheWindow) {
  showFiles(4);
  expectColumnsJoin();
  for (const auto& [width, height] : {std::pair(1200, 800), {1000, 450}, {1000, 600}}) {
    resizeTo(width, height);
    ASSERT_EQ(form().size(), QSize(width, height));
    expectColumnsJoin();
  }
}

TEST_F(ResultsLayoutTest, HelpTakesItsRoomFromTheGrid) {
  showFiles(4);
  const int width = view().width();
  click("cmdSHowHideHelp");
  expectColumnsJoin();
  EXPECT_EQ(view().width(), width - place("fraHelp").width());
  click("cmdSHowHideHelp");
  expectColumnsJoin();
  EXPECT_EQ(view().width(), width);
}

TEST_F(ResultsLayoutTest, WhereTheScreenIsTooSmallForTheFontEachButtonCanStillBeReached) {
  const QFont font = QApplication::font();
  QFont large = font;
  large.setPointSize(6 * font.pointSize());
  QApplication::setFont(large);
  showFiles(60);
  EXPECT_LT(form().height(), form().screen()->size().height());
  EXPECT_LT(place("areaActions").height(), place("picActions").height());
  EXPECT_TRUE(place("areaActions").bottom() < place("cmdClose").top());
  control<QComboBox>("cboView").setFocus();
  for (const char* name : {"cboView", "cmdDeleteFile_0", "cmdExport", "cmdClose"}) {
    for (int press = 0; press < 30 && form().focusWidget()->objectName() != name; ++press)
      pressKey(form(), Qt::Key_Tab);
    settle();
    const QWidget& reached = control<QWidget>(name);
    EXPECT_EQ(reached.visibleRegion().boundingRect(), reached.rect()) << name;
  }
  QApplication::setFont(font);
}

TEST_F(ResultsLayoutTest, SmallestWindowKeepsButtonsApartAndHasAPage) {
  showFiles(60);
  resizeTo(10, 10);
  EXPECT_EQ(form().size(), form().minimumSize());
  expectColumnsJoin();
  EXPECT_GE(place("areaActions").height(), place("picActions").height());
  EXPECT_GT(place("cmdClose").top(), place("areaActions").bottom());
  EXPECT_GE(GridPageRows, 5);
  click("cmdSHowHideHelp");
  EXPECT_GE(view().width(), 200);
  choose("cboView", 1);
  EXPECT_GE(names().size(), 3u);
}

TEST_F(ResultsLayoutTest, ColumnsFillTheGrid) {
  showFiles(4);
  Int32 width = 0;
  for (Int32 col = 0; col < grid().cols(); ++col)
    width += grid().colWidth(col);
  EXPECT_NEAR(width.raw(), grid().width().raw(), 2);
}

// The column is made for eight digits. Of a size that is cut short the last one can't be seen.
TEST_F(ResultsLayoutTest, LargestSizesAreShownWhole) {
  for (const int size : {100000000, 2147483640}) {
    show({{"a", "C:\\", size, 0}, {"b", "C:\\", size + 1, 0}, {"c", "C:\\", size + 2, 0}});
    const auto sizeInRow = [&](int row) {
      return cells().grab(view().layoutOnScreen().cellRect(row, 4)).toImage();
    };
    EXPECT_NE(sizeInRow(2), sizeInRow(3)) << size;
    EXPECT_EQ(sizeInRow(2), sizeInRow(2));
    click("cmdClose");
  }
}

TEST_F(ResultsLayoutTest, PageGrowsWithTheWindow) {
  showFiles(150);
  resizeTo(900, 450);
  const Int16 rowsBefore = GridPageRows;
  resizeTo(900, 700);
  EXPECT_GT(GridPageRows, rowsBefore);
  EXPECT_EQ(names().size(), static_cast<std::size_t>(GridPageRows.raw()));
  EXPECT_TRUE(grid().rowIsVisible(Int32(GridPageRows)));
}

TEST_F(ResultsLayoutTest, ResizeGoesBackToTheFirstPageAndKeepsTicks) {
  showFiles(150);
  clickCell(2, 0);
  const std::string name = text(2, 1);
  press(Qt::Key_PageDown);
  resizeTo(900, 500);
  EXPECT_EQ(firstFile(), 1);
  EXPECT_THAT(ticked(), ElementsAre(name));
  // Files of one match may have changed places.
  for (Int32 row = 1; row <= 2; ++row)
    EXPECT_EQ(grid().cell(row, 0).picture == "SmallTick", grid().cell(row, 1).text == name);
}

TEST_F(ResultsLayoutTest, ResizeOfANormalWindowSortsAnew) {
  show({{"a", "C:\\", 1, 0}, {"b", "C:\\", 1, 0}});
  FileTable.FileStatus[statusMatch][1] = 5;
  resizeTo(900, 500);
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 5));
}

// The first show does both twice, for its resize and for its activation.
TEST_F(ResultsLayoutTest, SortingAndPaintingAgainGivesTheSame) {
  show({{"b", "C:\\two", 5, 1},
        {"a", "C:\\one", 7, 0},
        {"d", "C:\\two", 5, 1},
        {"c", "C:\\two", 7, 0},
        {"e", "C:\\one", 9, 2},
        {"f", "C:\\two", 9, 2}});
  const std::vector<std::string> before = names();
  const QSize size = form().size();
  resizeTo(900, 500);
  resizeTo(size.width(), size.height());
  EXPECT_EQ(names(), before);
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, 1, 1, 2, 2));
  EXPECT_EQ(rows(), std::pair(1, 1));
}

TEST_F(ResultsLayoutTest, MaximisedWindowKeepsTheOrder) {
  show({{"a", "C:\\", 1, 0}, {"b", "C:\\", 1, 0}});
  FileTable.FileStatus[statusMatch][1] = 5;
  form().setShownState(ShownState::maximised);
  settle();
  EXPECT_THAT(matchNumbers(), ElementsAre(5, 0));
  expectColumnsJoin();
}

// Its resize keeps the order, but its first activation does not.
TEST_F(ResultsLayoutTest, WindowThatComesUpMaximisedIsSorted) {
  buildCatalogue({{"a", "C:\\", 1, 5}, {"b", "C:\\", 1, 0}});
  form().setShownState(ShownState::maximised);
  show();
  ASSERT_EQ(form().shownState(), ShownState::maximised);
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 5));
  EXPECT_THAT(names(), ElementsAre("b", "a"));
}

TEST_F(ResultsLayoutTest, MinimisedWindowDoesNothingAndRestoringRebuilds) {
  showFiles(150);
  press(Qt::Key_PageDown);
  const int before = firstFile();
  form().setShownState(ShownState::minimised);
  settle();
  EXPECT_EQ(firstFile(), before);
  form().setShownState(ShownState::normal);
  settle();
  EXPECT_EQ(firstFile(), 1);
}

TEST_F(ResultsLayoutTest, MarkedResizeAndActivationDoNothingOnce) {
  showFiles(150);
  press(Qt::Key_PageDown);
  const int before = firstFile();
  form().setProperty("Tag", "IGNORE");
  resizeTo(900, 500);
  EXPECT_EQ(firstFile(), before);
  EXPECT_EQ(form().property("Tag"), "");
  resizeTo(900, 520);
  EXPECT_EQ(firstFile(), 1);

  form().setProperty("Tag", "IGNORE");
  QEvent activation(QEvent::WindowActivate);
  QApplication::sendEvent(&form(), &activation);
  settle();
  EXPECT_EQ(form().property("Tag"), "");
}

TEST_F(ResultsLayoutTest, LaterActivationsDoNothing) {
  showFiles(150);
  press(Qt::Key_PageDown);
  const int before = firstFile();
  QEvent activation(QEvent::WindowActivate);
  QApplication::sendEvent(&form(), &activation);
  settle();
  EXPECT_EQ(firstFile(), before);
}

// One rebuild does for a storm of resize events.
TEST_F(ResultsLayoutTest, ResizesBetweenEventsAreOne) {
  showFiles(150);
  press(Qt::Key_PageDown);
  const int before = firstFile();
  for (int width = 900; width < 950; width += 5)
    form().resize(width, 500);
  EXPECT_EQ(firstFile(), before);
  settle();
  EXPECT_EQ(firstFile(), 1);
  expectColumnsJoin();
}

// Help.

class ResultsHelpTest : public ResultsWindowTest {
 protected:
  void showWithHelp() {
    showFiles(4);
    click("cmdSHowHideHelp");
  }
  void forgetHelp() { control<QWidget>("fraHelp").setProperty("Tag", "0"); }
};

const std::vector<std::pair<const char*, const char*>> helpIds = {
    {"cmdOpenFile", "124"},     {"cmdOpenDir", "125"},  {"cmdDeleteFile_0", "126"},
    {"cmdDeleteFile_1", "127"}, {"cmdFilter", "128"},   {"cmdAutoResize", "129"},
    {"cboView", "130"},         {"cboGroup", "131"},    {"cmdExport", "132"},
    {"cmdSetDir_0", "143"},     {"cmdSetDir_1", "143"}, {"cmdSetDir_2", "143"},
    {"cmdSHowHideHelp", "117"}};

TEST_F(ResultsHelpTest, ControlUnderThePointerIsExplained) {
  showWithHelp();
  for (const auto& [name, id] : helpIds) {
    forgetHelp();
    pointAt(control<QWidget>(name));
    settle();
    EXPECT_EQ(helpTag(), id) << name;
    EXPECT_FALSE(help().empty()) << name;
  }
}

TEST_F(ResultsHelpTest, ControlThatTheKeyboardReachesIsExplained) {
  showWithHelp();
  for (const auto& [name, id] : helpIds) {
    forgetHelp();
    view().setFocus();
    control<QWidget>(name).setFocus(Qt::TabFocusReason);
    EXPECT_EQ(helpTag(), id) << name;
  }
}

TEST_F(ResultsHelpTest, GroundBetweenTheButtonsClearsThePanel) {
  showWithHelp();
  pointAt(button("cmdFilter"));
  auto& ground = control<QWidget>("picResultButtons");
  pointAt(ground, {ground.width() / 2, button("cmdClose").y() - 3});
  settle();
  EXPECT_EQ(helpTag(), "1000");
}

TEST_F(ResultsHelpTest, PanelIsHiddenAtFirstAndItsButtonShowsIt) {
  GlobalSettings.HelpPanel = true;
  showFiles(4);
  EXPECT_FALSE(isShown("fraHelp"));
  EXPECT_TRUE(isShown("cmdSHowHideHelp"));
  GlobalSettings.HelpPanel = false;
  click("cmdSHowHideHelp");
  EXPECT_TRUE(isShown("fraHelp"));
  EXPECT_TRUE(GlobalSettings.HelpPanel);
  EXPECT_TRUE(view().hasFocus());
  click("cmdSHowHideHelp");
  EXPECT_FALSE(isShown("fraHelp"));
  EXPECT_FALSE(GlobalSettings.HelpPanel);
}

TEST_F(ResultsHelpTest, ShowingKeepsTheOrderAndHidingSorts) {
  show({{"a", "C:\\", 1, 0}, {"b", "C:\\", 1, 0}});
  FileTable.FileStatus[statusMatch][1] = 5;
  click("cmdSHowHideHelp");
  EXPECT_THAT(matchNumbers(), ElementsAre(5, 0));
  click("cmdSHowHideHelp");
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 5));
}

}  // namespace
}  // namespace quernstoke
