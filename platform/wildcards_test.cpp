#include "platform/wildcards.h"

#include <gtest/gtest.h>
#include <string>

namespace quernstoke {
namespace {

TEST(Wildcards, AreStarsAndQuestionMarks) {
  EXPECT_TRUE(hasWildcards("a*"));
  EXPECT_TRUE(hasWildcards("a?b"));
  EXPECT_FALSE(hasWildcards("a.b"));
  EXPECT_FALSE(hasWildcards(""));
}

TEST(Wildcards, ANameWithoutThemFitsItselfOnly) {
  EXPECT_TRUE(matchesWildcards("name.txt", "name.txt"));
  EXPECT_FALSE(matchesWildcards("name.txt", "name.tx"));
  EXPECT_FALSE(matchesWildcards("name.tx", "name.txt"));
}

TEST(Wildcards, StarDotStarFitsEveryName) {
  for (const char* name : {"a", "a.b", "a.b.c", ".profile", "ends."})
    EXPECT_TRUE(matchesWildcards(name, "*.*")) << name;
}

TEST(Wildcards, AStarStandsForAnyText) {
  EXPECT_TRUE(matchesWildcards("tmp17.dat", "tmp*.*"));
  EXPECT_TRUE(matchesWildcards("tmp17", "tmp*.*"));
  EXPECT_TRUE(matchesWildcards("tmp", "tmp*.*"));
  EXPECT_FALSE(matchesWildcards("atmp", "tmp*.*"));
  EXPECT_TRUE(matchesWildcards("abcabc", "*abc"));
  EXPECT_FALSE(matchesWildcards("abcabd", "*abc"));
}

TEST(Wildcards, AnExtensionThatIsAskedForMustBeThere) {
  EXPECT_TRUE(matchesWildcards("a.txt", "*.txt"));
  EXPECT_FALSE(matchesWildcards("a", "*.txt"));
  EXPECT_FALSE(matchesWildcards("a.txt.bak", "*.txt"));
}

TEST(Wildcards, AQuestionMarkStandsForOneCharacterOrNoneAtTheEnd) {
  EXPECT_TRUE(matchesWildcards("abc", "a?c"));
  EXPECT_FALSE(matchesWildcards("ac", "a?c"));
  EXPECT_TRUE(matchesWildcards("ab", "ab??"));
  EXPECT_FALSE(matchesWildcards("abcde", "ab??"));
}

TEST(Wildcards, AQuestionMarkStandsForOneCharacterWhateverItsLength) {
  EXPECT_TRUE(matchesWildcards("m\u00FCsli", "m?sli"));
  EXPECT_FALSE(matchesWildcards("m\u00FCsli", "m??sli"));
  EXPECT_TRUE(matchesWildcards("\u20AC\U0001F600", "??"));
  EXPECT_FALSE(matchesWildcards("\u20AC\U0001F600x", "??"));
}

TEST(Wildcards, AByteThatIsNoUtf8IsOneCharacter) {
  EXPECT_TRUE(matchesWildcards("m\xFCsli", "m?sli"));
  EXPECT_FALSE(matchesWildcards("m\xFC\xFCsli", "m?sli"));
  EXPECT_TRUE(matchesWildcards("m\xFCsli", "m\xFCs*"));
}

TEST(Wildcards, NoWildcardSplitsACharacter) {
  EXPECT_FALSE(matchesWildcards("\u00E9", "*\xA9"));
  EXPECT_FALSE(matchesWildcards("\u00E9", "\xC3?"));
}

TEST(Wildcards, QuestionMarksBehindAStarMayStandForNothingAtTheEnd) {
  EXPECT_TRUE(matchesWildcards("a", "a*??"));
  EXPECT_TRUE(matchesWildcards("a", "a?*?"));
  EXPECT_FALSE(matchesWildcards("ab", "*???b"));
  EXPECT_TRUE(matchesWildcards("xxxb", "*???b"));
}

TEST(Wildcards, StarsTakeAsMuchAsTheRestLeavesThem) {
  EXPECT_TRUE(matchesWildcards("abxabyab", "*ab*ab"));
  EXPECT_TRUE(matchesWildcards("aab", "*ab"));
  EXPECT_FALSE(matchesWildcards("abab", "*ab*ab*ab"));
  EXPECT_TRUE(matchesWildcards("", "**"));
  EXPECT_TRUE(matchesWildcards("", ""));
  EXPECT_FALSE(matchesWildcards("", "*a"));
}

// Trying each star at each place would not end in a lifetime.
TEST(Wildcards, ManyStarsAreSettledAtOnce) {
  std::string pattern;
  for (int star = 0; star < 100; ++star)
    pattern += "*a";
  EXPECT_FALSE(matchesWildcards(std::string(250, 'a') + "b", pattern));
  EXPECT_TRUE(matchesWildcards(std::string(250, 'a'), pattern));
}

}  // namespace
}  // namespace quernstoke
