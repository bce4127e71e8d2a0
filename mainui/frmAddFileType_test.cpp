#include "mainui/frmAddFileType.h"

#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <tuple>

#include "core/modMain.h"
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

class FileTypesDialog : public EngineTest {
 protected:
  FileTypesDialog() { basDefaultProfile("GLOBAL", ""); }
  ~FileTypesDialog() override {
    Form::deleteAll();
    settle();
  }

  void open(int row = -1) {
    DialogValue = row;
    dialog_ = new forms::frmAddFileType;
    dialog_->show();
    settle();
  }

  template <class Widget>
  Widget& control(const std::string& name) {
    return *dialog_->findChild<Widget*>(name.c_str());
  }
  QListWidget& types() { return control<QListWidget>("lstDescription"); }
  QListWidget& extensions() { return control<QListWidget>("lstFileExtensions"); }
  QAbstractButton& button(const std::string& name) { return control<QAbstractButton>(name); }
  void press(const std::string& name) {
    click(button(name));
    settle();
  }
  void addType() { press("cmdAddorDelete_0"); }
  void deleteType() { press("cmdAddorDelete_1"); }
  void addExtension() { press("cmdAddorDelete_2"); }
  void deleteExtension() { press("cmdAddorDelete_3"); }
  static QPoint middle(QListWidget& list, int position) {
    return list.visualItemRect(list.item(position)).center();
  }
  void clickItem(QListWidget& list, int position) {
    click(*list.viewport(), middle(list, position));
    settle();
  }
  void doubleClickItem(QListWidget& list, int position) {
    clickItem(list, position);
    doubleClick(*list.viewport(), middle(list, position));
    settle();
  }
  static std::vector<std::string> texts(const QListWidget& list) {
    std::vector<std::string> found;
    for (int i = 0; i < list.count(); ++i)
      found.push_back(list.item(i)->text().toStdString());
    return found;
  }
  static std::vector<std::string> selected(const QListWidget& list) {
    std::vector<std::string> found;
    for (const QListWidgetItem* item : list.selectedItems())
      found.push_back(item->text().toStdString());
    return found;
  }
  bool isOpen() const { return dialog_ && dialog_->isLoaded(); }
  // Fills all slots of ProfileList with profiles of these records.
  void makeProfiles(const std::string& records = "") {
    for (int slot = 1; slot <= lastProfileSlot; ++slot) {
      ProfileList.ProfileNameList[slot] = "p" + std::to_string(slot);
      disk.file(ProfilesDir + "\\p" + std::to_string(slot) + ".profile", records);
    }
  }
  static std::string description(int row) { return FileTypeTable.FileTypeDescription[row]; }
  static std::string list(int row) { return FileTypeTable.FileTypesList[row]; }
  void expectReport(const std::string& name, const std::string& reason) {
    EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError(name, reason)));
    dialogBoxes.messages.clear();
  }

  QPointer<forms::frmAddFileType> dialog_;
};

TEST_F(FileTypesDialog, HasItsCaptions) {
  open();
  EXPECT_EQ(dialog_->windowTitle(), "File Types");
  for (const auto& [name, caption] : std::vector<std::pair<const char*, const char*>>{
           {"Label1", "To change the description or extension double-click the item. "},
           {"Label13", "Description:"},
           {"Label14", "File type list:"}})
    EXPECT_EQ(control<QLabel>(name).text(), caption);
  for (const auto& [name, caption] :
       std::vector<std::pair<const char*, const char*>>{{"cmdAddorDelete_0", "Add"},
                                                        {"cmdAddorDelete_1", "Delete"},
                                                        {"cmdAddorDelete_2", "Add"},
                                                        {"cmdAddorDelete_3", "Delete"},
                                                        {"cmdClose", "Close"}})
    EXPECT_EQ(button(name).text(), caption);
}

// Two buttons of one caption are told apart by ear as well.
TEST_F(FileTypesDialog, ScreenReadersTellItsControlsApart) {
  open();
  std::vector<std::string> names;
  for (const char* name : {"lstDescription", "cmdAddorDelete_0", "cmdAddorDelete_1",
                           "lstFileExtensions", "cmdAddorDelete_2", "cmdAddorDelete_3"})
    names.push_back(control<QWidget>(name).accessibleName().toStdString());
  EXPECT_THAT(names, ElementsAre("Description", "Add file type", "Delete file type",
                                 "File type list", "Add extension", "Delete extension"));
}

