#include "console/optionValues.h"

#include <gtest/gtest.h>

#include "console/exitStatus.h"
#include "core/text.h"

namespace quernstoke {
namespace {

template <class Parse>
ExitStatus statusOf(Parse parse) {
  try {
    parse();
  } catch (const ScanError& error) {
    return error.status;
  }
  return ExitStatus::finished;
}

std::string shown(const SizeLimit& limit) {
  return std::to_string(limit.number) + limit.measure;
}

bool refusesSize(const char* text) {
  return statusOf([&] { sizeLimit(text); }) == ExitStatus::wrongArguments;
}

std::string types(int count) {
  std::string list;
  for (int i = 0; i < count; ++i)
    list += "t" + std::to_string(i) + ";";
  return list;
}

TEST(MatchLettersTest, AreTakenInEitherCase) {
  EXPECT_EQ(matchLetters("nC"), "NC");
  EXPECT_EQ(matchLetters("S"), "S");
}

TEST(MatchLettersTest, AreNothingElse) {
  for (const char* text : {"", "X", "NX", "N C"})
    EXPECT_EQ(statusOf([&] { matchLetters(text); }), ExitStatus::wrongArguments) << text;
}

TEST(MatchPercentTest, RunsFrom50To100) {
  EXPECT_EQ(matchPercent("50"), 50);
  EXPECT_EQ(matchPercent("100"), 100);
  for (const char* text : {"49", "101", "", "x", "75%", "75.5", "+75", "-75", "99999999999"})
    EXPECT_EQ(statusOf([&] { matchPercent(text); }), ExitStatus::wrongArguments) << text;
}

TEST(SizeLimitTest, KeepsNumberAndMeasure) {
  EXPECT_EQ(shown(sizeLimit("10KB")), "10KB");
  EXPECT_EQ(shown(sizeLimit("0B")), "0B");
  EXPECT_EQ(shown(sizeLimit("3gb")), "3GB");
  EXPECT_EQ(shown(sizeLimit("2047MB")), "2047MB");
}

TEST(SizeLimitTest, IsAWholeNumberWithAMeasure) {
  for (const char* text : {"", "10", "KB", "1.5MB", "-1KB", "+1KB", "10 KB", "10TB", "10KBs"})
    EXPECT_TRUE(refusesSize(text)) << text;
}

TEST(SizeLimitTest, BeyondWhat32BitsHoldIsInGigabytes) {
  EXPECT_EQ(shown(sizeLimit("2048MB")), "2GB");
  EXPECT_EQ(shown(sizeLimit("2097152KB")), "2GB");
  EXPECT_EQ(shown(sizeLimit("2147483648B")), "2GB");
  EXPECT_EQ(shown(sizeLimit("2049MB")), "3GB");
}

TEST(SizeLimitTest, EndsWhereFixedPointNumbersEnd) {
  EXPECT_EQ(shown(sizeLimit("858993GB")), "858993GB");
  EXPECT_TRUE(refusesSize("858994GB"));
  EXPECT_TRUE(refusesSize("99999999999999999999B"));
  EXPECT_TRUE(refusesSize("18446744073709551615GB"));
}

TEST(TypeListTest, TakesPatternsAndBareExtensions) {
  EXPECT_EQ(typeList("*.jpg;.png;gif"), "*.jpg;*.png;*.gif");
  EXPECT_EQ(typeList(" jpg ; png "), "*.jpg;*.png");
}

TEST(TypeListTest, PassesOverEmptyEntriesThatWouldEndTheEngineList) {
  EXPECT_EQ(typeList("jpg;;png;"), "*.jpg;*.png");
}

TEST(TypeListTest, TakesAStarForAllFiles) {
  EXPECT_EQ(typeList("*"), "*.*");
  EXPECT_EQ(typeList("*.*"), "*.*");
}

TEST(TypeListTest, NumberIsAnExtensionAndNoRowOfTheTable) {
  for (const char* number : {"7", ".7", "1e5"})
    EXPECT_FALSE(isNumeric(typeList(number))) << number;
  EXPECT_EQ(typeList("7"), "*.7");
}

TEST(TypeListTest, RefusesWhatNoFileCanHave) {
  for (const char* text : {"", ";", ".", "*.", "tar.gz", "j*", "j?g", "a/b"})
    EXPECT_EQ(statusOf([&] { typeList(text); }), ExitStatus::wrongArguments) << text;
}

TEST(TypeListTest, HoldsAsManyAsTheEngineDoes) {
  EXPECT_EQ(statusOf([] { typeList(types(32)); }), ExitStatus::finished);
  EXPECT_EQ(statusOf([] { typeList(types(33)); }), ExitStatus::wrongArguments);
}

}  // namespace
}  // namespace quernstoke
