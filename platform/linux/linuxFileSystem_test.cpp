#include "platform/linux/linuxFileSystem.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/scopedVariable.h"
#include "platform/linux/temporaryTree.h"
#include "platform/linux/withoutPrivileges.h"
#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

class LinuxFiles : public testing::Test {
 protected:
  // The program's path for one that is relative to the tree, with backslashes.
  std::string at(std::string_view relative) const {
    return tree_.programPath() + '\\' + std::string(relative);
  }

  std::string firstByte(std::string_view path) {
    const FileNumber file = files_.open(path, OpenMode::sharedBinary);
    char byte = 0;
    const std::size_t length = files_.read(file, {&byte, 1});
    files_.close(file);
    return std::string(&byte, length);
  }

  TemporaryTree tree_;
  LinuxFileSystem files_{DriveTable()};
};

// As long, within the same second, and even with its date put back.
TEST_F(LinuxFiles, ThatWereWrittenOverAreNoLongerAsTheyWereSeen) {
  for (const bool putBack : {false, true}) {
    tree_.file("file", "content");
    struct stat facts {};
    ASSERT_EQ(::stat(tree_.path("file").c_str(), &facts), 0);
    const SeenFile before = files_.lookWalked(at("file"), tree_.programPath());
    tree_.waitForTheNextTick("file");
    tree_.file("file", "another");
    const timespec times[] = {facts.st_atim, facts.st_mtim};
    if (putBack) ::utimensat(AT_FDCWD, tree_.path("file").c_str(), times, 0);
    EXPECT_FAILURE(fileChanged, files_.removeSeen(at("file"), tree_.programPath(), before));
    EXPECT_EQ(tree_.content("file"), "another");
  }
}

TEST_F(LinuxFiles, FindADirectoryInAnotherCase) {
  tree_.file("Müsli/Inner/File.TXT", "x");
  EXPECT_TRUE(files_.canEnter(at("müsli\\INNER")));
  EXPECT_EQ(firstByte(at("MÜSLI\\inner\\file.txt")), "x");
  EXPECT_EQ(files_.attributes(at("müsli\\inner\\file.txt")), attributeArchive);
}

TEST_F(LinuxFiles, PreferTheExactName) {
  tree_.file("FILE", "1");
  tree_.file("file", "2");
  tree_.file("File", "3");
  tree_.file("Dir/x", "4");
  tree_.file("dir/x", "5");
  EXPECT_EQ(firstByte(at("FILE")), "1");
  EXPECT_EQ(firstByte(at("file")), "2");
  EXPECT_EQ(firstByte(at("File")), "3");
  EXPECT_EQ(firstByte(at("Dir\\x")), "4");
  EXPECT_EQ(firstByte(at("dir\\x")), "5");
}

TEST_F(LinuxFiles, PassAFileByWhereADirectoryIsWanted) {
  tree_.file("music", "a file");
  tree_.file("Music/song", "x");
  EXPECT_EQ(firstByte(at("music\\song")), "x");
}

TEST_F(LinuxFiles, FindNamesWithReservedCharactersInAnotherCase) {
  tree_.file("A:B", "x");
  EXPECT_EQ(firstByte(at(windowsName("a:b"))), "x");
}

TEST_F(LinuxFiles, ReachPathsLongerThanTheSystemTakes) {
  const std::string name(250, 'n');
  std::string path = tree_.programPath();
  for (int depth = 0; depth < 30; ++depth) {
    path += "\\" + name;
    files_.makeDirectory(path);
  }
  const std::string file = path + "\\File";
  const FileNumber number = files_.open(file, OpenMode::output);
  files_.write(number, "x");
  files_.close(number);
  EXPECT_EQ(firstByte(path + "\\file"), "x");
  const auto listing = files_.list(path, attributeArchive);
  EXPECT_TRUE(listing->next());
  EXPECT_EQ(listing->name(), "File");
  files_.rename(file, path + "\\Other");
  files_.remove(path + "\\Other");
  EXPECT_FAILURE(fileNotFound, files_.length(file));
}

