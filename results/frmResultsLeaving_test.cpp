// The way out of the results window, and what it tells of its failures.

#include <QApplication>
#include <functional>
#include <optional>

#include "catalogue/dirTable.h"
#include "catalogue/snapshots.h"
#include "results/frmResultsTest.h"
#include "settings/profileStore.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(ResultsWindowTest, ClosingWritesTheListAndShowsTheMainWindow) {
  showFiles(4);
  clickCell(1, 0);
  windows.clear();
  click("cmdClose");
  EXPECT_FALSE(window.isLoaded());
  EXPECT_THAT(windows, ElementsAre("frmMain show"));
  EXPECT_TRUE(disk.exists(ProfilesDir + "\\Music.files"));
  EXPECT_TRUE(disk.exists(ProfilesDir + "\\Music.dir"));
}

TEST_F(ResultsWindowTest, EscapeAndTheCloseBoxTakeTheSameWay) {
  for (const bool byBox : {false, true}) {
    showFiles(4);
    windows.clear();
    if (byBox)
      form().close();
    else
      press(Qt::Key_Escape);
    settle();
    EXPECT_FALSE(window.isLoaded());
    EXPECT_THAT(windows, ElementsAre("frmMain show"));
  }
}

TEST_F(ResultsWindowTest, ClosingRemovesCopiesOfZipEntries) {
  showFiles(4);
  const std::string copy = TempDir + "\\song.mp3";
  disk.file(copy, "copy");
  FileTable.FileLocalName.set(2, copy);
  click("cmdClose");
  EXPECT_FALSE(disk.exists(copy));
}

TEST_F(ResultsWindowTest, PreviousResultsShowTicksAndDeletionsAndCanBeWorkedOn) {
  showFiles(6);
  clickCell(1, 0);
  const std::string tickedName = text(1, 1);
  clickCell(3, 1);
  const std::string deletedName = text(3, 1);
  click("cmdDeleteFile_0");
  click("cmdClose");

  FileCount = DirCount = 0;
  basRedimFilesArrays(10, false);
  ASSERT_TRUE(basLoadFilesList());
  basLoadDirTable();
  show();
  EXPECT_THAT(ticked(), ElementsAre(tickedName));
  for (Int32 row = 1; row <= 6; ++row)
    EXPECT_EQ(grid().cell(row, 1).strikeThrough, grid().cell(row, 1).text == deletedName);
  dialogBoxes.answers = {Answer::yes};
  click("cmdDeleteFile_1");
  EXPECT_FALSE(onDisk(tickedName));
}

// The main window yields while it loads, and what waited in the queue comes in.
class ResultsLeavingTest : public ResultsWindowTest {
 protected:
  ResultsLeavingTest() {
    platform.frmMain = &yieldingWindow;
    usePlatform(platform);
  }

  class YieldingMainWindow : public ScriptedMainWindow {
   public:
    using ScriptedMainWindow::ScriptedMainWindow;
    std::function<void()> onShow;
    void show() override {
      ScriptedMainWindow::show();
      onShow();
    }
  };
  YieldingMainWindow yieldingWindow{windows};
};

TEST_F(ResultsLeavingTest, NothingCanBeDoneInAWindowThatIsLeft) {
  int exports = 0;
  modalForms.frmExportResults = [&] { ++exports; };
  yieldingWindow.onShow = [&] {
    EXPECT_TRUE(form().isVisible());
    quernstoke::click(cells(), cellCentre(2, 0));
    for (const char* name : {"cmdExport", "cmdOpenFile", "cmdDeleteFile_0", "cmdClose"})
      quernstoke::click(button(name));
  };
  showFiles(4);
  click("cmdClose");
  EXPECT_THAT(ticked(), IsEmpty());
  EXPECT_EQ(exports, 0);
  EXPECT_THAT(desk.opened, IsEmpty());
  for (const char* name : {"f1", "f2", "f3", "f4"})
    EXPECT_TRUE(onDisk(name));
  EXPECT_THAT(windows, ElementsAre("frmMain show"));
}

TEST_F(ResultsLeavingTest, MainWindowComesWhenTheListIsWritten) {
  int shown = 0;
  yieldingWindow.onShow = [&] {
    ++shown;
    EXPECT_TRUE(disk.exists(ProfilesDir + "\\Music.files"));
    EXPECT_TRUE(disk.exists(ProfilesDir + "\\Music.dir"));
  };
  showFiles(4);
  click("cmdClose");
  EXPECT_EQ(shown, 1);
}

