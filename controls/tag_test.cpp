#include "controls/tag.h"

#include <QVariant>
#include <gtest/gtest.h>

namespace quernstoke {
namespace {

TEST(TagTest, IsEmptyAtFirst) {
  const QObject object;
  EXPECT_EQ(tagOf(object), "");
}

TEST(TagTest, KeepsItsText) {
  QObject object;
  setTag(object, "C:\\M\xc3\xbcsik");
  EXPECT_EQ(tagOf(object), "C:\\M\xc3\xbcsik");
}

TEST(TagTest, IsThePropertyOfDesigner) {
  QObject object;
  object.setProperty("Tag", "1");
  EXPECT_EQ(tagOf(object), "1");
}

TEST(TagTest, TheMarkOfTheProgramCountsOnce) {
  QObject object;
  setTag(object, ignoreTag);
  EXPECT_TRUE(takeIgnoreTag(object));
  EXPECT_EQ(tagOf(object), "");
  EXPECT_FALSE(takeIgnoreTag(object));
}

TEST(TagTest, OtherTagsAreNoMark) {
  QObject object;
  setTag(object, "ignore");
  EXPECT_FALSE(takeIgnoreTag(object));
  EXPECT_EQ(tagOf(object), "ignore");
}

}  // namespace
}  // namespace quernstoke
