#include "console/homeDirectory.h"

#include <gtest/gtest.h>

#include "console/exitStatus.h"
#include "platform/linux/scopedVariable.h"
#include "platform/linux/temporaryTree.h"

namespace quernstoke {
namespace {

class HomeDirectoryTest : public testing::Test {
 protected:
  HomeDirectoryTest() { tree.directory("home"); }

  TemporaryTree tree;
};

TEST_F(HomeDirectoryTest, ChosenHomeWins) {
  const ScopedVariable variable("QUERNSTOKE_HOME", tree.root());
  EXPECT_EQ(programHome(tree.path("home/")), tree.path("home"));
}

TEST_F(HomeDirectoryTest, VariableNamesTheHome) {
  const ScopedVariable variable("QUERNSTOKE_HOME", tree.path("home"));
  EXPECT_EQ(programHome(std::nullopt), tree.path("home"));
}

TEST_F(HomeDirectoryTest, OtherwiseItIsTheDirectoryOfTheProgram) {
  const ScopedVariable variable("QUERNSTOKE_HOME", "");
  const auto self = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_EQ(programHome(std::nullopt), self.parent_path());
}

TEST_F(HomeDirectoryTest, HomeHasToBeThere) {
  try {
    programHome(tree.path("nix"));
    FAIL();
  } catch (const ScanError& error) {
    EXPECT_EQ(error.status, ExitStatus::notThere);
  }
}

TEST_F(HomeDirectoryTest, ScratchHomeLivesAsLongAsItIsNeeded) {
  std::string path;
  {
    const ScratchHome home(tree.path("home"));
    path = home.path();
    EXPECT_TRUE(path.starts_with(tree.path("home/quernstoke-scan.")));
    EXPECT_TRUE(std::filesystem::is_directory(path));
    std::filesystem::create_directories(path + "/Profiles/more");
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(HomeDirectoryTest, ScratchHomeLiesInTheTemporaryDirectory) {
  const ScopedVariable variable("TMPDIR", tree.path("home"));
  EXPECT_TRUE(ScratchHome(std::nullopt).path().starts_with(tree.path("home/")));
}

TEST_F(HomeDirectoryTest, ScratchHomesDoNotMeet) {
  EXPECT_NE(ScratchHome(tree.root()).path(), ScratchHome(tree.root()).path());
}

}  // namespace
}  // namespace quernstoke
