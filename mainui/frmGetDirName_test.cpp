#include "mainui/frmGetDirName.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QRadioButton>

#include "mainui/modalForms.h"
#include "settings/profileStore.h"
#include "settings/settings.h"
#include "testing/engineTest.h"
#include "testing/qt/input.h"
#include "testing/qt/person.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DirectoryDialog : public EngineTest {
 protected:
  DirectoryDialog() {
    basDefaultProfile("GLOBAL", "");
    allocateProfileDirList();
    disk.directory("C:\\Photos");
    disk.directory("C:\\Music");
  }
  ~DirectoryDialog() override {
    Form::deleteAll();
    settle();
  }

  void open(int slot) {
    DialogValue = slot;
    dialog_ = new forms::frmGetDirName;
    dialog_->show();
    settle();
  }
  void add() { open(-1); }

  template <class Widget>
  Widget& control(const char* name) {
    return *dialog_->findChild<Widget*>(name);
  }
  QRadioButton& option(int index) {
    return control<QRadioButton>(("optIncludeExclude_" + std::to_string(index)).c_str());
  }
  QLineEdit& directory(int index) {
    return control<QLineEdit>(("txtDirectory_" + std::to_string(index)).c_str());
  }
  QComboBox& types() { return control<QComboBox>("cboFileTypeList"); }
  QCheckBox& recurse() { return control<QCheckBox>("chkScanSubdir"); }
  void choose(int index) { click(option(index), {8, option(index).height() / 2}); }
  void press(const char* name) { click(control<QAbstractButton>(name)); }
  bool isVisible(const char* name) { return control<QWidget>(name).isVisible(); }
  void type(QWidget& field, const QString& text) {
    field.setFocus();
    pressKey(*dialog_, Qt::Key_A, Qt::ControlModifier);
    typeText(*dialog_, text);
  }
  bool isOpen() const { return dialog_ && dialog_->isLoaded(); }
  // The options that are selected, as digits.
  std::string selected() {
    std::string digits;
    for (int index = 0; index < 3; ++index)
      if (option(index).isChecked()) digits += std::to_string(index);
    return digits;
  }
  static std::vector<std::string> slot(int number) {
    const DirSpec& spec = ProfileDirList[number];
    return {spec.Dir, spec.IncludeExclude, spec.IncludeExtensions,
            spec.RecurseSubDirs ? "recurse" : ""};
  }
  static auto isSlot(const char* dir, const char* kind, const char* extensions,
                     const char* recursing) {
    return ElementsAre(dir, kind, extensions, recursing);
  }

  QPointer<forms::frmGetDirName> dialog_;
};

TEST_F(DirectoryDialog, HasItsCaptionsAndDefaults) {
  add();
  EXPECT_EQ(dialog_->windowTitle(), "Enter directory name");
  for (const auto& [name, caption] : std::vector<std::pair<const char*, const char*>>{
           {"optIncludeExclude_0", "Include this directory"},
           {"optIncludeExclude_1", "Exclude this directory"},
           {"optIncludeExclude_2", "Exclude comparisons between two directories"},
           {"cmdBrowse_0", "..."},
           {"cmdBrowse_1", "..."},
           {"chkScanSubdir", "Scan Sub directories"},
           {"cmdEditTypes", "..."},
           {"cmdOK", "OK"},
           {"cmdCancel", "Cancel"}})
    EXPECT_EQ(control<QAbstractButton>(name).text(), caption);
  for (const char* name : {"labDirectory_0", "labDirectory_1"})
    EXPECT_EQ(control<QLabel>(name).text(), "Directory:");
  EXPECT_EQ(control<QLabel>("labFileTypes").text(), "File Types:");
  EXPECT_EQ(selected(), "0");
  EXPECT_EQ(directory(0).text(), "");
  EXPECT_EQ(directory(1).text(), "");
  EXPECT_TRUE(recurse().isChecked());
  EXPECT_TRUE(types().isEditable());
  for (const char* name : {"cmdBrowse_0", "cmdBrowse_1", "cmdEditTypes"})
    EXPECT_FALSE(control<QWidget>(name).accessibleName().isEmpty());
  EXPECT_EQ(forms::frmGetDirName().findChild<QComboBox*>("cboFileTypeList")->currentText(),
            "cboFileTypeList");
}

