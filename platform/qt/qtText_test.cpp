#include "platform/qt/qtText.h"

#include <gtest/gtest.h>

namespace quernstoke {
namespace {

TEST(QtText, TextComesBackAsItWas) {
  for (const std::string text :
       {"", "plain", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", "\xEF\xBF\xBD"})
    EXPECT_EQ(engineText(qtText(text)), text);
}

TEST(QtText, BytesThatAreNoTextComeBackAsTheyWere) {
  for (const std::string text :
       {"\xFC", "a\x80z", "\xC3", "\xC3\xC3\xA4", "\xE2\x82", "\xED\xB2\x80",
        "\xF0\x9F\x98\x80\xFF\xEF\xBF\xBD", "\xF5\xC0\x80"})
    EXPECT_EQ(engineText(qtText(text)), text);
}

TEST(QtText, ValidTextIsShownAsItIs) {
  EXPECT_EQ(qtText("M\xC3\xBCll"), QString::fromUtf8("M\xC3\xBCll"));
  EXPECT_EQ(qtText("M\xFCll").size(), 4);
}

TEST(QtText, EnteredTextHasNoControlCharacters) {
  EXPECT_EQ(enteredText(QString::fromUtf8("a\tb\r\nc\0d\x7F", 9)), "abcd");
  EXPECT_EQ(enteredText(qtText("\xFC\t\xFC")), "\xFC\xFC");
}

}  // namespace
}  // namespace quernstoke
