#include "controls/panelStatusBar.h"

#include <QApplication>
#include <QImage>
#include <QObject>
#include <gtest/gtest.h>

#include "platform/failure.h"
#include "testing/qt/input.h"

namespace quernstoke {
namespace {

class PanelStatusBarTest : public testing::Test {
 protected:
  PanelStatusBarTest() {
    bar.setPanelCount(5);
    bar.setPanelText(1, "Profile: Music");
    bar.setPanelText(3, "Files: 12");
    bar.setPanelText(5, "State: Paused");
    bar.resize(600, bar.sizeHint().height());
    bar.show();
  }

  PanelStatusBar bar;
};

int inkIn(PanelStatusBar& bar, const StatusPanel& panel) {
  QImage image(bar.size(), QImage::Format_RGB32);
  bar.render(&image);
  const QColor ground = image.pixelColor(bar.width() / 2, bar.height() / 2);
  int count = 0;
  for (int y = 2; y < bar.height() - 2; ++y)
    for (int x = panel.left; x < panel.left + panel.width; ++x)
      if (image.pixelColor(x, y) != ground) ++count;
  return count;
}

TEST_F(PanelStatusBarTest, PanelsLieSideBySideAsWideAsTheirTexts) {
  EXPECT_EQ(bar.panel(1).left, 0);
  for (int number = 2; number <= 5; ++number)
    EXPECT_EQ(bar.panel(number).left, bar.panel(number - 1).left + bar.panel(number - 1).width);
  for (const int number : {1, 3, 5})
    EXPECT_GT(bar.panel(number).width,
              bar.fontMetrics().horizontalAdvance(QString::fromStdString(bar.panel(number).text)));
  EXPECT_GT(bar.panel(2).width, 0);
  EXPECT_LT(bar.panel(2).width, bar.panel(1).width);
}

TEST_F(PanelStatusBarTest, ALongerTextMovesThePanelsBehindIt) {
  const int before = bar.panel(5).left;
  bar.setPanelText(3, "Files: 12345678");
  EXPECT_EQ(bar.panel(3).text, "Files: 12345678");
  EXPECT_GT(bar.panel(5).left, before);
  EXPECT_EQ(bar.panel(1).left, 0);
}

TEST_F(PanelStatusBarTest, ALongTextLeavesRoomForThePanelsBehindIt) {
  bar.setPanelText(1, "Profile: " + std::string(300, 'x'));
  EXPECT_LT(bar.panel(5).left + bar.panel(5).width, bar.width());
  EXPECT_EQ(bar.panel(1).width, bar.widthFor(std::string(10000, 'x')));
  EXPECT_TRUE(bar.accessibleName().contains(QString(300, u'x')));
}

TEST_F(PanelStatusBarTest, ALongTextStaysInItsPanel) {
  bar.setPanelText(3, "");
  bar.setPanelText(5, "");
  bar.setPanelText(1, std::string(300, 'x'));
  EXPECT_EQ(inkIn(bar, bar.panel(3)), 0);
}

TEST_F(PanelStatusBarTest, AHiddenPanelTakesNoRoom) {
  const int place = bar.panel(3).left;
  bar.setPanelVisible(3, false);
  EXPECT_FALSE(bar.panel(3).visible);
  EXPECT_EQ(bar.panel(3).width, 0);
  EXPECT_LT(bar.panel(3).left, 0);
  EXPECT_EQ(bar.panel(4).left, place);
  bar.setPanelVisible(3, true);
  EXPECT_EQ(bar.panel(3).left, place);
}

TEST_F(PanelStatusBarTest, APanelMayHaveAWidthAtLeast) {
  bar.setPanelMinWidth(1, 300);
  EXPECT_EQ(bar.panel(1).width, 300);
  EXPECT_EQ(bar.panel(2).left, 300);
  bar.setPanelMinWidth(1, 1);
  EXPECT_GT(bar.panel(1).width, 1);
}

TEST_F(PanelStatusBarTest, PanelsKeepTags) {
  EXPECT_EQ(bar.panel(1).tag, "");
  bar.setPanelTag(1, "150");
  EXPECT_EQ(bar.panel(1).tag, "150");
}

TEST_F(PanelStatusBarTest, PanelsCountFromOne) {
  EXPECT_THROW((void)bar.panel(0), Failure);
  EXPECT_THROW((void)bar.panel(6), Failure);
  EXPECT_THROW(bar.setPanelText(6, ""), Failure);
  EXPECT_EQ(bar.panelCount(), 5);
}

TEST_F(PanelStatusBarTest, TellsWhereThePointerIs) {
  int at = -1;
  QObject::connect(&bar, &PanelStatusBar::mouseMove, [&](int x) { at = x; });
  const StatusPanel& panel = bar.panel(3);
  moveMouse(bar, QPoint(panel.left + 5, 5));
  EXPECT_EQ(at, panel.left + 5);
}

TEST_F(PanelStatusBarTest, SaysAllItsTexts) {
  EXPECT_EQ(bar.accessibleName(), "Profile: Music, Files: 12, State: Paused");
  bar.setPanelVisible(3, false);
  EXPECT_EQ(bar.accessibleName(), "Profile: Music, State: Paused");
}

TEST_F(PanelStatusBarTest, ALineIsDrawnOnlyBetweenTexts) {
  EXPECT_GT(inkIn(bar, bar.panel(1)), 0);
  EXPECT_GT(inkIn(bar, bar.panel(4)), 0);
  bar.setPanelVisible(5, false);
  EXPECT_EQ(inkIn(bar, bar.panel(4)), 0);
  EXPECT_GT(inkIn(bar, bar.panel(2)), 0);
}

// A bar that is brought up to date from a paint handler would otherwise paint for ever.
TEST_F(PanelStatusBarTest, TheSameTextAgainPaintsNothing) {
  class Counter : public QObject {
   public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) ++paints;
      return false;
    }
  } counter;
  QApplication::processEvents();
  bar.installEventFilter(&counter);
  bar.setPanelText(1, "Profile: Music");
  bar.setPanelVisible(1, true);
  QApplication::processEvents();
  EXPECT_EQ(counter.paints, 0);
  bar.setPanelText(1, "Profile: Films");
  QApplication::processEvents();
  EXPECT_EQ(counter.paints, 1);
}

}  // namespace
}  // namespace quernstoke
