#include "console/stopRequests.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/consoleWindows.h"
#include "console/scanTally.h"
#include "console/signals.h"
#include "console/standardError.h"
#include "console/testPipe.h"
#include "core/scanState.h"
#include "results/matchGroupIndex.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

class StopRequestsTest : public EngineTest {
 protected:
  // Groups of the files 1 to 2 and 3 to 5.
  StopRequestsTest() {
    MatchGroupTable.redim(2, false);
    MatchGroupTable[1] = {1, 2};
    MatchGroupTable[2] = {3, 3};
    MatchGroupCount = 2;
  }

  TestPipe pipe;
  StandardError err{pipe.descriptor()};
  StopSignals signals;
  StopRequests pauses{OnStop::pause, err};
  StopRequests aborts{OnStop::abort, err};
};

TEST_F(StopRequestsTest, NothingHappensWithoutASignal) {
  RunState = runState::comparing;
  pauses.atYield();
  pauses.atPrimary(2);
  aborts.atYield();
  EXPECT_EQ(RunState, runState::comparing);
  EXPECT_EQ(pipe.text(), "");
}

TEST_F(StopRequestsTest, SignalAbortsAScanOfDirectories) {
  for (const std::int16_t state : {runState::buildingList, runState::comparing}) {
    RunState = state;
    std::raise(SIGINT);
    aborts.atYield();
    EXPECT_EQ(RunState, runState::abortRequested);
  }
}

TEST_F(StopRequestsTest, PauseWaitsWhileTheListIsBuiltAndSaysSoOnce) {
  RunState = runState::buildingList;
  std::raise(SIGTERM);
  pauses.atYield();
  pauses.atYield();
  EXPECT_EQ(RunState, runState::buildingList);
  EXPECT_EQ(pipe.text(),
            "quernstoke-scan: the scan will pause once the list of files is built; a second "
            "signal aborts it\n");
}

TEST_F(StopRequestsTest, PauseComesAtTheEndOfAGroup) {
  RunState = runState::comparing;
  std::raise(SIGTERM);
  pauses.atYield();
  for (const int inMidGroup : {1, 3, 4}) {
    pauses.atPrimary(inMidGroup);
    EXPECT_EQ(RunState, runState::comparing) << inMidGroup;
  }
  pauses.atPrimary(5);
  EXPECT_EQ(RunState, runState::pauseRequested);
}

TEST_F(StopRequestsTest, PauseDoesNotWaitForALongGroupForever) {
  StopRequests impatient(OnStop::pause, err, std::chrono::seconds(0));
  RunState = runState::comparing;
  std::raise(SIGTERM);
  impatient.atPrimary(3);
  EXPECT_EQ(RunState, runState::pauseRequested);
}

TEST_F(StopRequestsTest, SecondSignalAborts) {
  RunState = runState::comparing;
  std::raise(SIGINT);
  pauses.atPrimary(2);
  std::raise(SIGINT);
  pauses.atYield();
  EXPECT_EQ(RunState, runState::abortRequested);
}

TEST_F(StopRequestsTest, ScanThatIsOverStaysSo) {
  RunState = runState::finished;
  std::raise(SIGINT);
  aborts.atYield();
  EXPECT_EQ(RunState, runState::finished);
}

TEST_F(StopRequestsTest, LastFileOfAGroupIsFoundAmongTheGroups) {
  EXPECT_FALSE(isLastOfItsGroup(0));
  EXPECT_FALSE(isLastOfItsGroup(1));
  EXPECT_TRUE(isLastOfItsGroup(2));
  EXPECT_FALSE(isLastOfItsGroup(3));
  EXPECT_TRUE(isLastOfItsGroup(5));
  EXPECT_FALSE(isLastOfItsGroup(6));
  MatchGroupCount = 0;
  EXPECT_FALSE(isLastOfItsGroup(2));
}

// The scan status window tells the end of a pass from a primary that is about to be compared: a
// pause at the end would go with the restart points of an earlier scan.
TEST_F(StopRequestsTest, WindowPausesAtAPrimaryOnly) {
  const LinuxFileSystem machine;
  ScanTally tally(machine);
  ConsoleScanStatus window(false, tally, pauses, err);
  RunState = runState::comparing;
  StatusFileNumber = 2;
  std::raise(SIGTERM);
  window.labScanStatus("Searching for duplicates...");
  window.basUpdateStatusBar();
  EXPECT_EQ(RunState, runState::comparing);
  window.labFile1("C:\\a");
  window.basUpdateStatusBar();
  EXPECT_EQ(RunState, runState::pauseRequested);
}

}  // namespace
}  // namespace quernstoke
