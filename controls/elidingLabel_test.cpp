#include "controls/elidingLabel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quernstoke {
namespace {

class ElidingLabelTest : public testing::Test {
 protected:
  ElidingLabelTest() { label.resize(textWidth("C:\\Data\\Music") + 1, 20); }
  int textWidth(const char* text) const { return label.fontMetrics().horizontalAdvance(text); }
  std::string shown() const { return label.shownText().toStdString(); }

  ElidingLabel label;
};

TEST_F(ElidingLabelTest, TextThatFitsIsShownWhole) {
  label.setText("C:\\Data\\Music");
  EXPECT_EQ(shown(), "C:\\Data\\Music");
}

TEST_F(ElidingLabelTest, TextThatDoesNotFitIsCutAndFits) {
  label.setText("C:\\Data\\Music\\A long song.mp3");
  EXPECT_THAT(shown(), testing::StartsWith("C:\\Data"));
  EXPECT_LE(textWidth(shown().c_str()), label.width());
  EXPECT_EQ(label.text(), "C:\\Data\\Music\\A long song.mp3");
}

TEST_F(ElidingLabelTest, MiddleCanBeLeftOut) {
  label.setElideMode(Qt::ElideMiddle);
  label.setText("A very long song indeed.mp3");
  EXPECT_THAT(shown(), testing::EndsWith("mp3"));
}

TEST_F(ElidingLabelTest, LongTextAsksForNoWidth) {
  label.setText(QString(1000, 'x'));
  EXPECT_EQ(label.sizeHint().width(), 0);
  EXPECT_EQ(label.minimumSizeHint().width(), 0);
}

TEST_F(ElidingLabelTest, EmptyTextKeepsTheLine) {
  const int height = label.sizeHint().height();
  EXPECT_GE(height, label.fontMetrics().height());
  label.setText("text");
  EXPECT_EQ(label.sizeHint().height(), height);
}

// A file's name may look like markup.
TEST_F(ElidingLabelTest, MarkupIsShownAsItIs) {
  EXPECT_EQ(label.textFormat(), Qt::PlainText);
  label.resize(500, 20);
  label.setText("<b>bold</b> & more");
  EXPECT_EQ(shown(), "<b>bold</b> & more");
}

}  // namespace
}  // namespace quernstoke