TEST_F(DirectoryDialog, OffersTheFileTypesFromTheFirst) {
  add();
  std::vector<std::string> offered;
  for (int i = 0; i < types().count(); ++i)
    offered.push_back(types().itemText(i).toStdString());
  EXPECT_THAT(offered, ElementsAre("All files", "Music", "Video", "Documents", "Images"));
  EXPECT_EQ(types().currentText(), "All files");
}

TEST_F(DirectoryDialog, ShowsWhatBelongsToTheOption) {
  add();
  for (const int index : {1, 0, 2, 0, 1}) {
    choose(index);
    for (const char* name : {"cboFileTypeList", "labFileTypes", "cmdEditTypes"})
      EXPECT_EQ(isVisible(name), index == 0) << index << name;
    EXPECT_EQ(isVisible("fraDir2"), index == 2) << index;
    for (int other = 0; other < 3; ++other)
      EXPECT_TRUE(option(other).isEnabled());
  }
}

TEST_F(DirectoryDialog, FieldsBeginBelowEachOther) {
  add();
  const auto left = [this](const char* name) {
    return control<QWidget>(name).mapTo(dialog_, QPoint()).x();
  };
  EXPECT_EQ(left("cboFileTypeList"), left("txtDirectory_0"));
  choose(2);
  dialog_->layout()->activate();
  EXPECT_EQ(left("txtDirectory_1"), left("txtDirectory_0"));
}

TEST_F(DirectoryDialog, AddsAnIncludedDirectory) {
  add();
  type(directory(0), "C:\\Photos");
  press("cmdOK");
  EXPECT_FALSE(isOpen());
  EXPECT_THAT(slot(1), isSlot("C:\\Photos", "I", "1", "recurse"));
  EXPECT_EQ(DialogValue, -1);  // As it was on opening.
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirectoryDialog, AddsWithTheFileTypeChosen) {
  FileTypeTable.FileTypeDescription[2].clear();  // Its row stays out of the list.
  add();
  type(directory(0), "C:\\Photos");
  types().setCurrentIndex(types().findText("Video"));
  recurse().setChecked(false);
  press("cmdOK");
  EXPECT_THAT(slot(1), isSlot("C:\\Photos", "I", "3", ""));
}

TEST_F(DirectoryDialog, AddsAnExcludedDirectory) {
  add();
  choose(1);
  type(directory(0), "C:\\Photos");
  press("cmdOK");
  EXPECT_THAT(slot(1), isSlot("C:\\Photos", "E", "", "recurse"));
}

TEST_F(DirectoryDialog, AddsAPair) {
  setDirectory(1, "C:\\A", "I");
  add();
  choose(2);
  type(directory(0), "C:\\Photos");
  type(directory(1), "C:\\Music");
  recurse().setChecked(false);
  press("cmdOK");
  EXPECT_THAT(slot(2), isSlot("C:\\Photos", "1", "", ""));
  EXPECT_THAT(slot(3), isSlot("C:\\Music", "2", "", ""));
}

// A gap is filled; what stands behind it gives way.
TEST_F(DirectoryDialog, APairOverwritesTheSlotBehindTheFirstFreeOne) {
  setDirectory(1, "C:\\A", "I");
  setDirectory(3, "C:\\C", "I");
  add();
  choose(2);
  type(directory(0), "C:\\Photos");
  type(directory(1), "C:\\Music");
  press("cmdOK");
  EXPECT_THAT(slot(2), isSlot("C:\\Photos", "1", "", "recurse"));
  EXPECT_THAT(slot(3), isSlot("C:\\Music", "2", "*.*", "recurse"));
}

