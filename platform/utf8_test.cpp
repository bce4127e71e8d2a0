#include "platform/utf8.h"

#include <gtest/gtest.h>
#include <vector>

namespace quernstoke {
namespace {

std::vector<std::uint32_t> codes(std::string_view text) {
  std::vector<std::uint32_t> result;
  for (std::size_t at = 0; at < text.size(); at += characterAt(text, at).length)
    result.push_back(characterAt(text, at).code);
  return result;
}

TEST(Utf8, CharactersHaveOneToFourBytes) {
  EXPECT_EQ(codes("a\u00E9\u20AC\U0001F600"),
            (std::vector<std::uint32_t>{'a', 0xE9, 0x20AC, 0x1F600}));
}

TEST(Utf8, ByteThatIsNoPartOfACharacterIsOneOfItsOwn) {
  EXPECT_EQ(codes("\xA9x"), (std::vector<std::uint32_t>{0xA9, 'x'}));
  EXPECT_EQ(codes("\xC3x"), (std::vector<std::uint32_t>{0xC3, 'x'}));
  EXPECT_EQ(codes("\xE2\x82"), (std::vector<std::uint32_t>{0xE2, 0x82}));
  EXPECT_FALSE(characterAt("\xA9", 0).isValid);
  EXPECT_NE(characterAt("\xE9", 0), characterAt("\u00E9", 0));
}

TEST(Utf8, OverlongFormsSurrogatesAndCodesBeyondTheLastAreNoCharacters) {
  for (const char* text : {"\xC0\x80", "\xE0\x80\x80", "\xF0\x80\x80\x80", "\xED\xA0\x80",
                           "\xF4\x90\x80\x80", "\xF5\x80\x80\x80"})
    EXPECT_FALSE(characterAt(text, 0).isValid) << text;
}

TEST(Utf8, CharactersAreCounted) {
  EXPECT_EQ(characterCount(""), 0u);
  EXPECT_EQ(characterCount("\u00E9\u20ACx"), 3u);
  EXPECT_EQ(characterCount("a\xFF\xFE"), 3u);
}

TEST(Utf8, TextIsCutBetweenCharacters) {
  EXPECT_EQ(firstCharacters("\u00E9\u20ACx", 2), "\u00E9\u20AC");
  EXPECT_EQ(firstCharacters("ab", 5), "ab");
  EXPECT_EQ(firstCharacters("ab", 0), "");
  EXPECT_EQ(firstCharacters("a\xFF\xFE", 2), "a\xFF");
  EXPECT_EQ(firstCharacters("\u00E9\xA9x", 2), "\u00E9\xA9");
}

}  // namespace
}  // namespace quernstoke
