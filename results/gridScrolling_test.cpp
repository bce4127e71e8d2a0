#include "results/gridScrolling.h"

#include "catalogue/fileTable.h"
#include "results/resultsGridTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ScrollingTest : public ResultsGridTest {
 protected:
  // Moves the bar as a person does.
  void scrollTo(int value) { form.scrollBar.setValue(static_cast<std::int16_t>(value)); }
  void press(GridKey key) { gridMatches_KeyUp(form, key); }
  int barValue() const { return form.scrollBar.value(); }
};

TEST_F(ScrollingTest, StepMovesByAFile) {
  build(100);
  scrollTo(30);
  scrollTo(31);
  EXPECT_EQ(firstOnPage(), 31);
  EXPECT_EQ(GridLastFile, 50);
  scrollTo(30);
  EXPECT_EQ(firstOnPage(), 30);
  EXPECT_EQ(GridLastFile, 49);
  EXPECT_EQ(GridPrevScroll, 30);
}

TEST_F(ScrollingTest, LargeChangeMovesByAPage) {
  build(100);
  scrollTo(30);
  scrollTo(48);
  EXPECT_EQ(firstOnPage(), 49);
  EXPECT_EQ(GridLastFile, 67);
  scrollTo(30);
  EXPECT_EQ(firstOnPage(), 30);
  EXPECT_EQ(GridLastFile, 49);
}

TEST_F(ScrollingTest, AnyOtherMovementGoesToTheFileOfTheValue) {
  build(100);
  scrollTo(30);
  scrollTo(32);
  EXPECT_EQ(firstOnPage(), 32);
  scrollTo(5);
  EXPECT_EQ(firstOnPage(), 5);
}

// A display begins at value 1 with the previous one held for 0, so that the first step counts as
// two and the first page as a file more than a page.
TEST_F(ScrollingTest, FirstMovementOfADisplayIsAJump) {
  build(100);
  scrollTo(2);
  EXPECT_EQ(firstOnPage(), 2);
  EXPECT_EQ(GridLastFile, 21);
  build();
  scrollTo(19);
  EXPECT_EQ(firstOnPage(), 19);
}

// A page of two files: its large change is a step.
TEST_F(ScrollingTest, StepComesBeforeThePage) {
  form.screen.rowsThatFit = 3;
  build(100);
  scrollTo(30);
  scrollTo(31);
  EXPECT_EQ(GridFirstFile, 31);
  scrollTo(30);
  EXPECT_EQ(GridFirstFile, 30);
}

TEST_F(ScrollingTest, NoMovementFillsThePageAgain) {
  build(100);
  scrollTo(30);
  form.statusBarUpdates = 0;
  FileTable.FileStatus[statusTick][30] = 1;
  vscrGridMatches_Change(form);
  EXPECT_EQ(form.statusBarUpdates, 1);
  EXPECT_EQ(firstOnPage(), 30);
  EXPECT_EQ(grid.cell(1, 0).picture, "SmallTick");
}

TEST_F(ScrollingTest, MovementByTheProgramIsIgnored) {
  build(100);
  form.statusBarUpdates = 0;
  form.scrollBar.setTag("IGNORE");
  scrollTo(30);
  EXPECT_EQ(form.statusBarUpdates, 0);
  EXPECT_EQ(GridPrevScroll, 0);
  EXPECT_EQ(form.scrollBar.text, "IGNORE");
}

TEST_F(ScrollingTest, BarThatIsPinnedToTheEndIsRememberedThere) {
  build(100);
  scrollTo(90);
  EXPECT_EQ(firstOnPage(), 82);
  EXPECT_EQ(lastOnPage(), 100);
  EXPECT_EQ(barValue(), 101);
  EXPECT_EQ(GridPrevScroll, 101);
}

TEST_F(ScrollingTest, GridIsGivenTheFocusEvenDisabled) {
  build(100);
  grid.setEnabled(false);
  form.screen.log.clear();
  scrollTo(30);
  EXPECT_THAT(form.screen.log, ElementsAre("focus"));
}

TEST_F(ScrollingTest, UpTo32000FilesTheValueIsTheFile) {
  buildNameless(32000);
  scrollTo(16001);
  EXPECT_EQ(firstOnPage(), 16001);
}

TEST_F(ScrollingTest, Beyond32000FilesTheValueIsScaled) {
  buildNameless(64000);
  scrollTo(16001);
  EXPECT_EQ(firstOnPage(), 32002);
  scrollTo(32000);
  EXPECT_EQ(lastOnPage(), 64000);
}

TEST_F(ScrollingTest, ScaledValueIsRoundedToTheEvenNumber) {
  buildNameless(32001);
  scrollTo(16000);
  EXPECT_EQ(firstOnPage(), 16000);  // 16000.5
  buildNameless(32003);
  scrollTo(16000);
  EXPECT_EQ(firstOnPage(), 16002);  // 16001.5
}

// The bar's step stands for two files here, the page's for one.
TEST_F(ScrollingTest, StepOfAScaledBarIsStillAFile) {
  buildNameless(64000);
  scrollTo(16000);
  scrollTo(16001);
  EXPECT_EQ(firstOnPage(), 32001);
}

TEST_F(ScrollingTest, KeysTurnThePage) {
  build(100);
  press(GridKey::pageDown);
  EXPECT_EQ(firstOnPage(), 20);
  EXPECT_EQ(cursor(), 19);
  press(GridKey::pageUp);
  EXPECT_EQ(firstOnPage(), 1);
  EXPECT_EQ(cursor(), 1);
  press(GridKey::end);
  EXPECT_EQ(firstOnPage(), 82);
  EXPECT_EQ(lastOnPage(), 100);
  EXPECT_EQ(cursor(), 19);
  press(GridKey::home);
  EXPECT_EQ(firstOnPage(), 1);
  EXPECT_EQ(cursor(), 1);
}

TEST_F(ScrollingTest, OtherKeysDoNothing) {
  build(100);
  form.statusBarUpdates = 0;
  press(GridKey::none);
  EXPECT_EQ(form.statusBarUpdates, 0);
}

// Keys leave the bar behind, and the next movement of the bar is measured from where it was.
TEST_F(ScrollingTest, KeysMoveNoBarButToItsEnds) {
  build(200);
  scrollTo(30);
  form.scrollBar.values.clear();
  press(GridKey::pageDown);
  press(GridKey::pageDown);
  EXPECT_THAT(form.scrollBar.values, IsEmpty());
  press(GridKey::end);
  press(GridKey::home);
  EXPECT_THAT(form.scrollBar.values, ElementsAre(201, 1));
  EXPECT_EQ(GridPrevScroll, 30);
}

TEST_F(ScrollingTest, EndStopsAtFile999999OfMoreThanAMillion) {
  form.screen.rowsThatFit = 40;
  buildNameless(1'000'100);
  press(GridKey::end);
  EXPECT_EQ(firstOnPage(), 999'999);
  EXPECT_EQ(lastOnPage(), 1'000'037);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// The key names no file behind the last one then: the cursor is where the fill left it.
TEST_F(ScrollingTest, EndOfMoreThanAMillionLeavesTheCursorOnTheLastRowWritten) {
  ResultsView = resultsView::twoLines;
  form.screen.rowsThatFit = 70;
  buildNameless(1'000'100);
  press(GridKey::end);
  EXPECT_EQ(GridPageRows, 69);
  EXPECT_EQ(cursor(), 70);
}

}  // namespace
}  // namespace quernstoke
