#include "platform/linux/renaming.h"

#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>

#include "platform/linux/descriptor.h"
#include "platform/linux/temporaryTree.h"
#include "platform/linux/withoutPrivileges.h"

namespace quernstoke {
namespace {

using Renaming = int (*)(int, const char*, int, const char*);

class RenamingTest : public testing::TestWithParam<Renaming> {
 protected:
  RenamingTest() {
    tree_.file("from/old", "old");
    tree_.file("to/taken", "taken");
  }
  // Returns 0 or the error.
  int rename(const char* newName) const {
    const Descriptor from(::open(tree_.path("from").c_str(), O_PATH | O_DIRECTORY));
    const Descriptor to(::open(tree_.path("to").c_str(), O_PATH | O_DIRECTORY));
    return GetParam()(from.get(), "old", to.get(), newName) == 0 ? 0 : errno;
  }

  TemporaryTree tree_;
};

TEST_P(RenamingTest, MovesAFile) {
  EXPECT_EQ(rename("new"), 0);
  EXPECT_FALSE(tree_.exists("from/old"));
  EXPECT_EQ(tree_.content("to/new"), "old");
}

TEST_P(RenamingTest, NeverReplaces) {
  tree_.link("to/dangling", "nowhere");
  EXPECT_EQ(rename("taken"), EEXIST);
  EXPECT_EQ(rename("dangling"), EEXIST);
  EXPECT_EQ(tree_.content("from/old"), "old");
  EXPECT_EQ(tree_.content("to/taken"), "taken");
}

TEST_P(RenamingTest, LeavesEverythingWhenTheOldNameMayNotGo) {
  const WithoutPrivileges privileges(tree_);
  if (!privileges.areInForce()) GTEST_SKIP() << "root may do everything";
  tree_.setMode("from", 0500);
  EXPECT_EQ(rename("new"), EACCES);
  tree_.setMode("from", 0700);
  EXPECT_EQ(tree_.content("from/old"), "old");
  EXPECT_FALSE(tree_.exists("to/new"));
}

INSTANTIATE_TEST_SUITE_P(BothWays, RenamingTest,
                         testing::Values(&renameWithoutReplacing, &renameByLink));

}  // namespace
}  // namespace quernstoke
