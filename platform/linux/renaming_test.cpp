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
  EXPECT_EQ(0, rename("new"));
  EXPECT_FALSE(tree_.exists("from/old"));
  EXPECT_EQ("old", tree_.content("to/new"));
}

TEST_P(RenamingTest, NeverReplaces) {
  tree_.link("to/dangling", "nowhere");
  EXPECT_EQ(EEXIST, rename("taken"));
  EXPECT_EQ(EEXIST, rename("dangling"));
  EXPECT_EQ("old", tree_.content("from/old"));
  EXPECT_EQ("taken", tree_.content("to/taken"));
}

TEST_P(RenamingTest, LeavesEverythingWhenTheOldNameMayNotGo) {
  const WithoutPrivileges privileges(tree_);
  if (!privileges.areInForce()) GTEST_SKIP() << "root may do everything";
  tree_.setMode("from", 0500);
  EXPECT_EQ(EACCES, rename("new"));
  tree_.setMode("from", 0700);
  EXPECT_EQ("old", tree_.content("from/old"));
  EXPECT_FALSE(tree_.exists("to/new"));
}

INSTANTIATE_TEST_SUITE_P(BothWays, RenamingTest,
                         testing::Values(&renameWithoutReplacing, &renameByLink));

}  // namespace
}  // namespace quernstoke
