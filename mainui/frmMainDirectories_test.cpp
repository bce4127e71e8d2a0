#include <QScrollBar>

#include "controls/units.h"
#include "mainui/frmMainTest.h"
#include "mainui/quickHelp.h"
#include "pictures/pictures.h"
#include "testing/qt/input.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MainWindowDirectories : public MainWindowTest {
 protected:
  // A profile with entries of these kinds, each in a directory named after its slot.
  void openKinds(const std::string& kinds) {
    openAnn([&] {
      for (std::size_t i = 0; i < kinds.size(); ++i)
        setDirectory(static_cast<int>(i) + 1, directory(static_cast<int>(i) + 1),
                     std::string(1, kinds[i]));
    });
  }
  static std::string directory(int number) { return "C:\\D" + std::to_string(number); }
  // The numbers of the directories that are left.
  static std::vector<std::string> left() {
    std::vector<std::string> numbers;
    for (Int32 slot = 1; slot <= ProfileDirList.upperBound(); ++slot)
      if (!ProfileDirList[slot].Dir.empty()) numbers.push_back(ProfileDirList[slot].Dir.substr(4));
    return numbers;
  }
  static FlexGrid& view() { return control<FlexGrid>("gridList"); }
  // A point in the middle of a cell.
  static QPoint pointIn(int row, int col) {
    const GridLayout layout = view().layoutOnScreen();
    const int y = pixelsFromTwips((grid().rowPos(row) + grid().rowHeight(row) / 2).raw());
    return {layout.edge(col) + 5, y};
  }
  static void clickRow(int row, int col = 1) { click(*view().viewport(), pointIn(row, col)); }
  static void goToRow(int row) {
    view().setFocus();
    for (int press = 0; press < row; ++press)
      pressKey(form(), Qt::Key_Down);
  }
  // The rows and columns that are marked.
  static std::vector<int> marked() {
    return {grid().row().raw(), grid().rowSel().raw(), grid().col().raw(), grid().colSel().raw()};
  }
  static std::vector<std::string> rowTexts(int row) {
    std::vector<std::string> texts;
    for (Int32 col = 0; col < grid().cols(); ++col)
      texts.push_back(grid().cell(row, col).text);
    return texts;
  }
};

TEST_F(MainWindowDirectories, StartWithTheTitlesAlone) {
  open();
  EXPECT_EQ(grid().rows(), 1);
  EXPECT_THAT(rowTexts(0), ElementsAre(" ", "Directory", "Recurse", "File Types"));
  EXPECT_EQ(grid().alignmentOf(0, 1), CellAlignment::leftCentre);
  EXPECT_FALSE(isEnabled("gridList"));
}

TEST_F(MainWindowDirectories, FailuresAreReportedByTheNamesOfTheirHandlers) {
  const auto expectReport = [this](const std::string& name) {
    EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError(name, "Out of memory(7)")));
    dialogBoxes.messages.clear();
  };
  openKinds("II");
  const auto failing = [] { fail(FailureNumber::outOfMemory); };
  modalForms.frmGetDirName = modalForms.frmDirTree = modalForms.frmAddFileType = failing;
  click(button("cmdAddList"));
  expectReport("basAddEditDir");
  showGlobalPage();
  click(button("cmdBrowse_0"));
  expectReport("cmdBrowse_Click");
  click(button("cmdEditFileTypes"));
  expectReport("cmdEditFileTypes_Click");
}

// The list has been lost behind the rows.
TEST_F(MainWindowDirectories, RowsOfALostListAreReported) {
  openKinds("II");
  ProfileDirList.redim(0, false);
  clickRow(1);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("gridList_Click", "Subscript out of range(9)")));
  dialogBoxes.messages.clear();
  click(button("cmdDelList"));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("cmdDelList_Click", "Subscript out of range(9)")));
  allocateProfileDirList();
}

