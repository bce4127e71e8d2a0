#include "progress/frmScanStatus.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <tuple>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "controls/elidingLabel.h"
#include "controls/measuringLabel.h"
#include "controls/panelStatusBar.h"
#include "core/log.h"
#include "core/modMain.h"
#include "core/scanDriver.h"
#include "core/scanState.h"
#include "detect/tempStore.h"
#include "mainui/helpStrings.h"
#include "platform/platform.h"
#include "progress/frmScanStatusWindow.h"
#include "progress/scanStatus.h"
#include "settings/settings.h"
#include "testing/engineTest.h"
#include "testing/qt/input.h"

namespace quernstoke {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

// Serves what is waiting, and what that brings about.
void serveEvents() {
  for (int round = 0; round < 4; ++round)
    QApplication::processEvents();
}

// The engine with the window of a scan on the screen.
class FrmScanStatusTest : public EngineTest {
 protected:
  FrmScanStatusTest() {
    platform.frmScanStatus = &window;
    usePlatform(platform);
    eventLoop.onYield = serveEvents;
    ProfileName = "Music";
    openLog();
  }
  ~FrmScanStatusTest() override {
    window.unload();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  void show(std::int16_t state) {
    RunState = state;
    window.show();
    serveEvents();
  }
  // A scan that compares the files of a list and has come to one of them.
  void showComparing(int position, int fileCount) {
    buildCatalogue(std::vector<CatalogueFile>(static_cast<std::size_t>(fileCount),
                                              {"song.mp3", "C:\\Data\\Music"}));
    StatusFileNumber = position;
    show(runState::comparing);
  }
  forms::frmScanStatus& form() { return window.form(); }
  template <class Control>
  Control& control(const char* name) {
    return *form().findChild<Control*>(name);
  }
  QPushButton& button(const char* name) { return control<QPushButton>(name); }
  std::string label(const char* name) { return control<QLabel>(name).text().toStdString(); }
  bool isShown(const char* name) { return control<QWidget>(name).isVisible(); }
  const StatusPanel& panel(int number) {
    return control<PanelStatusBar>("sbarStatus").panel(number);
  }
  std::string caption() { return form().windowTitle().toStdString(); }
  void pointAt(const StatusPanel& panel) {
    moveMouse(control<PanelStatusBar>("sbarStatus"), {panel.left + panel.width / 2, 5});
  }
  int shortHeight() { return control<QWidget>("picStatus").height(); }

  FormsScanStatusWindow window;
};

// Views.

TEST_F(FrmScanStatusTest, ShortViewComesUpFirst) {
  show(runState::buildingList);

  EXPECT_EQ(form().height(), shortHeight());
  EXPECT_EQ(button("cmdMoreLess").text(), "More >>");
  for (const char* frame :
       {"fraScanStatusFiles", "fraScanStatusTimes", "fraScanStatusReadStats", "labHelp"})
    EXPECT_FALSE(isShown(frame)) << frame;
  EXPECT_EQ(caption(), "Scanning...");
  EXPECT_EQ(button("cmdPause").text(), "Pause");
  EXPECT_EQ(button("cmdAbort").text(), "Abort");
  for (const char* time : {"labElapsedTime", "labRemainingTime", "labEstimatedTime"})
    EXPECT_EQ(label(time), "0d 0h 0m 0s");
}

TEST_F(FrmScanStatusTest, MoreShowsTheLongViewAndLessTheShortOne) {
  show(runState::comparing);
  const int longHeight = shortHeight() + control<QWidget>("fraScanStatusTitle").height();
  for (const auto& [more, text, height] :
       {std::tuple(true, "<< Less", longHeight), {false, "More >>", shortHeight()}}) {
    button("cmdMoreLess").click();
    serveEvents();
    EXPECT_EQ(ScanDetailsShown, more);
    EXPECT_EQ(button("cmdMoreLess").text(), text);
    EXPECT_EQ(form().height(), height);
    for (const char* frame : {"fraScanStatusFiles", "fraScanStatusTimes", "fraScanStatusReadStats"})
      EXPECT_EQ(isShown(frame), more) << frame;
  }
}

TEST_F(FrmScanStatusTest, StatusIsSeenInBothViews) {
  show(runState::comparing);
  const auto isInWindow = [this] {
    const QWidget& status = control<QWidget>("labScanStatus");
    const int bottom = status.mapTo(&form(), QPoint(0, status.height())).y();
    return status.isVisible() && bottom <= control<QWidget>("sbarStatus").y();
  };
  EXPECT_TRUE(isInWindow());
  button("cmdMoreLess").click();
  serveEvents();
  EXPECT_TRUE(isInWindow());
}

TEST_F(FrmScanStatusTest, FiguresHaveTheirCaptions) {
  show(runState::comparing);
  for (const auto& [name, text] : {std::pair("labScanStatusCaption", "Status:"),
                                   {"labFile1Caption", "File:"},
                                   {"labFile2Caption", "Secondary File:"},
                                   {"labElapsedTimeCaption", "Elapsed Time:"},
                                   {"labRemainingTimeCaption", "Remaining Time:"},
                                   {"labEstimatedTimeCaption", "Estimated Time:"},
                                   {"labBufferReadsCaption", "Memory buffer Reads:"},
                                   {"labLocalFileReadsCaption", "Disk buffer Reads:"},
                                   {"labRemoteFileReadsCaption", "Actual file Reads:"}})
    EXPECT_EQ(label(name), text);
}

TEST_F(FrmScanStatusTest, NothingOfTheLongViewIsCovered) {
  show(runState::comparing);
  button("cmdMoreLess").click();
  serveEvents();
  pointAt(panel(1));
  const QWidget& title = control<QWidget>("fraScanStatusTitle");

  EXPECT_LE(title.geometry().bottom(), control<QWidget>("labHelp").geometry().top());
  EXPECT_LE(control<QWidget>("labHelp").geometry().bottom(),
            control<QWidget>("sbarStatus").geometry().top());
  for (const char* name : {"labFile1", "labEstimatedTime", "labRemoteFileReads"}) {
    const QWidget& shown = control<QWidget>(name);
    EXPECT_GE(shown.height(), shown.fontMetrics().height()) << name;
    EXPECT_LE(shown.mapTo(&title, QPoint(0, shown.height())).y(), title.height()) << name;
  }
}

TEST_F(FrmScanStatusTest, WindowIsMadeAnewAfterItWasUnloaded) {
  show(runState::comparing);
  button("cmdMoreLess").click();
  window.unload();
  EXPECT_FALSE(window.isLoaded());
  show(runState::comparing);

  EXPECT_EQ(form().height(), shortHeight());
  EXPECT_EQ(button("cmdMoreLess").text(), "More >>");
}

// Buttons.

TEST_F(FrmScanStatusTest, WhileTheListIsBuiltAScanCanOnlyBeAborted) {
  show(runState::buildingList);
  EXPECT_FALSE(button("cmdPause").isEnabled());
  EXPECT_TRUE(button("cmdAbort").isEnabled());

  button("cmdAbort").click();
  EXPECT_EQ(RunState, runState::abortRequested);
}

TEST_F(FrmScanStatusTest, PauseIsOfferedFromTheFirstStatusOfTheComparison) {
  show(runState::buildingList);
  RunState = runState::comparing;
  basUpdateStatusFields("Searching for duplicates...", -1, 0);

  EXPECT_TRUE(button("cmdPause").isEnabled());
}

TEST_F(FrmScanStatusTest, PauseDisablesBothButtonsUntilTheNextPaint) {
  show(runState::comparing);
  button("cmdPause").click();
  EXPECT_EQ(RunState, runState::pauseRequested);
  EXPECT_FALSE(button("cmdPause").isEnabled());
  EXPECT_FALSE(button("cmdAbort").isEnabled());

  window.refresh();
  EXPECT_TRUE(button("cmdPause").isEnabled());
  EXPECT_FALSE(button("cmdAbort").isEnabled());
}

TEST_F(FrmScanStatusTest, PauseTurnsAnAbortIntoAPause) {
  show(runState::comparing);
  button("cmdAbort").click();
  EXPECT_EQ(RunState, runState::abortRequested);
  EXPECT_FALSE(button("cmdAbort").isEnabled());
  EXPECT_TRUE(button("cmdPause").isEnabled());

  button("cmdPause").click();
  EXPECT_EQ(RunState, runState::pauseRequested);
}

// Whoever started the scan with a key may still be typing.
TEST_F(FrmScanStatusTest, KeyPressedAsTheWindowComesUpDoesNotStopTheScan) {
  show(runState::comparing);
  for (const int key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Escape}) {
    typeKey(*form().focusWidget(), key);
    EXPECT_EQ(RunState, runState::comparing) << key;
  }
  for (QPushButton* each : form().findChildren<QPushButton*>())
    EXPECT_FALSE(each->isDefault());
}

TEST_F(FrmScanStatusTest, TabGoesThroughTheButtonsInTheirOrder) {
  show(runState::comparing);
  std::vector<std::string> order;
  button("cmdPause").setFocus();
  for (int i = 0; i < 3; ++i) {
    order.push_back(form().focusWidget()->objectName().toStdString());
    typeKey(*form().focusWidget(), Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("cmdPause", "cmdAbort", "cmdMoreLess"));
}

// The close box.

TEST_F(FrmScanStatusTest, CloseBoxActsAsAbort) {
  show(runState::comparing);
  form().close();

  EXPECT_EQ(RunState, runState::abortRequested);
  EXPECT_FALSE(button("cmdAbort").isEnabled());
  EXPECT_TRUE(form().isVisible());
}

TEST_F(FrmScanStatusTest, CloseBoxLeavesAPauseThatWasAskedFor) {
  show(runState::comparing);
  button("cmdPause").click();
  form().close();

  EXPECT_EQ(RunState, runState::pauseRequested);
  EXPECT_TRUE(form().isVisible());
}

TEST_F(FrmScanStatusTest, CloseBoxStopsTheReadingOfTwoDirectories) {
  closeLog();  // As after a scan.
  show(runState::idle);
  form().close();

  EXPECT_EQ(RunState, runState::abortRequested);
  EXPECT_TRUE(form().isVisible());
}

// Otherwise nothing could end the program any more.
TEST_F(FrmScanStatusTest, CloseBoxClosesTheWindowThatAFailedScanLeft) {
  show(runState::comparing);
  closeLog();
  form().close();

  EXPECT_FALSE(window.isLoaded());
  EXPECT_EQ(RunState, runState::comparing);
}

TEST_F(FrmScanStatusTest, EndOfTheScanClosesTheWindow) {
  show(runState::finished);
  window.setTag("OK");
  window.unload();

  EXPECT_FALSE(window.isLoaded());
  EXPECT_EQ(RunState, runState::finished);
}

// The status bar.

TEST_F(FrmScanStatusTest, PanelsTellTheFiguresOfAComparison) {
  DuplicateCount = 7;
  GlobalSettings.TransferFileLocally = true;
  TempSpaceBudgetKB = 300;
  TempUsedKB = 200;
  showComparing(20, 30);
  std::vector<std::string> texts, tags;
  for (const int number : {1, 3, 5, 7, 9, 11}) {
    EXPECT_TRUE(panel(number).visible) << number;
    texts.push_back(panel(number).text);
    tags.push_back(panel(number).tag);
  }

  EXPECT_THAT(texts, ElementsAre("Profile:Music", "Files:19 / 30", "Directories:1", "Duplicates:7",
                                 "Temp:66%", "Progress:66%"));
  EXPECT_THAT(tags, ElementsAre("150", "161", "163", "164", "165", "162"));
  EXPECT_EQ(caption(), "Scanning...");
  EXPECT_EQ(control<QProgressBar>("pbarPercentage").text(), "66%");
}

TEST_F(FrmScanStatusTest, WithoutAListThereIsNoProgress) {
  for (const std::int16_t state : {runState::idle, runState::buildingList}) {
    showComparing(20, 30);
    RunState = state;
    window.basUpdateStatusBar();
    EXPECT_EQ(panel(3).text, "Files:30");
    EXPECT_FALSE(panel(11).visible);
  }
}

TEST_F(FrmScanStatusTest, WithoutAPositionTheFilesAreCountedAlone) {
  showComparing(20, 30);
  StatusFileNumber = -1;
  window.basUpdateStatusBar();
  EXPECT_EQ(panel(3).text, "Files:30");
  EXPECT_EQ(panel(11).text, "Progress:66%");
  EXPECT_TRUE(panel(11).visible);
}

TEST_F(FrmScanStatusTest, EmptyListShowsNoPosition) {
  show(runState::comparing);
  EXPECT_EQ(panel(3).text, "Files:0");
  EXPECT_EQ(control<QProgressBar>("pbarPercentage").value(), 0);
}

// One less than the position is shown, also before the first file.
TEST_F(FrmScanStatusTest, FilesBehindThePositionAreCounted) {
  showComparing(0, 30);
  EXPECT_EQ(panel(3).text, "Files:-1 / 30");
  EXPECT_EQ(panel(11).text, "Progress:0%");
}

TEST_F(FrmScanStatusTest, BarStaysForAPositionOutsideTheList) {
  showComparing(15, 30);
  const int before = control<QProgressBar>("pbarPercentage").value();
  EXPECT_EQ(before, 5000);
  for (const int position : {0, 31}) {
    StatusFileNumber = position;
    window.basUpdateStatusBar();
    EXPECT_EQ(control<QProgressBar>("pbarPercentage").value(), before);
  }
}

TEST_F(FrmScanStatusTest, CaptionStaysWhileThereAreNoFiles) {
  show(runState::comparing);
  window.setCaption("Scanning...37%");
  window.basUpdateStatusBar();
  EXPECT_EQ(caption(), "Scanning...37%");

  FileCount = 1;
  window.basUpdateStatusBar();
  EXPECT_EQ(caption(), "Scanning...");
}

TEST_F(FrmScanStatusTest, TempSpaceIsShownWhenItCanBeUsed) {
  show(runState::comparing);
  for (const auto& [local, zip, budget, shown] : {std::tuple(false, false, 100, false),
                                                  {true, false, 100, true},
                                                  {false, true, 100, true},
                                                  {true, true, 0, false}}) {
    GlobalSettings.TransferFileLocally = local;
    ProfileSettings.ProcessZip = zip;
    TempSpaceBudgetKB = budget;
    window.basUpdateStatusBar();
    EXPECT_EQ(panel(9).visible, shown) << local << zip << budget;
  }
}

TEST_F(FrmScanStatusTest, AllPanelsOfALargeScanHaveRoom) {
  ProfileName = "Holiday photographs";
  GlobalSettings.TransferFileLocally = true;
  TempSpaceBudgetKB = TempUsedKB = 100;
  showComparing(30, 30);
  FileCount = StatusFileNumber = 1234567;
  DirCount = DuplicateCount = 123456;
  window.basUpdateStatusBar();

  EXPECT_EQ(panel(11).text, "Progress:100%");
  EXPECT_LE(panel(11).left + panel(11).width, form().width());
}

// The name of a profile may be of any length.
TEST_F(FrmScanStatusTest, LongProfileNameMakesTheWindowNotMuchWider) {
  show(runState::comparing);
  const int before = form().width();
  window.unload();
  ProfileName = std::string(300, 'x');
  show(runState::comparing);

  EXPECT_LT(form().width(), 2 * before);
  EXPECT_GE(panel(7).left, 0);
  EXPECT_LE(panel(7).left + panel(7).width, form().width());
}

// Help.

TEST_F(FrmScanStatusTest, PanelUnderThePointerIsExplained) {
  GlobalSettings.TransferFileLocally = true;
  TempSpaceBudgetKB = 100;
  showComparing(20, 30);
  for (const auto& [number, id] :
       {std::pair(1, 150), {3, 161}, {5, 163}, {7, 164}, {9, 165}, {11, 162}}) {
    pointAt(panel(number));
    EXPECT_EQ(label("labHelp"), "Help: " + helpText(id));
    EXPECT_TRUE(isShown("labHelp"));
  }
  EXPECT_EQ(label("labHelp"), "Help: Percentage of scan completed.");
}

TEST_F(FrmScanStatusTest, SeparatorsAndTheEmptyEndOfTheBarChangeNothing) {
  show(runState::buildingList);
  pointAt(panel(2));
  EXPECT_FALSE(isShown("labHelp"));
  pointAt(panel(1));
  pointAt(panel(4));
  moveMouse(control<PanelStatusBar>("sbarStatus"), {form().width() - 2, 5});
  EXPECT_EQ(label("labHelp"), "Help: The current profile name.");
}

TEST_F(FrmScanStatusTest, HelpLastsFiveSecondsFromTheLastMove) {
  show(runState::comparing);
  auto& timer = control<QTimer>("Timer1");
  EXPECT_FALSE(timer.isActive());
  pointAt(panel(1));
  EXPECT_TRUE(timer.isActive());
  EXPECT_EQ(timer.interval(), 5000);

  timer.start(0);  // The time is over.
  serveEvents();
  EXPECT_FALSE(timer.isActive());
  EXPECT_EQ(label("labHelp"), "");
  EXPECT_FALSE(isShown("labHelp"));
}

TEST_F(FrmScanStatusTest, EachMoveLetsTheHelpLastAnew) {
  show(runState::comparing);
  auto& timer = control<QTimer>("Timer1");
  pointAt(panel(1));
  timer.start(100000);
  pointAt(panel(1));

  EXPECT_EQ(timer.interval(), 5000);
  EXPECT_LT(timer.remainingTime(), 50000);
}

// An edge belongs to both panels that meet there; the first one is explained.
TEST_F(FrmScanStatusTest, EdgesBelongToTheirPanels) {
  show(runState::buildingList);
  auto& bar = control<PanelStatusBar>("sbarStatus");
  const auto helpAt = [&](int x) {
    moveMouse(form(), {3, 3});
    moveMouse(bar, {x, 5});
    return label("labHelp");
  };
  const std::string profile = "Help: " + helpText(150), files = "Help: " + helpText(161);
  EXPECT_EQ(helpAt(0), profile);
  EXPECT_EQ(helpAt(panel(1).width), profile);
  EXPECT_EQ(helpAt(panel(1).width + 1), "");
  EXPECT_EQ(helpAt(panel(3).left), "");  // The separator before it comes first.
  EXPECT_EQ(helpAt(panel(3).left + 1), files);
  EXPECT_EQ(helpAt(panel(3).left + panel(3).width), files);
}

TEST_F(FrmScanStatusTest, PointerOverTheWindowEndsTheHelp) {
  show(runState::comparing);
  for (QWidget* elsewhere : {static_cast<QWidget*>(&form()), &control<QWidget>("picStatus"),
                             &control<QWidget>("labScanStatus")}) {
    pointAt(panel(1));
    EXPECT_TRUE(isShown("labHelp"));
    moveMouse(*elsewhere, {3, 3});
    EXPECT_FALSE(isShown("labHelp")) << elsewhere->objectName().toStdString();
    EXPECT_EQ(label("labHelp"), "");
  }
}

// After a failure the handler goes on at its next statement.
TEST_F(FrmScanStatusTest, FailedHelpIsToldAndItsLineStillComesUp) {
  show(runState::comparing);
  control<PanelStatusBar>("sbarStatus").setPanelTag(1, "one");
  pointAt(panel(1));

  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("sbarStatus_MouseMove", "Type mismatch(13)")));
  EXPECT_TRUE(isShown("labHelp"));
  EXPECT_TRUE(control<QTimer>("Timer1").isActive());
}

