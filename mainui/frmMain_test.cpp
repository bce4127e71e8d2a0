#include "mainui/frmMain.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTabBar>
#include <QToolButton>
#include <vector>

#include "core/scanState.h"
#include "mainui/frmMainTest.h"
#include "mainui/quickHelp.h"
#include "progress/scanStatus.h"
#include "testing/qt/input.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MainWindowFormTest : public MainWindowTest {
 protected:
  static std::string focused() { return form().focusWidget()->objectName().toStdString(); }
  static std::vector<std::string> entries(const char* name) {
    std::vector<std::string> texts;
    for (int i = 0; i < list(name).count(); ++i)
      texts.push_back(list(name).itemText(i).toStdString());
    return texts;
  }
  static std::string caption(const char* name) {
    const auto* const label = form().findChild<QLabel*>(name);
    const auto* const frame = form().findChild<QGroupBox*>(name);
    const QString text = label ? label->text() : frame ? frame->title() : button(name).text();
    return text.toStdString();
  }
  static std::string pageOf(const char* name) {
    const QWidget* widget = &control<QWidget>(name);
    while (widget != nullptr && widget->objectName() != "tabProfileSettings" &&
           widget->objectName() != "tabGlobalSettings")
      widget = widget->parentWidget();
    return widget == nullptr ? "" : widget->objectName().toStdString();
  }
  static std::string frameOf(const char* name) {
    return control<QWidget>(name).parentWidget()->objectName().toStdString();
  }
};

using MainWindowLoad = MainWindowFormTest;
using MainWindowControls = MainWindowFormTest;

struct CaptionCase {
  const char* name;
  const char* caption;
};

TEST_F(MainWindowControls, HaveTheirCaptions) {
  open();
  for (const auto& [name, expected] : std::vector<CaptionCase>{
           {"Label23", "Help"},
           {"fraHelp", ""},
           {"fraProfile", "Profile:"},
           {"fraWhatToScan", "What to Scan:"},
           {"cmdAddList", "Add"},
           {"cmdEditList", "Edit"},
           {"cmdDelList", "Del"},
           {"chkZip", "Scan inside zip files"},
           {"chkScanHiddenSystem_0", "Scan hidden files"},
           {"chkScanHiddenSystem_1", "Scan system files"},
           {"fraScanOptions", "Scan Options:"},
           {"labMatching", "Match on:"},
           {"chkMatchingOption_0", "Name"},
           {"chkMatchingOption_1", "Content"},
           {"chkMatchingOption_2", "Size"},
           {"labMatchingPercent", "Matching Percent:"},
           {"Label71", "Only compare files greater than:"},
           {"Label20", "and less than:"},
           {"Label4", "Optimize for slow media:"},
           {"chkSlowNetwork", ""},
           {"cmdStart", "Start"},
           {"cmdExit_0", "Exit"},
           {"fraStartMode", "Start modes:"},
           {"optStartModes_0", "New"},
           {"optStartModes_1", "Continue"},
           {"fraPerformance", "Performance:"},
           {"Label1", "Memory allocation for buffered files"},
           {"labFileComparisionBuffers", "File comparision buffers:"},
           {"labDiskReadCheckSize", "Disk read chunk size:"},
           {"Label18", "For local hard drives 8192 is recommended."},
           {"Label19", "Total memory usage:"},
           {"chkTransferLocally", "For slow media, transfer file locally if required"},
           {"labMaxDiskSpace", "Maximum disk space for local files:"},
           {"labMaxDiskSpaceHelp", "Includes temporary usage for zip extractions"},
           {"Label6", "Store local files in:"},
           {"cmdBrowse_0", "..."},
           {"fraFileTypes", "File Types:"},
           {"cmdEditFileTypes", "Edit file types"},
           {"cmdViewPreviousResults", ""},
           {"cmdDeleteProfile", ""}})
    EXPECT_EQ(caption(name), expected) << name;
  EXPECT_EQ(form().windowTitle(), "Quernstoke 2.0 - Find Duplicate Files");
  EXPECT_EQ(control<QTabWidget>("tabMain").tabText(0), "Profile Settings");
  EXPECT_EQ(control<QTabWidget>("tabMain").tabText(1), "Global Settings");
  EXPECT_EQ(control<QTabWidget>("tabMain").count(), 2);
}

