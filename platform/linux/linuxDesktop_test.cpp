#include "platform/linux/linuxDesktop.h"

#include <cerrno>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include "platform/linux/scopedVariable.h"
#include "platform/linux/temporaryTree.h"

namespace quernstoke {
namespace {

// A stand-in for xdg-open comes first in the search path and notes what it is called with.
class DesktopTest : public testing::Test {
 protected:
  DesktopTest() : path_("PATH", tree_.path("bin") + ":/usr/bin:/bin") {}

  void install(const std::string& lines) const {
    tree_.file("bin/xdg-open", "#!/bin/sh\nprintf '%s|' \"$@\" >'" + tree_.path("called") + "'\n" +
                                   "pwd >'" + tree_.path("directory") + "'\n" + lines + "\n");
    tree_.setMode("bin/xdg-open", 0755);
  }
  std::int32_t open(const std::string& file, const std::string& directory = {}) {
    ShellRequest request;
    request.operation = "open";
    request.file = file;
    request.directory = directory;
    return desktop_.shellExecute(request);
  }

  TemporaryTree tree_;
  ScopedVariable path_;
  LinuxDesktop desktop_{DriveTable()};
};

TEST_F(DesktopTest, OpensAFileByItsLinuxPath) {
  install("exit 0");
  tree_.file("it's $(a) \"file\".txt");
  EXPECT_GT(open(tree_.programPath("it's $(a) \"file\".txt")), 32);
  EXPECT_EQ(tree_.content("called"), tree_.path("it's $(a) \"file\".txt") + "|");
}

TEST_F(DesktopTest, OpensAFileWhoseCaseDiffers) {
  install("exit 0");
  tree_.file("Read Me.txt");
  EXPECT_GT(open(tree_.programPath("read me.TXT")), 32);
  EXPECT_EQ(tree_.content("called"), tree_.path("Read Me.txt") + "|");
}

TEST_F(DesktopTest, OpensADirectory) {
  install("exit 0");
  EXPECT_GT(open(tree_.programPath()), 32);
  EXPECT_EQ(tree_.content("called"), tree_.root() + "|");
}

TEST_F(DesktopTest, TakesQuotesOffAPath) {
  install("exit 0");
  tree_.directory("Read Me");
  EXPECT_GT(open('"' + tree_.programPath("Read Me") + '"'), 32);
  EXPECT_EQ(tree_.content("called"), tree_.path("Read Me") + "|");
}

TEST_F(DesktopTest, OpensAnAddressAsItStands) {
  install("exit 0");
  for (const char* address : {"https://example.org/a?b=c&d", "mailto:ann@example.org"}) {
    EXPECT_GT(open(address), 32);
    EXPECT_EQ(tree_.content("called"), std::string(address) + "|");
  }
}

TEST_F(DesktopTest, WorksInTheDirectoryGiven) {
  install("exit 0");
  tree_.file("Work/a");
  EXPECT_GT(open("a", tree_.programPath("work")), 32);
  EXPECT_EQ(tree_.content("called"), tree_.path("Work/a") + "|");
  EXPECT_EQ(tree_.content("directory"),
            std::filesystem::canonical(tree_.path("Work")).native() + "\n");
}

TEST_F(DesktopTest, TellsWhatIsMissing) {
  install("exit 0");
  EXPECT_EQ(open(tree_.programPath("none")), shellFileNotFound);
  EXPECT_EQ(open(tree_.programPath("none/file")), shellPathNotFound);
  EXPECT_EQ(open("Q:\\file"), shellPathNotFound);
  EXPECT_EQ(open(""), shellFileNotFound);
  EXPECT_FALSE(tree_.exists("called"));
}

TEST_F(DesktopTest, TranslatesTheExitStatus) {
  tree_.file("a");
  const std::pair<const char*, std::int32_t> expected[] = {{"exit 1", shellNoAssociation},
                                                           {"exit 2", shellFileNotFound},
                                                           {"exit 3", shellNoAssociation},
                                                           {"exit 4", shellNoAssociation},
                                                           {"kill -9 $$", shellNoAssociation}};
  for (const auto& [lines, answer] : expected) {
    install(lines);
    EXPECT_EQ(open(tree_.programPath("a")), answer) << lines;
  }
}

TEST_F(DesktopTest, WithoutAnOpenerNothingIsAssociated) {
  tree_.file("a");
  const ScopedVariable path("PATH", tree_.path("bin"));
  EXPECT_EQ(open(tree_.programPath("a")), shellNoAssociation);
}

TEST_F(DesktopTest, OtherOperationsAreNotAssociated) {
  install("exit 0");
  tree_.file("a");
  const std::string file = tree_.programPath("a");
  ShellRequest request;
  request.operation = "print";
  request.file = file;
  EXPECT_EQ(desktop_.shellExecute(request), shellNoAssociation);
  EXPECT_FALSE(tree_.exists("called"));
}

TEST_F(DesktopTest, AnOpenerThatStaysIsASuccessAndLeavesNoZombie) {
  tree_.file("a");
  tree_.fifo("fifo");
  install("read line <'" + tree_.path("fifo") + "'");
  EXPECT_GT(open(tree_.programPath("a")), 32);
  std::ofstream(tree_.path("fifo")) << "end\n";
  siginfo_t ended;
  ASSERT_EQ(::waitid(P_ALL, 0, &ended, WEXITED | WNOWAIT), 0);
  open(tree_.programPath("none"));
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

class DocumentsTest : public testing::Test {
 protected:
  DocumentsTest() : home_("HOME", tree_.root()), config_("XDG_CONFIG_HOME", std::nullopt) {}

  std::optional<std::string> documents() { return LinuxDesktop(DriveTable()).specialFolder(5); }

  TemporaryTree tree_;
  ScopedVariable home_;
  ScopedVariable config_;
};

TEST_F(DocumentsTest, AreWhereTheUserHasPutThem) {
  tree_.directory("My \"Papers\"");
  tree_.file(".config/user-dirs.dirs",
             "# comment\nXDG_MUSIC_DIR=\"$HOME/Music\"\n"
             "XDG_DOCUMENTS_DIR=\"$HOME/My \\\"Papers\\\"\"\n");
  EXPECT_EQ(documents(), tree_.programPath("My \"Papers\""));
}

TEST_F(DocumentsTest, MayBeAnAbsolutePath) {
  tree_.directory("elsewhere");
  tree_.file(".config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"" + tree_.path("elsewhere") + "\"\n");
  EXPECT_EQ(documents(), tree_.programPath("elsewhere"));
}

TEST_F(DocumentsTest, FollowTheConfigurationDirectory) {
  tree_.directory("papers");
  tree_.file("settings/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"$HOME/papers\"\n");
  const ScopedVariable config("XDG_CONFIG_HOME", tree_.path("settings"));
  EXPECT_EQ(documents(), tree_.programPath("papers"));
}

TEST_F(DocumentsTest, AreOtherwiseInTheHomeDirectory) {
  tree_.file(".config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"$HOME/missing\"\n");
  EXPECT_EQ(documents(), tree_.programPath());
  tree_.directory("Documents");
  EXPECT_EQ(documents(), tree_.programPath("Documents"));
}

TEST_F(DocumentsTest, AreNowhereWithoutAHome) {
  const ScopedVariable home("HOME", std::nullopt);
  EXPECT_EQ(documents(), std::nullopt);
}

TEST_F(DocumentsTest, AreTheOnlyFolderThereIs) {
  EXPECT_EQ(LinuxDesktop(DriveTable()).specialFolder(6), std::nullopt);
}

TEST(DiskSpace, IsThatOfTheFileSystem) {
  const TemporaryTree tree;
  LinuxDesktop desktop{DriveTable::parse("T:=" + tree.root())};
  const auto space = desktop.diskSpace("T:\\");
  ASSERT_TRUE(space.has_value());
  const auto expected = std::filesystem::space(tree.root());
  EXPECT_EQ(space->totalClusters * space->sectorsPerCluster * space->bytesPerSector,
            static_cast<std::int64_t>(expected.capacity));
  EXPECT_LE(space->freeClusters, space->totalClusters);
}

TEST(DiskSpace, OfAnUnknownDriveIsNothing) {
  LinuxDesktop desktop{DriveTable()};
  EXPECT_FALSE(desktop.diskSpace("Q:\\").has_value());
}

TEST(Drives, AreTheCurrentOneAndThenTheOthersInOrder) {
  const std::vector<std::string> expected = {"C: [/]", "A: [/mnt/a]", "D: [/mnt/data]"};
  EXPECT_EQ(LinuxDesktop(DriveTable::parse("D:=/mnt/data/;A:=/mnt/a")).drives(), expected);
}

}  // namespace
}  // namespace quernstoke
