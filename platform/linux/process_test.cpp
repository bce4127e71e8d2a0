#include "platform/linux/process.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>

#include "platform/linux/environment.h"
#include "platform/linux/pathMapping.h"
#include "platform/linux/scopedVariable.h"
#include "platform/linux/temporaryTree.h"

namespace quernstoke {
namespace {

TEST(ProcessTest, VariableThatIsSetToNothingIsNotSet) {
  const ScopedVariable empty("QUERNSTOKE_HOME", "");
  EXPECT_EQ(environmentVariable("QUERNSTOKE_HOME"), std::nullopt);
  EXPECT_EQ(namedHome(), std::filesystem::read_symlink("/proc/self/exe").parent_path().native());
}

TEST(ProcessTest, VariableNamesTheHome) {
  const ScopedVariable home("QUERNSTOKE_HOME", "/some/where");
  EXPECT_EQ(namedHome(), "/some/where");
}

TEST(ProcessTest, DirectoryLosesItsLinks) {
  const TemporaryTree tree;
  tree.directory("home");
  tree.link("link", "home");
  EXPECT_EQ(realDirectory(tree.path("link/../link/")), tree.path("home"));
}

TEST(ProcessTest, DirectoryThatIsNotThereIsNamed) {
  const TemporaryTree tree;
  tree.file("file", "");
  for (const std::string& path : {tree.path("nix"), tree.path("file")}) {
    try {
      realDirectory(path);
      ADD_FAILURE() << path;
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(std::string(error.what()).find("directory '" + path + "': "), 0U) << error.what();
    }
  }
}

TEST(ProcessTest, HomeHasNoFinalBackslash) {
  const DriveTable drives = DriveTable::parse("D:=/mnt/data");
  EXPECT_EQ(homeAsProgramPath("/home/ann", drives), "C:\\home\\ann");
  EXPECT_EQ(homeAsProgramPath("/", drives), "C:");
  EXPECT_EQ(homeAsProgramPath("/mnt/data", drives), "D:");
}

// A copy of another name writes a log of its own.
TEST(ProcessTest, ExecutableIsCalledAsItsFile) {
  EXPECT_EQ(executableName(), "linux_tests");
}

TEST(ProcessTest, ArgumentsAreOneText) {
  const char* const arguments[] = {"quernstoke", "-platform", "", "My  music "};
  EXPECT_EQ(commandLine(1, arguments), "");
  EXPECT_EQ(commandLine(2, arguments), "-platform");
  EXPECT_EQ(commandLine(4, arguments), "-platform  My  music ");
}

}  // namespace
}  // namespace quernstoke
