// Filters and the choice of two directories in the results window.

#include <QScreen>
#include <optional>

#include "catalogue/dirTable.h"
#include "mainui/frmDirParent.h"
#include "progress/scanStatus.h"
#include "results/directoryMatch.h"
#include "results/frmResultsTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class ResultsFilterTest : public ResultsWindowTest {
 protected:
  ResultsFilterTest() {
    ProfileSettings.MaximumSize = 1000;
    ProfileSettings.MinimumSizeMeasure = ProfileSettings.MaximumSizeMeasure = "B";
    modalForms.frmDirParent = [this] {
      asked.push_back(DialogText);
      if (answer) DialogText = *answer;
    };
  }
  void showData() {
    const std::vector<CatalogueFile> files = {{"k1", "C:\\keep", 1, 0},
                                              {"k2", "C:\\keep", 1, 0},
                                              {"k3", "C:\\keep", 1, 0},
                                              {"a1", "C:\\R&B\\x", 1, 1},
                                              {"a2", "C:\\R&B\\x", 1, 1}};
    for (const CatalogueFile& file : files)
      disk.file(file.directory + "\\" + file.name, "x");
    show(files);
    basRedimFilesArrays(FileCount, true);
    DirTable.redim(DirCount, true);
  }
  std::string caption(const char* item) {
    return form().findChild<QAction*>(item)->text().toStdString();
  }
  std::string toolTip(const char* name) { return button(name).toolTip().toStdString(); }
  bool looksSet(const char* name) { return button(name).isChecked() && button(name).font().bold(); }
  void setBoth() {
    clickCell(1, 1);
    click("cmdSetDir_0");
    clickCell(4, 1);
    click("cmdSetDir_1");
  }

  std::optional<std::string> answer;
  std::vector<std::string> asked;
};

// The menu.

TEST_F(ResultsFilterTest, ButtonPopsUpTheMenu) {
  showData();
  clickCell(4, 1);
  click("cmdFilter");
  EXPECT_TRUE(isUp("mnuFilterMain"));
  EXPECT_EQ(control<QMenu>("mnuFilterMain").title(), "Filter");
  // A single & would be taken for a mnemonic.
  EXPECT_THAT(itemsOf("mnuFilterMain"),
              ElementsAre("mnuFilter_0: Exclude all files from the display based on directory "
                          "c:\\r&&b\\x",
                          "mnuFilter_1: Exclude comparison between two directories"));
  EXPECT_THAT(itemsOf("mnuFilterTwoDirs"), ElementsAre("mnuFilterTwoDirs_0: Set Directory 1",
                                                       "mnuFilterTwoDirs_1: Set Directory 2",
                                                       "mnuFilterTwoDirs_2: Clear selection"));
  EXPECT_EQ(form().findChild<QAction*>("mnuFilter_1")->menu(), &control<QMenu>("mnuFilterTwoDirs"));
}

TEST_F(ResultsFilterTest, MenuStandsBesideItsButton) {
  showData();
  clickCell(4, 1);
  click("cmdFilter");
  const QPoint corner = button("cmdFilter").mapToGlobal(QPoint(button("cmdFilter").width() + 1, 0));
  EXPECT_EQ(control<QMenu>("mnuFilterMain").pos(), corner);
}

TEST_F(ResultsFilterTest, MenuOfAClickStandsAtTheHeightOfThePointer) {
  showData();
  const QWidget& filter = button("cmdFilter");
  const QPoint pointer = filter.mapToGlobal(QPoint(filter.width() / 2, filter.height() - 3));
  QCursor::setPos(pointer);
  click("cmdFilter");
  const int right = filter.mapToGlobal(QPoint(filter.width() + 1, 0)).x();
  EXPECT_EQ(control<QMenu>("mnuFilterMain").pos(), QPoint(right, pointer.y()));
  QCursor::setPos(farAway, farAway);
}

TEST_F(ResultsFilterTest, GridHasTheFocusWhenTheMenuIsGone) {
  showData();
  button("cmdFilter").setFocus();
  click("cmdFilter");
  control<QMenu>("mnuFilterMain").close();
  settle();
  EXPECT_TRUE(view().hasFocus());
}

TEST_F(ResultsFilterTest, MenuGoesWhenTheListIsBuiltAnew) {
  showData();
  click("cmdFilter");
  resizeTo(900, 500);
  EXPECT_FALSE(isUp("mnuFilterMain"));
}

TEST_F(ResultsFilterTest, LongDirectoryStaysWithinTheScreen) {
  const std::string name(300, 'd');
  show({{"a", "C:\\" + name, 1, 0}, {"b", "C:\\" + name, 1, 0}});
  click("cmdFilter");
  EXPECT_LE(control<QMenu>("mnuFilterMain").width(), form().screen()->availableSize().width());
}

