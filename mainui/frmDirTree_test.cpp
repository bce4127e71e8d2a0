#include "mainui/frmDirTree.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <algorithm>

#include "controls/treeView.h"
#include "controls/units.h"
#include "core/modMain.h"
#include "mainui/modalForms.h"
#include "testing/engineTest.h"
#include "testing/qt/input.h"
#include "testing/qt/person.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DirectoryPicker : public EngineTest {
 protected:
  DirectoryPicker() {
    disk.erase("C:\\Quernstoke");
    disk.directory("C:\\home\\Ann\\Music\\Old");
    disk.directory("C:\\home\\Bob");
    disk.directory("C:\\media");
    desk.driveTexts = {"C: [/]", "D: [/mnt/data]"};
    disk.directory("D:\\Photos\\2004");
  }
  ~DirectoryPicker() override {
    Form::deleteAll();
    settle();
  }

  void show(const std::string& directory, int mode = 0) {
    DialogText = directory;
    DialogValue = mode;
    dialog_ = new forms::frmDirTree;
    dialog_->show();
  }
  void open(const std::string& directory, int mode = 0) {
    show(directory, mode);
    settleAll();
  }
  // With all the look ahead, however busy the machine is.
  void settleAll() {
    settle();
    while (tree().tree().doIdleWork()) {
    }
    settle();
  }
  void openFileList(const std::string& path) { open(path, 1); }

  template <class Widget>
  Widget& control(const char* name) {
    return *dialog_->findChild<Widget*>(name);
  }
  TreeView& tree() { return control<TreeView>("treeDir"); }
  QComboBox& drive() { return control<QComboBox>("drvDrive"); }
  QListWidget& files() { return control<QListWidget>("File1"); }
  std::string path() { return control<QLabel>("labPath").text().toStdString(); }
  void press(const char* name) {
    click(control<QPushButton>(name));
    settle();
  }
  bool isOpen() const { return dialog_ && dialog_->isLoaded(); }
  std::vector<std::string> listed() const { return disk.paths(DiskAction::list); }
  std::ptrdiff_t timesListed(const std::string& path) {
    const std::vector<std::string> paths = listed();
    return std::count(paths.begin(), paths.end(), path);
  }

  // The texts in view, indented by their depth.
  std::vector<std::string> shown() {
    settle();
    std::vector<std::string> texts;
    for (QModelIndex at = tree().model()->index(0, 0); at.isValid(); at = tree().indexBelow(at)) {
      std::string indent;
      for (QModelIndex above = at.parent(); above.isValid(); above = above.parent())
        indent += ' ';
      texts.push_back(indent + at.data().toString().toStdString());
    }
    return texts;
  }
  QModelIndex indexOf(const std::string& text) {
    for (QModelIndex at = tree().model()->index(0, 0); at.isValid(); at = tree().indexBelow(at))
      if (at.data().toString().toStdString() == text) return at;
    ADD_FAILURE() << text << " is not in view";
    return {};
  }
  void clickNode(const std::string& text) {
    click(*tree().viewport(), tree().visualRect(indexOf(text)).center());
    settle();
  }
  std::string selected() {
    const TreeNode* const node = tree().tree().selected();
    return node == nullptr ? "" : fullPath(*node);
  }
  std::vector<std::string> shownFiles() {
    std::vector<std::string> names;
    for (int i = 0; i < files().count(); ++i)
      names.push_back(files().item(i)->text().toStdString());
    return names;
  }
  void chooseDrive(int position) {
    drive().setFocus();
    while (drive().currentIndex() != position)
      pressKey(*dialog_, drive().currentIndex() < position ? Qt::Key_Down : Qt::Key_Up);
    settle();
  }

  QPointer<forms::frmDirTree> dialog_;
};

TEST_F(DirectoryPicker, HasItsCaptions) {
  open("C:\\home");
  EXPECT_EQ(dialog_->windowTitle(), "Choose directory");
  EXPECT_EQ(control<QPushButton>("cmdOK").text(), "OK");
  EXPECT_EQ(control<QPushButton>("cmdCancel").text(), "Cancel");
  EXPECT_EQ(files().property("pattern").toString(), "*.exe;*.com;*.cat;*.cmd");
  EXPECT_FALSE(control<QWidget>("labSizer").isVisible());
  for (const char* name : {"drvDrive", "treeDir", "File1"})
    EXPECT_FALSE(control<QWidget>(name).accessibleName().isEmpty()) << name;
}