TEST_F(MainWindowControls, StandInTheirFrames) {
  open();
  for (const char* name :
       {"cboProfile", "txtDescription", "cmdViewPreviousResults", "cmdDeleteProfile"})
    EXPECT_EQ(frameOf(name), "fraProfile") << name;
  for (const char* name : {"gridList", "cmdAddList", "cmdEditList", "cmdDelList", "chkZip",
                           "chkScanHiddenSystem_0", "chkScanHiddenSystem_1"})
    EXPECT_EQ(frameOf(name), "fraWhatToScan") << name;
  for (const char* name : {"chkMatchingOption_0", "chkMatchingOption_1", "chkMatchingOption_2",
                           "txtContentMatchingPercent", "txtMinimumSize", "cboSizeMeasure_0",
                           "txtMaximumSize", "cboSizeMeasure_1", "chkSlowNetwork", "labMatching",
                           "labMatchingPercent", "Label71", "Label20", "Label4"})
    EXPECT_EQ(frameOf(name), "fraScanOptions") << name;
  for (const char* name :
       {"txtNumberOfFileBuffers", "txtFileBufferSize", "labBufferSizeMB", "chkTransferLocally",
        "txtMaxDiskSpace", "cboSizeMeasure_2", "txtTempPath", "cmdBrowse_0", "Label1", "Label18",
        "Label19", "labFileComparisionBuffers", "labDiskReadCheckSize", "labMaxDiskSpace",
        "labMaxDiskSpaceHelp", "Label6"})
    EXPECT_EQ(frameOf(name), "fraPerformance") << name;
  for (const char* name : {"optStartModes_0", "optStartModes_1"})
    EXPECT_EQ(frameOf(name), "fraStartMode") << name;
  EXPECT_EQ(frameOf("cmdEditFileTypes"), "fraFileTypes");
  for (const char* name : {"txtHelp", "Label23"})
    EXPECT_EQ(frameOf(name), "fraHelp") << name;
  EXPECT_EQ(frameOf("labSizer"), "frmMain");
  for (const char* name :
       {"fraProfile", "fraWhatToScan", "fraScanOptions", "cmdStart", "cmdExit_0", "fraStartMode"})
    EXPECT_EQ(pageOf(name), "tabProfileSettings") << name;
  for (const char* name : {"fraPerformance", "fraFileTypes"})
    EXPECT_EQ(pageOf(name), "tabGlobalSettings") << name;
  for (const char* name : {"fraHelp", "sbarStatus"})
    EXPECT_EQ(pageOf(name), "") << name;
}

TEST_F(MainWindowControls, HaveTheirDefaultsBeforeAProfileIsChosen) {
  open();
  EXPECT_EQ(text("txtDescription"), "");
  EXPECT_EQ(text("txtContentMatchingPercent"), "100");
  EXPECT_EQ(field("txtContentMatchingPercent").maxLength(), 3);
  EXPECT_EQ(text("txtMinimumSize"), "1");
  EXPECT_EQ(text("txtMaximumSize"), "2");
  EXPECT_EQ(list("cboSizeMeasure_0").currentText(), "B");
  EXPECT_EQ(list("cboSizeMeasure_1").currentText(), "GB");
  for (const char* name : {"txtMinimumSize", "txtMaximumSize"})
    EXPECT_TRUE(field(name).alignment().testFlag(Qt::AlignRight)) << name;
  for (const char* name : {"cboSizeMeasure_0", "cboSizeMeasure_1", "cboSizeMeasure_2"})
    EXPECT_THAT(entries(name), ElementsAre("B", "KB", "MB", "GB")) << name;
  EXPECT_EQ(text("txtNumberOfFileBuffers"), "500");
  EXPECT_EQ(text("txtFileBufferSize"), "8192");
  EXPECT_FALSE(list("cboProfile").isEditable());
  EXPECT_EQ(button("cmdDeleteProfile").toolTip(), "Delete current profile");
  EXPECT_EQ(control<PanelStatusBar>("sbarStatus").panelCount(), 9);
}

