#include "controls/clickWatch.h"

#include <QListWidget>
#include <gtest/gtest.h>

#include "testing/qt/input.h"

namespace quernstoke {
namespace {

class ClickWatchTest : public testing::Test {
 protected:
  ClickWatchTest() {
    list_.addItems({"first", "second"});
    list_.resize(200, 200);
    list_.show();
    watchClicks(list_, [this] { ++clicks_; });
  }
  void clickRow(int row) {
    clickMouse(*list_.viewport(), list_.visualItemRect(list_.item(row)).center());
  }

  QListWidget list_;
  int clicks_ = 0;
};

TEST_F(ClickWatchTest, AClickThatSelectsIsToldOnce) {
  clickRow(1);
  EXPECT_EQ(clicks_, 1);
}

TEST_F(ClickWatchTest, AClickOnTheSelectedItemIsToldToo) {
  clickRow(1);
  clickRow(1);
  EXPECT_EQ(clicks_, 2);
}

TEST_F(ClickWatchTest, AKeyThatSelectsIsTold) {
  clickRow(0);
  typeKey(list_, Qt::Key_Down);
  EXPECT_EQ(clicks_, 2);
  clickRow(1);
  EXPECT_EQ(clicks_, 3);
}

TEST_F(ClickWatchTest, TheProgramSelectingIsTold) {
  list_.setCurrentRow(1);
  EXPECT_EQ(clicks_, 1);
  list_.clearSelection();
  EXPECT_EQ(clicks_, 2);
}

TEST_F(ClickWatchTest, AClickBesideTheItemsIsNone) {
  clickMouse(*list_.viewport(), {100, 180});
  EXPECT_EQ(clicks_, 0);
}

}  // namespace
}  // namespace quernstoke