TEST_F(DirectoryPicker, OffersTheDrives) {
  open("");
  std::vector<std::string> offered;
  for (int i = 0; i < drive().count(); ++i)
    offered.push_back(drive().itemText(i).toStdString());
  EXPECT_THAT(offered, ElementsAre("C: [/]", "D: [/mnt/data]"));
}

// Where it opens.

TEST_F(DirectoryPicker, OpensOnItsDirectory) {
  open("C:\\home\\Ann");
  EXPECT_THAT(shown(), ElementsAre("C:", " home", "  Ann", "  Bob", " media"));
  EXPECT_EQ(selected(), "C:\\home\\Ann");
  EXPECT_EQ(path(), "C:\\home\\Ann");
  EXPECT_EQ(drive().currentText(), "C: [/]");
}

TEST_F(DirectoryPicker, WithoutADirectoryItOpensOnTheRootOfDriveC) {
  open("");
  EXPECT_THAT(shown(), ElementsAre("C:", " home", " media"));
  EXPECT_EQ(selected(), "");
  press("cmdOK");
  EXPECT_EQ(DialogText, "c:\\");
}

// The change of the drive fills the tree, and it is filled only once.
TEST_F(DirectoryPicker, OpensAtTheRootOfAnotherDrive) {
  open("d:\\Photos\\2004");
  EXPECT_EQ(drive().currentText(), "D: [/mnt/data]");
  EXPECT_THAT(shown(), ElementsAre("D:", " Photos"));
  EXPECT_EQ(selected(), "");
  EXPECT_EQ(path(), "D:");
  EXPECT_EQ(timesListed("D:"), 1);
  press("cmdOK");
  EXPECT_EQ(DialogText, "D:");
}

TEST_F(DirectoryPicker, OpensBeforeItLooksAhead) {
  show("C:\\home\\Ann");
  EXPECT_THAT(listed(), ElementsAre("C:", "C:\\home"));
  settleAll();
  EXPECT_THAT(listed(), testing::IsSupersetOf({"C:\\media", "C:\\home\\Bob", "C:\\home\\Ann",
                                               "C:\\home\\Ann\\Music"}));
  EXPECT_EQ(timesListed("C:\\home\\Ann\\Music\\Old"), 0);
}

TEST_F(DirectoryPicker, ClosedWhileItLooksAheadItReadsNoMore) {
  show("C:\\home\\Ann");
  dialog_->close();
  settle();
  EXPECT_THAT(listed(), ElementsAre("C:", "C:\\home"));
}

TEST_F(DirectoryPicker, ADirectoryThatIsNotThereOpensAsFarAsItLeads) {
  open("C:\\home\\Ann\\gone\\deeper");
  EXPECT_THAT(shown(), ElementsAre("C:", " home", "  Ann", "   Music", "  Bob", " media"));
  EXPECT_EQ(selected(), "");
  press("cmdOK");
  EXPECT_EQ(DialogText, "C:\\home\\Ann\\gone\\deeper");
}

TEST_F(DirectoryPicker, LetterCaseOfTheDirectoryDoesNotMatter) {
  open("C:\\HOME\\ann");
  EXPECT_EQ(selected(), "C:\\home\\Ann");
  EXPECT_EQ(path(), "C:\\HOME\\ann");
}

TEST_F(DirectoryPicker, ADriveThatIsNotThereLeavesTheFirst) {
  open("Q:\\a");
  EXPECT_EQ(drive().currentText(), "C: [/]");
  EXPECT_THAT(shown(), ElementsAre("C:"));
  press("cmdOK");
  EXPECT_EQ(DialogText, "Q:\\a");
}

TEST_F(DirectoryPicker, ATextWithoutADriveLeavesTheFirst) {
  open("data");
  EXPECT_EQ(drive().currentText(), "C: [/]");
  EXPECT_THAT(shown(), ElementsAre("C:"));
  EXPECT_EQ(path(), "data");
  press("cmdOK");
  EXPECT_EQ(DialogText, "data");
}