TEST_F(DirectoryDialog, AFullListGrows) {
  for (int number = 1; number <= lastDirSlot; ++number)
    setDirectory(number, "C:\\D", "I");
  add();
  type(directory(0), "C:\\Photos");
  press("cmdOK");
  EXPECT_EQ(ProfileDirList[129].Dir, "C:\\Photos");
  EXPECT_EQ(ProfileDirList[128].Dir, "C:\\D");
  EXPECT_EQ(ProfileDirList.upperBound(), 129 + 65);
}

TEST_F(DirectoryDialog, APairInTheLastSlotHasNoRoomForItsLowerHalf) {
  for (int number = 1; number < lastDirSlot; ++number)
    setDirectory(number, "C:\\D", "I");
  add();
  choose(2);
  type(directory(0), "C:\\Photos");
  type(directory(1), "C:\\Music");
  press("cmdOK");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basSaveValues", "Subscript out of range(9)")));
  EXPECT_EQ(ProfileDirList[128].IncludeExclude, "1");
  EXPECT_FALSE(isOpen());
}

TEST_F(DirectoryDialog, SwitchingOptionsKeepsTheDirectoriesAndRenewsTheFileTypes) {
  add();
  type(directory(0), "C:\\Photos");
  type(types(), "*.x");
  choose(2);
  type(directory(1), "C:\\Music");
  choose(0);
  EXPECT_EQ(directory(0).text(), "C:\\Photos");
  EXPECT_EQ(directory(1).text(), "C:\\Music");
  EXPECT_EQ(types().currentText(), "All files");
}

