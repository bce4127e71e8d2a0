#include "platform/linux/letterCase.h"

#include <gtest/gtest.h>

namespace quernstoke {
namespace {

TEST(LetterCase, MapsAsciiLetters) {
  EXPECT_EQ(lowerCase("AZ09[]@`{"), "az09[]@`{");
  EXPECT_EQ(upperCase("az09[]@`{"), "AZ09[]@`{");
  EXPECT_EQ(lowerCase(""), "");
}

TEST(LetterCase, MapsLettersOfAllLanguages) {
  EXPECT_EQ(lowerCase("ÄÖÜÉÑЖΩ"), "äöüéñжω");
  EXPECT_EQ(upperCase("äöüéñжω"), "ÄÖÜÉÑЖΩ");
  EXPECT_EQ(lowerCase("\xF0\x90\x90\x80"), "\xF0\x90\x90\xA8");  // Beyond the 16-bit characters.
}

TEST(LetterCase, MapsOneCharacterToOneCharacter) {
  EXPECT_EQ(upperCase("ß"), "ß");
  EXPECT_EQ(upperCase("ⱥ"), "Ⱥ");  // Two bytes for three.
  EXPECT_EQ(lowerCase("Ⱥ"), "ⱥ");
}

TEST(LetterCase, KeepsBytesThatAreNotUtf8) {
  const std::string wrong[] = {"\xFF",         "\xC3",
                               "\x80",         "\xC0\x81",
                               "\xED\xA0\x80", "\xE2\x82",
                               "\xC4\xC4",     "\xF5\x80\x80\x80",
                               "\xE0\x80\x81", "\xF0\x80\x80\x80"};
  for (const std::string& bytes : wrong) {
    EXPECT_EQ(lowerCase("A" + bytes + "B"), "a" + bytes + "b");
    EXPECT_EQ(upperCase("a" + bytes + "b"), "A" + bytes + "B");
  }
}

TEST(LetterCase, KnowsTextsThatDifferInCaseOnly) {
  EXPECT_TRUE(sameIgnoringCase("", ""));
  EXPECT_TRUE(sameIgnoringCase("ReadMe.TXT", "readme.txt"));
  EXPECT_TRUE(sameIgnoringCase("ÄÖÜ", "äöü"));
  EXPECT_TRUE(sameIgnoringCase("Ⱥ", "ⱥ"));
  EXPECT_FALSE(sameIgnoringCase("a", "ab"));
  EXPECT_FALSE(sameIgnoringCase("ab", "a"));
  EXPECT_FALSE(sameIgnoringCase("[", "{"));
  EXPECT_FALSE(sameIgnoringCase("ä", "a"));
}

TEST(LetterCase, ATextIsTheSameAsItsLowerAndItsUpperCase) {
  for (const char* text : {"İstanbul", "ılık", "Σίσυφος", "ſtraße", "ẞ", "ϴ", "Ω", "ǅ"}) {
    EXPECT_TRUE(sameIgnoringCase(text, lowerCase(text))) << text;
    EXPECT_TRUE(sameIgnoringCase(text, upperCase(text))) << text;
  }
}

TEST(LetterCase, ComparesWrongBytesAsTheyAre) {
  EXPECT_TRUE(sameIgnoringCase("A\xFF", "a\xFF"));
  EXPECT_FALSE(sameIgnoringCase("\xFE", "\xFF"));
  EXPECT_FALSE(sameIgnoringCase("\xC3", "\xC3\xA4"));
  EXPECT_FALSE(sameIgnoringCase("\xE9", "é"));
}

}  // namespace
}  // namespace quernstoke
