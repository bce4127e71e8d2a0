#include <QRadioButton>
#include <utility>

#include "catalogue/fileTable.h"
#include "core/scanState.h"
#include "mainui/frmMainTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* noSpace =
    "You do not have enough disk space to store files locally. Disable option?";

// Results that can't be shown.
class BrokenResults : public ResultsWindow {
 public:
  void show() override { fail(FailureNumber::permissionDenied); }
  void unload() override { fail(FailureNumber::permissionDenied); }
};

class MainWindowExit : public MainWindowTest {
 protected:
  // A profile whose directory holds equal files.
  void haveTwins(const std::function<void()>& change = {}) {
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"})
      disk.file(std::string("C:\\Photos\\") + name, std::string(100, 'x'));
    haveProfile("Ann", [&] {
      setDirectory(1, "C:\\Photos", "I");
      if (change) change();
    });
  }
  void openTwins(const std::function<void()>& change = {}) {
    haveTwins(change);
    open();
    choose("Ann");
  }
  // Local copies are asked for, of at most 50 MB, and the drive has that many bytes.
  void openWithFreeBytes(std::int64_t bytes) {
    desk.space = DiskSpace{1, 1, bytes, 1 << 30};
    openTwins([] { ProfileSettings.SlowNetwork = true; });
  }
  // Whether the program ends by itself through this, rather than wait for its next event.
  static bool endsProgram(const std::function<void()>& act) {
    constexpr int stillRunning = 7;
    constexpr int roundsAfterwards = 50;
    int rounds = 0;
    QTimer idle;
    QObject::connect(&idle, &QTimer::timeout, [&] {
      if (++rounds == 1) act();
      if (rounds == roundsAfterwards) QCoreApplication::exit(stillRunning);
    });
    idle.start(0);
    return QApplication::exec() != stillRunning;
  }
};

using MainWindowStart = MainWindowExit;
using MainWindowCommandLine = MainWindowExit;