TEST_F(DirectoryDialog, WithoutADirectoryOkIsACancel) {
  setDirectory(1, "C:\\Photos", "I", true, "2");
  open(1);
  directory(0).clear();
  recurse().setChecked(false);
  press("cmdOK");
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(DialogValue, -1);
  EXPECT_THAT(slot(1), isSlot("C:\\Photos", "I", "2", "recurse"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirectoryDialog, ADirectoryMustBeThere) {
  add();
  type(directory(0), "C:\\Nowhere");
  press("cmdOK");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Directory C:\\Nowhere doesn't exist"));
  EXPECT_TRUE(isOpen());
  EXPECT_TRUE(directory(0).hasFocus());
  EXPECT_EQ(ProfileDirList[1].Dir, "");
}

TEST_F(DirectoryDialog, TheSecondDirectoryOfAPairMustBeThereToo) {
  add();
  choose(2);
  type(directory(0), "C:\\Photos");
  press("cmdOK");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Directory  doesn't exist"));
  EXPECT_TRUE(directory(1).hasFocus());
  type(directory(1), "C:\\No");
  press("cmdOK");
  EXPECT_EQ(dialogBoxes.messages.back(), "Directory C:\\No doesn't exist");
  EXPECT_TRUE(isOpen());
}

TEST_F(DirectoryDialog, TheSecondDirectoryIsOfNoConcernElse) {
  add();
  choose(2);
  type(directory(1), "C:\\Nowhere");
  choose(1);
  type(directory(0), "C:\\Photos");
  press("cmdOK");
  EXPECT_FALSE(isOpen());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirectoryDialog, CancelWritesNothing) {
  add();
  type(directory(0), "C:\\Photos");
  DialogValue = 7;
  press("cmdCancel");
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(DialogValue, -1);
  EXPECT_EQ(ProfileDirList[1].Dir, "");
}

TEST_F(DirectoryDialog, EscapeCancelsAndEnterConfirms) {
  add();
  type(directory(0), "C:\\Photos");
  pressKey(*dialog_, Qt::Key_Escape);
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(ProfileDirList[1].Dir, "");
  settle();
  add();
  type(directory(0), "C:\\Photos");
  pressKey(*dialog_, Qt::Key_Return);
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(ProfileDirList[1].Dir, "C:\\Photos");
}

TEST_F(DirectoryDialog, EnterInTheFileTypesConfirmsWhatWasTyped) {
  add();
  type(directory(0), "C:\\Photos");
  type(types(), "*.txt;*.log");
  pressKey(*dialog_, Qt::Key_Return);
  EXPECT_FALSE(isOpen());
  EXPECT_THAT(slot(1), isSlot("C:\\Photos", "I", "*.txt;*.log", "recurse"));
}

TEST_F(DirectoryDialog, TheCloseBoxWritesNothing) {
  setDirectory(2, "C:\\Photos", "I");
  open(2);
  directory(0).setText("C:\\Music");
  dialog_->close();
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(ProfileDirList[2].Dir, "C:\\Photos");
  EXPECT_EQ(DialogValue, 2);
}

TEST_F(DirectoryDialog, EditsAnIncludedDirectoryWhoseKindStays) {
  setDirectory(2, "C:\\Photos", "I", false, "3");
  open(2);
  EXPECT_EQ(selected(), "0");
  EXPECT_EQ(directory(0).text(), "C:\\Photos");
  EXPECT_FALSE(recurse().isChecked());
  EXPECT_EQ(types().currentText(), "Video");
  for (int index = 0; index < 3; ++index)
    EXPECT_FALSE(option(index).isEnabled()) << index;
  choose(1);
  EXPECT_EQ(selected(), "0");
  type(directory(0), "C:\\Music");
  recurse().setChecked(true);
  press("cmdOK");
  EXPECT_THAT(slot(2), isSlot("C:\\Music", "I", "3", "recurse"));
  EXPECT_EQ(ProfileDirList[1].Dir, "");
}

TEST_F(DirectoryDialog, EditsAnExcludedDirectory) {
  setDirectory(1, "C:\\Photos", "E", true, "2");
  open(1);
  EXPECT_EQ(selected(), "1");
  EXPECT_FALSE(isVisible("cboFileTypeList"));
  press("cmdOK");
  EXPECT_THAT(slot(1), isSlot("C:\\Photos", "E", "", "recurse"));
}

TEST_F(DirectoryDialog, EitherHalfOpensThePair) {
  for (const int half : {2, 3}) {
    setDirectory(2, "C:\\Photos", "1", false);
    setDirectory(3, "C:\\Music", "2", true);
    open(half);
    EXPECT_EQ(selected(), "2");
    EXPECT_TRUE(isVisible("fraDir2"));
    EXPECT_EQ(directory(0).text(), "C:\\Photos");
    EXPECT_EQ(directory(1).text(), "C:\\Music");
    EXPECT_FALSE(recurse().isChecked());
    directory(1).setText("C:\\");
    press("cmdOK");
    EXPECT_THAT(slot(2), isSlot("C:\\Photos", "1", "", ""));
    EXPECT_THAT(slot(3), isSlot("C:\\", "2", "*.*", ""));
    settle();
  }
}

// A list may come from an earlier version or a person's hand.
TEST_F(DirectoryDialog, AnUpperHalfMakesTheNextSlotItsLowerHalfAtOnce) {
  setDirectory(1, "C:\\Photos", "1");
  setDirectory(2, "C:\\Music", "I");
  open(1);
  EXPECT_EQ(directory(1).text(), "C:\\Music");
  press("cmdCancel");
  EXPECT_THAT(slot(1), isSlot("C:\\Photos", "1", "*.*", "recurse"));
  EXPECT_THAT(slot(2), isSlot("C:\\Music", "2", "*.*", "recurse"));
}

TEST_F(DirectoryDialog, OkLeavesTheNumberOfTheSlotAsItWas) {
  setDirectory(2, "C:\\Photos", "I");
  open(2);
  press("cmdOK");
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(DialogValue, 2);
}

TEST_F(DirectoryDialog, ASlotOfNoKindSelectsNoOption) {
  setDirectory(1, "C:\\Photos", "x");
  open(1);
  EXPECT_EQ(selected(), "");
  press("cmdOK");
  EXPECT_THAT(slot(1), isSlot("C:\\Photos", "x", "", "recurse"));
}

TEST_F(DirectoryDialog, TypedPatternsComeBackAsTyped) {
  add();
  type(directory(0), "C:\\Photos");
  type(types(), "*.txt;*.log");
  press("cmdOK");
  EXPECT_EQ(ProfileDirList[1].IncludeExtensions, "*.txt;*.log");
  settle();
  open(1);
  EXPECT_EQ(types().currentText(), "*.txt;*.log");
  EXPECT_EQ(types().currentIndex(), -1);
}

TEST_F(DirectoryDialog, TypedPatternsOfAFileTypeAreThatType) {
  add();
  type(directory(0), "C:\\Photos");
  type(types(), "*.avi;*.wmv;*.mpg;*.mpeg;*.mov");
  press("cmdOK");
  EXPECT_EQ(ProfileDirList[1].IncludeExtensions, "3");
}

// The item is taken by the number of the row, though a row without a name has no item.
TEST_F(DirectoryDialog, BehindAGapTypedPatternsAreTheNextFileType) {
  FileTypeTable.FileTypeDescription[2].clear();
  add();
  type(directory(0), "C:\\Photos");
  type(types(), QString::fromStdString(FileTypeTable.FileTypesList[3]));
  press("cmdOK");
  EXPECT_EQ(ProfileDirList[1].IncludeExtensions, "4");
}

// Rows without a list are equal to nothing typed, and lie beyond the offered ones.
TEST_F(DirectoryDialog, EmptiedFileTypesAreReported) {
  add();
  type(directory(0), "C:\\Photos");
  types().clearEditText();
  press("cmdOK");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError(
                                        "basSaveValues", "Invalid procedure call or argument(5)")));
  EXPECT_FALSE(isOpen());
}