// What the engine reports.

TEST_F(FrmScanStatusTest, LongViewTellsFileTimesAndReads) {
  showComparing(20, 30);
  button("cmdMoreLess").click();
  serveEvents();
  ScanStartTime = {clock.time.seconds - 60};
  EstimatedEndTime = {clock.time.seconds + 300};
  BufferReads = 1;
  LocalReads = 22;
  ActualReads = 333;
  basUpdateStatusFields("Searching for duplicates...", 20, 0);

  EXPECT_EQ(label("labScanStatus"), "Searching for duplicates...");
  EXPECT_EQ(label("labFile1"), "C:\\Data\\Music\\song.mp3");
  EXPECT_EQ(label("labFile2"), "");
  EXPECT_EQ(label("labElapsedTime"), "1m 0s");
  EXPECT_EQ(label("labRemainingTime"), "5m 0s");
  EXPECT_EQ(label("labEstimatedTime"), "1m 30s");
  EXPECT_EQ(label("labBufferReads"), "1");
  EXPECT_EQ(label("labLocalFileReads"), "22");
  EXPECT_EQ(label("labRemoteFileReads"), "333");
}

TEST_F(FrmScanStatusTest, WithoutAFileTheLastOneStays) {
  showComparing(20, 30);
  button("cmdMoreLess").click();
  basUpdateStatusFields("Searching for duplicates...", 20, 0);
  basUpdateStatusFields("Refining file list...", -1, 0);

  EXPECT_EQ(label("labFile1"), "C:\\Data\\Music\\song.mp3");
  EXPECT_EQ(label("labScanStatus"), "Refining file list...");
}

