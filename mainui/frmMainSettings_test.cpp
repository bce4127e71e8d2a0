#include <QLabel>

#include "core/scanState.h"
#include "mainui/frmMainTest.h"
#include "mainui/quickHelp.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class MainWindowSettings : public MainWindowTest {
 protected:
  // What the boxes and what depends on them show: ticked letters, then the names that are enabled.
  static std::string ticks() {
    std::string letters;
    if (box("chkMatchingOption_0").isChecked()) letters += 'N';
    if (box("chkMatchingOption_1").isChecked()) letters += 'C';
    if (box("chkMatchingOption_2").isChecked()) letters += 'S';
    return letters;
  }
  static std::string enabledMark(const char* name) { return isEnabled(name) ? "+" : "-"; }
  // Of Name, Content, Size, the slow network box, the percent and Start.
  static std::string enabled() {
    return enabledMark("chkMatchingOption_0") + enabledMark("chkMatchingOption_1") +
           enabledMark("chkMatchingOption_2") + enabledMark("chkSlowNetwork") +
           enabledMark("txtContentMatchingPercent") + enabledMark("cmdStart");
  }
  static void clickBox(const char* name) { click(box(name), {8, box(name).height() / 2}); }
  static std::string memory() { return control<QLabel>("labBufferSizeMB").text().toStdString(); }
  std::string savedCriteria() {
    form().basSaveControlValues("PROFILE");
    return ProfileSettings.MatchingCriteria;
  }
};

using MainWindowMatchOptions = MainWindowSettings;
using MainWindowBufferMemory = MainWindowSettings;

TEST_F(MainWindowSettings, OfAProfileComeToTheScreen) {
  openAnn([] {
    ProfileSettings.Desc = "Holidays";
    ProfileSettings.ProcessZip = true;
    ProfileSettings.ScanSystemFiles = true;
    ProfileSettings.SlowNetwork = true;
    ProfileSettings.ContentMatchingPercent = 75;
    ProfileSettings.MinimumSize = 2147483647;
    ProfileSettings.MinimumSizeMeasure = "KB";
    ProfileSettings.MaximumSize = -5;
    ProfileSettings.MaximumSizeMeasure = "MB";
  });
  EXPECT_EQ(text("txtDescription"), "Holidays");
  EXPECT_TRUE(box("chkZip").isChecked());
  EXPECT_FALSE(box("chkScanHiddenSystem_0").isChecked());
  EXPECT_TRUE(box("chkScanHiddenSystem_1").isChecked());
  EXPECT_TRUE(box("chkSlowNetwork").isChecked());
  EXPECT_EQ(text("txtContentMatchingPercent"), "75");
  EXPECT_EQ(text("txtMinimumSize"), "2147483647");
  EXPECT_EQ(list("cboSizeMeasure_0").currentText(), "KB");
  EXPECT_EQ(text("txtMaximumSize"), "-5");
  EXPECT_EQ(list("cboSizeMeasure_1").currentText(), "MB");
  for (const char* name :
       {"txtDescription", "fraWhatToScan", "chkZip", "chkScanHiddenSystem_0",
        "chkScanHiddenSystem_1", "chkMatchingOption_0", "chkMatchingOption_1", "cmdDeleteProfile",
        "cmdStart", "fraStartMode", "cboSizeMeasure_0", "cboSizeMeasure_1", "txtMinimumSize",
        "txtMaximumSize", "gridList", "cmdAddList", "cmdEditList", "cmdDelList"})
    EXPECT_TRUE(isEnabled(name)) << name;
}

TEST_F(MainWindowSettings, OfTheInstallationComeToTheScreen) {
  GlobalSettings.NumberOfFileBuffers = 250;
  GlobalSettings.FileBufferSize = 4096;
  GlobalSettings.TransferFileLocally = false;
  GlobalSettings.TransferMaxDiskSpace = 3;
  GlobalSettings.TransferMaxDiskSpaceMeasure = "GB";
  GlobalSettings.TempPath = "C:\\Elsewhere";
  basSaveProfile("GLOBAL");
  open();
  EXPECT_EQ(text("txtNumberOfFileBuffers"), "250");
  EXPECT_EQ(text("txtFileBufferSize"), "4096");
  EXPECT_FALSE(box("chkTransferLocally").isChecked());
  EXPECT_EQ(text("txtMaxDiskSpace"), "3");
  EXPECT_EQ(list("cboSizeMeasure_2").currentText(), "GB");
  EXPECT_EQ(text("txtTempPath"), "C:\\Elsewhere");
  EXPECT_EQ(TempDir, "C:\\Elsewhere");
  EXPECT_EQ(memory(), "1.0MB");
}