TEST_F(LinuxFiles, ANameThatIsTooLongIsAPathNotFound) {
  EXPECT_FAILURE(pathNotFound, files_.attributes(at(std::string(300, 'x'))));
}

TEST_F(LinuxFiles, UseTheDrivesOfTheEnvironment) {
  tree_.file("a", "x");
  const ScopedVariable variable("QUERNSTOKE_DRIVES", "M:=" + tree_.root());
  LinuxFileSystem files;
  EXPECT_EQ(files.length("m:\\a"), 1);
  EXPECT_TRUE(files.canEnter("M:"));
  EXPECT_FALSE(files.canEnter("N:"));
}

TEST_F(LinuxFiles, EnteringADirectoryLeavesTheCurrentOneAsItWas) {
  const auto before = std::filesystem::current_path();
  tree_.file("file");
  EXPECT_TRUE(files_.canEnter(at("")));
  EXPECT_FALSE(files_.canEnter(at("none")));
  EXPECT_FALSE(files_.canEnter(at("file")));
  EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST_F(LinuxFiles, ADirectoryThatMayNotBeEnteredCannotBe) {
  tree_.directory("closed");
  const WithoutPrivileges privileges(tree_);
  if (!privileges.areInForce()) GTEST_SKIP() << "root may enter everything";
  tree_.setMode("closed", 0600);
  EXPECT_FALSE(files_.canEnter(at("closed")));
  tree_.setMode("closed", 0700);
  EXPECT_TRUE(files_.canEnter(at("closed")));
}

TEST_F(LinuxFiles, MakeDirectoriesInTheCaseGivenBelowParentsInAnyCase) {
  tree_.directory("Parent");
  files_.makeDirectory(at("PARENT\\Child"));
  EXPECT_TRUE(tree_.exists("Parent/Child"));
  EXPECT_FAILURE(pathFileAccess, files_.makeDirectory(at("Parent\\Child")));
  EXPECT_FAILURE(pathFileAccess, files_.makeDirectory(at("Parent\\child")));
  EXPECT_FAILURE(pathNotFound, files_.makeDirectory(at("none\\Child")));
}

// Who makes a row of directories passes those over that exist.
TEST_F(LinuxFiles, ARefusedDirectoryDoesNotPassForOneThatExists) {
  tree_.directory("closed/there");
  tree_.link("loop", "loop");
  EXPECT_FAILURE(permissionDenied, files_.makeDirectory(at("loop\\new")));
  const WithoutPrivileges privileges(tree_);
  if (!privileges.areInForce()) GTEST_SKIP() << "root may make everything";
  tree_.setMode("closed", 0500);
  EXPECT_FAILURE(permissionDenied, files_.makeDirectory(at("closed\\new")));
  EXPECT_FAILURE(pathFileAccess, files_.makeDirectory(at("closed\\there")));
  tree_.setMode("closed", 0700);
}

TEST_F(LinuxFiles, TellAttributesThroughLinks) {
  tree_.file(".dot");
  tree_.directory("d");
  tree_.link("link", ".dot");
  EXPECT_EQ(files_.attributes(at(".dot")), attributeArchive | attributeHidden);
  EXPECT_EQ(files_.attributes(at("d")), attributeDirectory);
  EXPECT_EQ(files_.attributes(at("d\\..\\d\\.")), attributeDirectory);
  EXPECT_EQ(files_.attributes(at("link")), attributeArchive);
  EXPECT_EQ(files_.attributes("C:\\") & attributeDirectory, attributeDirectory);
}

TEST_F(LinuxFiles, ClearTheReadOnlyBitAndNothingElse) {
  tree_.file("fixed");
  tree_.setMode("fixed", 0444);
  EXPECT_EQ(files_.attributes(at("fixed")), attributeArchive | attributeReadOnly);
  files_.clearAttributes(at("Fixed"));
  struct stat facts;
  ASSERT_EQ(::stat(tree_.path("fixed").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 07777U, 0644U);
  EXPECT_FAILURE(fileNotFound, files_.clearAttributes(at("none")));
}

TEST_F(LinuxFiles, TellLengthAndDate) {
  tree_.file("a", "12345");
  const timespec times[] = {{0, UTIME_OMIT}, {1'600'000'000, 0}};
  ::utimensat(AT_FDCWD, tree_.path("a").c_str(), times, 0);
  EXPECT_EQ(files_.length(at("a")), 5);
  EXPECT_EQ(files_.modified(at("A")), LocalTime().at(1'600'000'000));
  EXPECT_EQ(files_.length(at("")), 0);
}

TEST_F(LinuxFiles, FailForTheLengthOfTwoGibibytes) {
  tree_.file("large");
  if (::truncate(tree_.path("large").c_str(), off_t{1} << 31) != 0)
    GTEST_SKIP() << "no sparse files";
  EXPECT_FAILURE(overflow, files_.length(at("large")));
}

TEST_F(LinuxFiles, RemovingALinkLeavesItsTarget) {
  tree_.file("target", "kept");
  tree_.link("link", "target");
  tree_.link("dangling", "nowhere");
  files_.remove(at("link"));
  files_.remove(at("dangling"));
  EXPECT_FALSE(tree_.exists("link"));
  EXPECT_FALSE(tree_.exists("dangling"));
  EXPECT_EQ(tree_.content("target"), "kept");
}

TEST_F(LinuxFiles, ARefusedRemovalIsAPermissionDenied) {
  tree_.file("kept/file");
  const WithoutPrivileges privileges(tree_);
  if (!privileges.areInForce()) GTEST_SKIP() << "root may remove everything";
  tree_.setMode("kept", 0500);
  EXPECT_FAILURE(permissionDenied, files_.remove(at("kept\\file")));
  tree_.setMode("kept", 0700);
  EXPECT_TRUE(tree_.exists("kept/file"));
}

TEST_F(LinuxFiles, RenameKeepsTheCaseGiven) {
  tree_.file("Old", "x");
  tree_.directory("Dir");
  files_.rename(at("old"), at("dir\\New"));
  EXPECT_FALSE(tree_.exists("Old"));
  EXPECT_EQ(tree_.content("Dir/New"), "x");
}

TEST_F(LinuxFiles, RenameNeverReplacesALinkThatLeadsNowhere) {
  tree_.file("from", "from");
  tree_.link("dangling", "nowhere");
  EXPECT_FAILURE(fileAlreadyExists, files_.rename(at("from"), at("dangling")));
  EXPECT_EQ(tree_.content("from"), "from");
  EXPECT_TRUE(tree_.exists("dangling"));
}

// Who may not look can't say that it is another file.
TEST_F(LinuxFiles, FilesThatCannotBeLookedAtAreNotToldApart) {
  tree_.file("file", "x");
  tree_.file("closed/file", "x");
  tree_.setMode("closed", 0);
  const WithoutPrivileges privileges(tree_);
  if (!privileges.areInForce()) GTEST_SKIP() << "nothing is refused to this user";
  EXPECT_FAILURE(permissionDenied, files_.isSameFile(at("file"), at("closed\\file")));
  EXPECT_FAILURE(permissionDenied, files_.isSameFile(at("closed\\file"), at("file")));
  tree_.setMode("closed", 0755);
}

TEST_F(LinuxFiles, LinkThatLeadsNowhereIsNoFile) {
  tree_.file("file", "x");
  tree_.link("dangling", "nowhere");
  EXPECT_FALSE(files_.isSameFile(at("file"), at("dangling")));
}

}  // namespace
}  // namespace quernstoke
