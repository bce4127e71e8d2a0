#include "catalogue/fileTable.h"
#include "core/scanDriver.h"
#include "core/scanDriverTest.h"

namespace quernstoke {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

class ContinuedScanTest : public ScanDriverTest {
 protected:
  ContinuedScanTest() { StartMode = startMode::continueScan; }

  static void restartAt(int group, int primary, int secondary) {
    ProfileSettings.RestartPointMatchGroup = group;
    ProfileSettings.RestartPointPrimaryFile = primary;
    ProfileSettings.RestartPointSecondaryFile = secondary;
  }
};

TEST_F(ContinuedScanTest, UsesTheCatalogueAsItStands) {
  twoEqualFiles();
  buildCatalogue({{"gone.txt", "C:\\Old", 5, 3}});
  basStartScan();
  EXPECT_THAT(fileNames(), ElementsAre("gone.txt"));
  EXPECT_THAT(statusWindow.statusTexts, Not(Contains(building)));
  EXPECT_EQ(statusWindow.refreshes, 0);
}

TEST_F(ContinuedScanTest, CountsOnFromTheRestartRecord) {
  ProfileSettings.MatchNum = 7;
  ProfileSettings.RestartPointNumDuplicates = 4;
  ProfileSettings.MatchingCriteria = "S";
  buildCatalogue({{"a", "C:\\Data", 5}, {"b", "C:\\Data", 5}});
  restartAt(1, 1, 2);
  basStartScan();
  EXPECT_THAT(matchNumbers(), ElementsAre(8, 8));
  EXPECT_EQ(saved().NumDuplicates, 5);
}

// The profile may have lost the number of its last match.
TEST_F(ContinuedScanTest, GivesNoNumberThatAMatchBearsAlready) {
  ProfileSettings.MatchNum = 0;
  ProfileSettings.MatchingCriteria = "S";
  buildCatalogue({{"a", "C:\\Data", 5, 3},
                  {"b", "C:\\Data", 5, 3},
                  {"c", "C:\\Data", 6},
                  {"d", "C:\\Data", 6}});
  restartAt(2, 3, 4);
  basStartScan();
  EXPECT_THAT(matchNumbers(), ElementsAre(3, 3, 4, 4));
}

TEST_F(ContinuedScanTest, ForgetsTheLocalCopies) {
  buildCatalogue({{"a", "C:\\Data", 5, 1}});
  FileTable.FileLocalName.set(1, "C:\\Quernstoke\\Temp\\TMP1");
  basStartScan();
  EXPECT_EQ(FileTable.FileLocalName[1], "");
}

TEST_F(ContinuedScanTest, SetsItsStartBackByTheTimeAlreadySpent) {
  clock.time = dateTime({2004, 11, 2, 12, 0, 0});
  ProfileSettings.ElapsedTime = 90;
  basStartScan();
  EXPECT_EQ(ScanStartTime, dateTime({2004, 11, 2, 11, 58, 30}));
  EXPECT_EQ(saved().ElapsedTime, 90);
}

// Not from the start that was set back.
TEST_F(ContinuedScanTest, IsExpectedToEndFiveMinutesFromNow) {
  clock.time = dateTime({2004, 11, 2, 12, 0, 0});
  ProfileSettings.ElapsedTime = 90;
  EstimatedEndTime = dateTime({2004, 11, 2, 11, 0, 0});
  basStartScan();
  EXPECT_EQ(EstimatedEndTime, dateTime({2004, 11, 2, 12, 5, 0}));
}

TEST_F(ContinuedScanTest, DoesNotCountTheTimeOfThePause) {
  twoEqualFiles();
  StartMode = startMode::newScan;
  at(searching, [&] {
    clock.time.seconds += 30;
    RunState = runState::pauseRequested;
  });
  basStartScan();
  clock.time.seconds += 86400;
  StartMode = startMode::continueScan;
  at(searching, [&] { clock.time.seconds += 12; });
  basStartScan();
  EXPECT_EQ(saved().ElapsedTime, 42);
}

// The stage that was stopped is saved and never consulted.
TEST_F(ContinuedScanTest, TakesUpItsFirstPassWhicheverWasStopped) {
  buildCatalogue({{"a", "C:\\1", 1}, {"a", "C:\\2", 1}, {"b", "C:\\1", 5}, {"b", "C:\\2", 5}});
  ProfileSettings.MatchingCriteria = "N";
  ProfileSettings.RestartPoint = 2;
  restartAt(2, 3, 4);
  basStartScan();
  EXPECT_THAT(fileNames(), ElementsAre("b", "b"));
}

TEST_F(ContinuedScanTest, AppliesTheRestartRecordToItsSecondPassAgain) {
  buildCatalogue({{"a", "C:\\1", 1}, {"a", "C:\\2", 1}, {"b", "C:\\1", 5}, {"b", "C:\\2", 9}});
  ProfileSettings.MatchingCriteria = "NS";
  restartAt(2, 3, 4);
  basStartScan();
  // Two files are left for the second pass, and its record still names the third.
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basCompareFiles", "Subscript out of range(9)")));
  EXPECT_THAT(fileNames(), ElementsAre("b", "b"));
  EXPECT_EQ(RunState, runState::finished);
}

// What the main window offers.

class StateOptionsTest : public ScanDriverTest {
 protected:
  ScriptedFrame frame;
  ScriptedOption optionNew;
  ScriptedOption optionContinue;

  void show(int runMode) {
    frame = {};
    optionNew = optionContinue = {};
    ProfileSettings.RunMode = runMode;
    basUpdateStateOptions(frame, optionNew, optionContinue);
  }
};

TEST_F(StateOptionsTest, ScansThatWereLeftUndoneCanBeContinued) {
  for (const int mode : {1, 2, 3}) {
    show(mode);
    EXPECT_TRUE(frame.visible) << mode;
    EXPECT_TRUE(optionNew.enabled && optionContinue.enabled) << mode;
    EXPECT_TRUE(optionContinue.selected) << mode;
    EXPECT_FALSE(optionNew.selected) << mode;
  }
}

TEST_F(StateOptionsTest, AllOthersBeginAnew) {
  for (const int mode : {0, 4, 5, 6, 7}) {
    frame.visible = true;
    ProfileSettings.RunMode = mode;
    optionNew = optionContinue = {};
    basUpdateStateOptions(frame, optionNew, optionContinue);
    EXPECT_FALSE(frame.visible) << mode;
    EXPECT_TRUE(optionNew.selected) << mode;
    EXPECT_FALSE(optionContinue.selected) << mode;
  }
}

TEST_F(StateOptionsTest, AValueThatIsNoOutcomeChangesNothing) {
  for (const int mode : {-1, 8}) {
    show(mode);
    EXPECT_FALSE(frame.visible || optionNew.selected || optionContinue.selected) << mode;
  }
}

TEST_F(StateOptionsTest, APausedProfileCanBeContinuedAfterARestart) {
  twoEqualFiles();
  at(searching, [] { RunState = runState::pauseRequested; });
  basStartScan();

  newProcess();
  start();
  ProfileName = "Music";
  ASSERT_TRUE(basLoadProfile("PROFILE"));
  basUpdateStateOptions(frame, optionNew, optionContinue);
  EXPECT_TRUE(optionContinue.selected);
}

}  // namespace
}  // namespace quernstoke
