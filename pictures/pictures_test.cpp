#include "pictures/pictures.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/failure.h"

namespace quernstoke {
namespace {

constexpr QColor light(0xef, 0xf0, 0xf1);
constexpr QColor dark(0x23, 0x26, 0x29);

class PicturesTest : public testing::Test {
 protected:
  ~PicturesTest() override { QGuiApplication::setPalette(QPalette()); }

  static void useTextColour(const QColor& colour) {
    QPalette palette;
    palette.setColor(QPalette::WindowText, colour);
    QGuiApplication::setPalette(palette);
  }
  static std::vector<std::string> keys() {
    programIcon();
    std::vector<std::string> found;
    for (const QString& file : QDir(":/pictures").entryList())
      found.push_back(file.chopped(4).toStdString());
    return found;
  }
  static QImage drawn(const std::string& key, QSize size, const QColor& ground = Qt::transparent) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(ground);
    QPainter painter(&image);
    picture(key).paint(&painter, image.rect());
    return image;
  }
  // Pixels that stand out from the ground as a thing on a screen must, by a ratio of 3.
  static int visiblePixels(const QImage& image, const QColor& ground) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (contrast(image.pixelColor(x, y), ground) >= 3) ++count;
    return count;
  }
  // The pixels of one row that are covered.
  static std::vector<bool> coveredInRow(const QImage& image, int y) {
    std::vector<bool> covered;
    for (int x = 0; x < image.width(); ++x)
      covered.push_back(image.pixelColor(x, y).alpha() > 127);
    return covered;
  }

 private:
  static double contrast(const QColor& a, const QColor& b) {
    const double first = luminance(a) + 0.05, second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
  }
  static double luminance(const QColor& colour) {
    const auto linear = [](double part) { return std::pow(part, 2.2); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
  }
};

TEST_F(PicturesTest, EveryKeyThatAWindowAsksForHasAPicture) {
  for (const char* key : {"SmallPlus",     "SmallMinus",    "ExcludeTwoTop", "ExcludeTwoBottom",
                          "SimpleTick",    "SmallTick",     "SmallUnTick",   "BigTick1",
                          "BigTick2",      "BigUnTick1",    "BigUnTick2",    "On",
                          "Off",           "HelpHide",      "HelpUnhide",    "PreviousResults",
                          "DeleteProfile", "Close",         "Open",          "Drive",
                          "OpenFile",      "SetDirectory1", "SetDirectory2", "DirectoryMatch"})
    EXPECT_FALSE(picture(key).isNull()) << key;
}

TEST_F(PicturesTest, KeyWithoutAPictureFails) {
  EXPECT_THROW(picture("SmallCross"), Failure);
}

TEST_F(PicturesTest, EveryPictureStandsOutOnLightAndOnDark) {
  for (const auto& [ground, text] : {std::pair(light, QColor(Qt::black)), {dark, Qt::white}}) {
    useTextColour(text);
    for (const std::string& key : keys()) {
      const QImage image = drawn(key, pictureSize(key).boundedTo({24, 24}), ground);
      EXPECT_GE(visiblePixels(image, ground), 16) << key << " on " << ground.name().toStdString();
    }
  }
}

TEST_F(PicturesTest, LowerHalvesGoOnWhereUpperHalvesEnd) {
  for (const auto& [upper, lower] : {std::pair("ExcludeTwoTop", "ExcludeTwoBottom"),
                                     {"BigTick1", "BigTick2"},
                                     {"BigUnTick1", "BigUnTick2"}}) {
    ASSERT_EQ(pictureSize(upper), pictureSize(lower));
    const QSize size = pictureSize(upper) * 4;
    const QImage top = drawn(upper, size), bottom = drawn(lower, size);
    int different = 0;
    const std::vector<bool> end = coveredInRow(top, size.height() - 1);
    const std::vector<bool> begin = coveredInRow(bottom, 0);
    for (std::size_t x = 0; x < end.size(); ++x)
      different += end[x] != begin[x];
    EXPECT_LE(different, 4) << upper;  // A slanting line moves on by a pixel.
    EXPECT_TRUE(std::find(end.begin(), end.end(), true) != end.end()) << upper;
  }
}

// Halves share one drawing, of which each must keep to its own row.
TEST_F(PicturesTest, PictureKeepsToItsPlace) {
  QImage image(60, 60, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  QPainter painter(&image);
  const QRect place(18, 24, 24, 12);
  picture("BigTick1").paint(&painter, place);
  painter.fillRect(place, Qt::white);
  painter.end();

  QImage blank(image.size(), image.format());
  blank.fill(Qt::white);
  EXPECT_EQ(image, blank);
}

TEST_F(PicturesTest, PictureFollowsTheTextColourOfTheDesktop) {
  const QIcon magnifier = picture("PreviousResults");
  const auto centreOfHandle = [&] { return magnifier.pixmap(64, 64).toImage().pixelColor(50, 50); };
  useTextColour(Qt::black);
  EXPECT_EQ(centreOfHandle(), QColor(Qt::black));
  useTextColour(Qt::white);
  EXPECT_EQ(centreOfHandle(), QColor(Qt::white));
}

TEST_F(PicturesTest, DisabledPictureIsFaded) {
  const QIcon plus = picture("SmallPlus");
  EXPECT_EQ(plus.pixmap(16, 16).toImage().pixelColor(8, 3).alpha(), 255);
  EXPECT_LT(plus.pixmap(16, 16, QIcon::Disabled).toImage().pixelColor(8, 3).alpha(), 128);
}

TEST_F(PicturesTest, PictureIsDrawnAtTheSizeAskedFor) {
  EXPECT_EQ(picture("SmallPlus").pixmap(48, 48).size(), QSize(48, 48));
  EXPECT_EQ(picture("BigTick1").actualSize({48, 48}), QSize(48, 24));
}

TEST_F(PicturesTest, ProgramIconHasAllSizes) {
  const QList<QSize> sizes = programIcon().availableSizes();
  for (const int size : {16, 24, 32, 48, 64, 128, 256})
    EXPECT_TRUE(sizes.contains(QSize(size, size))) << size;
}

}  // namespace
}  // namespace quernstoke
