#include "core/helpers.h"

#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::Pair;

using HelpersTest = EngineTest;

std::pair<std::string, std::string> nameAndDirectory(std::string_view path) {
  std::string name = "left over";
  std::string directory = "left over";
  basGetFilePath(path, name, directory);
  return {name, directory};
}

TEST_F(HelpersTest, APathIsSplitAtItsLastSeparator) {
  EXPECT_THAT(nameAndDirectory("C:\\a\\b.txt"), Pair("b.txt", "C:\\a"));
  EXPECT_THAT(nameAndDirectory("C:\\a/b.txt"), Pair("b.txt", "C:\\a"));
  EXPECT_THAT(nameAndDirectory("C:/a\\b.txt"), Pair("b.txt", "C:/a"));
}

TEST_F(HelpersTest, ALeadingSeparatorLeavesNoDirectory) {
  EXPECT_THAT(nameAndDirectory("\\b.txt"), Pair("b.txt", ""));
}

TEST_F(HelpersTest, WithoutASeparatorAllIsName) {
  EXPECT_THAT(nameAndDirectory("b.txt"), Pair("b.txt", ""));
  EXPECT_THAT(nameAndDirectory(""), Pair("", ""));
}

TEST_F(HelpersTest, ATrailingSeparatorLeavesNoName) {
  EXPECT_THAT(nameAndDirectory("C:\\"), Pair("", "C:"));
}

TEST_F(HelpersTest, ANameIsCutAfter999Characters) {
  const std::string longName(1000, 'n');
  EXPECT_THAT(nameAndDirectory("C:\\" + longName), Pair(longName.substr(1), "C:"));
  // The cut belongs to the walk back to the separator: a bare name stays whole.
  EXPECT_THAT(nameAndDirectory(longName), Pair(longName, ""));
}

TEST_F(HelpersTest, TheTypeIsWhatFollowsTheLastPoint) {
  EXPECT_EQ(basGetFileType("a.txt"), "TXT");
  EXPECT_EQ(basGetFileType("a.tar.gz"), "GZ");
  EXPECT_EQ(basGetFileType(".profile"), "PROFILE");
  EXPECT_EQ(basGetFileType("a."), "");
  EXPECT_EQ(basGetFileType("a"), "");
  EXPECT_EQ(basGetFileType(""), "");
}

// It expects a bare name and looks at no separators.
TEST_F(HelpersTest, TheTypeOfAPathMayHoldItsSeparators) {
  EXPECT_EQ(basGetFileType("C:\\a.b\\c"), "B\\C");
}

TEST_F(HelpersTest, ATypeIsCutAfter99Characters) {
  EXPECT_EQ(basGetFileType("a." + std::string(100, 'x')), std::string(99, 'X'));
}

TEST_F(HelpersTest, FieldsAreCountedFromOne) {
  EXPECT_EQ(basField("a;b;;d", ";", 1), "a");
  EXPECT_EQ(basField("a;b;;d", ";", 2), "b");
  EXPECT_EQ(basField("a;b;;d", ";", 3), "");
  EXPECT_EQ(basField("a;b;;d", ";", 4), "d");
  EXPECT_EQ(basField("a;b;;d", ";", 5), "");
}

TEST_F(HelpersTest, FieldsThatCannotBeAreEmpty) {
  EXPECT_EQ(basField("a;b", ";", 0), "");
  EXPECT_EQ(basField("a;b", ";", -1), "");
  EXPECT_EQ(basField("", ";", 1), "");
}

// The walk steps over one character of a delimiter, so its rest counts as text.
TEST_F(HelpersTest, TheRestOfALongDelimiterIsText) {
  EXPECT_EQ(basField("a, b, c", ", ", 1), "a");
  EXPECT_EQ(basField("a, b, c", ", ", 2), " b");
  EXPECT_EQ(basField("a;;;b", ";;", 2), "");
  EXPECT_EQ(basField("a;;;b", ";;", 3), ";b");
}

}  // namespace
}  // namespace quernstoke