// Filtering.

TEST_F(ResultsFilterTest, BothMenusFilterADirectory) {
  for (const bool context : {false, true}) {
    showData();
    clickCell(4, 1);
    if (context)
      rightClickRow(4);
    else
      click("cmdFilter");
    chooseItem(context ? "mnuFilterDirectory" : "mnuFilter_0");
    EXPECT_EQ(asked.back(), "c:\\r&b\\x");
    EXPECT_THAT(names(), UnorderedElementsAre("k1", "k2", "k3"));
    EXPECT_EQ(panel(3), "Files:3");
    EXPECT_EQ(panel(5), "Duplicates:2");
    click("cmdClose");
  }
}

TEST_F(ResultsFilterTest, DialogDecidesHowMuchOfThePathIsMeant) {
  modalForms.frmDirParent = [] {
    auto* const dialog = new forms::frmDirParent;
    QTimer::singleShot(0, dialog, [dialog] {
      QTimer::singleShot(0, dialog, [dialog] {
        dialog->findChild<QAbstractButton*>("labDirComponent_0")->click();
        dialog->findChild<QAbstractButton*>("cmdOK")->click();
      });
    });
    dialog->showModal();
  };
  showData();
  clickCell(4, 1);
  rightClickRow(4);
  chooseItem("mnuFilterDirectory");
  EXPECT_EQ(FileCount, 0);
  EXPECT_TRUE(isShown("labNoDuplicates"));
  EXPECT_FALSE(isEnabled("cmdFilter"));
  EXPECT_EQ(panel(3), "Files:0");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ResultsFilterTest, FilteredFilesAreGoneFromTheSnapshot) {
  showData();
  clickCell(4, 1);
  rightClickRow(4);
  chooseItem("mnuFilterDirectory");
  click("cmdClose");
  const std::string snapshot = disk.content(ProfilesDir + "\\Music.files");
  EXPECT_NE(snapshot.find("k1"), std::string::npos);
  EXPECT_EQ(snapshot.find("a1"), std::string::npos);
}

TEST_F(ResultsFilterTest, MenuRemembersOneOfTwoDirectories) {
  showData();
  clickCell(4, 1);
  click("cmdFilter");
  chooseItem("mnuFilterTwoDirs_0");
  EXPECT_EQ(caption("mnuFilterTwoDirs_0"), "c:\\r&&b\\x");
  EXPECT_EQ(caption("mnuFilterTwoDirs_1"), "Set Directory 2");
  chooseItem("mnuFilterTwoDirs_2");
  EXPECT_EQ(caption("mnuFilterTwoDirs_0"), "Set Directory 1");
}

TEST_F(ResultsFilterTest, ChoiceDoesNotOutliveTheWindow) {
  showData();
  chooseItem("mnuFilterTwoDirs_0");
  click("cmdClose");
  showData();
  EXPECT_EQ(caption("mnuFilterTwoDirs_0"), "Set Directory 1");
}

TEST_F(ResultsFilterTest, PairGoesToTheProfileAsItWasPicked) {
  makeProfile("Music");
  answer = "c:\\R&B";
  showData();
  clickCell(4, 1);
  chooseItem("mnuFilterTwoDirs_0");
  answer = "c:\\keep";
  chooseItem("mnuFilterTwoDirs_1");
  EXPECT_EQ(ProfileDirList[1].Dir, "c:\\R&B");
  EXPECT_EQ(ProfileDirList[2].Dir, "c:\\keep");
  EXPECT_THAT(names(), UnorderedElementsAre("k1", "k2", "k3", "a1", "a2"));
}

// Matching directories.

TEST_F(ResultsFilterTest, DirectoryThatIsSetShows) {
  showData();
  clickCell(4, 1);
  click("cmdSetDir_0");
  EXPECT_EQ(asked.back(), "C:\\R&B\\x");
  EXPECT_TRUE(looksSet("cmdSetDir_0"));
  EXPECT_FALSE(looksSet("cmdSetDir_1"));
  EXPECT_EQ(toolTip("cmdSetDir_0"), "Directory C:\\R&B\\x");
  EXPECT_EQ(button("cmdSetDir_0").accessibleDescription(), "Directory C:\\R&B\\x");
}

TEST_F(ResultsFilterTest, DirectoryStaysSetWhenItsButtonIsClickedAgain) {
  showData();
  click("cmdSetDir_0");
  answer = "";
  click("cmdSetDir_0");
  EXPECT_TRUE(looksSet("cmdSetDir_0"));
}