TEST_F(MainWindowDirectories, AreShownWithTheirSettings) {
  openAnn([] {
    setDirectory(1, "C:\\A", "I", true, "1");
    setDirectory(2, "C:\\B", "I", false, "*.mp3");
    setDirectory(3, "C:\\C", "E", true, "1");
    setDirectory(4, "C:\\D", "1", true, "*.x");
    setDirectory(5, "C:\\E", "2", false, "*.x");
  });
  ASSERT_EQ(grid().rows(), 6);
  EXPECT_THAT(rowTexts(1), ElementsAre("", "C:\\A", "YES", "All files"));
  EXPECT_THAT(rowTexts(2), ElementsAre("", "C:\\B", "No", "*.mp3"));
  EXPECT_THAT(rowTexts(3), ElementsAre("", "C:\\C", "YES", ""));
  EXPECT_THAT(rowTexts(4), ElementsAre("", "C:\\D", "YES", ""));
  EXPECT_THAT(rowTexts(5), ElementsAre("", "C:\\E", "No", ""));
  EXPECT_TRUE(grid().redraw());
}

TEST_F(MainWindowDirectories, HaveThePictureOfTheirKind) {
  openKinds("IE12x");
  const auto pictureOf = [](int row) {
    const GridCell& cell = grid().cell(row, 0);
    return std::pair(cell.picture, cell.pictureAlignment);
  };
  EXPECT_EQ(pictureOf(1), std::pair(std::string("SmallPlus"), CellAlignment::centreCentre));
  EXPECT_EQ(pictureOf(2), std::pair(std::string("SmallMinus"), CellAlignment::centreCentre));
  EXPECT_EQ(pictureOf(3), std::pair(std::string("ExcludeTwoTop"), CellAlignment::centreBottom));
  EXPECT_EQ(pictureOf(4), std::pair(std::string("ExcludeTwoBottom"), CellAlignment::centreTop));
  EXPECT_EQ(pictureOf(5).first, "");
}

TEST_F(MainWindowDirectories, AreToldToThoseWhoCannotSeeThePictures) {
  openKinds("IE12");
  for (int row = 1; row <= 4; ++row)
    EXPECT_TRUE(view().rowText(row).contains(", C:\\D" + QString::number(row))) << row;
}

TEST_F(MainWindowDirectories, TheListEndsAtTheFirstFreeSlot) {
  openAnn([] {
    setDirectory(1, "C:\\A", "I");
    setDirectory(3, "C:\\C", "I");
  });
  EXPECT_EQ(grid().rows(), 2);
}

