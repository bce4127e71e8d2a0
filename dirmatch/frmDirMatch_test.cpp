#include "dirmatch/frmDirMatch.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <stdexcept>
#include <utility>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "controls/flexGrid.h"
#include "core/scanState.h"
#include "detect/refinement.h"
#include "dirmatch/dirMatchRows.h"
#include "platform/platform.h"
#include "results/matchGroupIndex.h"
#include "testing/engineTest.h"
#include "testing/qt/input.h"
#include "testing/qt/person.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The real window over the engine's stand-ins.
class DirMatchWindow : public EngineTest {
 protected:
  ~DirMatchWindow() override {
    Form::deleteAll();
    settle();
  }

  void open(const std::vector<CatalogueFile>& files, const std::string& left = "C:\\left",
            const std::string& right = "C:\\right") {
    buildCatalogue(files);
    for (const CatalogueFile& file : files)
      disk.file(file.directory + "\\" + file.name,
                std::string(static_cast<std::size_t>(file.size), 'x'));
    basSetupMatchGroupInfo("MATCHNUM", startMode::none);
    RunState = runState::finished;
    DirMatchDir1 = basFindDirInList(left);
    DirMatchDir2 = basFindDirInList(right);
    form_ = new forms::frmDirMatch;
    form_->show();
    settle();
  }
  // Lines: "a | b", " | sub/c", "--", "e | d", and with "Show All" "loose | ".
  void openTwoGroups() {
    open({{"a", "C:\\left", 1234567, 0},
          {"b", "C:\\right", 1234567, 0},
          {"c", "C:\\right\\sub", 1234567, 0},
          {"d", "C:\\right", 2, 1},
          {"e", "C:\\left", 2, 1},
          {"loose", "C:\\left", 3}});
  }
  bool isOpen() const { return form_ && !form_->isUnloaded(); }

