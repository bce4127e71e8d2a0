#include "console/scanPlan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/exitStatus.h"
#include "platform/linux/temporaryTree.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ScanPlanTest : public testing::Test {
 protected:
  ScanPlanTest() {
    for (const char* directory : {"a/sub/deep", "ab", "c", "a/.hidden/deep"})
      tree.directory(directory);
    tree.link("link", "a/sub");
  }

  ScanPlan plan(const std::vector<std::string>& directories,
                const std::vector<std::string>& excludes = {}, bool hidden = false) const {
    DirectoryScan scan;
    for (const std::string& directory : directories)
      scan.directories.push_back(tree.path(directory));
    for (const std::string& directory : excludes)
      scan.excludes.push_back(tree.path(directory));
    scan.hidden = hidden;
    return planScan(scan);
  }

  std::string refusal(const std::string& directory) const {
    try {
      plan({"a", directory});
    } catch (const ScanError& error) {
      EXPECT_EQ(error.status, ExitStatus::notThere);
      return error.what();
    }
    return {};
  }

  TemporaryTree tree;
};

TEST_F(ScanPlanTest, TakesDirectoriesInTheirOrder) {
  const ScanPlan made = plan({"c", "a"});
  EXPECT_THAT(made.includes, ElementsAre(tree.path("c"), tree.path("a")));
  EXPECT_THAT(made.remarks, IsEmpty());
}

TEST_F(ScanPlanTest, FollowsALinkThatIsNamed) {
  EXPECT_THAT(plan({"link"}).includes, ElementsAre(tree.path("a/sub")));
}

TEST_F(ScanPlanTest, LeavesOutWhatLiesInAnotherDirectory) {
  const ScanPlan made = plan({"a/sub/deep", "a", "ab"});
  EXPECT_THAT(made.includes, ElementsAre(tree.path("a"), tree.path("ab")));
  EXPECT_THAT(made.remarks,
              ElementsAre("'" + tree.path("a/sub/deep") + "' is left out: it is in '" +
                          tree.path("a") + "' already"));
}

TEST_F(ScanPlanTest, LeavesOutTheSameDirectoryUnderAnyName) {
  EXPECT_THAT(plan({"a", "a/", "a/sub/.."}).includes, ElementsAre(tree.path("a")));
  EXPECT_THAT(plan({"link", "a/sub"}).includes, ElementsAre(tree.path("a/sub")));
  EXPECT_THAT(plan({"link", "a"}).includes, ElementsAre(tree.path("a")));
}

TEST_F(ScanPlanTest, TakesWhatTheOtherWalkDoesNotReach) {
  EXPECT_THAT(plan({"a", "a/.hidden"}).includes,
              ElementsAre(tree.path("a"), tree.path("a/.hidden")));
  EXPECT_THAT(plan({"a", "a/.hidden"}, {}, true).includes, ElementsAre(tree.path("a")));
  EXPECT_THAT(plan({"a/.hidden", "a/.hidden/deep"}).includes, ElementsAre(tree.path("a/.hidden")));
}

TEST_F(ScanPlanTest, LeavesOutWhatIsExcluded) {
  const ScanPlan made = plan({"a/sub", "ab"}, {"a"});
  EXPECT_THAT(made.includes, ElementsAre(tree.path("ab")));
  EXPECT_THAT(made.excludes, ElementsAre(tree.path("a")));
  EXPECT_THAT(made.remarks, ElementsAre(HasSubstr("it is excluded by")));
}

TEST_F(ScanPlanTest, NamesTheDirectoryThatIsNotThere) {
  EXPECT_EQ(refusal("nix"), "directory '" + tree.path("nix") + "': No such file or directory");
}

TEST_F(ScanPlanTest, NamesTheFileThatIsNoDirectory) {
  tree.file("file");
  EXPECT_EQ(refusal("file"), "directory '" + tree.path("file") + "': Not a directory");
}

TEST_F(ScanPlanTest, ExcludedDirectoryHasToBeThereToo) {
  EXPECT_THROW(plan({"a"}, {"nix"}), ScanError);
}

TEST(ScanPlanOfTheRootTest, ReachesEverything) {
  TemporaryTree tree;
  DirectoryScan scan;
  scan.directories = {"/", tree.root()};
  EXPECT_THAT(planScan(scan).includes, ElementsAre("/"));
}

}  // namespace
}  // namespace quernstoke