TEST_F(ResultsFilterTest, EnterPressesAButtonWhoseDirectoryIsSet) {
  showData();
  for (const int times : {1, 2}) {
    button("cmdSetDir_0").setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(asked.size(), static_cast<std::size_t>(times));
    EXPECT_TRUE(looksSet("cmdSetDir_0"));
  }
}

TEST_F(ResultsFilterTest, BothMustBeSet) {
  showData();
  click("cmdSetDir_2");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("You must set both directories before you can open the Directory match "
                          "window"));
}

TEST_F(ResultsFilterTest, MatchWindowOpensAndAllIsAsBefore) {
  showData();
  disk.file("C:\\keep\\other", "x");
  setBoth();
  int shown = 0;
  modalForms.frmDirMatch = [&] {
    ++shown;
    EXPECT_EQ(DirTable[DirMatchDir1].name, "C:\\keep");
    EXPECT_EQ(DirTable[DirMatchDir2].name, "C:\\R&B\\x");
    EXPECT_EQ(FileCount, 6);
    EXPECT_TRUE(form().isEnabled());
    EXPECT_EQ(form().property("Tag").toString(), "IGNORE");
  };
  click("cmdSetDir_2");
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(FileCount, 5);
  EXPECT_THAT(names(), UnorderedElementsAre("k1", "k2", "k3", "a1", "a2"));
  EXPECT_FALSE(looksSet("cmdSetDir_0"));
  EXPECT_FALSE(looksSet("cmdSetDir_1"));
  EXPECT_EQ(toolTip("cmdSetDir_1"), "Set Directory 2");
}

// The window that matches counts on the order of the catalogue.
TEST_F(ResultsFilterTest, ListIsNotSortedBelowTheMatchWindow) {
  showData();
  setBoth();
  std::string lastFile;
  modalForms.frmDirMatch = [&] {
    FileTable.FileStatus[statusMatch][5] = -1;  // It would be the first.
    const std::vector<std::string> before = fileNames();
    resizeTo(900, 480);
    EXPECT_EQ(fileNames(), before);
    lastFile = before.back();
  };
  const int height = view().height();
  click("cmdSetDir_2");
  EXPECT_NE(view().height(), height);
  EXPECT_EQ(names().front(), lastFile);
}

// The program moves the bar from the end to its beginning, and that is nobody's turn of a page.
TEST_F(ResultsFilterTest, PageIsThatOfTheRowAfterTheMatchWindow) {
  modalForms.frmDirMatch = [] {};
  showFiles(150);
  basRedimFilesArrays(FileCount, true);
  DirTable.redim(DirCount, true);
  press(Qt::Key_End);
  ASSERT_EQ(bar().value(), bar().maximum());
  clickCell(1, 1);
  click("cmdSetDir_0");
  click("cmdSetDir_1");
  click("cmdSetDir_2");
  EXPECT_EQ(firstFile(), 1);
  EXPECT_THAT(rows(), testing::Pair(1, 1));
  EXPECT_EQ(bar().value(), 1);
}

TEST_F(ResultsFilterTest, WindowTakesNoInputWhileTheDirectoriesAreRead) {
  showData();
  for (int file = 0; file < 500; ++file)
    disk.file("C:\\keep\\n" + std::to_string(file), "x");
  setBoth();
  int exports = 0;
  modalForms.frmExportResults = [&] { ++exports; };
  int matches = 0;
  modalForms.frmDirMatch = [&] {
    ++matches;
    EXPECT_EQ(form().focusWidget(), &button("cmdSetDir_2"));
  };
  ScanDetailsShown = true;
  int yields = 0;
  eventLoop.onYield = [&] {
    ++yields;
    clickCell(2, 0);
    for (const char* name :
         {"cmdFilter", "cmdOpenFile", "cmdOpenDir", "cmdExport", "cmdAutoResize"})
      quernstoke::click(button(name));
    form().close();
  };
  button("cmdSetDir_2").setFocus();
  click("cmdSetDir_2");
  EXPECT_GT(yields, 0);
  EXPECT_EQ(matches, 1);
  EXPECT_THAT(ticked(), IsEmpty());
  EXPECT_FALSE(isUp("mnuFilterMain"));
  EXPECT_THAT(desk.opened, IsEmpty());
  EXPECT_EQ(exports, 0);
  EXPECT_EQ(button("cmdAutoResize").property("Tag"), "1");
  EXPECT_TRUE(window.isLoaded());
  EXPECT_TRUE(isEnabled("cmdFilter"));
  EXPECT_TRUE(view().hasFocus());
}

}  // namespace
}  // namespace quernstoke
