#include "mainui/dirComponents.h"

#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

class DirComponentsTest : public EngineTest {
 protected:
  static std::vector<std::string> captions(const std::string& path) {
    return labelCaptions(basLoadDirIntoArray(path));
  }
  static int count(const std::string& path) { return basLoadDirIntoArray(path).count.raw(); }
  static std::string clicked(const std::string& path, int label) {
    const std::vector<std::string> labels = captions(path);
    return pathUpTo(labels, clickedComponent(labels, static_cast<std::int16_t>(label)));
  }
  static std::string pathOf(int components) {
    std::string path = "C:";
    for (int i = 1; i < components; ++i)
      path += "\\" + std::to_string(i);
    return path;
  }
};

TEST_F(DirComponentsTest, DriveAndTwoDirectoriesMakeFiveLabels) {
  EXPECT_EQ(count("C:\\one\\two"), 3);
  EXPECT_THAT(captions("C:\\one\\two"), ElementsAre("C:", "\\", "one", "\\", "two"));
}

TEST_F(DirComponentsTest, ClickSelectsUpToItsComponent) {
  EXPECT_EQ(clicked("C:\\one\\two", 2), "C:\\one");
  EXPECT_EQ(clicked("C:\\one\\two", 4), "C:\\one\\two");
}

TEST_F(DirComponentsTest, BackslashStandsForTheComponentBeforeIt) {
  EXPECT_EQ(clicked("C:\\one\\two", 3), "C:\\one");
  EXPECT_EQ(clicked("C:\\one\\two", 1), "C:");
}

TEST_F(DirComponentsTest, DriveIsSelectedWithoutItsRoot) {
  EXPECT_EQ(clicked("C:\\one", 0), "C:");
  EXPECT_EQ(clicked("C:\\", 0), "C:");
}

TEST_F(DirComponentsTest, BackslashesAtTheEndsHaveEmptyNeighbours) {
  EXPECT_THAT(captions("C:\\one\\"), ElementsAre("C:", "\\", "one", "\\", ""));
  EXPECT_THAT(captions("\\one"), ElementsAre("", "\\", "one"));
  EXPECT_EQ(clicked("C:\\one\\", 4), "C:\\one\\");
  EXPECT_EQ(clicked("\\one", 1), "");
  EXPECT_EQ(clicked("\\one", 2), "\\one");
}

TEST_F(DirComponentsTest, EmptyPathIsOneEmptyComponent) {
  EXPECT_THAT(captions(""), ElementsAre(""));
}

TEST_F(DirComponentsTest, LoneBackslashSelectsNothing) {
  EXPECT_EQ(clickedComponent({"\\"}, 0), 0);
}

TEST_F(DirComponentsTest, LongPathExtendsTheArray) {
  EXPECT_EQ(basLoadDirIntoArray(pathOf(33)).text.upperBound(), 32);
  EXPECT_EQ(basLoadDirIntoArray(pathOf(34)).text.upperBound(), 64);
  EXPECT_EQ(basLoadDirIntoArray(pathOf(66)).text.upperBound(), 96);
  for (const int components : {33, 34, 66}) {
    EXPECT_EQ(count(pathOf(components)), components);
    EXPECT_EQ(clicked(pathOf(components), 2 * components - 2), pathOf(components));
  }
}

// Only the rest behind the last backslash has a limit.
TEST_F(DirComponentsTest, LastComponentIsCut) {
  const std::string longName(1200, 'x');
  EXPECT_THAT(captions("C:\\" + longName + "\\" + longName),
              ElementsAre("C:", "\\", longName, "\\", std::string(999, 'x')));
}

TEST_F(DirComponentsTest, MoreComponentsThanCanBeCountedAreReported) {
  EXPECT_EQ(count(std::string(32768, '\\')), 0);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basLoadDirIntoArray", "Overflow(6)")));
}

}  // namespace
}  // namespace quernstoke