TEST_F(FrmScanStatusTest, LongPathIsFittedToTheLabel) {
  const std::string folder = "\\a directory with quite a long name";
  buildCatalogue({{"song.mp3", "C:\\Data" + folder + folder + folder + folder + "\\Album"}});
  show(runState::comparing);
  button("cmdMoreLess").click();
  serveEvents();
  basUpdateStatusFields("", 1, 0);
  const auto& file = control<ElidingLabel>("labFile1");

  EXPECT_THAT(label("labFile1"), AllOf(StartsWith("C:\\"), HasSubstr("..."), EndsWith("song.mp3")));
  EXPECT_LE(file.fontMetrics().horizontalAdvance(file.text()), file.width());
  EXPECT_EQ(file.shownText(), file.text());
}

TEST_F(FrmScanStatusTest, LongStatusLeavesTheWidthOfTheWindow) {
  show(runState::comparing);
  const int width = form().width();
  basUpdateStatusFields("Extracting data from Zip file " + std::string(500, 'x'), -1, 0);

  EXPECT_EQ(form().width(), width);
  EXPECT_LE(control<QWidget>("labScanStatus").geometry().right(), width);
}

TEST_F(FrmScanStatusTest, MinimisedWindowTellsThePercentageInItsCaption) {
  showComparing(20, 30);
  const std::string files = panel(3).text;
  button("cmdMoreLess").click();
  form().setShownState(ShownState::minimised);
  serveEvents();
  StatusFileNumber = 25;
  basUpdateStatusFields("Searching for duplicates...", 25, 0);
  showPositionInStatusBar();

  EXPECT_EQ(caption(), "Scanning...83%");
  EXPECT_EQ(panel(3).text, files);
  EXPECT_EQ(label("labScanStatus"), "Searching for duplicates...");
  EXPECT_EQ(label("labFile1"), "");

  form().setShownState(ShownState::normal);
  serveEvents();
  showPositionInStatusBar();
  EXPECT_EQ(caption(), "Scanning...");
}

