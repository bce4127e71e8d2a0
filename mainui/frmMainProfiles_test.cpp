#include <QAbstractItemView>

#include "catalogue/fileTable.h"
#include "catalogue/snapshots.h"
#include "core/scanState.h"
#include "mainui/frmMainTest.h"
#include "mainui/quickHelp.h"

namespace quernstoke {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class MainWindowProfiles : public MainWindowTest {
 protected:
  // Chooses to make a new profile and answers the question for its name.
  void makeNew(const std::vector<std::string>& answers) {
    dialogBoxes.inputs = answers;
    choose("<New Profile>");
  }
  static std::string shownProfile() { return list("cboProfile").currentText().toStdString(); }
};

TEST_F(MainWindowProfiles, ChoosingOneLoadsAndShowsIt) {
  haveProfile("Ann", [] {
    ProfileSettings.Desc = "Holidays";
    setDirectory(1, "C:\\Photos", "I");
  });
  open();
  choose("Ann");
  EXPECT_EQ(ProfileName, "Ann");
  EXPECT_EQ(text("txtDescription"), "Holidays");
  EXPECT_EQ(grid().cell(1, 1).text, "C:\\Photos");
  EXPECT_EQ(panel(1), "Profile: Ann");
  EXPECT_TRUE(isEnabled("cmdStart"));
  EXPECT_EQ(HelpState, 3);
  EXPECT_EQ(helpTag(), "1003");
}

TEST_F(MainWindowProfiles, ChoosingOneByKeyboardLoadsIt) {
  haveProfile("Ann");
  haveProfile("Ben");
  open();
  list("cboProfile").setFocus();
  typeText(form(), "b");
  EXPECT_EQ(ProfileName, "Ben");
  pressKey(form(), Qt::Key_Up);
  EXPECT_EQ(ProfileName, "Ann");
}

TEST_F(MainWindowProfiles, ChoosingOneByMouseLoadsIt) {
  haveProfile("Ann");
  open();
  click(list("cboProfile"));
  QAbstractItemView& popup = *list("cboProfile").view();
  ASSERT_TRUE(popup.isVisible());
  EXPECT_EQ(ProfileName, "");  // Opening the list chooses nothing.
  QTest::mouseMove(popup.viewport(), popup.visualRect(popup.model()->index(1, 0)).center());
  QTest::mousePress(popup.viewport(), Qt::LeftButton, {},
                    popup.visualRect(popup.model()->index(1, 0)).center());
  QTest::qWait(QApplication::doubleClickInterval() + 50);
  QTest::mouseRelease(popup.viewport(), Qt::LeftButton, {},
                      popup.visualRect(popup.model()->index(1, 0)).center());
  settle();
  EXPECT_EQ(ProfileName, "Ann");
}

TEST_F(MainWindowProfiles, LeavingOneSavesItButNotTheGlobalSettings) {
  haveProfile("Ann");
  haveProfile("Ben");
  open();
  choose("Ann");
  field("txtDescription").setText("Ann's own");
  field("txtNumberOfFileBuffers").setText("77");
  const std::string globalBefore = globalFile();
  choose("Ben");
  EXPECT_THAT(profileFile("Ann"), HasSubstr("Desc\t0\tAnn's own\tS\r"));
  EXPECT_EQ(globalFile(), globalBefore);
  EXPECT_EQ(GlobalSettings.NumberOfFileBuffers, 77);  // In memory, the other page counts too.
  EXPECT_EQ(text("txtDescription"), "");
}

TEST_F(MainWindowProfiles, ChoosingTheSameAgainSavesAndLoadsIt) {
  openAnn();
  field("txtDescription").setText("changed");
  choose("Ann");
  EXPECT_THAT(profileFile("Ann"), HasSubstr("Desc\t0\tchanged\tS\r"));
  EXPECT_EQ(text("txtDescription"), "changed");
}

// The controls still show the former one then.
TEST_F(MainWindowProfiles, OneWhoseFileIsGoneIsTakenWithoutAWord) {
  haveProfile("Ann", [] { ProfileSettings.Desc = "Ann's"; });
  haveProfile("Ben");
  open();
  choose("Ann");
  disk.erase(ProfilesDir + "\\Ben.profile");
  choose("Ben");
  EXPECT_EQ(ProfileName, "Ben");
  EXPECT_EQ(text("txtDescription"), "Ann's");
  EXPECT_EQ(panel(1), "Profile: Ann");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// Deleted behind the program's back, it comes into being again when it is left.
TEST_F(MainWindowProfiles, ACurrentOneWhoseFileIsGoneIsWrittenAgain) {
  haveProfile("Ben");
  openAnn();
  disk.erase(ProfilesDir + "\\Ann.profile");
  choose("Ben");
  EXPECT_TRUE(disk.exists(ProfilesDir + "\\Ann.profile"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(MainWindowProfiles, ANewOneIsAskedForItsName) {
  dialogBoxes.inputs = {"New one"};
  open();
  choose("<New Profile>");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Enter new profile name"));
  EXPECT_THAT(dialogBoxes.titles, ElementsAre("Profile Name"));
  EXPECT_THAT(dialogBoxes.presets, ElementsAre("Untitled"));
}

TEST_F(MainWindowProfiles, ANewOneIsStoredSelectedAndItsDescriptionCanBeTypedOver) {
  open();
  makeNew({"Zoe"});
  EXPECT_EQ(ProfileName, "Zoe");
  EXPECT_EQ(shownProfile(), "Zoe");
  EXPECT_THAT(globalFile(), HasSubstr("\tZoe\tS\r"));
  EXPECT_THAT(profileFile("Zoe"), HasSubstr("MatchingCriteria\t0\tCS\tS\r"));
  EXPECT_EQ(text("txtDescription"), "Zoe");
  EXPECT_EQ(field("txtDescription").selectedText(), "Zoe");
  EXPECT_TRUE(field("txtDescription").hasFocus());
  typeText(form(), "All");
  EXPECT_EQ(text("txtDescription"), "All");
  EXPECT_TRUE(box("chkMatchingOption_1").isChecked());
  EXPECT_EQ(grid().rows(), 1);
  EXPECT_EQ(HelpState, 1);
  EXPECT_EQ(helpTag(), "1001");
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Enter new profile name"));
}

TEST_F(MainWindowProfiles, MakingANewOneSavesTheFormerOne) {
  openAnn();
  field("txtDescription").setText("Ann's own");
  makeNew({"Zoe"});
  EXPECT_THAT(profileFile("Ann"), HasSubstr("Desc\t0\tAnn's own\tS\r"));
  EXPECT_THAT(profileFile("Zoe"), HasSubstr("Desc\t0\t\tS\r"));
}

// The description is the screen's alone until the next saving.
TEST_F(MainWindowProfiles, TheDescriptionOfANewOneIsSavedLater) {
  open();
  makeNew({"Zoe"});
  EXPECT_EQ(ProfileSettings.Desc, "");
  choose("Zoe");
  EXPECT_THAT(profileFile("Zoe"), HasSubstr("Desc\t0\tZoe\tS\r"));
}

// What stays on the screen belongs to nothing then.
TEST_F(MainWindowProfiles, GivingUpTheNameDeselectsTheFormerOne) {
  openAnn([] { ProfileSettings.Desc = "Ann's"; });
  const std::string helpBefore = helpTag();
  makeNew({});
  EXPECT_EQ(ProfileName, "");
  EXPECT_EQ(text("txtDescription"), "Ann's");
  EXPECT_TRUE(isEnabled("cmdStart"));
  EXPECT_EQ(panel(1), "Profile: Ann");
  EXPECT_EQ(helpTag(), helpBefore);
  dialogBoxes.messages.clear();
  click(button("cmdStart"));
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Must select a profile first"));
  EXPECT_EQ(dialogBoxes.buttons.back(), Buttons::ok);
  EXPECT_EQ(dialogBoxes.titles.back(), "");
  EXPECT_THAT(windows, IsEmpty());
}

TEST_F(MainWindowProfiles, AFailedChoiceIsReportedByTheNameOfItsHandler) {
  open();
  dialogBoxes.failNext = FailureNumber::outOfMemory;
  choose("<New Profile>");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("cboProfile_Click", "Out of memory(7)")));
}

TEST_F(MainWindowProfiles, CharactersThatAFileNameCannotHoldAreDropped) {
  open();
  makeNew({"a/b:c"});
  EXPECT_EQ(ProfileName, "abc");
  EXPECT_TRUE(disk.exists(ProfilesDir + "\\abc.profile"));
  makeNew({"\\ x*?\"<>|y/"});
  EXPECT_EQ(ProfileName, " xy");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Enter new profile name", "Enter new profile name"));
}

// The check comes after the dropping, so that a hidden twin is found too.
TEST_F(MainWindowProfiles, AKnownNameIsRefusedInAnyCaseAndAskedForAgain) {
  haveProfile("Ann");
  open();
  dialogBoxes.inputs = {"ANN", "a:nn", "Zoe"};
  choose("<New Profile>");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Enter new profile name", "List already exists", "Enter new profile name",
                          "List already exists", "Enter new profile name"));
  EXPECT_THAT(dialogBoxes.titles,
              ElementsAre("Profile Name", "Error", "Profile Name", "Error", "Profile Name"));
  EXPECT_THAT(dialogBoxes.presets, ElementsAre("Untitled", "Untitled", "Untitled"));
  EXPECT_EQ(ProfileName, "Zoe");
}

TEST_F(MainWindowProfiles, ARefusedNameCanBeGivenUp) {
  openAnn();
  makeNew({"Ann"});
  EXPECT_EQ(ProfileName, "");
  EXPECT_EQ(disk.names(ProfilesDir).size(), 2U);
}

// Nothing is left of such a name, and it is taken nevertheless: no file, no entry, no profile.
TEST_F(MainWindowProfiles, ThreeQuestionMarksGoOnWithAnEmptyName) {
  openAnn();
  makeNew({"???"});
  EXPECT_EQ(ProfileName, "");
  EXPECT_EQ(list("cboProfile").currentIndex(), -1);
  EXPECT_FALSE(isEnabled("cmdStart"));
  EXPECT_FALSE(isEnabled("txtDescription"));
  EXPECT_EQ(text("txtDescription"), "");
  EXPECT_FALSE(disk.exists(ProfilesDir + "\\.profile"));
  EXPECT_EQ(HelpState, 0);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Enter new profile name"));
}

TEST_F(MainWindowProfiles, ANewOneBeyondTheFullListIsCurrentButNotListed) {
  for (int slot = 1; slot <= lastProfileSlot; ++slot)
    ProfileList.ProfileNameList[slot] = "P" + std::to_string(slot);
  basSaveProfile("GLOBAL");
  open();
  makeNew({"Zoe"});
  EXPECT_EQ(ProfileName, "Zoe");
  EXPECT_EQ(list("cboProfile").findText("Zoe"), -1);
  EXPECT_EQ(list("cboProfile").currentIndex(), -1);
  EXPECT_TRUE(disk.exists(ProfilesDir + "\\Zoe.profile"));
}

TEST_F(MainWindowProfiles, ANameOfTenThousandCharactersIsTakenAsFarAsTheDiskTakesIt) {
  open();
  makeNew({std::string(10000, 'x')});
  EXPECT_EQ(ProfileName.size(), 10000U);
  choose("<New Profile>");
  EXPECT_EQ(ProfileName, "");
}

TEST_F(MainWindowProfiles, DeletingAsksFirst) {
  openAnn();
  const auto before = disk.allFiles();
  dialogBoxes.answers = {Answer::cancel};
  click(button("cmdDeleteProfile"));
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Delete profile 'Ann'"));
  EXPECT_EQ(dialogBoxes.buttons.back(), Buttons::okCancel);
  EXPECT_EQ(dialogBoxes.titles.back(), "");
  EXPECT_EQ(ProfileName, "Ann");
  EXPECT_EQ(disk.allFiles(), before);
}

TEST_F(MainWindowProfiles, DeletingRemovesTheFilesAndAllSlotsOfTheName) {
  haveProfile("Ann");
  haveProfile("Ben");
  ProfileList.ProfileNameList[0] = "ann";
  ProfileList.ProfileNameList[7] = "ANN";
  ProfileList.ProfileDateList[7] = "yesterday";
  basSaveProfile("GLOBAL");
  open();
  choose("Ann");
  disk.file(ProfilesDir + "\\Ann.files", "");
  disk.file(ProfilesDir + "\\Ann.dir", "");
  disk.file(ProfilesDir + "\\Ann.txt", "");
  const std::string globalBefore = globalFile();
  click(button("cmdDeleteProfile"));
  EXPECT_THAT(disk.names(ProfilesDir),
              testing::UnorderedElementsAre("Ben.profile", "global.settings", "Ann.txt"));
  for (const int slot : {0, 1, 7}) {
    EXPECT_EQ(ProfileList.ProfileNameList[slot], "") << slot;
    EXPECT_EQ(ProfileList.ProfileDateList[slot], "") << slot;
  }
  EXPECT_EQ(ProfileList.ProfileNameList[2], "Ben");
  // The shortened list waits for the next saving.
  EXPECT_EQ(globalFile(), globalBefore);
}

TEST_F(MainWindowProfiles, DeletingLeavesNoProfileButTheFormerFiguresInTheStatusBar) {
  openAnn([] {
    ProfileSettings.Desc = "Ann's";
    ProfileSettings.MinimumSize = 4711;
    setDirectory(1, "C:\\Photos", "I");
  });
  click(button("cmdDeleteProfile"));
  EXPECT_EQ(ProfileName, "");
  EXPECT_EQ(list("cboProfile").currentIndex(), -1);
  EXPECT_EQ(list("cboProfile").findText("Ann"), -1);
  for (const char* name :
       {"txtDescription", "fraWhatToScan", "chkZip", "chkScanHiddenSystem_0",
        "chkScanHiddenSystem_1", "chkMatchingOption_0", "cmdDeleteProfile", "cmdStart",
        "fraStartMode", "cboSizeMeasure_0", "cboSizeMeasure_1", "txtMinimumSize", "txtMaximumSize",
        "gridList", "cmdAddList", "cmdEditList", "cmdDelList"})
    EXPECT_FALSE(isEnabled(name)) << name;
  EXPECT_EQ(text("txtDescription"), "");
  EXPECT_EQ(text("txtMinimumSize"), "4711");
  EXPECT_EQ(grid().rows(), 1);
  EXPECT_EQ(ProfileDirList[1].Dir, "");
  EXPECT_EQ(panel(1), "Profile: Ann");
  EXPECT_TRUE(control<QWidget>("sbarStatus").isVisible());
  EXPECT_EQ(helpTag(), "1000");
}

TEST_F(MainWindowProfiles, DeletingEmptiesTheListOfDirectories) {
  openAnn([] {
    for (int slot = 1; slot <= 128; ++slot)
      setDirectory(slot, "C:\\Photos", "I");
  });
  ProfileDirList.redim(193, true);
  click(button("cmdDeleteProfile"));
  EXPECT_EQ(ProfileDirList.upperBound(), 128);
  for (Int32 slot = 0; slot <= 128; ++slot)
    EXPECT_EQ(ProfileDirList[slot].Dir + ProfileDirList[slot].IncludeExclude, "") << slot.raw();
}

TEST_F(MainWindowProfiles, AfterDeletingAnotherCanBeChosen) {
  haveProfile("Ben");
  openAnn();
  click(button("cmdDeleteProfile"));
  choose("Ben");
  EXPECT_EQ(panel(1), "Profile: Ben");
  EXPECT_FALSE(disk.exists(ProfilesDir + "\\Ann.profile"));
}

TEST_F(MainWindowProfiles, WithoutOneThereIsNothingToDelete) {
  openAnn();
  makeNew({});
  dialogBoxes.messages.clear();
  click(button("cmdDeleteProfile"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_TRUE(disk.exists(ProfilesDir + "\\Ann.profile"));
}

TEST_F(MainWindowProfiles, OneThatCannotBeDeletedStays) {
  openAnn();
  disk.failOn(DiskAction::remove, ProfilesDir + "\\Ann.profile", FailureNumber::permissionDenied);
  click(button("cmdDeleteProfile"));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Delete profile 'Ann'",
                          procedureError("cmdDeleteProfile_Click", "Permission denied(70)")));
  EXPECT_EQ(ProfileName, "Ann");
  EXPECT_EQ(list("cboProfile").currentText(), "Ann");
  EXPECT_TRUE(isEnabled("cmdStart"));
}

// A directory for settings that may not be written.
TEST_F(MainWindowProfiles, WhatCannotBeSavedIsReportedAndTheChoiceGoesOn) {
  haveProfile("Ben", [] { ProfileSettings.Desc = "Ben's"; });
  openAnn();
  disk.before = [](const DiskCall& call) {
    if (call.action == DiskAction::remove || call.action == DiskAction::write)
      throw Failure(FailureNumber::permissionDenied);
  };
  choose("Ben");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basSaveProfile", "Permission denied(70)")));
  EXPECT_EQ(ProfileName, "Ben");
  EXPECT_EQ(text("txtDescription"), "Ben's");
  EXPECT_TRUE(disk.exists(ProfilesDir + "\\Ann.profile"));
}

TEST_F(MainWindowProfiles, ANewOneThatCannotBeStoredIsReported) {
  open();
  disk.before = [](const DiskCall& call) {
    if (call.action == DiskAction::open && call.mode != OpenMode::input)
      throw Failure(FailureNumber::permissionDenied);
  };
  makeNew({"Zoe"});
  EXPECT_THAT(dialogBoxes.messages,
              Contains(procedureError("basSaveProfile", "Permission denied(70)")));
  EXPECT_TRUE(window.isLoaded());
  EXPECT_FALSE(disk.exists(ProfilesDir + "\\Zoe.profile"));
}

TEST_F(MainWindowProfiles, ChoosingOneBringsBackItsLastScan) {
  haveProfile("Ann", [] {
    ProfileSettings.RunMode = runState::finished;
    ProfileSettings.NumDuplicates = 2;
    setDirectory(1, "C:\\A", "I");
    buildCatalogue({{"a", "C:\\A", 1, 0}, {"b", "C:\\A", 1, 0}, {"c", "C:\\B", 1, 0}});
    basSaveFilesList();
    basSaveDirTable();
  });
  open();
  FileCount = 0;
  choose("Ann");
  EXPECT_THAT(fileNames(), ElementsAre("a", "b", "c"));
  EXPECT_EQ(panel(3), "Files: 3");
  EXPECT_EQ(panel(5), "Directories: 2");
  EXPECT_EQ(panel(7), "Duplicates: 2");
  EXPECT_EQ(panel(9), "State: Completed");
  EXPECT_EQ(helpTag(), "1004");
}

}  // namespace
}  // namespace quernstoke