TEST_F(DirectoryPicker, OfAnEmptyDiskTheDirectoryComesBackAsItWas) {
  for (const char* name : {"C:\\home", "C:\\media"})
    disk.erase(name);
  open("C:\\home");
  EXPECT_THAT(shown(), ElementsAre("C:"));
  EXPECT_FALSE(tree().isExpanded(indexOf("C:")));
  press("cmdOK");
  EXPECT_EQ(DialogText, "C:\\home");
}

TEST_F(DirectoryPicker, ALongPathIsMadeToFit) {
  std::string deep = "C:\\home";
  for (int i = 0; i < 12; ++i)
    deep += "\\directory number " + std::to_string(i);
  open(deep);
  EXPECT_THAT(path(), testing::StartsWith("C:\\...\\"));
  EXPECT_THAT(path(), testing::EndsWith("\\directory number 11"));
  press("cmdOK");
  EXPECT_EQ(DialogText, deep);
}

// Choosing.

TEST_F(DirectoryPicker, AClickChoosesADirectory) {
  open("C:\\home\\Ann");
  clickNode("Bob");
  EXPECT_EQ(path(), "C:\\home\\Bob");
  press("cmdOK");
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(DialogText, "C:\\home\\Bob");
}

TEST_F(DirectoryPicker, AClickOnTheSelectedNodeTakesItsNameInItsOwnCase) {
  open("c:\\HOME");
  clickNode("home");
  press("cmdOK");
  EXPECT_EQ(DialogText, "C:\\home");
}

TEST_F(DirectoryPicker, TheRootIsChosenAsItsDrive) {
  open("C:\\home");
  clickNode("C:");
  press("cmdOK");
  EXPECT_EQ(DialogText, "C:");
}

TEST_F(DirectoryPicker, OpeningADirectoryChoosesNothing) {
  open("C:\\media");
  tree().expand(indexOf("home"));
  EXPECT_THAT(shown(), ElementsAre("C:", " home", "  Ann", "  Bob", " media"));
  press("cmdOK");
  EXPECT_EQ(DialogText, "C:\\media");
}

TEST_F(DirectoryPicker, AClickedNodeOpensItsImageWhileItIsSelected) {
  open("C:\\home");
  const auto image = [&](const char* text) {
    return indexOf(text).data(Qt::DecorationRole).value<QIcon>().pixmap(16).toImage();
  };
  EXPECT_NE(image("C:"), image("home"));
  EXPECT_EQ(image("home"), image("media"));
  const QImage closed = image("media");
  clickNode("media");
  EXPECT_NE(image("media"), closed);
  clickNode("home");
  EXPECT_EQ(image("media"), closed);
}

TEST_F(DirectoryPicker, TheKeyboardAloneWillDo) {
  open("C:\\home");
  EXPECT_EQ(dialog_->focusWidget(), &tree());
  pressKey(*dialog_, Qt::Key_Right);
  pressKey(*dialog_, Qt::Key_Down);
  pressKey(*dialog_, Qt::Key_Down);
  EXPECT_EQ(path(), "C:\\home\\Bob");
  pressKey(*dialog_, Qt::Key_Return);
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(DialogText, "C:\\home\\Bob");
}

TEST_F(DirectoryPicker, AnotherDriveStartsFromItsRootAndIsChosen) {
  open("C:\\home\\Ann");
  chooseDrive(1);
  EXPECT_THAT(shown(), ElementsAre("D:", " Photos"));
  EXPECT_EQ(path(), "D:");
  press("cmdOK");
  EXPECT_EQ(DialogText, "D:");
}

TEST_F(DirectoryPicker, GoingBackToADriveReadsItAnew) {
  open("C:\\home\\Ann");
  chooseDrive(1);
  disk.directory("C:\\new");
  chooseDrive(0);
  EXPECT_THAT(shown(), ElementsAre("C:", " home", " media", " new"));
  EXPECT_EQ(selected(), "");
}

