#include "controls/labelButton.h"

#include <QAccessible>
#include <QFontMetrics>
#include <gtest/gtest.h>

#include "testing/qt/input.h"

namespace quernstoke {
namespace {

class LabelButtonTest : public testing::Test {
 protected:
  LabelButtonTest() {
    QObject::connect(&label, &QAbstractButton::clicked, [this] { ++clicks; });
    label.setCaption("Pictures");
    label.resize(label.sizeHint());
  }

  LabelButton label;
  int clicks = 0;
};

TEST_F(LabelButtonTest, MouseAndBlankPressIt) {
  clickMouse(label, label.rect().center());
  EXPECT_EQ(clicks, 1);
  typeKey(label, Qt::Key_Space);
  EXPECT_EQ(clicks, 2);
}

TEST_F(LabelButtonTest, IsAsWideAsItsCaption) {
  EXPECT_EQ(label.sizeHint().width(), QFontMetrics(label.font()).horizontalAdvance("Pictures"));
  const int width = label.sizeHint().width();
  label.setBold(true);
  EXPECT_EQ(label.sizeHint().width(), QFontMetrics(label.font()).horizontalAdvance("Pictures"));
  EXPECT_NE(label.sizeHint().width(), width);
  label.setBold(false);
  EXPECT_EQ(label.sizeHint().width(), width);
}

TEST_F(LabelButtonTest, AmpersandIsNoMnemonic) {
  label.setCaption("R&B");
  EXPECT_EQ(label.caption(), "R&B");
  EXPECT_TRUE(label.shortcut().isEmpty());
  EXPECT_EQ(label.sizeHint().width(), QFontMetrics(label.font()).horizontalAdvance("R&B"));
}

TEST_F(LabelButtonTest, ScreenReadersSeeAButtonOfThatName) {
  auto* const accessible = QAccessible::queryAccessibleInterface(&label);
  ASSERT_NE(accessible, nullptr);
  EXPECT_EQ(accessible->text(QAccessible::Name), "Pictures");
  EXPECT_EQ(accessible->role(), QAccessible::Button);
}

}  // namespace
}  // namespace quernstoke
