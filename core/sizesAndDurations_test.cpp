#include "core/sizesAndDurations.h"

#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

using SizesAndDurationsTest = EngineTest;

const std::string sizeOverflow = procedureError("basConvertSize", "Overflow(6)");

double bytes(int value, const char* measure) {
  return basConvertSize(value, measure).toDouble();
}

std::string duration(int seconds) {
  return basDateToDuration({}, {}, seconds);
}

TEST_F(SizesAndDurationsTest, EachMeasureHasItsFactor) {
  EXPECT_EQ(bytes(3, "B"), 3);
  EXPECT_EQ(bytes(3, "KB"), 3072);
  EXPECT_EQ(bytes(3, "MB"), 3145728);
  EXPECT_EQ(bytes(2, "GB"), 2147483648.0);
}

TEST_F(SizesAndDurationsTest, AnyOtherMeasureCountsAsBytes) {
  EXPECT_EQ(bytes(5, "TB"), 5);
  EXPECT_EQ(bytes(5, ""), 5);
  EXPECT_EQ(bytes(5, "kb"), 5);
}

// Kilobytes and megabytes are computed in 32 bits; only gigabytes go beyond.
TEST_F(SizesAndDurationsTest, KilobytesAndMegabytesOverflow) {
  EXPECT_EQ(bytes(2097151, "KB"), 2147482624);
  EXPECT_EQ(bytes(2047, "MB"), 2146435072);
  EXPECT_TRUE(dialogBoxes.messages.empty());
  EXPECT_EQ(bytes(2097152, "KB"), 0);
  EXPECT_EQ(bytes(2048, "MB"), 0);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(sizeOverflow, sizeOverflow));
}

TEST_F(SizesAndDurationsTest, GigabytesOverflowFarLater) {
  EXPECT_EQ(bytes(2097152, "GB"), 0);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(sizeOverflow));
  EXPECT_EQ(bytes(800000, "GB"), 800000.0 * 1073741824);
}

TEST_F(SizesAndDurationsTest, DurationsShowWhatTheyNeed) {
  EXPECT_EQ(duration(45), "45s");
  EXPECT_EQ(duration(59), "59s");
  EXPECT_EQ(duration(60), "1m 0s");
  EXPECT_EQ(duration(3605), "1h 0m 5s");
  EXPECT_EQ(duration(3725), "1h 2m 5s");
  EXPECT_EQ(duration(90000), "1d 1h 0m 0s");
  EXPECT_EQ(duration(86400), "1d 0h 0m 0s");
  EXPECT_EQ(duration(2147483647), "24855d 3h 14m 7s");
}

TEST_F(SizesAndDurationsTest, ACountOfZeroMeansTheSpanOfTheDates) {
  const DateTime start = clock.time;
  EXPECT_EQ(basDateToDuration(start, {start.seconds + 61}, 0), "1m 1s");
  EXPECT_EQ(basDateToDuration(start, start, 0), "0s");
  EXPECT_EQ(basDateToDuration(start, {start.seconds + 61}, 5), "5s");
}

// An estimate that has passed leaves less than nothing.
TEST_F(SizesAndDurationsTest, ANegativeSpanHasNegativeParts) {
  EXPECT_EQ(duration(-90), "-1m -30s");
}

TEST_F(SizesAndDurationsTest, ASpanBeyondThirtyTwoBitsOfSecondsFails) {
  EXPECT_EQ(basDateToDuration({0}, {2147483648}, 0), "");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basDateToDuration", "Overflow(6)")));
  EXPECT_THROW(secondsBetween({2147483649}, {0}), Failure);
}

TEST_F(SizesAndDurationsTest, SecondsBetweenCountsBothWays) {
  EXPECT_EQ(secondsBetween({100}, {142}), 42);
  EXPECT_EQ(secondsBetween({142}, {100}), -42);
}

}  // namespace
}  // namespace quernstoke