TEST_F(MainWindowSettings, OfAProfileAreReadFromTheScreen) {
  openAnn();
  field("txtDescription").setText("Holidays");
  box("chkZip").setChecked(true);
  box("chkScanHiddenSystem_0").setChecked(true);
  box("chkSlowNetwork").setChecked(true);
  field("txtContentMatchingPercent").setText("75");
  field("txtMinimumSize").setText("1.5");
  list("cboSizeMeasure_0").setCurrentText("KB");
  field("txtMaximumSize").setText(" 2e3 ");
  list("cboSizeMeasure_1").setCurrentText("MB");
  form().basSaveControlValues("PROFILE");
  EXPECT_EQ(ProfileSettings.Desc, "Holidays");
  EXPECT_TRUE(ProfileSettings.ProcessZip);
  EXPECT_TRUE(ProfileSettings.ScanHiddenFiles);
  EXPECT_FALSE(ProfileSettings.ScanSystemFiles);
  EXPECT_TRUE(ProfileSettings.SlowNetwork);
  EXPECT_EQ(ProfileSettings.ContentMatchingPercent, 75);
  EXPECT_EQ(ProfileSettings.MinimumSize, 2);  // A half goes to the even neighbour.
  EXPECT_EQ(ProfileSettings.MinimumSizeMeasure, "KB");
  EXPECT_EQ(ProfileSettings.MaximumSize, 2000);
  EXPECT_EQ(ProfileSettings.MaximumSizeMeasure, "MB");
}

TEST_F(MainWindowSettings, OfTheInstallationAreReadFromTheScreenWithoutAProfileToo) {
  open();
  field("txtNumberOfFileBuffers").setText("1");
  field("txtFileBufferSize").setText("256");
  box("chkTransferLocally").setChecked(false);
  field("txtMaxDiskSpace").setText("-7");
  list("cboSizeMeasure_2").setCurrentText("KB");
  field("txtTempPath").setText("D:\\x");
  field("txtDescription").setText("of no profile");
  form().basSaveControlValues("");
  EXPECT_EQ(GlobalSettings.NumberOfFileBuffers, 1);
  EXPECT_EQ(GlobalSettings.FileBufferSize, 256);
  EXPECT_FALSE(GlobalSettings.TransferFileLocally);
  EXPECT_EQ(GlobalSettings.TransferMaxDiskSpace, -7);
  EXPECT_EQ(GlobalSettings.TransferMaxDiskSpaceMeasure, "KB");
  EXPECT_EQ(GlobalSettings.TempPath, "D:\\x");
  EXPECT_EQ(ProfileSettings.Desc, "");
}

TEST_F(MainWindowSettings, EachKindOfSavingReadsItsOwn) {
  openAnn();
  const auto change = [](const char* value) {
    field("txtDescription").setText(value);
    field("txtTempPath").setText(value);
  };
  change("1");
  form().basSaveControlValues("PROFILE");
  EXPECT_EQ(ProfileSettings.Desc + "," + GlobalSettings.TempPath, "1,C:\\Quernstoke\\temp");
  change("2");
  form().basSaveControlValues("GLOBAL");
  EXPECT_EQ(ProfileSettings.Desc + "," + GlobalSettings.TempPath, "1,2");
  change("3");
  form().basSaveControlValues("");
  EXPECT_EQ(ProfileSettings.Desc + "," + GlobalSettings.TempPath, "3,3");
  change("4");
  form().basSaveControlValues("other");
  EXPECT_EQ(ProfileSettings.Desc + "," + GlobalSettings.TempPath, "3,3");
}

TEST_F(MainWindowSettings, TypingChangesNoSetting) {
  openAnn();
  field("txtMinimumSize").selectAll();
  field("txtMinimumSize").setFocus();
  typeText(form(), "77");
  EXPECT_EQ(text("txtMinimumSize"), "77");
  EXPECT_EQ(ProfileSettings.MinimumSize, 32);
}

TEST_F(MainWindowSettings, ADamagedMeasureEndsTheFillingThere) {
  openAnn([] {
    ProfileSettings.MinimumSize = 77;
    ProfileSettings.MinimumSizeMeasure = "kb";
    ProfileSettings.MaximumSize = 88;
    setDirectory(1, "C:\\Photos", "I");
  });
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basUpdateProfileObjects",
                                         "Invalid procedure call or argument(5)")));
  EXPECT_EQ(text("txtMinimumSize"), "77");
  EXPECT_EQ(text("txtMaximumSize"), "2");
  EXPECT_EQ(grid().rows(), 1);
  EXPECT_EQ(panel(1), "Profile: Ann");
}