TEST_F(ResultsLeavingTest, MainWindowFindsAPermanentExclusionInTheProfile) {
  makeProfile("Music");
  modalForms.frmDirParent = [] { DialogValue2 = 1; };
  std::string excluded;
  yieldingWindow.onShow = [&] {
    basLoadProfile("PROFILE");
    excluded = ProfileDirList[1].Dir + ProfileDirList[1].IncludeExclude;
  };
  show({{"a", "C:\\one", 1, 0}, {"b", "C:\\one", 1, 0}, {"c", "C:\\two", 1, 0}});
  rightClickRow(1);
  chooseItem("mnuFilterDirectory");
  const std::string directory = ProfileDirList[1].Dir;
  EXPECT_FALSE(directory.empty());
  click("cmdClose");
  EXPECT_EQ(excluded, directory + "E");
}

TEST_F(ResultsLeavingTest, ProfileIsNotWrittenWithoutAnExclusion) {
  makeProfile("Music");
  ProfileDirList[1].Dir = "C:\\not saved";
  yieldingWindow.onShow = [] { basLoadProfile("PROFILE"); };
  showFiles(4);
  click("cmdClose");
  EXPECT_EQ(ProfileDirList[1].Dir, "");
}

TEST_F(ResultsWindowTest, EmptyListIsLeftByEscape) {
  buildCatalogue({});
  show();
  press(Qt::Key_Escape);
  EXPECT_FALSE(window.isLoaded());
}

// Lets a step of a handler fail: the one in which an event of a type reaches a control.
class FailingStep : public QObject {
 public:
  FailingStep(QObject& control, QEvent::Type type) : type_(type) {
    control.installEventFilter(this);
  }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == type_) fail(FailureNumber::permissionDenied);
    return false;
  }

 private:
  QEvent::Type type_;
};

class ResultsFailureTest : public ResultsLeavingTest {
 protected:
  static std::string report(const std::string& procedure) {
    return procedureError(procedure, "Permission denied(70)");
  }
  // Marks a control as changed by the program and lets the mark not be taken off.
  void breakMarkOf(QObject& control) {
    control.setProperty("Tag", "IGNORE");
    step.emplace(control, QEvent::DynamicPropertyChange);
  }
  std::optional<FailingStep> step;
};

TEST_F(ResultsFailureTest, LoadIsReported) {
  auto* const loading = new forms::frmResults;
  step.emplace(*loading->findChild<QComboBox*>("cboView"), QEvent::DynamicPropertyChange);
  loading->load();
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(report("Form_Load")));
}

TEST_F(ResultsFailureTest, ActivationIsReported) {
  showFiles(4);
  breakMarkOf(form());
  QEvent activation(QEvent::WindowActivate);
  QApplication::sendEvent(&form(), &activation);
  settle();
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(report("Form_Activate")));
}

TEST_F(ResultsFailureTest, ResizeIsReported) {
  showFiles(4);
  breakMarkOf(form());
  resizeTo(900, 500);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(report("Form_Resize")));
}

TEST_F(ResultsFailureTest, LayoutIsReported) {
  showFiles(4);
  step.emplace(view(), QEvent::Resize);
  resizeTo(900, 500);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(report("basPositionFormObjects")));
}

TEST_F(ResultsFailureTest, ChoicesAreReported) {
  showFiles(4);
  for (const std::string list : {"cboGroup", "cboView"}) {
    dialogBoxes.messages.clear();
    breakMarkOf(control<QComboBox>(list.c_str()));
    choose(list.c_str(), 1);
    EXPECT_THAT(dialogBoxes.messages, ElementsAre(report(list + "_Click")));
  }
}

TEST_F(ResultsFailureTest, HelpIsReported) {
  showFiles(4);
  step.emplace(control<QWidget>("fraHelp"), QEvent::Show);
  click("cmdSHowHideHelp");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(report("cmdShowHideHelp_Click")));
}

TEST_F(ResultsFailureTest, StatusBarIsReported) {
  showFiles(4);
  control<PanelStatusBar>("sbarStatus").setPanelCount(1);
  press(Qt::Key_Home);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basUpdateStatusBar", "Subscript out of range(9)")));
}

TEST_F(ResultsFailureTest, LeavingIsReported) {
  yieldingWindow.onShow = [] { fail(FailureNumber::permissionDenied); };
  showFiles(4);
  click("cmdClose");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(report("Form_Unload")));
  EXPECT_FALSE(window.isLoaded());
}

TEST_F(ResultsWindowTest, FailureToWriteIsToldAndTheMainWindowComesAllTheSame) {
  showFiles(4);
  disk.failOn(DiskAction::open, ProfilesDir + "\\Music.files", FailureNumber::diskFull);
  windows.clear();
  click("cmdClose");
  EXPECT_THAT(dialogBoxes.messages, testing::SizeIs(1));
  EXPECT_THAT(windows, ElementsAre("frmMain show"));
}

}  // namespace
}  // namespace quernstoke