// Whole scans in the window.

class ScanInWindowTest : public FrmScanStatusTest {
 protected:
  ScanInWindowTest() {
    makeProfile("Music");
    GlobalSettings.TempPath = TempDir;
    GlobalSettings.FileBufferSize = 512;
    GlobalSettings.NumberOfFileBuffers = 10;
    setDirectory(1, "C:\\Data", "I");
    for (int i = 0; i < 60; ++i)
      disk.file("C:\\Data\\" + std::to_string(i) + ".dat", std::string(100, i % 2 ? 'a' : 'b'));
    StartMode = startMode::newScan;
  }
  // What the person does at each yield, once the window has been painted.
  void scan(std::function<void()> act) {
    eventLoop.onYield = [act = std::move(act)] {
      serveEvents();
      act();
    };
    basStartScan();
  }
};

TEST_F(ScanInWindowTest, ScanRunsToItsEndAndTheWindowGoes) {
  bool wasShown = false;
  scan([&] { wasShown = wasShown || form().isVisible(); });

  EXPECT_TRUE(wasShown);
  EXPECT_EQ(RunState, runState::finished);
  EXPECT_EQ(DuplicateCount, 58);
  EXPECT_FALSE(window.isLoaded());
  EXPECT_THAT(windows, ElementsAre("frmMain unload", "frmResults show"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ScanInWindowTest, PauseStopsTheComparison) {
  scan([&] { button("cmdPause").click(); });

  EXPECT_EQ(RunState, runState::paused);
  EXPECT_THAT(windows, Contains("frmMain show"));
}

TEST_F(ScanInWindowTest, CloseBoxAbortsTheScanAndTheWindowGoesAtItsEnd) {
  scan([&] { form().close(); });

  EXPECT_EQ(RunState, runState::aborted);
  EXPECT_FALSE(window.isLoaded());
}

TEST_F(ScanInWindowTest, StormOfClicksLeavesAScanThatWasPausedOrAborted) {
  int yields = 0;
  scan([&] {
    ++yields;
    for (int round = 0; round < 20; ++round) {
      button("cmdMoreLess").click();
      button("cmdAbort").click();
      button("cmdPause").click();
      pointAt(panel(1 + round % 11));
      form().close();
      form().setShownState(round % 2 ? ShownState::normal : ShownState::minimised);
      window.refresh();
      serveEvents();
    }
  });

  EXPECT_GT(yields, 0);
  EXPECT_THAT(RunState.raw(), testing::AnyOf(runState::paused, runState::aborted));
  EXPECT_FALSE(window.isLoaded());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

}  // namespace
}  // namespace quernstoke
