#include "catalogue/fullFilePath.h"

#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FullFilePathTest : public EngineTest {
 protected:
  // The ruler measures a character as one unit.
  static std::string fitted(Int32 width, const std::string& directory, const std::string& name) {
    return basBuildFullFilePath(width, name, directory, CharacterRuler());
  }
  // A directory of so many components.
  static std::string deepDirectory(int components) {
    std::string directory = "C:";
    for (int i = 1; i < components; ++i)
      directory += "\\d";
    return directory;
  }
};

TEST_F(FullFilePathTest, PathBelowTheWidthIsShownWhole) {
  EXPECT_EQ(fitted(10, "C:\\aaaa", "b"), "C:\\aaaa\\b");
}

TEST_F(FullFilePathTest, PathAsWideAsTheTargetIsShortened) {
  EXPECT_EQ(fitted(9, "C:\\aaaa", "b"), "C:\\...\\b");
}

TEST_F(FullFilePathTest, WithoutADirectoryTheNameStandsAlone) {
  EXPECT_EQ(fitted(10, "", "name"), "name");
}

TEST_F(FullFilePathTest, OddPathsLoseTheMiddleThenTheRightThenTheLeft) {
  const std::string directory = "C:\\aaaaaaaa\\bbbbbbbb\\cccccccc\\dddddddd\\eeeeeeee";
  const std::string name = "ffffffff";  // 56 wide in all.

  EXPECT_EQ(fitted(57, directory, name), directory + "\\" + name);
  EXPECT_EQ(fitted(56, directory, name),
            "C:\\aaaaaaaa\\bbbbbbbb\\...\\dddddddd\\eeeeeeee\\ffffffff");
  EXPECT_EQ(fitted(52, directory, name),
            "C:\\aaaaaaaa\\bbbbbbbb\\...\\dddddddd\\eeeeeeee\\ffffffff");
  EXPECT_EQ(fitted(51, directory, name), "C:\\aaaaaaaa\\bbbbbbbb\\...\\eeeeeeee\\ffffffff");
  EXPECT_EQ(fitted(46, directory, name), "C:\\aaaaaaaa\\...\\eeeeeeee\\ffffffff");
  EXPECT_EQ(fitted(41, directory, name), "C:\\aaaaaaaa\\...\\ffffffff");
  EXPECT_EQ(fitted(36, directory, name), "C:\\...\\ffffffff");
  EXPECT_EQ(fitted(1, directory, name), "C:\\...\\ffffffff");
}

// With an even number the middle leans to the left, so the left side is used up first.
TEST_F(FullFilePathTest, EvenPathsKeepTheLastButOne) {
  EXPECT_EQ(fitted(1, "C:\\aaaa\\bbbb\\cccc\\dddd", "eeee"), "C:\\...\\dddd\\eeee");
  EXPECT_EQ(fitted(1, "C:\\aaaa\\bbbb", "cccc"), "C:\\...\\bbbb\\cccc");
}

TEST_F(FullFilePathTest, FirstAndLastComponentAreNeverDropped) {
  EXPECT_EQ(fitted(1, "", "longname"), "longname");
  EXPECT_EQ(fitted(1, "C:", "longname"), "C:\\longname");
}

TEST_F(FullFilePathTest, SlashesDivideTooAndComeBackAsBackslashes) {
  EXPECT_EQ(fitted(1, "C:\\a.zip >> docs/old", "name"), "C:\\...\\old\\name");
}

// It begins with an empty component, and rebuilding stops at the first of those.
TEST_F(FullFilePathTest, NetworkPathThatHasToBeShortenedIsEmpty) {
  EXPECT_EQ(fitted(10, "\\\\server\\share", "name"), "");
  EXPECT_EQ(fitted(100, "\\\\server\\share", "name"), "\\\\server\\share\\name");
}

TEST_F(FullFilePathTest, ShortenedPathEndsBeforeAnEmptyComponent) {
  EXPECT_EQ(fitted(20, "C:\\aaaa\\bbbbbbbbbb\\", "cccc"), "C:\\aaaa\\...");
}

TEST_F(FullFilePathTest, ThirtyThreeComponentsCanBeShortened) {
  EXPECT_EQ(fitted(1, deepDirectory(32), "name"), "C:\\...\\name");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(FullFilePathTest, OneComponentMoreIsToldAndGivesNothing) {
  EXPECT_EQ(fitted(1, deepDirectory(33), "name"), "");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basBuildFullFilePath", "Subscript out of range(9)")));
}

TEST_F(FullFilePathTest, DeepPathThatFitsIsShownWhole) {
  EXPECT_EQ(fitted(1000, deepDirectory(40), "name"), deepDirectory(40) + "\\name");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

}  // namespace
}  // namespace quernstoke