TEST_F(DirectoryPicker, OpeningANodeReadsTwoLevelsFurther) {
  disk.directory("C:\\media\\a\\b\\c\\d");
  open("C:\\");
  disk.calls.clear();
  tree().expand(indexOf("media"));
  settleAll();
  EXPECT_THAT(listed(), ElementsAre("C:\\media\\a", "C:\\media\\a\\b"));
}

// Leaving.

TEST_F(DirectoryPicker, CancelAndEscapeChooseNothing) {
  const std::vector<std::function<void()>> ways = {[&] { press("cmdCancel"); },
                                                   [&] { pressKey(*dialog_, Qt::Key_Escape); }};
  for (const auto& leave : ways) {
    open("C:\\home");
    clickNode("media");
    leave();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(DialogText, "");
    settle();
  }
}

// So the field of whoever has asked keeps what it shows.
TEST_F(DirectoryPicker, TheCloseBoxLeavesTheDirectoryAsItWas) {
  open("C:\\home");
  clickNode("media");
  dialog_->close();
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(DialogText, "C:\\home");
}

TEST_F(DirectoryPicker, RunsUntilItIsClosed) {
  DialogText = "C:\\home";
  auto* const dialog = new forms::frmDirTree;
  QTimer::singleShot(0, dialog, [&] { dialog->findChild<QPushButton*>("cmdOK")->click(); });
  dialog->showModal();
  EXPECT_TRUE(dialog->isUnloaded());
  EXPECT_TRUE(dialog->findChild<TreeView*>("treeDir")->tree().isEmpty());
  EXPECT_EQ(DialogText, "C:\\home");
}

TEST_F(DirectoryPicker, EachOpeningReadsTheDiskAnew) {
  open("C:\\home");
  press("cmdOK");
  settle();
  disk.directory("C:\\new");
  open("C:\\home");
  EXPECT_THAT(shown(), ElementsAre("C:", " home", " media", " new"));
}

// The file list.

TEST_F(DirectoryPicker, InThePlainModeThereIsNoFileList) {
  disk.file("C:\\home\\play.exe", "");
  for (const int mode : {0, -1, 2}) {
    open("C:\\home", mode);
    EXPECT_EQ(selected(), "C:\\home");
    EXPECT_THAT(shownFiles(), IsEmpty());
    EXPECT_FALSE(files().isVisible());
    EXPECT_EQ(dialog_->width(), tree().width() + 2 * tree().x() + pixelsFromTwips(100));
    press("cmdCancel");
    settle();
  }
}

TEST_F(DirectoryPicker, InTheFileListModeItOpensOnTheDirectoryOfThePath) {
  for (const char* name : {"b.EXE", "a.com", "c.cat", "d.cmd", "e.txt"})
    disk.file(std::string("C:\\home\\Ann\\") + name, "");
  openFileList("C:\\home\\Ann\\anything");
  EXPECT_EQ(selected(), "C:\\home\\Ann");
  EXPECT_THAT(shownFiles(), ElementsAre("a.com", "b.EXE", "c.cat", "d.cmd"));
  EXPECT_TRUE(files().isVisible());
  EXPECT_EQ(dialog_->width(), tree().x() + files().x() + files().width() + pixelsFromTwips(100));
  EXPECT_GE(files().x(), tree().x() + tree().width());
}

// A directory at the root has only the drive above it, which is no path yet.
TEST_F(DirectoryPicker, InTheFileListModeAPathWithoutADirectoryOpensOnTheProgram) {
  AppPath = "C:\\home\\Bob";
  for (const char* path : {"C:\\home", "home", ""}) {
    openFileList(path);
    EXPECT_EQ(selected(), "C:\\home\\Bob") << path;
    press("cmdOK");
    EXPECT_EQ(DialogText, "C:\\home\\Bob");
    settle();
  }
}

TEST_F(DirectoryPicker, TheFileListFollowsTheClickedNode) {
  disk.file("C:\\media\\play.exe", "");
  openFileList("C:\\home\\Ann");
  EXPECT_THAT(shownFiles(), IsEmpty());
  clickNode("media");
  EXPECT_THAT(shownFiles(), ElementsAre("play.exe"));
}

