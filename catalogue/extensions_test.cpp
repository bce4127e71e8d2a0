#include "catalogue/extensions.h"

#include <string>
#include <vector>

#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Texts = std::vector<std::string>;

class ExtensionsTest : public EngineTest {
 protected:
  // The extensions in use after building the list.
  static Texts built(const std::string& types) {
    basBuildExtensionList(types, ExtensionList);
    return inUse(ExtensionList);
  }
  static Texts inUse(const Table<std::string>& list) {
    Texts extensions;
    for (Int32 slot = 1; slot <= list.upperBound() && !list[slot].empty(); ++slot)
      extensions.push_back(list[slot]);
    return extensions;
  }
  // The words e1, e2, ... divided by ";".
  static std::string numbered(int count) {
    std::string types;
    for (int i = 1; i <= count; ++i)
      types += (i > 1 ? ";e" : "e") + std::to_string(i);
    return types;
  }
};

TEST_F(ExtensionsTest, PatternsPointsAndBareWordsMeanTheSame) {
  EXPECT_THAT(built("*.mp3;*.wma"), ElementsAre("MP3", "WMA"));
  EXPECT_THAT(built("mp3"), ElementsAre("MP3"));
  EXPECT_THAT(built(".txt"), ElementsAre("TXT"));
  EXPECT_THAT(built("*Gz"), ElementsAre("GZ"));
}

TEST_F(ExtensionsTest, StarPointStarIsAnyExtension) {
  EXPECT_THAT(built("*.*"), ElementsAre("*"));
}

// The star counts as the pattern's beginning, behind which nothing is left.
TEST_F(ExtensionsTest, LoneStarIsNoExtension) {
  EXPECT_THAT(built("*"), IsEmpty());
  EXPECT_THAT(built("*."), IsEmpty());
}

TEST_F(ExtensionsTest, OnlyOneStarAndOnePointAreRemoved) {
  EXPECT_THAT(built("**.mp3;..txt;.*;a*.b"), ElementsAre("*.MP3", ".TXT", "*", "A*.B"));
}

TEST_F(ExtensionsTest, FirstEmptyFieldEndsTheList) {
  EXPECT_THAT(built("mp3;;wma"), ElementsAre("MP3"));
  EXPECT_EQ(ExtensionList[3], "");
  EXPECT_THAT(built("mp3;*.;wma"), ElementsAre("MP3"));
  EXPECT_THAT(built(";mp3"), IsEmpty());
}

TEST_F(ExtensionsTest, BlanksBelongToTheExtension) {
  EXPECT_THAT(built("mp3; wma"), ElementsAre("MP3", " WMA"));
}

TEST_F(ExtensionsTest, RemovingAPrefixKeeps999Characters) {
  std::string umlauts;
  for (int i = 0; i < 1001; ++i)
    umlauts += "ä";
  EXPECT_THAT(built("*" + umlauts), ElementsAre(umlauts.substr(0, 2 * 999)));
  EXPECT_THAT(built("." + umlauts), ElementsAre(umlauts.substr(0, 2 * 999)));
  EXPECT_THAT(built(umlauts), ElementsAre(umlauts));
}

TEST_F(ExtensionsTest, EachBuildingStartsWithAnEmptyList) {
  built("mp3;wma;ogg");
  EXPECT_THAT(built("txt"), ElementsAre("TXT"));
  EXPECT_EQ(ExtensionList[2], "");
  EXPECT_EQ(ExtensionList[3], "");
}

TEST_F(ExtensionsTest, FillsTheGivenListAlone) {
  built("mp3");
  Table<std::string> shown;
  basBuildExtensionList("*.jpg;*.png", shown);
  EXPECT_THAT(inUse(shown), ElementsAre("JPG", "PNG"));
  EXPECT_THAT(inUse(ExtensionList), ElementsAre("MP3"));
}

TEST_F(ExtensionsTest, NumberNamesARowOfTheFileTypes) {
  FileTypeTable.FileTypesList[3] = "*.jpg;*.png";
  FileTypeTable.FileTypesList[50] = "*.doc";
  EXPECT_THAT(built("3"), ElementsAre("JPG", "PNG"));
  EXPECT_THAT(built("50"), ElementsAre("DOC"));
  EXPECT_THAT(built("0"), IsEmpty());
}

// Such an extension can only be asked for together with another one.
TEST_F(ExtensionsTest, NumericExtensionIsTakenForARow) {
  FileTypeTable.FileTypesList[1] = "*.mp3";
  EXPECT_THAT(built("001"), ElementsAre("MP3"));
  EXPECT_THAT(built("001;002"), ElementsAre("001", "002"));
}

// The list is cleared only once its number has been looked up.
TEST_F(ExtensionsTest, NumberAbove50FailsAndLeavesTheListAsItWas) {
  built("mp3;wma");
  EXPECT_THAT(built("51"), ElementsAre("MP3", "WMA"));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basBuildExtensionList", "Subscript out of range(9)")));
}

TEST_F(ExtensionsTest, NegativeNumberFailsAlike) {
  built("-1");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basBuildExtensionList", "Subscript out of range(9)")));
}

TEST_F(ExtensionsTest, ThirtyTwoExtensionsFit) {
  const Texts extensions = built(numbered(32));
  ASSERT_EQ(extensions.size(), 32U);
  EXPECT_EQ(extensions.back(), "E32");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ExtensionsTest, ThirtyThirdExtensionFailsAndTheOthersStay) {
  EXPECT_EQ(built(numbered(33)).size(), 32U);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basBuildExtensionList", "Subscript out of range(9)")));
  EXPECT_TRUE(basValidateExtension("E32"));
  EXPECT_FALSE(basValidateExtension("E33"));
}

TEST_F(ExtensionsTest, TakesAnExtensionInAnyLetterCaseButWhole) {
  built("mp3;txt");
  EXPECT_TRUE(basValidateExtension("TXT"));
  EXPECT_TRUE(basValidateExtension("txt"));
  EXPECT_FALSE(basValidateExtension("TX"));
  EXPECT_FALSE(basValidateExtension("TXTX"));
}

TEST_F(ExtensionsTest, NoExtensionPassesOnlyByTheStar) {
  built("mp3");
  EXPECT_FALSE(basValidateExtension(""));
  built("mp3;*.*");
  EXPECT_TRUE(basValidateExtension(""));
  EXPECT_TRUE(basValidateExtension("anything"));
}

TEST_F(ExtensionsTest, EmptyListTakesNothing) {
  built("");
  EXPECT_FALSE(basValidateExtension(""));
  EXPECT_FALSE(basValidateExtension("TXT"));
}

TEST_F(ExtensionsTest, NothingBehindAnEmptySlotCounts) {
  built("mp3");
  ExtensionList[3] = "TXT";
  EXPECT_FALSE(basValidateExtension("TXT"));
}

}  // namespace
}  // namespace quernstoke