  template <class Widget>
  Widget& control(const char* name) {
    auto* const found = form_->findChild<Widget*>(name);
    if (found == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *found;
  }
  std::string label(const char* name) { return control<QLabel>(name).text().toStdString(); }
  bool isShown(const char* name) { return control<QWidget>(name).isVisible(); }
  FlexGrid& view() { return control<FlexGrid>("griddir"); }
  FlexGridModel& grid() { return view().model(); }
  std::vector<std::string> enabled() {
    std::vector<std::string> names;
    for (const char* name :
         {"cmdMove_0", "cmdDelete_0", "cmdOpen_0", "cmdMove_1", "cmdDelete_1", "cmdOpen_1"})
      if (control<QWidget>(name).isEnabled()) names.emplace_back(name);
    return names;
  }
  // The names on the left and on the right of each line.
  std::vector<std::string> lines() {
    std::vector<std::string> found;
    for (Int32 row = 1; row < grid().rows(); ++row)
      found.push_back(grid().cell(row, 0).text + "|" + grid().cell(row, 6).text);
    return found;
  }

  QPoint cellCentre(int row, int col) {
    return view().layoutOnScreen().cellRect(row, col).center();
  }
  void clickCell(int row, int col) {
    quernstoke::click(*view().viewport(), cellCentre(row, col));
    settle();
  }
  void dragCells(int fromRow, int toRow, int col) {
    QWidget& cells = *view().viewport();
    pressMouse(cells, cellCentre(fromRow, col));
    moveMouse(cells, cellCentre(toRow, col), Qt::LeftButton);
    releaseMouse(cells, cellCentre(toRow, col));
    settle();
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    pressKey(*form_, key, modifiers);
    settle();
  }
  void click(const char* name) {
    control<QAbstractButton>(name).click();
    settle();
  }
  void resizeTo(int width, int height) {
    form_->resize(width, height);
    settle();
  }

  QPointer<forms::frmDirMatch> form_;
};

TEST_F(DirMatchWindow, ControlsHaveTheirCaptions) {
  openTwoGroups();
  EXPECT_EQ(form_->windowTitle(), "Directory Match");
  const std::pair<const char*, const char*> captions[] = {
      {"cmdClose", "Close"},      {"cmdDelete_0", "Delete"}, {"cmdDelete_1", "Delete"},
      {"cmdMove_0", "Move -->"},  {"cmdMove_1", "<-- Move"}, {"cmdOpen_0", "Open file"},
      {"cmdOpen_1", "Open file"}, {"chkShowAll", "Show All"}};
  for (const auto& [name, caption] : captions)
    EXPECT_EQ(control<QAbstractButton>(name).text(), caption) << name;
  const std::pair<const char*, const char*> labels[] = {
      {"labFileNameCaption", "Name:"},
      {"labDirectoryCaption", "Directory:"},
      {"labSizeCaption", "Size:"},
      {"labDateCaption", "Date:"},
      {"labCount1Caption", "File count in both directories:"},
      {"labCount2Caption", "File count across all directories:"},
      {"labFileDetailsMessage_0", "Multiple files selected"},
      {"labFileDetailsMessage_1", "Click on a file to show the file details"}};
  for (const auto& [name, text] : labels)
    EXPECT_EQ(label(name), text) << name;
  EXPECT_FALSE(isShown("labSizer"));
}

TEST_F(DirMatchWindow, OpensWithTheGroupsAndNothingChosen) {
  openTwoGroups();
  EXPECT_EQ(label("labDirName_0"), "C:\\left");
  EXPECT_EQ(label("labDirName_1"), "C:\\right");
  EXPECT_FALSE(control<QCheckBox>("chkShowAll").isChecked());
  EXPECT_THAT(lines(), ElementsAre("a|b", "|c", "|", "e|d"));
  EXPECT_THAT(enabled(), IsEmpty());
  EXPECT_TRUE(isShown("labFileDetailsMessage_1"));
  EXPECT_FALSE(isShown("labFileDetailsMessage_0"));
  EXPECT_FALSE(isShown("picFileDetails"));
  EXPECT_TRUE(view().hasFocus());
}

TEST_F(DirMatchWindow, EveryControlHasANameForThoseWhoCannotSeeIt) {
  openTwoGroups();
  std::set<QString> names;
  for (const char* name : {"griddir", "cmdMove_0", "cmdDelete_0", "cmdOpen_0", "cmdMove_1",
                           "cmdDelete_1", "cmdOpen_1", "chkShowAll", "cmdClose"}) {
    auto* const accessible = QAccessible::queryAccessibleInterface(&control<QWidget>(name));
    const QString text = accessible->text(QAccessible::Name);
    EXPECT_FALSE(text.isEmpty()) << name;
    EXPECT_TRUE(names.insert(text).second) << name;
  }
}

TEST_F(DirMatchWindow, TabGoesThroughTheControlsInOrder) {
  openTwoGroups();
  for (const char* name :
       {"cmdMove_0", "cmdDelete_0", "cmdOpen_0", "cmdMove_1", "cmdDelete_1", "cmdOpen_1"})
    control<QWidget>(name).setEnabled(true);
  std::vector<std::string> order;
  for (QWidget* at = &view(); order.empty() || at != &view();) {
    order.push_back(at->objectName().toStdString());
    press(Qt::Key_Tab);
    at = QApplication::focusWidget();
    ASSERT_LT(order.size(), 30u);
  }
  EXPECT_THAT(order, ElementsAre("griddir", "cmdMove_0", "cmdDelete_0", "cmdOpen_0", "cmdMove_1",
                                 "cmdDelete_1", "cmdOpen_1", "chkShowAll", "cmdClose"));
}

TEST_F(DirMatchWindow, ClickTellsAboutTheFile) {
  openTwoGroups();
  clickCell(2, 8);
  EXPECT_EQ(label("labFileName"), "c");
  EXPECT_EQ(label("labDirectory"), "C:\\right\\sub");
  EXPECT_EQ(label("labSize"), "1,234,567");
  EXPECT_EQ(label("labDate"), "1970-01-01");
  EXPECT_EQ(label("labCount1"), "3");
  EXPECT_EQ(label("labCount2"), "3");
  EXPECT_TRUE(isShown("picFileDetails"));
  EXPECT_FALSE(isShown("labFileDetailsMessage_1"));
  EXPECT_THAT(enabled(), ElementsAre("cmdMove_1", "cmdDelete_1", "cmdOpen_1"));
  EXPECT_EQ(grid().col(), 6);
  EXPECT_EQ(grid().colSel(), 10);
}

TEST_F(DirMatchWindow, DragTellsOfSeveralFiles) {
  openTwoGroups();
  dragCells(1, 4, 1);
  EXPECT_TRUE(isShown("labFileDetailsMessage_0"));
  EXPECT_FALSE(isShown("picFileDetails"));
  EXPECT_THAT(enabled(), ElementsAre("cmdMove_0", "cmdDelete_0"));
}

TEST_F(DirMatchWindow, DetailsTakeNoRoomWhenTheyCome) {
  openTwoGroups();
  const QRect before = view().geometry();
  clickCell(1, 0);
  EXPECT_EQ(view().geometry(), before);
  dragCells(1, 4, 0);
  EXPECT_EQ(view().geometry(), before);
}

TEST_F(DirMatchWindow, KeysReachEveryFile) {
  openTwoGroups();
  press(Qt::Key_Down);
  EXPECT_EQ(label("labFileName"), "a");
  press(Qt::Key_Right);
  EXPECT_EQ(label("labFileName"), "b");
  EXPECT_EQ(grid().colSel(), 10);
  press(Qt::Key_Down);
  EXPECT_EQ(label("labFileName"), "c");
  EXPECT_THAT(enabled(), ElementsAre("cmdMove_1", "cmdDelete_1", "cmdOpen_1"));
  press(Qt::Key_Left);
  EXPECT_THAT(enabled(), IsEmpty());
  press(Qt::Key_Up);
  EXPECT_EQ(label("labFileName"), "a");
  press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_TRUE(isShown("labFileDetailsMessage_0"));
}

TEST_F(DirMatchWindow, ShowAllAddsTheLooseFiles) {
  openTwoGroups();
  click("chkShowAll");
  EXPECT_THAT(lines(), ElementsAre("a|b", "|c", "|", "e|d", "loose|"));
  click("chkShowAll");
  EXPECT_THAT(lines(), ElementsAre("a|b", "|c", "|", "e|d"));
}

TEST_F(DirMatchWindow, ButtonsActOnTheirSide) {
  openTwoGroups();
  dialogBoxes.answers = {Answer::yes, Answer::yes};
  clickCell(1, 0);
  click("cmdDelete_0");
  EXPECT_FALSE(disk.exists("C:\\left\\a"));
  EXPECT_THAT(lines(), ElementsAre("|b", "|c", "|", "e|d"));
  clickCell(1, 6);
  click("cmdMove_1");
  EXPECT_TRUE(disk.exists("C:\\left\\b"));
  EXPECT_THAT(lines(), ElementsAre("b|c", "|", "e|d"));
  clickCell(3, 6);
  click("cmdOpen_1");
  EXPECT_EQ(desk.opened.at(0).file, "C:\\right\\d");
  dialogBoxes.answers = {Answer::yes, Answer::yes};
  clickCell(3, 6);
  click("cmdDelete_1");
  EXPECT_FALSE(disk.exists("C:\\right\\d"));
  clickCell(3, 0);
  click("cmdMove_0");
  EXPECT_TRUE(disk.exists("C:\\right\\e"));
  clickCell(1, 0);
  click("cmdOpen_0");
  EXPECT_EQ(desk.opened.at(1).file, "C:\\left\\b");
}

// What works the controls without mouse and keyboard isn't held off by a question.
TEST_F(DirMatchWindow, NothingElseIsDoneWhileAQuestionIsUp) {
  using Deed = std::pair<const char*, std::function<void()>>;
  const Deed deeds[] = {
      Deed{"cmdDelete_0", [&] { click("cmdDelete_0"); }},
      Deed{"cmdDelete_1", [&] { click("cmdDelete_1"); }},
      Deed{"cmdMove_0", [&] { click("cmdMove_0"); }},
      Deed{"cmdMove_1", [&] { click("cmdMove_1"); }},
      Deed{"cmdOpen_0", [&] { click("cmdOpen_0"); }},
      Deed{"chkShowAll", [&] { click("chkShowAll"); }},
      Deed{"cmdClose", [&] { click("cmdClose"); }},
      Deed{"close box", [&] { form_->close(); }},
      Deed{"Escape", [&] { press(Qt::Key_Escape); }},
      Deed{"grid", [&] { clickCell(4, 8); }},
      Deed{"key", [&] { press(Qt::Key_Right); }},
  };
  for (const char* command : {"cmdDelete_0", "cmdMove_0"})
    for (const auto& [name, deed] : deeds) {
      SCOPED_TRACE(std::string(command) + " and " + name);
      dialogBoxes.messages.clear();
      openTwoGroups();
      clickCell(1, 0);
      for (const char* button : {"cmdDelete_1", "cmdMove_1"})
        control<QWidget>(button).setEnabled(true);
      dialogBoxes.onBox = deed;
      dialogBoxes.answers = {Answer::no};
      click(command);
      EXPECT_EQ(dialogBoxes.messages.size(), 1u);
      ASSERT_TRUE(isOpen());
      EXPECT_THAT(lines(), ElementsAre("a|b", "|c", "|", "e|d"));
      EXPECT_FALSE(control<QCheckBox>("chkShowAll").isChecked());
      EXPECT_EQ(label("labFileName"), "a");
      EXPECT_THAT(desk.opened, IsEmpty());
      click("chkShowAll");
      EXPECT_THAT(lines(), ElementsAre("a|b", "|c", "|", "e|d", "loose|"));
      click("cmdClose");
      EXPECT_FALSE(isOpen());
      settle();
    }
}

TEST_F(DirMatchWindow, NothingIsDeletedOrMovedByEnter) {
  openTwoGroups();
  clickCell(1, 0);
  press(Qt::Key_Return);
  press(Qt::Key_Delete);
  EXPECT_TRUE(isOpen());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirMatchWindow, ButtonEscapeAndCloseBoxCloseIt) {
  const std::vector<std::function<void()>> ways = {
      [&] { click("cmdClose"); }, [&] { press(Qt::Key_Escape); }, [&] { form_->close(); }};
  for (const auto& close : ways) {
    openTwoGroups();
    close();
    EXPECT_FALSE(isOpen());
    settle();
  }
}

TEST_F(DirMatchWindow, PointersOfTheSortAreGivenBack) {
  FilePointerArray.redim(3, false);
  FilePointerArray[2] = 77;
  openTwoGroups();
  click("chkShowAll");
  EXPECT_NE(FilePointerArray.upperBound(), 3);
  click("cmdClose");
  EXPECT_EQ(FilePointerArray.upperBound(), 3);
  EXPECT_EQ(FilePointerArray[2], 77);
}

TEST_F(DirMatchWindow, RunsUntilItIsClosed) {
  openTwoGroups();
  form_->unload();
  settle();
  auto* const form = new forms::frmDirMatch;
  QTimer::singleShot(0, form, [&] { form->findChild<QAbstractButton*>("cmdClose")->click(); });
  form->showModal();
  EXPECT_TRUE(form->isUnloaded());
}

TEST_F(DirMatchWindow, WrongDirectoriesAreToldAndTheWindowCanBeClosed) {
  open({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}}, "C:\\nowhere", "C:\\right");
  ASSERT_FALSE(dialogBoxes.messages.empty());
  EXPECT_EQ(dialogBoxes.messages.front(),
            procedureError("lstFileExtensions_DblClick", "Subscript out of range(9)"));
  click("cmdClose");
  EXPECT_FALSE(isOpen());
}

