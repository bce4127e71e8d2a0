#include "controls/wheelGuard.h"

#include <QApplication>
#include <QComboBox>
#include <QScrollBar>
#include <gtest/gtest.h>

#include "testing/qt/input.h"

namespace quernstoke {
namespace {

class GuardedList : public testing::Test {
 protected:
  GuardedList() {
    list_.addItems({"a", "b", "c", "d"});
    list_.setCurrentIndex(1);
    guardFromWheel(list_);
    window_.show();
    window_.activateWindow();
    QApplication::processEvents();
  }

  QWidget window_;
  QComboBox list_{&window_};
};

TEST_F(GuardedList, WithoutTheFocusLeavesTheWheelToWhatIsBehindIt) {
  list_.clearFocus();
  EXPECT_FALSE(turnWheel(list_, -1));
  EXPECT_EQ(list_.currentIndex(), 1);
  EXPECT_FALSE(list_.hasFocus());
}

TEST_F(GuardedList, WithTheFocusIsMovedByOneEntryToANotch) {
  list_.setFocus();
  ASSERT_TRUE(list_.hasFocus());
  EXPECT_TRUE(turnWheel(list_, -1));
  EXPECT_EQ(list_.currentIndex(), 2);
}

class SteppedBar : public testing::Test {
 protected:
  SteppedBar() {
    bar_.setRange(0, 100);
    bar_.setValue(50);
    stepByWheel(bar_);
    QObject::connect(&bar_, &QScrollBar::valueChanged, [this] { ++changes_; });
  }
  // By a part of a notch, which has an angle of 120.
  void turn(int angle) {
    QWheelEvent event({}, {}, {}, {0, angle}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&bar_, &event);
  }

  QScrollBar bar_;
  int changes_ = 0;
};

TEST_F(SteppedBar, TellsEachOfTheThreeStepsOfANotch) {
  EXPECT_TRUE(turnWheel(bar_, -1));
  EXPECT_EQ(bar_.value(), 53);
  EXPECT_EQ(changes_, 3);
  turnWheel(bar_, 2);
  EXPECT_EQ(bar_.value(), 47);
  EXPECT_EQ(changes_, 9);
}

TEST_F(SteppedBar, PartsOfAStepAddUpUnlessTheWheelTurnsBack) {
  turn(-30);
  EXPECT_EQ(bar_.value(), 50);
  turn(-30);
  EXPECT_EQ(bar_.value(), 51);
  turn(30);
  EXPECT_EQ(bar_.value(), 51);
  turn(10);
  EXPECT_EQ(bar_.value(), 50);
}

}  // namespace
}  // namespace quernstoke
