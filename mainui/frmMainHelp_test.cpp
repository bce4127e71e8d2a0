#include <QAbstractItemView>
#include <QRadioButton>
#include <QTabBar>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/scanState.h"
#include "mainui/frmMainTest.h"
#include "mainui/quickHelp.h"

namespace quernstoke {
namespace {

using testing::IsEmpty;

class MainWindowHelp : public MainWindowTest {
 protected:
  // With a directory, an option ticked and a paused scan, so that every control can be pointed at.
  void openAll() {
    openAnn([] {
      ProfileSettings.RunMode = runState::paused;
      setDirectory(1, "C:\\Photos", "I");
    });
  }
  // On a frame itself, beside its controls.
  static void expectNoHelpBeside(const char* frame) {
    forgetHelp();
    pointAt(control<QWidget>(frame), {2, 2});
    EXPECT_EQ(helpTag(), "0") << frame;
  }
  static void forgetHelp() { control<QWidget>("fraHelp").setProperty("Tag", "0"); }
};

using MainWindowStatusBar = MainWindowHelp;

struct HelpCase {
  const char* control;
  const char* id;
};

const std::vector<HelpCase> profileControls = {
    {"chkMatchingOption_0", "101"},
    {"chkMatchingOption_1", "102"},
    {"chkMatchingOption_2", "103"},
    {"chkSlowNetwork", "104"},
    {"txtMinimumSize", "105"},
    {"txtMaximumSize", "105"},
    {"optStartModes_0", "106"},
    {"optStartModes_1", "106"},
    {"chkZip", "107"},
    {"txtContentMatchingPercent", "108"},
    {"txtDescription", "110"},
    {"cmdAddList", "111"},
    {"cmdEditList", "112"},
    {"cmdDelList", "113"},
    {"cmdDeleteProfile", "114"},
    {"cmdViewPreviousResults", "115"},
    {"cmdExit_0", "116"},
    {"cmdStart", "133"},
    {"chkScanHiddenSystem_0", "140"},
    {"chkScanHiddenSystem_1", "141"},
};

const std::vector<HelpCase> globalControls = {
    {"cmdEditFileTypes", "118"},  {"chkTransferLocally", "119"}, {"txtMaxDiskSpace", "120"},
    {"txtTempPath", "121"},       {"cmdBrowse_0", "121"},        {"txtNumberOfFileBuffers", "122"},
    {"txtFileBufferSize", "123"},
};

void expectHelp(const std::vector<HelpCase>& cases, const std::function<void(QWidget&)>& act,
                forms::frmMain& form) {
  for (const auto& [name, id] : cases) {
    auto* const frame = form.findChild<QWidget*>("fraHelp");
    frame->setProperty("Tag", "0");
    act(*form.findChild<QWidget*>(name));
    EXPECT_EQ(frame->property("Tag").toString().toStdString(), id) << name;
  }
}

TEST_F(MainWindowHelp, PointingAtAControlShowsItsText) {
  openAll();
  const auto point = [](QWidget& widget) { pointAt(widget); };
  expectHelp(profileControls, point, form());
  showGlobalPage();
  expectHelp(globalControls, point, form());
}

TEST_F(MainWindowHelp, ReachingAControlByTabShowsItsText) {
  openAll();
  list("cboProfile").setFocus();
  for (const char* id : {"110", "115", "114", "142", "111", "112", "113", "107", "140", "141",
                         "101", "102", "108", "105"}) {
    pressKey(form(), Qt::Key_Tab);
    EXPECT_EQ(helpTag(), id);
  }
}

TEST_F(MainWindowHelp, TheGridHasItsText) {
  openAll();
  pointAt(*control<FlexGrid>("gridList").viewport(), {30, 40});
  EXPECT_EQ(helpTag(), "142");
  // Also within it, when something else has been shown meanwhile.
  forgetHelp();
  pointAt(*control<FlexGrid>("gridList").viewport(), {33, 44});
  EXPECT_EQ(helpTag(), "142");
}

TEST_F(MainWindowHelp, TheWelcomeTellsHowToGetAProfile) {
  open();
  EXPECT_THAT(help(),
              testing::EndsWith("Getting started tip:\n\nSelect an existing profile from the "
                                "drop-down list or choose 'New Profile' to create your "
                                "own."));
}

TEST_F(MainWindowHelp, TheTextStandsInThePanelWithItsLineBreaks) {
  openAll();
  pointAt(button("cmdExit_0"));
  EXPECT_THAT(help(), testing::StartsWith("Exit Quernstoke.\n\nPreviously PAUSED scans can "));
}

TEST_F(MainWindowHelp, GoesFromAControlToTheFrameAndBack) {
  openAll();
  FileCount = 0;
  pointAt(box("chkZip"));
  EXPECT_EQ(helpTag(), "107");
  pointAt(control<QWidget>("fraScanOptions"), {3, 3});
  EXPECT_EQ(helpTag(), "1003");
  pointAt(button("cmdStart"));
  EXPECT_EQ(helpTag(), "133");
  pointAt(control<QWidget>("fraScanOptions"), {3, 3});
  EXPECT_EQ(helpTag(), "1003");
  pointAt(button("cmdStart"));
  EXPECT_EQ(helpTag(), "133");
}

TEST_F(MainWindowHelp, TheSpacesBetweenTheControlsShowTheStep) {
  openAll();
  HelpState = 2;
  QTabWidget& tabs = control<QTabWidget>("tabMain");
  QTabBar& bar = *tabs.tabBar();
  const auto expectStep = [&](QWidget& widget, QPoint at, const char* what) {
    forgetHelp();
    pointAt(widget, at);
    EXPECT_EQ(helpTag(), "1002") << what;
  };
  for (const char* name : {"fraProfile", "fraWhatToScan", "fraScanOptions"})
    expectStep(control<QWidget>(name), {2, 2}, name);
  expectStep(form(), {1, 1}, "the form");
  expectStep(*tabs.widget(0), {1, 1}, "the page");
  expectStep(bar, bar.tabRect(1).center(), "a tab");
}

TEST_F(MainWindowHelp, OtherPlacesLeaveThePanelAsItWas) {
  openAll();
  for (const char* name : {"cboProfile", "cboSizeMeasure_0", "cboSizeMeasure_1", "labMatching",
                           "Label71", "txtHelp", "fraHelp", "Label23"}) {
    forgetHelp();
    pointAt(control<QWidget>(name));
    EXPECT_EQ(helpTag(), "0") << name;
  }
  expectNoHelpBeside("fraStartMode");
  showGlobalPage();
  for (const char* name : {"cboSizeMeasure_2", "Label1", "labBufferSizeMB"}) {
    forgetHelp();
    pointAt(control<QWidget>(name));
    EXPECT_EQ(helpTag(), "0") << name;
  }
  for (const char* name : {"fraPerformance", "fraFileTypes"})
    expectNoHelpBeside(name);
}

// The window may open under the pointer.
TEST_F(MainWindowHelp, TheWelcomeStaysUntilThePointerMoves) {
  openAll();
  pointAt(field("txtDescription"));
  EXPECT_EQ(helpTag(), "110");
  window.unload();
  window.show();
  settle();
  EXPECT_EQ(helpTag(), "1000");
}

// Only what the person reaches by keyboard; a click has been pointed at before.
TEST_F(MainWindowHelp, FocusByTheProgramShowsNothing) {
  openAll();
  forgetHelp();
  field("txtDescription").setFocus();
  EXPECT_EQ(helpTag(), "0");
}

TEST_F(MainWindowHelp, ThePanelCannotBeTypedInto) {
  openAll();
  const std::string before = help();
  click(*control<QPlainTextEdit>("txtHelp").viewport());
  typeText(form(), "abc");
  pressKey(form(), Qt::Key_Return);
  pressKey(form(), Qt::Key_Delete);
  EXPECT_EQ(help(), before);
  EXPECT_TRUE(control<QWidget>("fraHelp").isVisible());
  EXPECT_THAT(windows, IsEmpty());
}

TEST_F(MainWindowHelp, TellsTheStepThatAProfileHasReached) {
  haveProfile("none");
  haveProfile("dirs", [] {
    setDirectory(1, "C:\\Photos", "I");
    ProfileSettings.MatchingCriteria.clear();
  });
  haveProfile("options", [] { setDirectory(1, "C:\\Photos", "I"); });
  open();
  for (const auto& [name, tag] : std::vector<std::pair<const char*, const char*>>{
           {"none", "1001"}, {"dirs", "1002"}, {"options", "1003"}}) {
    choose(name);
    EXPECT_EQ(helpTag(), tag) << name;
  }
}

TEST_F(MainWindowStatusBar, ExplainsThePanelUnderThePointer) {
  openAll();
  PanelStatusBar& bar = control<PanelStatusBar>("sbarStatus");
  for (const auto& [number, tag] : std::vector<std::pair<int, const char*>>{
           {1, "150"}, {3, "151"}, {5, "152"}, {7, "153"}, {9, "154"}}) {
    const StatusPanel& panel = bar.panel(number);
    pointAt(bar, {panel.left + panel.width / 2, 5});
    EXPECT_EQ(helpTag(), tag) << number;
  }
}

TEST_F(MainWindowStatusBar, SeparatorsEdgesAndTheEmptyEndExplainNothing) {
  openAll();
  PanelStatusBar& bar = control<PanelStatusBar>("sbarStatus");
  const auto expectNothing = [&](int x) {
    forgetHelp();
    pointAt(bar, {x, 5});
    EXPECT_EQ(helpTag(), "0") << x;
  };
  for (const int number : {2, 4, 6, 8})
    expectNothing(bar.panel(number).left + bar.panel(number).width / 2);
  for (const int number : {1, 3, 5, 7, 9})
    expectNothing(bar.panel(number).left);  // Its edge belongs to none.
  expectNothing(bar.panel(9).left + bar.panel(9).width);
  expectNothing(bar.width() - 2);
}

TEST_F(MainWindowStatusBar, ShowsTheFiguresOfTheProfile) {
  openAll();
  DuplicateCount = -1;
  FileCount = 1234567;
  DirCount = 7;
  form().basUpdateStatusBar();
  EXPECT_EQ(panel(1), "Profile: Ann");
  EXPECT_EQ(panel(3), "Files: 1234567");
  EXPECT_EQ(panel(5), "Directories: 7");
  EXPECT_EQ(panel(7), "Duplicates: ?");
  EXPECT_EQ(panel(9), "State: Paused");
  for (const int number : {2, 4, 6, 8}) {
    EXPECT_EQ(panel(number), "") << number;
    EXPECT_EQ(control<PanelStatusBar>("sbarStatus").panel(number).tag, "") << number;
  }
  DuplicateCount = 0;
  ProfileSettings.RunMode = 7;
  form().basUpdateStatusBar();
  EXPECT_EQ(panel(7), "Duplicates: 0");
  EXPECT_EQ(panel(9), "State: Unknown");
  EXPECT_TRUE(control<QWidget>("sbarStatus").isVisible());
}

TEST_F(MainWindowStatusBar, IsHiddenWithoutAProfile) {
  openAll();
  ProfileName.clear();
  form().basUpdateStatusBar();
  EXPECT_FALSE(control<QWidget>("sbarStatus").isVisible());
}

}  // namespace
}  // namespace quernstoke