TEST_F(MainWindowSettings, NumbersThatDoNotFitEndTheReadingThere) {
  openAnn();
  field("txtTempPath").setText("C:\\Elsewhere");
  field("txtFileBufferSize").setText("2147483648");
  dialogBoxes.messages.clear();  // Of the label.
  form().basSaveControlValues("");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basSaveControlValues", "Overflow(6)")));
  EXPECT_EQ(GlobalSettings.FileBufferSize, 8192);
  EXPECT_EQ(GlobalSettings.TempPath, "C:\\Quernstoke\\temp");
}

TEST_F(MainWindowSettings, TextThatIsNoNumberEndsTheReadingThere) {
  openAnn();
  for (const char* hostile : {"", "many", "0x10", "1,000", "\u200F5", "٣"}) {
    field("txtMinimumSize").setText(hostile);
    dialogBoxes.messages.clear();
    form().basSaveControlValues("PROFILE");
    EXPECT_THAT(dialogBoxes.messages,
                ElementsAre(procedureError("basSaveControlValues", "Type mismatch(13)")))
        << hostile;
    EXPECT_EQ(ProfileSettings.MinimumSize, 32);
  }
}

// A record of settings ends at a control character.
TEST_F(MainWindowSettings, ControlCharactersOfAPasteAreNotSaved) {
  openAnn();
  field("txtDescription").setText(QString::fromUtf8("a\tb\r\nc\0d\x7f\u202Ee", 13));
  field("txtTempPath").setText("C:\\a\tb\r");
  form().basSaveControlValues("");
  EXPECT_EQ(ProfileSettings.Desc, "abcd\u202Ee");
  EXPECT_EQ(GlobalSettings.TempPath, "C:\\ab");
  basSaveProfile("PROFILE");
  choose("Ann");
  EXPECT_EQ(text("txtDescription"), "abcd\u202Ee");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// Names on a disk may be of any bytes.
TEST_F(MainWindowSettings, BytesThatAreNoTextComeBackAsTheyWere) {
  haveProfile("M\xFCll", [] { ProfileSettings.Desc = "\xE4 \xC3\xA4 \xFF"; });
  GlobalSettings.TempPath = "C:\\Photos\\\xD6";
  basSaveProfile("GLOBAL");
  open();
  list("cboProfile").setCurrentIndex(1);
  emit list("cboProfile").activated(1);
  EXPECT_EQ(ProfileName, "M\xFCll");
  ProfileSettings.Desc.clear();
  form().basSaveControlValues("");
  EXPECT_EQ(ProfileSettings.Desc, "\xE4 \xC3\xA4 \xFF");
  EXPECT_EQ(GlobalSettings.TempPath, "C:\\Photos\\\xD6");
}

TEST_F(MainWindowSettings, ALongDescriptionIsKept) {
  openAnn();
  const QString longText(10000, u'ü');
  field("txtDescription").setText(longText);
  choose("Ann");
  EXPECT_EQ(field("txtDescription").text(), longText);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(MainWindowSettings, TempDirFollowsTheFieldWhenLocalCopiesAreClicked) {
  open();
  showGlobalPage();
  field("txtTempPath").setText("C:\\Photos");
  EXPECT_EQ(TempDir, "C:\\Quernstoke\\temp");
  clickBox("chkTransferLocally");
  EXPECT_EQ(TempDir, "C:\\Photos");
  EXPECT_TRUE(isEnabled("txtMaxDiskSpace"));
  EXPECT_TRUE(isEnabled("txtTempPath"));
}

TEST_F(MainWindowSettings, BrowsingPutsTheDirectoryPickedIntoTheField) {
  open();
  showGlobalPage();
  std::string offered;
  modalForms.frmDirTree = [&] {
    offered = DialogText;
    EXPECT_EQ(DialogValue, 0);
    DialogText = "C:\\Nowhere";
  };
  DialogValue = 7;
  click(button("cmdBrowse_0"));
  EXPECT_EQ(offered, "C:\\Quernstoke\\temp");
  EXPECT_EQ(text("txtTempPath"), "C:\\Nowhere");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());  // It is looked at when the field is left.
}

TEST_F(MainWindowSettings, BrowsingThatWasGivenUpLeavesTheField) {
  open();
  showGlobalPage();
  modalForms.frmDirTree = [] { DialogText.clear(); };
  click(button("cmdBrowse_0"));
  EXPECT_EQ(text("txtTempPath"), "C:\\Quernstoke\\temp");
}

TEST_F(MainWindowSettings, FileTypesAreEditedInTheirDialog) {
  open();
  showGlobalPage();
  int shown = 0;
  modalForms.frmAddFileType = [&] { ++shown; };
  click(button("cmdEditFileTypes"));
  EXPECT_EQ(shown, 1);
}

TEST_F(MainWindowSettings, TheStartModesAreShownForAScanThatCanGoOn) {
  for (int mode = 0; mode <= 7; ++mode) {
    const std::string name = "P" + std::to_string(mode);
    haveProfile(name, [&] { ProfileSettings.RunMode = mode; });
  }
  open();
  for (int mode = 0; mode <= 7; ++mode) {
    choose("P" + std::to_string(mode));
    const bool canGoOn = mode >= 1 && mode <= 3;
    EXPECT_EQ(control<QWidget>("fraStartMode").isVisible(), canGoOn) << mode;
    EXPECT_EQ(button("optStartModes_0").isChecked(), !canGoOn) << mode;
    EXPECT_EQ(button("optStartModes_1").isChecked(), canGoOn) << mode;
  }
}

struct CriteriaCase {
  const char* stored;
  const char* ticked;
  const char* enabled;
  const char* savedAgain;
};

// Only the first letter of a combination comes back.
TEST_F(MainWindowMatchOptions, NarrowToTheFirstLetterWhenAProfileIsLoaded) {
  for (const CriteriaCase& c : std::vector<CriteriaCase>{{"N", "N", "+++--+", "N"},
                                                         {"CS", "CS", "++-+++", "CS"},
                                                         {"C", "CS", "++-+++", "CS"},
                                                         {"S", "S", "+-+--+", "S"},
                                                         {"NCS", "N", "+++--+", "N"},
                                                         {"NS", "N", "+++--+", "N"},
                                                         {"n", "", "+++--+", ""},
                                                         {"xC", "", "+++--+", ""}}) {
    haveProfile("Ann", [&] { ProfileSettings.MatchingCriteria = c.stored; });
    open();
    choose("Ann");
    EXPECT_EQ(ticks(), c.ticked) << c.stored;
    EXPECT_EQ(enabled(), c.enabled) << c.stored;
    EXPECT_EQ(savedCriteria(), c.savedAgain) << c.stored;
    window.unload();
    settle();
  }
}

// The state of the former profile's boxes takes no part.
TEST_F(MainWindowMatchOptions, AreThoseOfTheProfileWhateverWasShownBefore) {
  for (const char* criteria : {"N", "C", "S"})
    haveProfile(criteria, [&] { ProfileSettings.MatchingCriteria = criteria; });
  open();
  for (const char* before : {"N", "C", "S"})
    for (const auto& [name, ticked] :
         std::vector<std::pair<std::string, std::string>>{{"N", "N"}, {"C", "CS"}, {"S", "S"}}) {
      choose(before);
      choose(name);
      EXPECT_EQ(ticks(), ticked) << before << " then " << name;
    }
}

TEST_F(MainWindowMatchOptions, WithNoneStoredStartIsOnUntilTheFirstClick) {
  openAnn([] { ProfileSettings.MatchingCriteria.clear(); });
  EXPECT_EQ(ticks() + enabled(), "+++--+");
  clickBox("chkMatchingOption_0");
  EXPECT_EQ(ticks() + enabled(), "N+++--+");
  clickBox("chkMatchingOption_0");
  EXPECT_EQ(ticks() + enabled(), "+++---");
}

TEST_F(MainWindowMatchOptions, ContentBringsSizeAlongAndHoldsIt) {
  openAnn([] { ProfileSettings.MatchingCriteria.clear(); });
  clickBox("chkMatchingOption_1");
  EXPECT_EQ(ticks() + enabled(), "CS++-+++");
  clickBox("chkMatchingOption_2");  // Held.
  EXPECT_EQ(ticks() + enabled(), "CS++-+++");
  clickBox("chkMatchingOption_1");
  EXPECT_EQ(ticks() + enabled(), "+++---");
}

TEST_F(MainWindowMatchOptions, SizeShutsContent) {
  openAnn([] { ProfileSettings.MatchingCriteria.clear(); });
  clickBox("chkMatchingOption_2");
  EXPECT_EQ(ticks() + enabled(), "S+-+--+");
  clickBox("chkMatchingOption_1");
  EXPECT_EQ(ticks() + enabled(), "S+-+--+");
  clickBox("chkMatchingOption_2");
  EXPECT_EQ(ticks() + enabled(), "+++---");
}

TEST_F(MainWindowMatchOptions, NameIsFreeInAllCases) {
  openAnn();
  clickBox("chkMatchingOption_0");
  EXPECT_EQ(ticks() + enabled(), "NCS++-+++");
  EXPECT_EQ(savedCriteria(), "NCS");
  clickBox("chkMatchingOption_1");
  clickBox("chkMatchingOption_2");
  EXPECT_EQ(ticks() + enabled(), "NS+-+--+");
  EXPECT_EQ(savedCriteria(), "NS");
}

TEST_F(MainWindowMatchOptions, WorkByKeyboard) {
  openAnn([] { ProfileSettings.MatchingCriteria.clear(); });
  box("chkMatchingOption_1").setFocus();
  pressKey(form(), Qt::Key_Space);
  EXPECT_EQ(ticks() + enabled(), "CS++-+++");
}

TEST_F(MainWindowMatchOptions, SlowMediaIsSavedAsItStandsWhileItIsDisabled) {
  openAnn([] { ProfileSettings.SlowNetwork = true; });
  clickBox("chkMatchingOption_1");
  EXPECT_FALSE(isEnabled("chkSlowNetwork"));
  form().basSaveControlValues("PROFILE");
  EXPECT_TRUE(ProfileSettings.SlowNetwork);
}

TEST_F(MainWindowMatchOptions, UntickingAllTellsToChooseOptions) {
  openAnn([] { setDirectory(1, "C:\\Photos", "I"); });
  clickBox("chkMatchingOption_1");
  EXPECT_EQ(HelpState, 2);
  EXPECT_EQ(helpTag(), "1002");
  pointAt(control<QWidget>("fraScanOptions"), {3, 3});
  EXPECT_EQ(helpTag(), "1002");
}

// A combination survives a scan that is started at once, since it is saved with all its letters.
TEST_F(MainWindowMatchOptions, ACombinationIsScannedAsTickedAndComesBackAsName) {
  openAnn();
  clickBox("chkMatchingOption_0");
  click(button("cmdStart"));
  EXPECT_TRUE(MatchByName && MatchByContent && MatchBySize);
  EXPECT_THAT(profileFile("Ann"), HasSubstr("MatchingCriteria\t0\tNCS\tS\r"));
  settle();
  window.show();
  EXPECT_EQ(ticks(), "N");
  choose("Ann");
  EXPECT_THAT(profileFile("Ann"), HasSubstr("MatchingCriteria\t0\tN\tS\r"));
}

TEST_F(MainWindowBufferMemory, FollowsBothFieldsAsTheyAreTyped) {
  open();
  EXPECT_EQ(memory(), "3.9MB");
  field("txtNumberOfFileBuffers").setText("1000");
  EXPECT_EQ(memory(), "7.8MB");
  field("txtFileBufferSize").setText("1048576");
  EXPECT_EQ(memory(), "1000.0MB");
  field("txtFileBufferSize").setText("1");
  EXPECT_EQ(memory(), "0.0MB");
}

TEST_F(MainWindowBufferMemory, KeepsItsTextWhileAFieldIsNoSuchNumber) {
  open();
  for (const char* name : {"txtNumberOfFileBuffers", "txtFileBufferSize"})
    for (const char* bad : {"", "many", "0", "-1", "0.4"}) {
      field(name).setText(bad);
      EXPECT_EQ(memory(), "3.9MB") << name << bad;
    }
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(MainWindowBufferMemory, HasThePersonsDecimalPoint) {
  locale.point = ",";
  open();
  EXPECT_EQ(memory(), "3,9MB");
}

TEST_F(MainWindowBufferMemory, HasRoomForTheLargestNumbers) {
  open();
  field("txtNumberOfFileBuffers").setText("2147483647");
  field("txtFileBufferSize").setText("2147483647");
  EXPECT_EQ(memory(), "4398046507008.0MB");
}

TEST_F(MainWindowBufferMemory, ANumberThatDoesNotFitIsReportedOnce) {
  open();
  field("txtFileBufferSize").setText("99999999999999999999");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basUpdateBufferMemoryLabel", "Overflow(6)")));
  EXPECT_EQ(memory(), "3.9MB");
}

}  // namespace
}  // namespace quernstoke