TEST_F(MainWindowDirectories, AFullListIsShown) {
  openKinds(std::string(128, 'I'));
  EXPECT_EQ(grid().rows(), 129);
  EXPECT_EQ(grid().cell(128, 1).text, directory(128));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(MainWindowDirectories, AFileTypeThatIsNotThereEndsTheListInItsMiddle) {
  openAnn([] {
    setDirectory(1, "C:\\A", "I");
    setDirectory(2, "C:\\B", "I", true, "51");
    setDirectory(3, "C:\\C", "I");
  });
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basUpdateDirGrid", "Subscript out of range(9)")));
  EXPECT_EQ(grid().rows(), 3);
  EXPECT_FALSE(grid().redraw());
  // A picture's width and 20, its own units taken for those of the grid.
  EXPECT_EQ(grid().colWidth(0),
            Int32(pictureUnitsFromPixels(pictureSize("SmallPlus").width()) + 20));
}

// Rows that are gone can't be scrolled to.
TEST_F(MainWindowDirectories, AListThatEndedInItsMiddleIsScrolledWithoutHarm) {
  openKinds(std::string(20, 'I'));
  view().verticalScrollBar()->setValue(view().verticalScrollBar()->maximum());
  modalForms.frmGetDirName = [] { ProfileDirList[2].IncludeExtensions = "264"; };
  clickRow(15);
  click(button("cmdEditList"));
  EXPECT_EQ(dialogBoxes.messages.size(), 1U);
  for (const int notches : {-9, 9, -1})
    turnWheel(*view().viewport(), notches);
  goToRow(3);
  settle();
  EXPECT_EQ(grid().rows(), 3);
  EXPECT_EQ(grid().topRow(), 1);
}

TEST_F(MainWindowDirectories, AWiderWindowGivesItsRoomToTheDirectories) {
  openKinds("III");
  goToRow(2);
  grid().setCol(3);
  const Int32 before = grid().colWidth(1);
  const Int32 widthBefore = grid().width();
  form().resize(form().width() + 120, form().height());
  settle();
  EXPECT_GT(grid().width(), widthBefore);
  EXPECT_EQ(grid().colWidth(1) - before, grid().width() - widthBefore);
  EXPECT_THAT(marked(), ElementsAre(2, 2, 3, 3));
}

// As when the window is minimised and comes back.
TEST_F(MainWindowDirectories, AWidthThatWasDraggedStaysUntilTheGridIsWider) {
  openKinds("I");
  grid().setColWidth(2, 3000);
  form().setShownState(ShownState::minimised);
  settle();
  form().setShownState(ShownState::normal);
  form().resize(form().width(), form().height() + 20);
  settle();
  EXPECT_EQ(grid().colWidth(2), 3000);
}

TEST_F(MainWindowDirectories, ColumnsFitTheirTextAndTheDirectoryGetsTheRest) {
  openKinds("I");
  Int32 sum = 0;
  for (Int32 col = 0; col < grid().cols(); ++col)
    sum += grid().colWidth(col);
  EXPECT_EQ(sum, grid().width() - 350);
  EXPECT_GT(grid().colWidth(1), grid().width() / 2);
  EXPECT_EQ(grid().colWidth(0),
            Int32(pictureUnitsFromPixels(pictureSize("SmallPlus").width()) + 100));
}

TEST_F(MainWindowDirectories, NothingIsCurrentAtFirst) {
  openKinds("II");
  EXPECT_EQ(grid().row(), 0);
  click(button("cmdEditList"));
  click(button("cmdDelList"));
  EXPECT_THAT(left(), ElementsAre("1", "2"));
}

TEST_F(MainWindowDirectories, AClickMarksTheWholeRow) {
  openKinds("IIE");
  clickRow(2, 3);
  EXPECT_THAT(marked(), ElementsAre(2, 2, 1, 3));
}

TEST_F(MainWindowDirectories, AClickOnEitherHalfMarksThePair) {
  openKinds("I12I");
  for (const int half : {2, 3}) {
    clickRow(1);
    clickRow(half);
    EXPECT_THAT(marked(), ElementsAre(2, 3, 1, 3)) << half;
  }
}

TEST_F(MainWindowDirectories, ADraggedSelectionBecomesOneEntry) {
  openKinds("III");
  QWidget& cells = *view().viewport();
  QTest::mousePress(windowOf(cells), Qt::LeftButton, {}, inWindow(cells, pointIn(1, 1)));
  QTest::mouseMove(windowOf(cells), inWindow(cells, pointIn(3, 2)));
  QTest::mouseRelease(windowOf(cells), Qt::LeftButton, {}, inWindow(cells, pointIn(3, 2)));
  EXPECT_THAT(marked(), ElementsAre(1, 1, 1, 3));
}

TEST_F(MainWindowDirectories, AddingAsksTheDialogForANewOne) {
  openKinds("I");
  Int32 asked;
  modalForms.frmGetDirName = [&] {
    asked = DialogValue;
    setDirectory(2, "C:\\New", "E");
  };
  click(button("cmdAddList"));
  EXPECT_EQ(asked, -1);
  EXPECT_EQ(grid().cell(2, 1).text, "C:\\New");
}

TEST_F(MainWindowDirectories, EditingAsksTheDialogForTheCurrentOne) {
  openKinds("III");
  std::vector<int> asked;
  modalForms.frmGetDirName = [&] { asked.push_back(DialogValue.raw()); };
  clickRow(2);
  click(button("cmdEditList"));
  doubleClick(*view().viewport(), pointIn(3, 1));
  EXPECT_THAT(asked, ElementsAre(2, 3));
  EXPECT_THAT(marked(), ElementsAre(3, 3, 1, 3));
}

TEST_F(MainWindowDirectories, ADoubleClickOnTheTitlesDoesNothing) {
  openKinds("II");
  int asked = 0;
  modalForms.frmGetDirName = [&] { ++asked; };
  clickRow(1);
  doubleClick(*view().viewport(), pointIn(0, 1));
  EXPECT_EQ(asked, 0);
}

TEST_F(MainWindowDirectories, AClickedLowerHalfIsEditedAsItsPair) {
  openKinds("I12");
  std::vector<int> asked;
  modalForms.frmGetDirName = [&] { asked.push_back(DialogValue.raw()); };
  clickRow(3);
  click(button("cmdEditList"));
  EXPECT_THAT(asked, ElementsAre(2));
}

TEST_F(MainWindowDirectories, AnEmptyListHasNothingToEditOrDelete) {
  openKinds("");
  int asked = 0;
  modalForms.frmGetDirName = [&] { ++asked; };
  click(button("cmdEditList"));
  click(button("cmdDelList"));
  click(*view().viewport(), {100, 60});
  doubleClick(*view().viewport(), {100, 60});
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(grid().row(), 0);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(MainWindowDirectories, DeletingAsksNothingAndWritesNothing) {
  openKinds("III");
  const auto before = disk.allFiles();
  clickRow(2);
  click(button("cmdDelList"));
  EXPECT_THAT(left(), ElementsAre("1", "3"));
  EXPECT_THAT(marked(), ElementsAre(2, 2, 1, 3));
  EXPECT_EQ(grid().cell(2, 1).text, directory(3));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(disk.allFiles(), before);
}

TEST_F(MainWindowDirectories, DeletingTheLastRowMarksTheOneBefore) {
  openKinds("III");
  clickRow(3);
  click(button("cmdDelList"));
  EXPECT_THAT(left(), ElementsAre("1", "2"));
  EXPECT_THAT(marked(), ElementsAre(2, 2, 1, 3));
}

TEST_F(MainWindowDirectories, DeletingTheOnlyRowLeavesNoneAndTellsToSelectDirectories) {
  openKinds("I");
  clickRow(1);
  click(button("cmdDelList"));
  EXPECT_THAT(left(), IsEmpty());
  EXPECT_EQ(grid().rows(), 1);
  EXPECT_EQ(grid().row(), 0);
  EXPECT_EQ(HelpState, 1);
  EXPECT_EQ(helpTag(), "1001");
}

TEST_F(MainWindowDirectories, APairGoesTogether) {
  openKinds("I12II");
  clickRow(3);
  click(button("cmdDelList"));
  EXPECT_THAT(left(), ElementsAre("1", "4", "5"));
}

// A click can't bring that about, only the keyboard.
TEST_F(MainWindowDirectories, FromTheLowerHalfTheEntryBehindThePairGoesToo) {
  openKinds("I12II");
  goToRow(3);
  EXPECT_EQ(grid().row(), 3);
  click(button("cmdDelList"));
  EXPECT_THAT(left(), ElementsAre("1", "5"));
}

TEST_F(MainWindowDirectories, FromTheLowerHalfAtTheEndThePairGoes) {
  openKinds("I12");
  goToRow(3);
  click(button("cmdDelList"));
  EXPECT_THAT(left(), ElementsAre("1"));
}

TEST_F(MainWindowDirectories, DeletingOneOfAFullListEmptiesTheLastSlot) {
  openKinds(std::string(128, 'I'));
  clickRow(1);
  click(button("cmdDelList"));
  EXPECT_EQ(left().size(), 127U);
  EXPECT_EQ(ProfileDirList[127].Dir, directory(128));
  EXPECT_EQ(ProfileDirList[128].Dir, "");
  EXPECT_EQ(grid().rows(), 128);
}

// Nothing is moved into slot 127, whose entry then stands twice.
TEST_F(MainWindowDirectories, DeletingAPairOfAFullListLeavesOneEntryTwice) {
  openKinds("12" + std::string(126, 'I'));
  clickRow(1);
  click(button("cmdDelList"));
  EXPECT_EQ(ProfileDirList[125].Dir, directory(127));
  EXPECT_EQ(ProfileDirList[126].Dir, directory(128));
  EXPECT_EQ(ProfileDirList[127].Dir, directory(127));
  EXPECT_EQ(ProfileDirList[128].Dir, "");
  EXPECT_EQ(grid().rows(), 128);
}

TEST_F(MainWindowDirectories, ChangesReachTheDiskWithTheProfile) {
  openKinds("II");
  clickRow(1);
  click(button("cmdDelList"));
  choose("Ann");
  EXPECT_THAT(left(), ElementsAre("2"));
  EXPECT_EQ(grid().cell(1, 1).text, directory(2));
}

TEST_F(MainWindowDirectories, EnterInTheListPressesNothing) {
  openKinds("II");
  goToRow(1);
  pressKey(form(), Qt::Key_Return);
  pressKey(form(), Qt::Key_Delete);
  EXPECT_THAT(left(), ElementsAre("1", "2"));
  EXPECT_THAT(windows, IsEmpty());
}

}  // namespace
}  // namespace quernstoke
