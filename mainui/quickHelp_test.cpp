#include "mainui/quickHelp.h"

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "core/scanState.h"
#include "mainui/helpStrings.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QuickHelpTest : public EngineTest {
 protected:
  // A help panel that shows nothing yet.
  ScriptedTagged<TaggedControl> fraHelp;
  ScriptedTextBox txtHelp;

  void pointAt(int id) { basDisplayHelp(id, fraHelp, txtHelp); }
  void leaveControls() { pointAt(-1); }
};

TEST_F(QuickHelpTest, TextFollowsThePointerFromControlToFrameAndBack) {
  fraHelp.text = "1000";
  HelpState = 3;
  pointAt(133);
  leaveControls();
  pointAt(133);

  EXPECT_THAT(txtHelp.texts, ElementsAre(helpText(133), helpText(1003), helpText(133)));
  EXPECT_EQ(fraHelp.text, "133");
}

TEST_F(QuickHelpTest, MovingWithinOneControlIsDoneOnce) {
  for (int move = 0; move < 3; ++move)
    pointAt(142);

  EXPECT_THAT(txtHelp.texts, ElementsAre(helpText(142)));
}

TEST_F(QuickHelpTest, StepTextOnShowIsNotShownAgain) {
  fraHelp.text = "1001";
  HelpState = 1;
  leaveControls();

  EXPECT_THAT(txtHelp.texts, IsEmpty());
  EXPECT_EQ(fraHelp.text, "1001");
}

// Each load of the window clears the tag, so that a profile in place is welcomed too.
TEST_F(QuickHelpTest, WelcomeTextComesFirstWhateverTheStep) {
  HelpState = 4;
  leaveControls();
  EXPECT_EQ(fraHelp.text, "1000");
  leaveControls();

  EXPECT_THAT(txtHelp.texts, ElementsAre(helpText(1000), helpText(1004)));
  EXPECT_EQ(fraHelp.text, "1004");
}

TEST_F(QuickHelpTest, ControlOnAFreshPanelShowsItsOwnText) {
  pointAt(101);

  EXPECT_THAT(txtHelp.texts, ElementsAre(helpText(101)));
  EXPECT_EQ(fraHelp.text, "101");
}

TEST_F(QuickHelpTest, EachStepHasItsText) {
  for (int step = 0; step <= 4; ++step) {
    fraHelp.text = "116";
    HelpState = step;
    leaveControls();
    EXPECT_EQ(fraHelp.text, std::to_string(1000 + step));
  }
}

TEST_F(QuickHelpTest, UnknownStepLeavesThePanel) {
  for (const int step : {-2, -1, 5}) {
    fraHelp.text = "116";
    HelpState = step;
    leaveControls();
    EXPECT_EQ(fraHelp.text, "116");
  }
  EXPECT_THAT(txtHelp.texts, IsEmpty());
}

TEST_F(QuickHelpTest, IdOf0IsThatOfNoControl) {
  fraHelp.text = "116";
  HelpState = 2;
  pointAt(0);

  EXPECT_EQ(fraHelp.text, "1002");
}

TEST_F(QuickHelpTest, MissingTextEmptiesThePanel) {
  pointAt(999);

  EXPECT_THAT(txtHelp.texts, ElementsAre(""));
  EXPECT_EQ(fraHelp.text, "999");
}

TEST_F(QuickHelpTest, TagThatIsNoNumberIsReported) {
  fraHelp.text = "IGNORE";
  pointAt(101);

  EXPECT_THAT(txtHelp.texts, IsEmpty());
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Procedure error in 'basDisplayHelp'.  Reason: Type mismatch(13)."));
}

class HelpStateTest : public EngineTest {
 protected:
  // A profile with one directory, one match option and the results of a finished scan.
  HelpStateTest() {
    ProfileName = "Music";
    FileCount = 7;
    ProfileSettings.RunMode = runState::finished;
  }
  Int32 rows = 2;
  Int32 ticked = 1;

  int state() const { return basDetermineHelpState(rows, ticked).raw(); }
};

TEST_F(HelpStateTest, FinishedScanHasResultsToSee) {
  EXPECT_EQ(state(), 4);
}

// Whatever is missing first on the way from the start to the results decides.
TEST_F(HelpStateTest, FirstStepThatIsMissingCounts) {
  FileCount = 0;
  EXPECT_EQ(state(), 3);
  ticked = 0;
  EXPECT_EQ(state(), 2);
  rows = 1;
  EXPECT_EQ(state(), 1);
  ProfileName.clear();
  EXPECT_EQ(state(), 0);
}

TEST_F(HelpStateTest, PausedOrAbortedScanGoesBackToTheWelcome) {
  for (const int mode : {runState::idle, runState::paused, runState::aborted}) {
    ProfileSettings.RunMode = mode;
    EXPECT_EQ(state(), 0);
  }
}

class MainStatusBarTest : public EngineTest {
 protected:
  static std::string text(std::size_t position) { return mainStatusPanels().at(position).text; }
  static std::string wordFor(int runMode) {
    ProfileSettings.RunMode = runMode;
    return text(4);
  }
};

TEST_F(MainStatusBarTest, OddPanelsCarryTheFiguresAndTheirHelp) {
  ProfileName = "Music";
  FileCount = 12000;
  DirCount = 34;
  DuplicateCount = 56;
  std::vector<int> numbers;
  std::vector<std::string> texts, tags;
  for (const PanelText& panel : mainStatusPanels()) {
    numbers.push_back(panel.number);
    texts.push_back(panel.text);
    tags.emplace_back(panel.tag);
  }

  EXPECT_THAT(numbers, ElementsAre(1, 3, 5, 7, 9));
  EXPECT_THAT(texts, ElementsAre("Profile: Music", "Files: 12000", "Directories: 34",
                                 "Duplicates: 56", "State: Finished"));
  EXPECT_THAT(tags, ElementsAre("150", "151", "152", "153", "154"));
}

TEST_F(MainStatusBarTest, DuplicatesOfAProfileNeverScannedAreUnknown) {
  DuplicateCount = -1;
  EXPECT_EQ(text(3), "Duplicates: ?");
  DuplicateCount = 0;
  EXPECT_EQ(text(3), "Duplicates: 0");
}

// A profile that was never scanned reads as finished, one scanned to its end as completed.
TEST_F(MainStatusBarTest, StateIsToldInAWord) {
  EXPECT_EQ(wordFor(0), "State: Finished");
  EXPECT_EQ(wordFor(2), "State: Paused");
  EXPECT_EQ(wordFor(4), "State: Aborted");
  EXPECT_EQ(wordFor(6), "State: Completed");
  for (const int mode : {-1, 1, 3, 5, 7})
    EXPECT_EQ(wordFor(mode), "State: Unknown");
}

}  // namespace
}  // namespace quernstoke