// Nobody completes what is typed, so that a list of patterns stands as it is.
TEST_F(DirectoryDialog, TypingCompletesNothing) {
  add();
  type(types(), "m");
  EXPECT_EQ(types().currentText(), "m");
}

TEST_F(DirectoryDialog, AFileTypeThatIsNotOfferedShowsTheFirst) {
  setDirectory(1, "C:\\Photos", "I", true, "42");
  open(1);
  EXPECT_EQ(types().currentText(), "All files");
}

TEST_F(DirectoryDialog, BrowsingPutsTheDirectoryPickedIntoItsField) {
  add();
  choose(2);
  std::vector<std::string> offered;
  modalForms.frmDirTree = [&] {
    offered.push_back(DialogText);
    EXPECT_EQ(DialogValue, -1);  // As found: the picker depends on it.
    DialogText += "\\picked";
  };
  directory(0).setText("C:\\A");
  directory(1).setText("C:\\B");
  press("cmdBrowse_0");
  press("cmdBrowse_1");
  EXPECT_THAT(offered, ElementsAre("C:\\A", "C:\\B"));
  EXPECT_EQ(directory(0).text(), "C:\\A\\picked");
  EXPECT_EQ(directory(1).text(), "C:\\B\\picked");
  modalForms.frmDirTree = [] { DialogText.clear(); };
  press("cmdBrowse_0");
  EXPECT_EQ(directory(0).text(), "C:\\A\\picked");
}

// Which makes the picker list the programs beside its tree.
TEST_F(DirectoryDialog, BrowsingTheFirstRowHandsItsNumberToThePicker) {
  setDirectory(1, "C:\\Photos", "I", true, "1");
  open(1);
  bool hasOpened = false;
  modalForms.frmDirTree = [&] {
    hasOpened = true;
    EXPECT_EQ(DialogValue, 1);
  };
  press("cmdBrowse_0");
  EXPECT_TRUE(hasOpened);
}

TEST_F(DirectoryDialog, EditingTheFileTypesBringsBackTheOneChosenThere) {
  add();
  types().setCurrentIndex(types().findText("Music"));
  modalForms.frmAddFileType = [] {
    EXPECT_EQ(DialogText, "Music");
    EXPECT_EQ(DialogValue, 2);
    FileTypeTable.FileTypeDescription[6] = "Fonts";
    DialogValue = 6;
  };
  press("cmdEditTypes");
  EXPECT_EQ(types().currentText(), "Fonts");
  EXPECT_EQ(types().count(), 6);
}

