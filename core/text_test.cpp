#include "core/text.h"

#include <limits>

#include "testing/engineTest.h"
#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

using TextTest = EngineTest;

TEST_F(TextTest, NumbersHaveSignPointAndExponent) {
  for (const char* text : {"0", "-17", "+5", " 12\t", "1.5", ".5", "5.", "1e3", "1E+3", "2.5e-1"})
    EXPECT_TRUE(isNumeric(text)) << text;
}

TEST_F(TextTest, OtherTextsAreNoNumbers) {
  for (const char* text :
       {"", " ", "-", ".", "e5", "1e", "1e+", "12a", "1 2", "--1", "1.2.3", "0x10", "inf", "nan"})
    EXPECT_FALSE(isNumeric(text)) << text;
}

TEST_F(TextTest, ATextBecomesItsNumber) {
  EXPECT_EQ(toNumber("-17"), -17);
  EXPECT_EQ(toNumber(" +5 "), 5);
  EXPECT_EQ(toNumber("1e3"), 1000);
  EXPECT_EQ(toNumber("2147483647"), 2147483647);
  EXPECT_EQ(toNumber("-2147483648"), INT32_MIN);
}

TEST_F(TextTest, ANumberIsRoundedAHalfToTheEvenNeighbour) {
  EXPECT_EQ(toNumber("1.4"), 1);
  EXPECT_EQ(toNumber("1.5"), 2);
  EXPECT_EQ(toNumber("2.5"), 2);
  EXPECT_EQ(toNumber("-0.5"), 0);
  EXPECT_EQ(toNumber("1e-999"), 0);
}

TEST_F(TextTest, TheWholePartOfANumberIsCutAndMayBeTooLargeForAnInteger) {
  EXPECT_EQ(wholePart("1.9"), 1);
  EXPECT_EQ(wholePart(" -1.9 "), -1);
  EXPECT_EQ(wholePart("99999999999"), 99999999999);
  EXPECT_EQ(wholePart("1e999"), std::numeric_limits<double>::infinity());
  EXPECT_THROW(wholePart("I"), Failure);
}

TEST_F(TextTest, WhatIsNoNumberOrDoesNotFitFails) {
  EXPECT_FAILURE(typeMismatch, toNumber("many"));
  EXPECT_FAILURE(typeMismatch, toNumber(""));
  EXPECT_FAILURE(overflow, toNumber("2147483648"));
  EXPECT_FAILURE(overflow, toNumber("-2147483649"));
  EXPECT_FAILURE(overflow, toNumber("1e999"));
}

// Whether a number is too large or too near to 0 is told by its digits as well as its exponent.
TEST_F(TextTest, NumbersThatNoDoubleHoldsAreTooLargeOrNothing) {
  const std::string nines(400, '9'), zeros(400, '0');
  EXPECT_FAILURE(overflow, toNumber(nines));
  EXPECT_FAILURE(overflow, toNumber(nines + "e-5"));
  EXPECT_FAILURE(overflow, toNumber("-" + nines + "E-5"));
  EXPECT_FAILURE(overflow, toNumber("0." + zeros + "1e999"));
  EXPECT_FAILURE(overflow, toNumber("1e99999999999"));
  EXPECT_EQ(toNumber("0." + zeros + "1"), 0);
  EXPECT_EQ(toNumber("-." + zeros + "1e+5"), 0);
  EXPECT_EQ(toNumber(nines + "e-999"), 0);
  EXPECT_EQ(toNumber("1e-99999999999"), 0);
  EXPECT_EQ(toNumber("0e99999999999"), 0);
}

TEST_F(TextTest, TruthIsAWordOrANumber) {
  EXPECT_TRUE(toBoolean("True"));
  EXPECT_TRUE(toBoolean("TRUE"));
  EXPECT_TRUE(toBoolean("-1"));
  EXPECT_FALSE(toBoolean("false"));
  EXPECT_FALSE(toBoolean("0"));
  EXPECT_THROW(toBoolean("yes"), Failure);
}

TEST_F(TextTest, ValuesBecomeText) {
  EXPECT_EQ(toText(Int32(-17)), "-17");
  EXPECT_EQ(toText(true), "True");
  EXPECT_EQ(toText(false), "False");
}

TEST_F(TextTest, LettersBeyondAsciiHaveTwoCasesToo) {
  EXPECT_TRUE(equalIgnoringCase("C:\\\u00D6b", "c:\\\u00F6B"));
  EXPECT_TRUE(startsWithIgnoringCase("C:\\\u00D6b\\c", "c:\\\u00F6B"));
  EXPECT_FALSE(equalIgnoringCase("\u00D6", "a"));
}

TEST_F(TextTest, ComparesWithoutRegardToCase) {
  EXPECT_TRUE(equalIgnoringCase("Music", "mUSIC"));
  EXPECT_FALSE(equalIgnoringCase("Music", "Musi"));
  // Neighbours of the letters are no letters.
  EXPECT_FALSE(equalIgnoringCase("@[", "`{"));
  EXPECT_TRUE(equalIgnoringCase("Ä.TXT", "Ä.txt"));
}

TEST_F(TextTest, ComparesStartsWithoutRegardToCase) {
  EXPECT_TRUE(startsWithIgnoringCase("C:\\Music\\a", "c:\\music"));
  EXPECT_TRUE(startsWithIgnoringCase("C:\\Ä\\A", "c:\\Ä"));
  EXPECT_TRUE(startsWithIgnoringCase("a", ""));
  EXPECT_FALSE(startsWithIgnoringCase("C:", "C:\\"));
}

TEST_F(TextTest, BytesThatAreNoTextPassUnchanged) {
  EXPECT_TRUE(equalIgnoringCase("A\xFF", "a\xFF"));
}

TEST_F(TextTest, DigitsAreGroupedByThree) {
  EXPECT_EQ(grouped(0), "0");
  EXPECT_EQ(grouped(999), "999");
  EXPECT_EQ(grouped(1000), "1,000");
  EXPECT_EQ(grouped(1234567), "1,234,567");
  EXPECT_EQ(grouped(-123), "-123");
  EXPECT_EQ(grouped(-1234), "-1,234");
  locale.thousands = "\xC2\xA0";
  EXPECT_EQ(grouped(1234567),
            "1\xC2\xA0"
            "234\xC2\xA0"
            "567");
}

TEST_F(TextTest, PercentagesHaveTwoDecimals) {
  EXPECT_EQ(percentWithTwoDecimals(0), "0.00%");
  EXPECT_EQ(percentWithTwoDecimals(1), "100.00%");
  EXPECT_EQ(percentWithTwoDecimals(0.005f), "0.50%");
  EXPECT_EQ(percentWithTwoDecimals(2.0f / 3), "66.67%");
  locale.point = ",";
  EXPECT_EQ(percentWithTwoDecimals(0.25f), "25,00%");
}

}  // namespace
}  // namespace quernstoke
