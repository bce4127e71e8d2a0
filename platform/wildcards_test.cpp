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

}  // namespace
}  // namespace quernstoke