TEST_F(MainWindowControls, PicturesAndBareControlsHaveNamesForThoseWhoCannotSeeThem) {
  open();
  for (const char* name : {"cmdViewPreviousResults", "cmdDeleteProfile"})
    EXPECT_FALSE(button(name).icon().isNull()) << name;
  for (const char* name : {"cmdViewPreviousResults", "cmdDeleteProfile", "cmdBrowse_0",
                           "cboProfile", "txtDescription", "gridList", "chkSlowNetwork",
                           "cboSizeMeasure_0", "cboSizeMeasure_1", "cboSizeMeasure_2", "txtHelp"})
    EXPECT_FALSE(control<QWidget>(name).accessibleName().isEmpty()) << name;
}

// The fields' labels name them.
TEST_F(MainWindowControls, LabelsBelongToTheirFields) {
  open();
  for (const auto& [label, name] : std::vector<std::pair<const char*, const char*>>{
           {"labMatchingPercent", "txtContentMatchingPercent"},
           {"Label71", "txtMinimumSize"},
           {"Label20", "txtMaximumSize"},
           {"Label4", "chkSlowNetwork"},
           {"labFileComparisionBuffers", "txtNumberOfFileBuffers"},
           {"labDiskReadCheckSize", "txtFileBufferSize"},
           {"labMaxDiskSpace", "txtMaxDiskSpace"},
           {"Label6", "txtTempPath"}})
    EXPECT_EQ(control<QLabel>(label).buddy(), &control<QWidget>(name)) << label;
}

