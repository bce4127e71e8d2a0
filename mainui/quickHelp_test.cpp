#include "mainui/quickHelp.h"

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
              ElementsAre(procedureError("basDisplayHelp", "Type mismatch(13)")));
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

}  // namespace
}  // namespace quernstoke