TEST_F(DirectoryPicker, AFileThatIsChosenIsNotReturned) {
  disk.file("C:\\home\\play.exe", "");
  openFileList("C:\\home\\Ann");
  files().setCurrentRow(0);
  press("cmdOK");
  EXPECT_EQ(DialogText, "C:\\home");
}

TEST_F(DirectoryPicker, WithoutASelectedNodeTheFileListIsEmpty) {
  disk.file("C:\\play.exe", "");
  openFileList("C:\\gone\\file");
  EXPECT_THAT(shownFiles(), IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// What can't be read.

TEST_F(DirectoryPicker, AClickOnAnUnreadableDirectoryChoosesItWithoutAWord) {
  disk.file("C:\\home\\play.exe", "");
  openFileList("C:\\home\\Ann");
  disk.erase("C:\\media");
  clickNode("media");
  EXPECT_EQ(path(), "C:\\media");
  EXPECT_THAT(shownFiles(), ElementsAre("play.exe"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirectoryPicker, AFailedLoadIsReported) {
  const auto expectReport = [this](const std::string& name, const std::string& reason) {
    EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError(name, reason)));
    dialogBoxes.messages.clear();
  };
  disk.before = [&](const DiskCall& call) {
    if (call.action == DiskAction::list && call.path == "C:\\home\\Ann")
      disk.failOn(DiskAction::list, call.path, FailureNumber::permissionDenied);
  };
  openFileList("C:\\home\\Ann\\file");
  expectReport("Form_Load", "Permission denied(70)");
  disk.before = nullptr;
  press("cmdCancel");
  settle();

  desk.failure = FailureNumber::deviceError;
  open("C:\\home");
  expectReport("Form_Load", "Device I/O error(57)");
}

TEST_F(DirectoryPicker, LeavesTheOtherHalfOfTheDialogueAsItWas) {
  for (const char* way : {"cmdOK", "cmdCancel"}) {
    open("C:\\home", 0);
    DialogValue = 7;
    press(way);
    EXPECT_EQ(DialogValue, 7) << way;
  }
}

// Its looks.

TEST_F(DirectoryPicker, NoControlCoversAnotherOrReachesBeyondTheWindow) {
  for (const int mode : {0, 1}) {
    open("C:\\home\\Ann", mode);
    std::vector<QRect> places;
    for (const char* name : {"drvDrive", "treeDir", "File1", "labPath", "cmdOK", "cmdCancel"}) {
      const QWidget& widget = control<QWidget>(name);
      if (!widget.isVisible()) continue;
      EXPECT_TRUE(dialog_->rect().contains(widget.geometry())) << name;
      for (const QRect& other : places)
        EXPECT_FALSE(widget.geometry().intersects(other)) << name;
      places.push_back(widget.geometry());
    }
    EXPECT_EQ(drive().width(), tree().width());
    press("cmdCancel");
    settle();
  }
}

TEST_F(DirectoryPicker, FitsTheSmallScreen) {
  openFileList("C:\\home\\Ann");
  const QSize least = dialog_->minimumSizeHint();
  EXPECT_LE(least.width(), 800);
  EXPECT_LE(least.height(), 400);
}

TEST_F(DirectoryPicker, GivesTheTreeTheHeightItIsResizedTo) {
  open("C:\\home");
  const int before = tree().height();
  dialog_->resize(dialog_->width(), dialog_->height() + 200);
  settle();
  EXPECT_EQ(tree().height(), before + 200);
}

TEST_F(DirectoryPicker, TabGoesThroughItInOrder) {
  openFileList("C:\\home\\Ann");
  drive().setFocus();
  std::vector<std::string> order;
  for (int times = 0; times < 6; ++times) {
    order.push_back(dialog_->focusWidget()->objectName().toStdString());
    pressKey(*dialog_, Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("drvDrive", "treeDir", "File1", "cmdOK", "cmdCancel", "drvDrive"));
  EXPECT_EQ(path(), "C:\\home");
}

TEST_F(DirectoryPicker, TheWheelPassesTheDrive) {
  open("C:\\home");
  turnWheel(drive(), -1);
  EXPECT_EQ(drive().currentIndex(), 0);
}

}  // namespace
}  // namespace quernstoke