TEST_F(MainWindowStart, SavesBothPagesAndScans) {
  openTwins();
  field("txtDescription").setText("changed");
  field("txtNumberOfFileBuffers").setText("77");
  click(button("cmdStart"));
  settle();
  EXPECT_THAT(windows,
              ElementsAre("frmScanStatus show", "frmScanStatus unload", "frmResults show"));
  EXPECT_FALSE(window.isLoaded());
  EXPECT_EQ(StartMode, startMode::newScan);
  EXPECT_EQ(DuplicateCount, 2);
  EXPECT_THAT(profileFile("Ann"), HasSubstr("Desc\t0\tchanged\tS\r"));
  EXPECT_THAT(globalFile(), HasSubstr("NumberOfFileBuffers\t0\t77\tN\r"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(MainWindowStart, ContinuesAPausedScanUnlessNewIsChosen) {
  openTwins([] { ProfileSettings.RunMode = runState::paused; });
  EXPECT_TRUE(control<QRadioButton>("optStartModes_1").isChecked());
  click(button("cmdStart"));
  EXPECT_EQ(StartMode, startMode::continueScan);
}

TEST_F(MainWindowStart, StartsAPausedScanAnewIfNewIsChosen) {
  openTwins([] { ProfileSettings.RunMode = runState::paused; });
  click(control<QRadioButton>("optStartModes_0"), {5, 10});
  click(button("cmdStart"));
  EXPECT_EQ(StartMode, startMode::newScan);
}

// Some desktops put marks of shortcut keys into captions.
TEST_F(MainWindowStart, AMarkedCaptionIsStillUnderstood) {
  openTwins();
  button("optStartModes_0").setText("&New");
  click(button("cmdStart"));
  EXPECT_EQ(StartMode, startMode::newScan);
}

// A state that no scan leaves selects neither.
TEST_F(MainWindowStart, WithoutAStartModeNothingStarts) {
  openTwins([] { ProfileSettings.RunMode = 9; });
  field("txtDescription").setText("changed");
  StartMode = startMode::continueScan;
  click(button("cmdStart"));
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Internal error detected when finding start mode"));
  EXPECT_EQ(dialogBoxes.buttons.back(), Buttons::ok);
  EXPECT_EQ(dialogBoxes.titles.back(), "");
  EXPECT_EQ(StartMode, startMode::none);
  EXPECT_THAT(windows, IsEmpty());
  EXPECT_THAT(profileFile("Ann"), HasSubstr("Desc\t0\tchanged\tS\r"));
}

TEST_F(MainWindowStart, AFailedStartIsReportedByTheNameOfItsHandler) {
  openWithFreeBytes(0);
  dialogBoxes.failNext = FailureNumber::outOfMemory;
  click(button("cmdStart"));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("cmdStart_Click", "Out of memory(7)")));
  EXPECT_THAT(windows, IsEmpty());
}

TEST_F(MainWindowStart, AListWithoutDirectoriesIsScannedAllTheSame) {
  openAnn();
  click(button("cmdStart"));
  EXPECT_THAT(windows, testing::Contains("frmResults show"));
  EXPECT_EQ(FileCount, 0);
}

TEST_F(MainWindowStart, ALimitEqualToTheFreeSpacePasses) {
  openWithFreeBytes(50 * 1024 * 1024);
  click(button("cmdStart"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(desk.askedDrive, "C:\\");
  EXPECT_FALSE(window.isLoaded());
}

TEST_F(MainWindowStart, TooLittleSpaceIsAskedAboutAndCanStopIt) {
  openWithFreeBytes(50 * 1024 * 1024 - 1);
  field("txtDescription").setText("changed");
  dialogBoxes.answers = {Answer::cancel};
  click(button("cmdStart"));
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(noSpace));
  EXPECT_EQ(dialogBoxes.buttons.back(), Buttons::okCancel);
  EXPECT_EQ(dialogBoxes.titles.back(), "");
  EXPECT_THAT(profileFile("Ann"), HasSubstr("Desc\t0\tchanged\tS\r"));
  EXPECT_THAT(windows, IsEmpty());
  EXPECT_TRUE(window.isLoaded());
  EXPECT_TRUE(GlobalSettings.TransferFileLocally);
}

// The file keeps the option until the next saving.
TEST_F(MainWindowStart, WithTooLittleSpaceTheScanCanDoWithoutLocalCopies) {
  openWithFreeBytes(50 * 1024 * 1024 - 1);
  click(button("cmdStart"));
  settle();
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(noSpace));
  EXPECT_THAT(windows, testing::Contains("frmResults show"));
  EXPECT_FALSE(GlobalSettings.TransferFileLocally);
  EXPECT_THAT(globalFile(), HasSubstr("TransferFileLocally\t0\tTrue\tB\r"));
  window.show();
  EXPECT_FALSE(box("chkTransferLocally").isChecked());
}

TEST_F(MainWindowStart, SpaceIsOfNoConcernUnlessBothOptionsAreOn) {
  desk.space = DiskSpace{1, 1, 0, 1 << 30};
  openTwins();
  EXPECT_FALSE(box("chkSlowNetwork").isChecked());
  click(button("cmdStart"));
  EXPECT_EQ(desk.askedDrive, "");
  window.show();
  settle();
  box("chkSlowNetwork").setChecked(true);
  box("chkTransferLocally").setChecked(false);
  click(button("cmdStart"));
  EXPECT_EQ(desk.askedDrive, "");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// What doesn't fit ends the saving, not the start.
TEST_F(MainWindowStart, ASizeThatDoesNotFitIsReportedAndTheRestIsAsItWas) {
  openTwins();
  field("txtDescription").setText("changed");
  field("txtMinimumSize").setText("99999999999");
  field("txtMaximumSize").setText("7");
  field("txtNumberOfFileBuffers").setText("77");
  click(button("cmdStart"));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basSaveControlValues", "Overflow(6)")));
  EXPECT_EQ(ProfileSettings.Desc, "changed");
  EXPECT_EQ(ProfileSettings.MinimumSize, 32);
  EXPECT_EQ(ProfileSettings.MaximumSize, 2);
  EXPECT_EQ(GlobalSettings.NumberOfFileBuffers, 500);
  EXPECT_FALSE(window.isLoaded());
}

TEST_F(MainWindowStart, SettingsThatCannotBeWrittenAreReportedAndTheScanRuns) {
  openTwins();
  disk.setAttributes(ProfilesDir + "\\Ann.profile", attributeArchive | attributeReadOnly);
  disk.before = [this](const DiskCall& call) {
    const bool inProfiles = call.path.starts_with(ProfilesDir);
    if (inProfiles && (call.action == DiskAction::remove || call.action == DiskAction::write))
      throw Failure(FailureNumber::permissionDenied);
  };
  click(button("cmdStart"));
  EXPECT_THAT(dialogBoxes.messages,
              testing::Contains(procedureError("basSaveProfile", "Permission denied(70)")));
  EXPECT_EQ(DuplicateCount, 2);
  EXPECT_THAT(windows, testing::Contains("frmResults show"));
}

TEST_F(MainWindowStart, AfterAnAbortTheWindowIsBackWithItsProfileAndAWelcome) {
  openTwins();
  eventLoop.onYield = [] {
    if (RunState == runState::comparing || RunState == runState::buildingList)
      RunState = runState::abortRequested;
  };
  click(button("cmdStart"));
  settle();
  EXPECT_THAT(windows, ElementsAre("frmScanStatus show", "frmScanStatus unload"));
  ASSERT_TRUE(window.isLoaded());
  EXPECT_TRUE(form().isVisible());
  EXPECT_EQ(list("cboProfile").currentText(), "Ann");
  EXPECT_EQ(panel(9), "State: Aborted");
  EXPECT_EQ(helpTag(), "1000");
}

// While a profile is loaded, its settings are shown; a click that has been waiting comes in then.
TEST_F(MainWindowStart, AStartWhileItsProfileIsLoadedLeavesTheResultsAsTheyAre) {
  haveTwins();
  open();
  bool hasStarted = false;
  eventLoop.onYield = [&] {
    if (!std::exchange(hasStarted, true)) click(button("cmdStart"));
  };
  QTimer::singleShot(0, [] { choose("Ann"); });
  settle();
  EXPECT_FALSE(window.isLoaded());
  EXPECT_EQ(windows.back(), "frmResults show");
  EXPECT_EQ(FileCount, 3);
  EXPECT_EQ(FileTable.FileName.upperBound(), 3);
}

TEST_F(MainWindowExit, AWindowThatIsClosedWhileItsProfileIsLoadedStaysClosed) {
  haveProfile("Ann");
  open();
  eventLoop.onYield = [] { form().close(); };
  EXPECT_TRUE(endsProgram([] { choose("Ann"); }));
  EXPECT_FALSE(window.isLoaded());
}

TEST_F(MainWindowExit, HandlersReportTheirFailuresByTheirNames) {
  BrokenResults broken;
  openAnn([] { ProfileSettings.RunMode = runState::finished; });
  platform.frmResults = &broken;
  usePlatform(platform);
  click(button("cmdViewPreviousResults"));
  click(button("cmdExit_0"));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("cmdViewPreviousResults_Click", "Permission denied(70)"),
                          procedureError("cmdExit_Click", "Permission denied(70)")));
  EXPECT_TRUE(window.isLoaded());
}