// Opening and selecting.

TEST_F(FileTypesDialog, ListsTheFileTypesWithNoneSelected) {
  open();
  EXPECT_THAT(texts(types()), ElementsAre("All files", "Music", "Video", "Documents", "Images"));
  EXPECT_THAT(selected(types()), IsEmpty());
  EXPECT_THAT(texts(extensions()), IsEmpty());
}

TEST_F(FileTypesDialog, OpensOnTheRowGiven) {
  FileTypeTable.FileTypeDescription[2].clear();
  FileTypeTable.FileTypesList[3] = "*.avi;mpg;.mov";
  open(3);
  EXPECT_THAT(selected(types()), ElementsAre("Video"));
  EXPECT_THAT(texts(extensions()), ElementsAre("*.AVI", "*.MPG", "*.MOV"));
}

TEST_F(FileTypesDialog, OpensOnTheFirstTypeForARowThatIsNotListed) {
  open(42);
  EXPECT_THAT(selected(types()), ElementsAre("All files"));
  EXPECT_THAT(texts(extensions()), ElementsAre("*.*"));
}

TEST_F(FileTypesDialog, OpensWithoutAnyFileType) {
  allocateFileTypeTable();
  open(1);
  EXPECT_THAT(texts(types()), IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(FileTypesDialog, AClickShowsTheExtensionsOfTheType) {
  FileTypeTable.FileTypesList[2] = "*.mp3;*.ogg";
  FileTypeTable.FileTypesList[3] = "*.avi";
  open();
  clickItem(types(), 1);
  EXPECT_THAT(texts(extensions()), ElementsAre("*.MP3", "*.OGG"));
  pressKey(*dialog_, Qt::Key_Down);
  EXPECT_THAT(texts(extensions()), ElementsAre("*.AVI"));
}

TEST_F(FileTypesDialog, AListThatNamesAnotherRowShowsThatRowsExtensions) {
  FileTypeTable.FileTypesList[2] = "3";
  FileTypeTable.FileTypesList[3] = "*.avi";
  open(2);
  EXPECT_THAT(texts(extensions()), ElementsAre("*.AVI"));
}

TEST_F(FileTypesDialog, AnEmptyListShowsNoExtensions) {
  FileTypeTable.FileTypesList[2].clear();
  open(2);
  EXPECT_THAT(texts(extensions()), IsEmpty());
}

// Adding and changing a type.

TEST_F(FileTypesDialog, AddsATypeInTheFirstFreeRow) {
  open(2);
  dialogBoxes.inputs = {"Fonts"};
  addType();
  EXPECT_EQ(description(6), "Fonts");
  EXPECT_THAT(selected(types()), ElementsAre("Fonts"));
  EXPECT_EQ(types().count(), 6);
  EXPECT_THAT(texts(extensions()), IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Enter new Description"));
  press("cmdClose");
  EXPECT_EQ(DialogValue, 6);
}

TEST_F(FileTypesDialog, AddsATypeInAGapOfTheTable) {
  FileTypeTable.FileTypeDescription[3].clear();
  open();
  dialogBoxes.inputs = {"Fonts"};
  addType();
  EXPECT_EQ(description(3), "Fonts");
  EXPECT_THAT(texts(types()), ElementsAre("All files", "Music", "Documents", "Images", "Fonts"));
}

TEST_F(FileTypesDialog, ATypeWithoutAnAnswerStaysANewItem) {
  open();
  addType();
  EXPECT_EQ(description(6), "New Item");
  EXPECT_THAT(selected(types()), ElementsAre("New Item"));
}

// What was left of a row that lost its description comes back with the next click only: the new
// item has no row yet when it is selected.
TEST_F(FileTypesDialog, ANewTypeShowsNoExtensionsUntilItIsClicked) {
  FileTypeTable.FileTypesList[6] = "*.old";
  open();
  addType();
  EXPECT_THAT(texts(extensions()), IsEmpty());
  clickItem(types(), 5);
  EXPECT_THAT(texts(extensions()), ElementsAre("*.OLD"));
}

TEST_F(FileTypesDialog, ARowAboveTenIsListedUntilTheDialogIsClosed) {
  for (int row = 6; row <= 10; ++row)
    FileTypeTable.FileTypeDescription[row] = "type " + std::to_string(row);
  open();
  dialogBoxes.inputs = {"Eleventh", "x"};
  addType();
  addExtension();
  EXPECT_EQ(types().count(), 11);
  press("cmdClose");
  EXPECT_EQ(DialogValue, 11);
  settle();
  open(11);
  EXPECT_EQ(types().count(), 10);
  EXPECT_THAT(selected(types()), ElementsAre("All files"));
  EXPECT_EQ(description(11), "Eleventh");
  basSaveProfile("GLOBAL");
  EXPECT_THAT(disk.content(ProfilesDir + "\\global.settings"),
              testing::HasSubstr("FileTypeDescription\t11\tEleventh\tS\r"));
}

// Only the descriptions grow: the new row has no list of extensions.
TEST_F(FileTypesDialog, AFullTableGrowsByFiftyDescriptions) {
  for (int row = 6; row <= lastFileTypeRow; ++row)
    FileTypeTable.FileTypeDescription[row] = "type";
  open();
  dialogBoxes.inputs = {"Fonts"};
  addType();
  EXPECT_EQ(FileTypeTable.FileTypeDescription.upperBound(), lastFileTypeRow + 50);
  EXPECT_EQ(FileTypeTable.FileTypesList.upperBound(), lastFileTypeRow);
  EXPECT_EQ(description(lastFileTypeRow + 1), "Fonts");
  EXPECT_EQ(description(1), "All files");
  dialogBoxes.messages.clear();
  clickItem(types(), types().count() - 1);
  expectReport("lstDescription_Click", "Subscript out of range(9)");
  dialogBoxes.inputs = {"ttf"};
  addExtension();
  dialogBoxes.messages.erase(dialogBoxes.messages.begin());
  expectReport("basRebuildExtensionList", "Subscript out of range(9)");
  makeProfiles();
  deleteType();
  expectReport("cmdAddorDelete_Click", "Subscript out of range(9)");
  EXPECT_EQ(description(lastFileTypeRow + 1), "");
  EXPECT_EQ(texts(types()).back(), "Fonts");
}

TEST_F(FileTypesDialog, ADoubleClickChangesTheDescription) {
  open();
  dialogBoxes.inputs = {"Songs"};
  doubleClickItem(types(), 1);
  EXPECT_EQ(description(2), "Songs");
  EXPECT_EQ(texts(types()).at(1), "Songs");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Enter new Description"));
}

TEST_F(FileTypesDialog, AnEmptyAnswerKeepsTheDescription) {
  open();
  doubleClickItem(types(), 1);
  EXPECT_EQ(description(2), "Music");
  EXPECT_EQ(texts(types()).at(1), "Music");
}

TEST_F(FileTypesDialog, AKeyWithoutASelectionChangesNothing) {
  open();
  types().setFocus();
  pressKey(*dialog_, Qt::Key_F2);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(FileTypesDialog, AKeyStandsForTheDoubleClick) {
  open(2);
  dialogBoxes.inputs = {"Songs", "flac"};
  types().setFocus();
  pressKey(*dialog_, Qt::Key_F2);
  EXPECT_EQ(description(2), "Songs");
  extensions().setFocus();
  pressKey(*dialog_, Qt::Key_F2);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Enter new Description"));
  pressKey(*dialog_, Qt::Key_Down);
  pressKey(*dialog_, Qt::Key_F2);
  EXPECT_THAT(list(2), testing::HasSubstr("*.flac"));
}

// Deleting a type.

TEST_F(FileTypesDialog, DeletesATypeWhenAllSlotsHoldProfiles) {
  makeProfiles();
  open(3);
  deleteType();
  EXPECT_EQ(description(3), "");
  EXPECT_EQ(list(3), "");
  EXPECT_THAT(texts(types()), ElementsAre("All files", "Music", "Documents", "Images"));
  EXPECT_THAT(selected(types()), IsEmpty());
  EXPECT_THAT(texts(extensions()), IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  press("cmdClose");
  EXPECT_EQ(DialogValue, -1);
}

// The file of a slot without a profile has no name, and is not there.
TEST_F(FileTypesDialog, DeletesNoTypeWhileASlotHasNoProfile) {
  makeProfiles();
  ProfileList.ProfileNameList[32].clear();
  open(3);
  deleteType();
  expectReport("cmdAddorDelete_Click", "File not found(53)");
  EXPECT_EQ(description(3), "Video");
  EXPECT_EQ(types().count(), 5);
}

// The kind "2" of a directory is taken for the number of a type.
TEST_F(FileTypesDialog, DeletesNoTypeThatAProfileSeemsToUse) {
  makeProfiles();
  disk.file(ProfilesDir + "\\p7.profile", "IncludeExclude\t2\t2\tS\r");
  open(2);
  deleteType();
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Can't delete file type as it's linked to profile 'p7'"));
  EXPECT_EQ(description(2), "Music");
  EXPECT_EQ(types().count(), 5);
}

// Its number in IncludeExtensions protects no type.
TEST_F(FileTypesDialog, DeletesATypeThatADirectoryUses) {
  makeProfiles("IncludeExclude\t1\tI\tS\rIncludeExtensions\t1\t3\tS\r");
  open(3);
  deleteType();
  EXPECT_EQ(description(3), "");
}

// Without a look at the profiles, of which none can be read here.
TEST_F(FileTypesDialog, KeepsAllFiles) {
  open(1);
  deleteType();
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Can't delete the 'All files' file type"));
  EXPECT_EQ(description(1), "All files");
}

TEST_F(FileTypesDialog, DeletesNothingWithoutASelection) {
  makeProfiles();
  open();
  deleteType();
  deleteExtension();
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(types().count(), 5);
}

// The focus passes over the list, which selects nothing.
TEST_F(FileTypesDialog, DeletesNothingThatHasTheFocusAlone) {
  makeProfiles();
  open();
  types().setFocus(Qt::TabFocusReason);
  deleteType();
  EXPECT_EQ(types().count(), 5);
}

// Extensions.

TEST_F(FileTypesDialog, AddsExtensionsInEachWayOfWritingThem) {
  FileTypeTable.FileTypesList[2] = "*.mp3";
  open(2);
  dialogBoxes.inputs = {"ogg", ".wma", "*.aac", "*flac"};
  for (int times = 0; times < 4; ++times)
    addExtension();
  EXPECT_THAT(texts(extensions()), ElementsAre("*.MP3", "*.ogg", "*.wma", "*.aac", "*.flac"));
  EXPECT_EQ(list(2), "*.MP3;*.ogg;*.wma;*.aac;*.flac");
  EXPECT_THAT(dialogBoxes.messages, testing::Each(std::string("Enter new file type")));
}

// It is stored by the next change of the list.
TEST_F(FileTypesDialog, AnExtensionWithoutAnAnswerStaysInTheListUnstored) {
  FileTypeTable.FileTypesList[2] = "*.mp3";
  open(2);
  addExtension();
  EXPECT_THAT(texts(extensions()), ElementsAre("*.MP3", "*.???"));
  EXPECT_EQ(list(2), "*.mp3");
  dialogBoxes.inputs = {"ogg"};
  addExtension();
  EXPECT_EQ(list(2), "*.MP3;*.???;*.ogg");
}

TEST_F(FileTypesDialog, AClickOnTheTypeTakesAnUnstoredExtensionAway) {
  open(2);
  addExtension();
  clickItem(types(), 1);
  EXPECT_THAT(texts(extensions()), testing::Not(testing::Contains("*.???")));
}

TEST_F(FileTypesDialog, ADoubleClickChangesAnExtension) {
  FileTypeTable.FileTypesList[2] = "*.mp3;*.ogg";
  open(2);
  dialogBoxes.inputs = {".opus"};
  doubleClickItem(extensions(), 1);
  EXPECT_EQ(list(2), "*.MP3;*.opus");
  EXPECT_THAT(texts(extensions()), ElementsAre("*.MP3", "*.opus"));
}

TEST_F(FileTypesDialog, DeletesTheSelectedExtensionAndNoneAfterIt) {
  FileTypeTable.FileTypesList[2] = "*.mp3;*.ogg;*.wma";
  open(2);
  clickItem(extensions(), 1);
  deleteExtension();
  deleteExtension();
  EXPECT_EQ(list(2), "*.MP3;*.WMA");
  EXPECT_THAT(selected(extensions()), IsEmpty());
}

TEST_F(FileTypesDialog, DeletingTheLastExtensionLeavesTheType) {
  FileTypeTable.FileTypesList[2] = "*.mp3";
  open(2);
  clickItem(extensions(), 0);
  deleteExtension();
  EXPECT_EQ(list(2), "");
  EXPECT_EQ(description(2), "Music");
  EXPECT_THAT(selected(types()), ElementsAre("Music"));
}

TEST_F(FileTypesDialog, AllFilesTakesExtensionsAndLosesNone) {
  open(1);
  dialogBoxes.inputs = {"x"};
  addExtension();
  EXPECT_EQ(list(1), "*.*;*.x");
  dialogBoxes.messages.clear();
  deleteExtension();
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  clickItem(extensions(), 1);
  deleteExtension();
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Can't delete the 'All files' file type"));
  EXPECT_EQ(list(1), "*.*;*.x");
}

TEST_F(FileTypesDialog, AnExtensionLosesOneStarAndOneDot) {
  FileTypeTable.FileTypesList[2] = "*.a";
  open(2);
  dialogBoxes.inputs = {"**.x", "..y", "*"};
  for (int times = 0; times < 3; ++times)
    addExtension();
  EXPECT_THAT(texts(extensions()), ElementsAre("*.A", "*.*.x", "*..y", "*."));
}

TEST_F(FileTypesDialog, AnExtensionOfNoTypeIsReported) {
  open();
  dialogBoxes.inputs = {"x"};
  addExtension();
  dialogBoxes.messages.erase(dialogBoxes.messages.begin());
  expectReport("basRebuildExtensionList", "Invalid procedure call or argument(5)");
  clickItem(extensions(), 0);
  deleteExtension();
  expectReport("cmdAddorDelete_Click", "Invalid procedure call or argument(5)");
  EXPECT_THAT(texts(extensions()), ElementsAre("*.x"));
}

TEST_F(FileTypesDialog, NothingIsWrittenUntilTheSettingsAreSaved) {
  open(2);
  disk.calls.clear();
  dialogBoxes.inputs = {"x", "Fonts"};
  addExtension();
  addType();
  press("cmdClose");
  EXPECT_THAT(list(2), testing::EndsWith("*.x"));
  EXPECT_EQ(description(6), "Fonts");
  EXPECT_THAT(disk.calls, IsEmpty());
}

TEST_F(FileTypesDialog, MoreThanThirtyTwoExtensionsAreReportedOnceAndTheFirstShown) {
  for (int i = 0; i < 33; ++i)
    FileTypeTable.FileTypesList[2] += "*.x" + std::to_string(i) + ";";
  open();
  clickItem(types(), 1);
  expectReport("basBuildExtensionList", "Subscript out of range(9)");
  EXPECT_EQ(extensions().count(), 32);
}

TEST_F(FileTypesDialog, TextsAreShownAsTheyAreAndComeBackUnchanged) {
  const std::string odd = "<b>&Fonts\xFF</b>";
  FileTypeTable.FileTypeDescription[2] = odd;
  FileTypeTable.FileTypesList[2] = "*.\xFF;*.a";
  open(2);
  clickItem(extensions(), 1);
  deleteExtension();
  EXPECT_EQ(list(2), "*.\xFF");
  dialogBoxes.inputs = {"", odd + "!"};
  doubleClickItem(types(), 1);
  EXPECT_EQ(description(2), odd);
  doubleClickItem(types(), 1);
  EXPECT_EQ(description(2), odd + "!");
  EXPECT_THAT(dialogBoxes.presets, ElementsAre(odd, odd));
}

TEST_F(FileTypesDialog, AnExtensionIsPresetWithItsText) {
  FileTypeTable.FileTypesList[2] = "*.a;*.b";
  open(2);
  doubleClickItem(extensions(), 1);
  EXPECT_THAT(dialogBoxes.presets, ElementsAre("*.B"));
}

TEST_F(FileTypesDialog, FailedChangesAreReportedByTheirNames) {
  FileTypeTable.FileTypesList[2] = "*.a";
  open(2);
  dialogBoxes.failNext = FailureNumber::outOfMemory;
  doubleClickItem(types(), 1);
  expectReport("basEditDescription", "Out of memory(7)");
  dialogBoxes.failNext = FailureNumber::outOfMemory;
  doubleClickItem(extensions(), 0);
  expectReport("basEditFileExtension", "Out of memory(7)");
}

TEST_F(FileTypesDialog, AFailedLoadIsReportedByItsNames) {
  open(40000);
  expectReport("Form_Load", "Overflow(6)");
  FileTypeTable.FileTypeDescription.redim(5, true);
  open();
  expectReport("basBuildFileTypesList", "Subscript out of range(9)");
}

TEST_F(FileTypesDialog, EachListHasItsButtonsBelowIt) {
  open();
  const auto place = [this](const std::string& name) {
    const QWidget& widget = control<QWidget>(name);
    return QRect(widget.mapTo(dialog_, QPoint()), widget.size());
  };
  for (const auto& [list, first, last] :
       {std::tuple("lstDescription", 0, 1), std::tuple("lstFileExtensions", 2, 3)})
    for (const int index : {first, last}) {
      const QRect button = place("cmdAddorDelete_" + std::to_string(index));
      EXPECT_GT(button.top(), place(list).bottom()) << index;
      EXPECT_GE(button.left(), place(list).left()) << index;
      EXPECT_LE(button.right(), place(list).right()) << index;
    }
}

TEST_F(FileTypesDialog, AProfileWithoutANameMayBeLinkedToo) {
  makeProfiles();
  ProfileList.ProfileNameList[5].clear();
  disk.file(ProfilesDir + "\\.profile", "IncludeExclude\t0\t2\tS\r");
  open(2);
  deleteType();
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Can't delete file type as it's linked to profile ''"));
  EXPECT_NE(description(2), "");
}

// Leaving.

TEST_F(FileTypesDialog, ClosingTellsTheSelectedRow) {
  FileTypeTable.FileTypeDescription[2].clear();
  DialogText = "Music";
  open();
  clickItem(types(), 1);
  press("cmdClose");
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(DialogValue, 3);
  EXPECT_EQ(DialogText, "Music");
}

TEST_F(FileTypesDialog, ClosingWithoutASelectionTellsNone) {
  open();
  DialogValue = 7;
  press("cmdClose");
  EXPECT_EQ(DialogValue, -1);
}

TEST_F(FileTypesDialog, TheCloseBoxLeavesWhatTheCallerGave) {
  DialogText = "Music";
  open(2);
  clickItem(types(), 3);
  dialog_->close();
  settle();
  EXPECT_EQ(DialogValue, 2);
  EXPECT_EQ(DialogText, "Music");
}

TEST_F(FileTypesDialog, EscapeAndEnterClose) {
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
    open(2);
    DialogValue = 7;
    types().setFocus();
    pressKey(*dialog_, key);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(DialogValue, 2);
    settle();
  }
}

TEST_F(FileTypesDialog, RunsUntilItIsClosed) {
  DialogValue = 2;
  auto* const dialog = new forms::frmAddFileType;
  QTimer::singleShot(0, dialog, [&] { dialog->findChild<QPushButton*>("cmdClose")->click(); });
  dialog->showModal();
  EXPECT_TRUE(dialog->isUnloaded());
  EXPECT_EQ(DialogValue, 2);
}

TEST_F(FileTypesDialog, TabGoesThroughItInOrder) {
  open();
  types().setFocus();
  std::vector<std::string> order;
  for (int times = 0; times < 7; ++times) {
    order.push_back(dialog_->focusWidget()->objectName().toStdString());
    pressKey(*dialog_, Qt::Key_Tab);
  }
  EXPECT_THAT(order,
              ElementsAre("lstDescription", "cmdAddorDelete_0", "cmdAddorDelete_1",
                          "lstFileExtensions", "cmdAddorDelete_2", "cmdAddorDelete_3", "cmdClose"));
}

}  // namespace
}  // namespace quernstoke
