#include "console/consoleWindows.h"

#include <gtest/gtest.h>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "console/scanTally.h"
#include "console/standardError.h"
#include "console/stopRequests.h"
#include "console/testPipe.h"
#include "core/modMain.h"
#include "core/scanState.h"
#include "progress/scanStatus.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

class ConsoleWindowsTest : public EngineTest {
 protected:
  // What the progress line shows for the state at hand.
  std::string painted(bool showsProgress = true) {
    ConsoleScanStatus window(showsProgress, tally, stops, err);
    window.labScanStatus("Status...  ");
    window.labRemainingTime(remainingTime);
    window.paint();
    window.paint();
    return pipe.text();
  }

  TestPipe pipe;
  StandardError err{pipe.descriptor()};
  LinuxFileSystem machine;
  ScanTally tally{machine};
  StopRequests stops{OnStop::abort, err};
  std::string remainingTime;
};

TEST_F(ConsoleWindowsTest, MainWindowTakesTheTempDirectoryFromItsSetting) {
  GlobalSettings.TempPath = "C:\\elsewhere";
  ConsoleMainWindow window;
  window.load();
  EXPECT_EQ(TempDir, "C:\\elsewhere");
}

TEST_F(ConsoleWindowsTest, MainWindowIsLoadedToBeShown) {
  ConsoleMainWindow window;
  EXPECT_FALSE(window.isLoaded());
  window.show();
  EXPECT_TRUE(window.isLoaded());
  window.unload();
  EXPECT_FALSE(window.isLoaded());
}

TEST_F(ConsoleWindowsTest, LongViewIsOnSoThatTheScanYieldsOften) {
  ConsoleScanStatus window(false, tally, stops, err);
  window.show();
  EXPECT_TRUE(ScanDetailsShown);
}

// A path of more than 33 components can't be fitted.
TEST_F(ConsoleWindowsTest, NoPathIsTooWide) {
  ConsoleScanStatus window(false, tally, stops, err);
  EXPECT_LT(window.labSizer().width(std::string(100'000, 'x')), window.labFile1Width());
}

TEST_F(ConsoleWindowsTest, ProgressOfTheListIsCounted) {
  RunState = runState::buildingList;
  FileCount = 12;
  DirCount = 3;
  EXPECT_EQ(painted(), "\rStatus...  12 files, 3 directories");
}

TEST_F(ConsoleWindowsTest, ProgressOfComparingIsAPercentage) {
  RunState = runState::comparing;
  FileCount = 8;
  StatusFileNumber = 3;
  DuplicateCount = 2;
  remainingTime = "5s";
  EXPECT_EQ(painted(), "\rStatus...  8 files, 37%, 2 duplicates, 5s left");
}

TEST_F(ConsoleWindowsTest, NothingIsPaintedWithoutProgress) {
  EXPECT_EQ(painted(false), "");
}

TEST_F(ConsoleWindowsTest, UnloadedStatusWindowLeavesNoLine) {
  ConsoleScanStatus window(true, tally, stops, err);
  window.paint();
  window.unload();
  EXPECT_TRUE(pipe.text().ends_with("\r"));
}

}  // namespace
}  // namespace quernstoke