TEST_F(DirectoryDialog, EditingTheFileTypesWithoutAChoiceSelectsTheFirst) {
  add();
  type(types(), "*.x");
  modalForms.frmAddFileType = [] {
    EXPECT_EQ(DialogText, "*.x");
    EXPECT_EQ(DialogValue, -1);
  };
  press("cmdEditTypes");
  EXPECT_EQ(types().currentText(), "All files");
}

TEST_F(DirectoryDialog, AFileTypeThatIsGoneSelectsNone) {
  add();
  modalForms.frmAddFileType = [] { DialogValue = 42; };
  press("cmdEditTypes");
  EXPECT_EQ(types().currentIndex(), -1);
  EXPECT_EQ(types().currentText(), "");
}

TEST_F(DirectoryDialog, FailuresAreReportedByTheNamesOfTheirHandlers) {
  const auto expectReport = [this](const std::string& name,
                                   const std::string& reason = "Subscript out of range(9)") {
    EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError(name, reason)));
    dialogBoxes.messages.clear();
  };
  open(lastDirSlot + 1);
  expectReport("Form_Load");
  press("cmdCancel");
  settle();

  setDirectory(1, "C:\\Photos", "I", true, "99999999999");
  open(1);
  expectReport("basUpdateControls", "Overflow(6)");
  press("cmdCancel");
  settle();

  setDirectory(lastDirSlot, "C:\\Photos", "1");
  open(lastDirSlot);
  expectReport("optIncludeExclude_Click");
  press("cmdCancel");
  settle();

  add();
  const auto failing = [] { fail(FailureNumber::subscriptOutOfRange); };
  modalForms.frmDirTree = modalForms.frmAddFileType = failing;
  press("cmdBrowse_0");
  expectReport("cmdBrowse_Click");
  press("cmdEditTypes");
  expectReport("cmdEditTypes_Click");
  directory(0).setText("C:\\Gone");
  dialogBoxes.failNext = FailureNumber::subscriptOutOfRange;
  press("cmdOK");
  expectReport("cmdOK_Click");
}

// A record of settings ends at a control character.
TEST_F(DirectoryDialog, ControlCharactersOfAPasteAreNotTaken) {
  add();
  directory(0).setText("C:\\Pho\ttos\r\n");
  types().setEditText("*.a\t*.b");
  press("cmdOK");
  EXPECT_THAT(slot(1), isSlot("C:\\Photos", "I", "*.a*.b", "recurse"));
}

TEST_F(DirectoryDialog, APathOfTenThousandCharactersIsNotThere) {
  add();
  directory(0).setText("C:\\" + QString(10000, u'x'));
  press("cmdOK");
  EXPECT_TRUE(isOpen());
  EXPECT_EQ(dialogBoxes.messages.size(), 1U);
}

TEST_F(DirectoryDialog, EachOpeningStartsFromTheDefaults) {
  add();
  choose(2);
  type(directory(0), "C:\\Photos");
  press("cmdCancel");
  settle();
  add();
  EXPECT_EQ(selected(), "0");
  EXPECT_EQ(directory(0).text(), "");
}

TEST_F(DirectoryDialog, TabGoesThroughItInOrder) {
  add();
  choose(2);
  directory(0).setFocus();
  std::vector<std::string> order;
  for (int press = 0; press < 7; ++press) {
    order.push_back(dialog_->focusWidget()->objectName().toStdString());
    pressKey(*dialog_, Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("txtDirectory_0", "cmdBrowse_0", "txtDirectory_1", "cmdBrowse_1",
                                 "chkScanSubdir", "cmdOK", "cmdCancel"));
}

TEST_F(DirectoryDialog, TheWheelPassesTheFileTypes) {
  add();
  directory(0).setFocus();
  turnWheel(types(), -1);
  EXPECT_EQ(types().currentText(), "All files");
}

TEST_F(DirectoryDialog, RunsUntilItIsClosed) {
  DialogValue = -1;
  auto* const dialog = new forms::frmGetDirName;
  QTimer::singleShot(0, dialog, [&] { dialog->findChild<QAbstractButton*>("cmdCancel")->click(); });
  dialog->showModal();
  EXPECT_TRUE(dialog->isUnloaded());
}

}  // namespace
}  // namespace quernstoke