// Layout.

TEST_F(DirMatchWindow, ColumnsFillTheGridAtEverySize) {
  openTwoGroups();
  for (const auto& [width, height] : {std::pair(960, 640), {1300, 700}, {700, 650}}) {
    resizeTo(width, height);
    ASSERT_EQ(form_->size(), QSize(width, height));
    Int32 used;
    for (Int32 col = 0; col < grid().cols(); ++col)
      used += grid().colWidth(col);
    EXPECT_LE(used, grid().width());
    EXPECT_GE(used, grid().width() - 400);
  }
}

TEST_F(DirMatchWindow, LaterActivationsLeaveTheColumnsAsTheyAre) {
  openTwoGroups();
  grid().setColWidth(0, 777);
  QEvent activation(QEvent::WindowActivate);
  QApplication::sendEvent(form_, &activation);
  settle();
  EXPECT_EQ(grid().colWidth(0), 777);
}

TEST_F(DirMatchWindow, RightSideStandsBelowItsDirectory) {
  openTwoGroups();
  resizeTo(1200, 700);
  const int columnLeft = view().x() + view().layoutOnScreen().edge(6);
  EXPECT_NEAR(control<QWidget>("labDirName_1").x(), columnLeft, 30);
}

TEST_F(DirMatchWindow, FixedColumnsShowTheirWholeTexts) {
  openTwoGroups();
  resizeTo(700, 650);
  const QFontMetrics metrics(view().font());
  const GridLayout layout = view().layoutOnScreen();
  const int margins = 2 * gridTextMargin(view());
  const std::pair<int, const char*> samples[] = {{2, "99999999"},   {8, "99999999"},
                                                 {3, "99/99/9999"}, {9, "99/99/9999"},
                                                 {4, "99(99)"},     {10, "99(99)"}};
  for (const auto& [col, text] : samples)
    EXPECT_GE(layout.edge(col + 1) - layout.edge(col), metrics.horizontalAdvance(text) + margins)
        << col;
}

