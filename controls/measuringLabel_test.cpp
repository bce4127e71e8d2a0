#include "controls/measuringLabel.h"

#include <QFontMetrics>
#include <gtest/gtest.h>

#include "controls/units.h"

namespace quernstoke {
namespace {

class MeasuringLabelTest : public testing::Test {
 protected:
  QWidget window;
  MeasuringLabel label{&window};
};

TEST_F(MeasuringLabelTest, TellsWidthsInTwips) {
  const int pixels = QFontMetrics(window.font()).horizontalAdvance("--00/00/2000--");
  ASSERT_GT(pixels, 0);
  EXPECT_EQ(label.width("--00/00/2000--"), pixels * twipsPerPixel);
  EXPECT_EQ(label.width(""), 0);
}

TEST_F(MeasuringLabelTest, FollowsTheFontOfItsWindow) {
  const std::int32_t before = label.width("Directory");
  QFont larger = window.font();
  larger.setPointSize(larger.pointSize() * 2);
  window.setFont(larger);
  EXPECT_GT(label.width("Directory"), before);
}

TEST_F(MeasuringLabelTest, BoldTextIsWider) {
  const std::int32_t before = label.width("Directory");
  label.setBold(true);
  EXPECT_GT(label.width("Directory"), before);
  label.setBold(false);
  EXPECT_EQ(label.width("Directory"), before);
}

TEST_F(MeasuringLabelTest, IsNeverSeen) {
  window.show();
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(label.isVisible());
}

TEST_F(MeasuringLabelTest, MeasuresBytesThatAreNoUtf8) {
  EXPECT_GT(label.width("a\xff\xfe"), label.width("a"));
}

}  // namespace
}  // namespace quernstoke