TEST_F(MainWindowControls, TabGoesThroughThemInTheirOrder) {
  openAnn([] {
    ProfileSettings.RunMode = runState::paused;
    setDirectory(1, "C:\\Photos", "I");
  });
  list("cboProfile").setFocus();
  std::vector<std::string> order;
  for (int press = 0; press < 19; ++press) {
    order.push_back(focused());
    pressKey(form(), Qt::Key_Tab);
  }
  // Size follows Content and can't be reached while that is ticked.
  EXPECT_THAT(
      order,
      ElementsAre("cboProfile", "txtDescription", "cmdViewPreviousResults", "cmdDeleteProfile",
                  "gridList", "cmdAddList", "cmdEditList", "cmdDelList", "chkZip",
                  "chkScanHiddenSystem_0", "chkScanHiddenSystem_1", "chkMatchingOption_0",
                  "chkMatchingOption_1", "txtContentMatchingPercent", "txtMinimumSize",
                  "cboSizeMeasure_0", "txtMaximumSize", "cboSizeMeasure_1", "chkSlowNetwork"));
  EXPECT_EQ(focused(), "optStartModes_0");
  pressKey(form(), Qt::Key_Tab);
  EXPECT_EQ(focused(), "cmdStart");
  pressKey(form(), Qt::Key_Tab);
  EXPECT_EQ(focused(), "cmdExit_0");
  pressKey(form(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(focused(), "cmdStart");
}

TEST_F(MainWindowControls, TheListOfProfilesHasTheFocusAtFirst) {
  open();
  EXPECT_EQ(focused(), "cboProfile");
}

TEST_F(MainWindowControls, TabGoesThroughTheGlobalPage) {
  open();
  showGlobalPage();
  field("txtNumberOfFileBuffers").setFocus();
  std::vector<std::string> order;
  for (int press = 0; press < 8; ++press) {
    order.push_back(focused());
    pressKey(form(), Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("txtNumberOfFileBuffers", "txtFileBufferSize",
                                 "chkTransferLocally", "txtMaxDiskSpace", "cboSizeMeasure_2",
                                 "txtTempPath", "cmdBrowse_0", "cmdEditFileTypes"));
  EXPECT_EQ(form().focusWidget(), control<QTabWidget>("tabMain").tabBar());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// Nothing in this window is done by Enter or Escape but pressing the button that has the focus.
TEST_F(MainWindowControls, EnterAndEscapeInAFieldDoNothing) {
  openAnn();
  for (const char* name :
       {"txtDescription", "txtMinimumSize", "cboProfile", "gridList", "txtHelp"}) {
    control<QWidget>(name).setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
      pressKey(form(), key);
    EXPECT_TRUE(window.isLoaded()) << name;
  }
  EXPECT_THAT(windows, IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(MainWindowControls, EnterPressesTheButtonThatHasTheFocus) {
  openAnn();
  button("cmdDeleteProfile").setFocus();
  dialogBoxes.answers = {Answer::cancel};
  pressKey(form(), Qt::Key_Enter);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Delete profile 'Ann'"));
  button("cmdExit_0").setFocus();
  pressKey(form(), Qt::Key_Return);
  EXPECT_FALSE(window.isLoaded());
}

// Any name may be chosen for a profile.
TEST_F(MainWindowControls, ALongNameLeavesTheWindowAsItWas) {
  open();
  const QSize least = form().minimumSizeHint();
  window.unload();
  settle();
  haveProfile(std::string(200, 'x'));
  open();
  choose(std::string(200, 'x'));
  settle();
  EXPECT_EQ(form().minimumSizeHint(), least);
  const StatusPanel& state = control<PanelStatusBar>("sbarStatus").panel(9);
  EXPECT_LT(state.left + state.width, form().width());
}

// Where the window can't be made to fit, its controls scroll.
TEST_F(MainWindowControls, OnASmallScreenTheScanCanStillBeStarted) {
  haveProfile("Ann");
  start();
  window.unload();
  settle();
  QScreen& small = *QGuiApplication::screens().back();
  ASSERT_LT(small.size().height(), form().minimumSizeHint().height());
  form().setScreen(&small);
  window.show();
  settle();
  choose("Ann");
  EXPECT_LE(form().height(), small.size().height());
  EXPECT_LE(form().width(), small.size().width());
  list("cboProfile").setFocus();
  for (int press = 0; press < 30 && focused() != "cmdExit_0"; ++press)
    pressKey(form(), Qt::Key_Tab);
  settle();
  for (const char* name : {"cmdStart", "cmdExit_0"})
    EXPECT_EQ(button(name).visibleRegion().boundingRect(), button(name).rect()) << name;
  HelpState = 2;
  pointAt(control<QWidget>("fraScanOptions"), {3, 3});
  EXPECT_EQ(helpTag(), "1002");
  pointAt(button("cmdExit_0"));
  EXPECT_EQ(helpTag(), "116");
  pointAt(const_cast<QWidget&>(*form().ground()), {1, form().ground()->height() - 1});
  EXPECT_EQ(helpTag(), "1002");
  click(button("cmdStart"));
  EXPECT_THAT(windows, testing::Contains("frmScanStatus show"));
}

TEST_F(MainWindowControls, FieldsHaveRoomForTheirNumbers) {
  open();
  QFont large = QApplication::font();
  for (const int points : {large.pointSize(), 2 * large.pointSize()}) {
    large.setPointSize(points);
    const QFont before = QApplication::font();
    QApplication::setFont(large);
    const forms::frmMain resized;
    QApplication::setFont(before);
    for (const auto& [name, number] :
         std::vector<std::pair<const char*, const char*>>{{"txtContentMatchingPercent", "100"},
                                                          {"txtMinimumSize", "2147483647"},
                                                          {"txtMaximumSize", "2147483647"},
                                                          {"txtMaxDiskSpace", "-2147483648"},
                                                          {"txtNumberOfFileBuffers", "100000"},
                                                          {"txtFileBufferSize", "32768"}}) {
      const auto& shown = *resized.findChild<QLineEdit*>(name);
      EXPECT_GT(shown.maximumWidth(), shown.fontMetrics().horizontalAdvance(number) + 4) << name;
    }
  }
}

// A row of tabs is scrolled past, as a list is.
TEST_F(MainWindowControls, TheWheelTurnsNoPageUnlessTheTabsHaveTheFocus) {
  openAnn();
  QTabBar& tabs = *control<QTabWidget>("tabMain").tabBar();
  field("txtMaximumSize").setFocus();
  turnWheel(tabs, -1);
  EXPECT_EQ(tabs.currentIndex(), 0);
  tabs.setFocus();
  turnWheel(tabs, -1);
  EXPECT_EQ(tabs.currentIndex(), 1);
}

TEST_F(MainWindowControls, ComesBackWithTheCaptionOfItsForm) {
  open();
  window.unload();
  window.show();
  EXPECT_EQ(form().windowTitle(), "Quernstoke - Find Duplicate files");
}

TEST_F(MainWindowLoad, WithoutAProfileOnlyTheChoiceOfOneIsOpen) {
  open();
  for (const char* name :
       {"txtDescription", "fraWhatToScan", "chkZip", "chkScanHiddenSystem_0",
        "chkScanHiddenSystem_1", "chkMatchingOption_0", "cmdDeleteProfile", "cmdStart",
        "fraStartMode", "cboSizeMeasure_0", "cboSizeMeasure_1", "txtMinimumSize", "txtMaximumSize",
        "gridList", "cmdAddList", "cmdEditList", "cmdDelList", "chkSlowNetwork",
        "txtContentMatchingPercent"})
    EXPECT_FALSE(isEnabled(name)) << name;
  for (const char* name : {"cboProfile", "cmdExit_0", "txtNumberOfFileBuffers", "txtFileBufferSize",
                           "chkTransferLocally", "txtMaxDiskSpace", "cboSizeMeasure_2",
                           "txtTempPath", "cmdBrowse_0", "cmdEditFileTypes"})
    EXPECT_TRUE(isEnabled(name)) << name;
  EXPECT_EQ(grid().rows(), 1);
  EXPECT_FALSE(control<QWidget>("fraStartMode").isVisible());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(MainWindowLoad, ListsTheProfilesAndSelectsNone) {
  haveProfile("Ann");
  haveProfile("ben");
  ProfileList.ProfileNameList[0] = "unlisted";
  ProfileList.ProfileNameList[5] = "Eve";
  basSaveProfile("GLOBAL");
  open();
  EXPECT_THAT(entries("cboProfile"), ElementsAre("<New Profile>", "Ann", "ben", "Eve"));
  EXPECT_EQ(list("cboProfile").currentIndex(), -1);
}

TEST_F(MainWindowLoad, BringsTheFirstPageWelcomesAndStartsCollapsed) {
  ScanDetailsShown = true;
  HelpState = 3;
  open();
  EXPECT_EQ(control<QTabWidget>("tabMain").currentIndex(), 0);
  EXPECT_EQ(helpTag(), "1000");
  EXPECT_FALSE(ScanDetailsShown);
  EXPECT_EQ(HelpState, 0);
}

// After a scan that was paused or aborted.
TEST_F(MainWindowLoad, WithAProfileInPlaceItIsShownAndStillWelcomed) {
  haveProfile("Ann", [] {
    ProfileSettings.Desc = "Holidays";
    ProfileSettings.RunMode = runState::paused;
  });
  open();
  window.unload();
  ProfileName = "Ann";
  window.show();
  settle();
  EXPECT_EQ(list("cboProfile").currentText(), "Ann");
  EXPECT_EQ(text("txtDescription"), "Holidays");
  EXPECT_TRUE(control<QWidget>("fraStartMode").isVisible());
  EXPECT_EQ(panel(1), "Profile: Ann");
  EXPECT_EQ(helpTag(), "1000");
}

// The profile in place isn't written by coming back to it.
TEST_F(MainWindowLoad, SelectingTheProfileInPlaceSavesNothing) {
  haveProfile("Ann");
  open();
  window.unload();
  ProfileName = "Ann";
  const std::string stored = profileFile("Ann");
  ProfileSettings.Desc = "not yet saved";
  disk.calls.clear();
  window.show();
  EXPECT_EQ(disk.count(DiskAction::write, ProfilesDir + "\\Ann.profile"), 0);
  EXPECT_EQ(profileFile("Ann"), stored);
}

// The list is full, or the profile came by the command line: nothing is selected, and the next
// choice counts.
TEST_F(MainWindowLoad, AProfileThatIsNotListedDoesNotSwallowTheNextChoice) {
  haveProfile("Ann");
  haveProfile("Ben");
  ProfileList.ProfileNameList[2].clear();
  basSaveProfile("GLOBAL");
  open();
  window.unload();
  ProfileName = "Ben";
  window.show();
  EXPECT_EQ(list("cboProfile").currentIndex(), -1);
  EXPECT_TRUE(isEnabled("txtDescription"));
  choose("Ann");
  EXPECT_EQ(ProfileName, "Ann");
  EXPECT_EQ(panel(1), "Profile: Ann");
}

// The name of a command line finds its profile in any letter case.
TEST_F(MainWindowLoad, TheProfileInPlaceIsSelectedInAnyLetterCase) {
  haveProfile("Ann");
  haveProfile("ANN");
  open();
  window.unload();
  settle();
  for (const auto& [name, entry] :
       {std::pair("ann", "Ann"), std::pair("ANN", "ANN"), std::pair("Ann", "Ann")}) {
    ProfileName = name;
    window.show();
    EXPECT_EQ(list("cboProfile").currentText(), entry) << name;
    EXPECT_EQ(ProfileName, name);
    window.unload();
    settle();
  }
}

TEST_F(MainWindowLoad, AProfileCalledLikeAKindOfSettingsIsReadAsOne) {
  haveProfile("GLOBAL");
  open();
  window.unload();
  ProfileName = "GLOBAL";
  disk.calls.clear();
  window.show();
  EXPECT_EQ(disk.count(DiskAction::open, ProfilesDir + "\\global.settings"), 1);
}

TEST_F(MainWindowLoad, DamagedMeasureIsReportedAndTheRestOfTheLoadGoesOn) {
  GlobalSettings.TransferMaxDiskSpaceMeasure = "TB";
  basSaveProfile("GLOBAL");
  open();
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basUpdateGlobalObjects",
                                         "Invalid procedure call or argument(5)")));
  EXPECT_EQ(list("cboSizeMeasure_2").currentIndex(), -1);
  EXPECT_EQ(text("txtMaxDiskSpace"), "50");
  // The procedure ended there.
  EXPECT_EQ(text("txtTempPath"), "");
  EXPECT_EQ(list("cboProfile").itemText(0), "<New Profile>");
}

TEST_F(MainWindowLoad, FirstStartMakesAProfileAndCreatesWhatIsMissing) {
  disk.erase(AppPath + "\\Profiles");
  open();
  EXPECT_THAT(entries("cboProfile"), ElementsAre("<New Profile>", "MyDocs"));
  EXPECT_EQ(ProfileName, "");
  choose("MyDocs");
  EXPECT_EQ(text("txtDescription"), "My Documents");
  EXPECT_EQ(grid().cell(1, 1).text, "C:\\Users\\Ann\\Documents");
  EXPECT_EQ(grid().cell(1, 3).text, "All files");
}

// The close box saves nothing.
TEST_F(MainWindowLoad, TheCloseBoxLeavesTheDiskAsItWas) {
  openAnn();
  field("txtDescription").setText("changed");
  const auto before = disk.allFiles();
  form().close();
  settle();
  EXPECT_FALSE(window.isLoaded());
  EXPECT_EQ(disk.allFiles(), before);
  EXPECT_THAT(windows, IsEmpty());
}

// Nobody is asked about a field that goes with its window.
TEST_F(MainWindowLoad, TheCloseBoxAsksNoFieldRule) {
  openAnn();
  click(field("txtMinimumSize"));
  field("txtMinimumSize").setText("many");
  form().close();
  settle();
  EXPECT_FALSE(window.isLoaded());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(MainWindowControls, TheWheelChangesOnlyTheListThatHasTheFocus) {
  openAnn();
  field("txtDescription").setFocus();
  turnWheel(list("cboSizeMeasure_0"), -1);
  EXPECT_EQ(list("cboSizeMeasure_0").currentText(), "B");
  list("cboSizeMeasure_0").setFocus();
  turnWheel(list("cboSizeMeasure_0"), -1);
  EXPECT_EQ(list("cboSizeMeasure_0").currentText(), "KB");
}

}  // namespace
}  // namespace quernstoke