TEST_F(DirMatchWindow, SmallestWindowKeepsEverythingApart) {
  openTwoGroups();
  clickCell(1, 0);
  resizeTo(10, 10);
  EXPECT_EQ(form_->size(), QSize(600, 600).boundedTo(form_->screen()->availableSize()));
  EXPECT_GE(grid().wholeRowsOnScreen(), 5);
  std::vector<QRect> places;
  for (const char* name : {"griddir", "picFileDetails", "cmdMove_0", "cmdDelete_0", "cmdOpen_0",
                           "cmdMove_1", "cmdDelete_1", "cmdOpen_1", "chkShowAll", "cmdClose"}) {
    QWidget& widget = control<QWidget>(name);
    const QRect place(widget.mapTo(form_.data(), QPoint()), widget.size());
    EXPECT_TRUE(form_->rect().contains(place)) << name;
    for (const QRect& other : places)
      EXPECT_FALSE(place.intersects(other)) << name;
    places.push_back(place);
  }
}

TEST_F(DirMatchWindow, LongDirectoriesAreFittedAnewWithTheSize) {
  const std::string directory =
      "C:\\left\\a directory of some length\\another one below it\\and one more of them\\deepest";
  open({{"a", directory, 1, 0}, {"b", "C:\\right", 1, 0}}, directory, "C:\\right");
  resizeTo(620, 620);
  EXPECT_THAT(label("labDirName_0"), testing::StartsWith("C:\\"));
  EXPECT_THAT(label("labDirName_0"), testing::HasSubstr("..."));
  EXPECT_THAT(label("labDirName_0"), testing::EndsWith("\\deepest"));
  resizeTo(1800, 620);
  EXPECT_EQ(label("labDirName_0"), directory);
}

TEST_F(DirMatchWindow, AnEmptyPlaceIsToldFromASeparatorInADarkTheme) {
  const QPalette before = QApplication::palette();
  QApplication::setPalette(QPalette(Qt::darkGray, QColor(0x20, 0x20, 0x20)));
  openTwoGroups();
  const QImage image = view().grab().toImage();
  QApplication::setPalette(before);
  const auto lightness = [&](int row, int col) {
    const QPoint centre = view().viewport()->mapTo(&view(), cellCentre(row, col));
    return qGray(image.pixel(centre));
  };
  EXPECT_EQ(lines()[1], "|c");
  EXPECT_GT(lightness(2, 0), 200);
  EXPECT_LT(lightness(3, 0), 50);
}

TEST_F(DirMatchWindow, NamesAreShownAsTheyAreWritten) {
  open({{"<b>bold</b> & co", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  clickCell(1, 0);
  EXPECT_EQ(label("labFileName"), "<b>bold</b> & co");
  EXPECT_EQ(control<QLabel>("labFileName").textFormat(), Qt::PlainText);
}

}  // namespace
}  // namespace quernstoke