TEST_F(MainWindowExit, PreviousResultsAreShownInItsPlace) {
  openAnn([] { ProfileSettings.RunMode = runState::finished; });
  const auto before = disk.allFiles();
  click(button("cmdViewPreviousResults"));
  EXPECT_THAT(windows, ElementsAre("frmResults show"));
  EXPECT_FALSE(window.isLoaded());
  EXPECT_EQ(disk.allFiles(), before);
}

TEST_F(MainWindowExit, WithoutAFinishedScanThereAreNoPreviousResults) {
  openAnn();
  for (int mode = 0; mode <= 7; ++mode) {
    if (mode == runState::finished) continue;
    ProfileSettings.RunMode = mode;
    click(button("cmdViewPreviousResults"));
  }
  ProfileSettings.RunMode = runState::finished;
  ProfileName.clear();
  click(button("cmdViewPreviousResults"));
  EXPECT_THAT(windows, IsEmpty());
  EXPECT_TRUE(window.isLoaded());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(MainWindowExit, ExitSavesAllAndEndsTheProgram) {
  openAnn();
  field("txtDescription").setText("changed");
  field("txtNumberOfFileBuffers").setText("77");
  buildCatalogue({{"a", "C:\\A"}});
  EXPECT_TRUE(endsProgram([] { click(button("cmdExit_0")); }));
  EXPECT_THAT(windows, ElementsAre("frmScanStatus unload", "frmResults unload"));
  EXPECT_FALSE(window.isLoaded());
  EXPECT_THAT(profileFile("Ann"), HasSubstr("Desc\t0\tchanged\tS\r"));
  EXPECT_THAT(globalFile(), HasSubstr("NumberOfFileBuffers\t0\t77\tN\r"));
  EXPECT_THAT(disk.content(ProfilesDir + "\\Ann.files"), HasSubstr("a"));
  EXPECT_TRUE(disk.exists(ProfilesDir + "\\Ann.dir"));
}

TEST_F(MainWindowExit, ExitWithoutAProfileSavesTheGlobalSettingsAlone) {
  open();
  const auto namesBefore = disk.names(ProfilesDir);
  field("txtTempPath").setText("C:\\Elsewhere");
  EXPECT_TRUE(endsProgram([] { click(button("cmdExit_0")); }));
  EXPECT_EQ(disk.names(ProfilesDir), namesBefore);
  EXPECT_THAT(globalFile(), HasSubstr("TempPath\t0\tC:\\Elsewhere\tS\r"));
}

// Nothing that can't be saved keeps a person in the program.
TEST_F(MainWindowExit, ExitEndsTheProgramEvenIfNothingCanBeSaved) {
  openAnn();
  disk.before = [](const DiskCall& call) {
    if (call.action != DiskAction::read) throw Failure(FailureNumber::permissionDenied);
  };
  EXPECT_TRUE(endsProgram([] { click(button("cmdExit_0")); }));
  EXPECT_FALSE(window.isLoaded());
  EXPECT_THAT(dialogBoxes.messages,
              testing::Contains(procedureError("basSaveProfile", "Permission denied(70)")));
}

TEST_F(MainWindowExit, TheCloseBoxEndsTheProgram) {
  openAnn();
  EXPECT_TRUE(endsProgram([] { form().close(); }));
}

TEST_F(MainWindowExit, AnOpenWindowKeepsTheProgramRunning) {
  openAnn();
  EXPECT_FALSE(endsProgram([] {}));
}

TEST_F(MainWindowCommandLine, RunsItsProfileMinimised) {
  haveTwins();
  ProcessCommandLine = "Ann";
  ShownState stateInScan = ShownState::normal;
  QPointer<forms::frmMain> first;
  eventLoop.onYield = [&] {
    if (first) stateInScan = first->shownState();
  };
  start();
  first = &form();
  EXPECT_EQ(ProfileName, "");  // Until the window is active.
  settle();
  EXPECT_EQ(stateInScan, ShownState::minimised);
  EXPECT_EQ(ProfileName, "Ann");
  EXPECT_EQ(StartMode, startMode::newScan);
  EXPECT_EQ(DuplicateCount, 2);
  EXPECT_THAT(windows,
              ElementsAre("frmScanStatus show", "frmScanStatus unload", "frmResults show"));
}

TEST_F(MainWindowCommandLine, WithoutDuplicatesTheProgramEndsAtOnce) {
  haveTwins([] { ProfileSettings.MinimumSize = 1000; });
  ProcessCommandLine = "Ann";
  EXPECT_TRUE(endsProgram([this] { start(); }));
  EXPECT_EQ(DuplicateCount, 0);
  EXPECT_THAT(windows, testing::Contains("frmScanStatus show"));
}

// One that was stopped has found nothing yet.
TEST_F(MainWindowCommandLine, AStoppedScanWithoutDuplicatesEndsTheProgramToo) {
  for (const std::int16_t request : {runState::abortRequested, runState::pauseRequested}) {
    haveTwins();
    ProcessCommandLine = "Ann";
    eventLoop.onYield = [request] {
      if (RunState == runState::comparing) RunState = request;
    };
    EXPECT_TRUE(endsProgram([this] { start(); }));
    EXPECT_EQ(DuplicateCount, 0);
    window.unload();
    settle();
  }
}

// Nobody could see why nothing happens.
TEST_F(MainWindowCommandLine, TheWindowComesBackIfTheScanCannotBeginAfterOneThatFoundDuplicates) {
  haveTwins([] { ProfileSettings.NumDuplicates = 2; });
  ProcessCommandLine = "Ann";
  start();
  disk.before = [](const DiskCall& call) {
    if (call.path.ends_with(".log")) throw Failure(FailureNumber::permissionDenied);
  };
  settle();
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basStartScan", "Permission denied(70)")));
  ASSERT_TRUE(window.isLoaded());
  EXPECT_EQ(form().shownState(), ShownState::normal);
  EXPECT_THAT(windows, IsEmpty());
}

// It is taken whole: neither blanks nor quotes come off.
TEST_F(MainWindowCommandLine, AnUnknownProfileLeavesTheWindowMinimisedWithoutAWord) {
  for (const char* line : {"Ben", "\"Ann\"", " Ann", "Ann --new"}) {
    haveTwins();
    ProcessCommandLine = line;
    start();
    settle();
    EXPECT_EQ(ProfileName, "") << line;
    ASSERT_TRUE(window.isLoaded());
    EXPECT_EQ(form().shownState(), ShownState::minimised);
    window.unload();
    settle();
  }
  EXPECT_THAT(windows, IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(MainWindowCommandLine, ItIsConsumedByOneActivation) {
  ProcessCommandLine = "Ann";
  start();
  settle();
  haveTwins();
  form().setShownState(ShownState::normal);
  QWidget other;
  other.show();
  other.activateWindow();
  settle();
  form().activateWindow();
  settle();
  EXPECT_EQ(ProfileName, "");
  EXPECT_THAT(windows, IsEmpty());
}

// The window that comes back reads the command line again.
TEST_F(MainWindowCommandLine, AnAbortedScanStartsAnew) {
  haveTwins();
  ProcessCommandLine = "Ann";
  int scans = 0;
  eventLoop.onYield = [&] {
    if (RunState != runState::buildingList) return;
    ++scans;
    if (scans == 1) {
      DuplicateCount = 1;
      RunState = runState::abortRequested;
    }
  };
  start();
  settle();
  settle();
  EXPECT_GT(scans, 1);
  EXPECT_EQ(ProfileSettings.RunMode, runState::finished);
  EXPECT_THAT(windows,
              ElementsAre("frmScanStatus show", "frmScanStatus unload", "frmScanStatus show",
                          "frmScanStatus unload", "frmResults show"));
}

}  // namespace
}  // namespace quernstoke
