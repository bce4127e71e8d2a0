// Deleting files of the results from a real disk: nothing but the file that the scan came upon may
// go.

#include <chrono>
#include <filesystem>
#include <sys/stat.h>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/procedure.h"
#include "core/scanState.h"
#include "platform/linux/linuxFileSystem.h"
#include "platform/linux/temporaryTree.h"
#include "platform/linux/withoutPrivileges.h"
#include "platform/platform.h"
#include "results/fileActions.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DeletionOnDisk : public EngineTest {
 protected:
  DeletionOnDisk() {
    platform.files = &files_;
    usePlatform(platform);
    RunState = runState::buildingList;
    basRedimFilesArrays(10, false);
    DirTable.redim(10, false);
  }

  // The row of a directory, relative to the tree, in which a walk began or that it entered.
  static Int32 directory(const std::string& path, Int32 parent = noParent) {
    bool existed = false;
    return basAddDirToList(path, dirKind::directory, parent, existed);
  }
  Int32 root() const { return directory(tree_.programPath()); }
  Int32 inRoot(const std::string& name) const {
    return directory(tree_.programPath() + '\\' + windowsName(name), root());
  }
  // The row of a file, with the size and date of whatever stands there now.
  Int32 addFile(Int32 directory, const std::string& name, int match = noMatch) {
    const std::string path = DirTable[directory].name + '\\' + name;
    Int32 size;
    DateTime modified;
    ignoringFailure([&] {
      size = files_.length(path);
      modified = files_.modified(path);
    });
    const Int32 file = basAddFileToList(name, directory, size, modified);
    FileTable.FileStatus[statusMatch][file] = match;
    return file;
  }
  bool remove(Int32 directory, const std::string& name) {
    return remove(addFile(directory, windowsName(name)));
  }
  static bool remove(Int32 file) {
    bool deleted = false;
    basDeleteFileFromGrid(file, deleted);
    EXPECT_EQ(FileTable.FileStatus[statusState][file] == fileState::deleted, deleted);
    return deleted;
  }

  TemporaryTree tree_;
  LinuxFileSystem files_{DriveTable()};
};

TEST_F(DeletionOnDisk, FileGoes) {
  tree_.file("sub/song");
  tree_.file("sub/other");
  EXPECT_TRUE(remove(inRoot("sub"), "song"));
  EXPECT_FALSE(tree_.exists("sub/song"));
  EXPECT_TRUE(tree_.exists("sub/other"));
}

TEST_F(DeletionOnDisk, ReadOnlyFileGoes) {
  tree_.file("song");
  tree_.setMode("song", 0444);
  EXPECT_TRUE(remove(root(), "song"));
  EXPECT_FALSE(tree_.exists("song"));
}

// A file may have several names, and the others' permissions are the same.
TEST_F(DeletionOnDisk, OtherNameOfAReadOnlyFileStaysReadOnly) {
  tree_.file("song", "x");
  tree_.setMode("song", 0444);
  std::filesystem::create_hard_link(tree_.path("song"), tree_.path("copy"));
  EXPECT_TRUE(remove(root(), "song"));
  struct stat facts {};
  ASSERT_EQ(::stat(tree_.path("copy").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 0777u, 0444u);
}

TEST_F(DeletionOnDisk, FileInAReadOnlyDirectoryStaysAsItIs) {
  tree_.file("sub/song");
  tree_.setMode("sub/song", 0444);
  tree_.setMode("sub", 0555);
  const WithoutPrivileges ordinary(tree_);
  if (!ordinary.areInForce()) GTEST_SKIP() << "nothing is refused to this user";
  EXPECT_FALSE(remove(inRoot("sub"), "song"));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Unable to delete file " + tree_.programPath("sub/song") +
                          "\r\nReason: Permission denied"));
  struct stat facts {};
  ASSERT_EQ(::stat(tree_.path("sub/song").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 0777u, 0444u);
  tree_.setMode("sub", 0755);
}

TEST_F(DeletionOnDisk, FileThatHasGoneIsNotMentioned) {
  EXPECT_FALSE(remove(root(), "song"));
  EXPECT_FALSE(remove(inRoot("sub"), "song"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DeletionOnDisk, LinkThatTookTheFilesPlaceStays) {
  tree_.file("elsewhere", "x");
  tree_.link("song", tree_.path("elsewhere"));
  EXPECT_FALSE(remove(root(), "song"));
  EXPECT_TRUE(tree_.exists("song"));
  EXPECT_TRUE(tree_.exists("elsewhere"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// As when a directory was moved and a link left in its place: the file behind it may be the last.
TEST_F(DeletionOnDisk, DirectoryThatBecameALinkIsNotFollowed) {
  tree_.file("moved/song", "x");
  tree_.link("sub", tree_.path("moved"));
  EXPECT_FALSE(remove(inRoot("sub"), "song"));
  EXPECT_TRUE(tree_.exists("moved/song"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DeletionOnDisk, LinkThatThePersonNamedIsFollowed) {
  tree_.file("real/sub/song", "x");
  tree_.link("named", tree_.path("real"));
  const Int32 named = directory(tree_.programPath("named"));
  const Int32 sub = directory(tree_.programPath("named/sub"), named);
  EXPECT_TRUE(remove(sub, "song"));
  EXPECT_FALSE(tree_.exists("real/sub/song"));
}

TEST_F(DeletionOnDisk, DirectoryThatTookTheFilesPlaceStays) {
  tree_.directory("song");
  EXPECT_FALSE(remove(root(), "song"));
  EXPECT_TRUE(tree_.exists("song"));
}

TEST_F(DeletionOnDisk, FifoThatTookTheFilesPlaceStays) {
  tree_.fifo("song");
  EXPECT_FALSE(remove(root(), "song"));
  EXPECT_TRUE(tree_.exists("song"));
}

TEST_F(DeletionOnDisk, OneOfTwoNamesThatDifferInCaseGoes) {
  tree_.file("SONG");
  tree_.file("song");
  EXPECT_TRUE(remove(root(), "song"));
  EXPECT_TRUE(tree_.exists("SONG"));
  EXPECT_FALSE(remove(root(), "song"));
  EXPECT_TRUE(tree_.exists("SONG"));
}

TEST_F(DeletionOnDisk, DirectoryOfAnotherCaseIsNotEntered) {
  tree_.file("SUB/song");
  EXPECT_FALSE(remove(inRoot("sub"), "song"));
  EXPECT_TRUE(tree_.exists("SUB/song"));
}

TEST_F(DeletionOnDisk, NamedDirectoryMayBeInAnotherCase) {
  tree_.file("Music/song");
  EXPECT_TRUE(remove(directory(tree_.programPath("music")), "song"));
  EXPECT_FALSE(tree_.exists("Music/song"));
}

TEST_F(DeletionOnDisk, FileThatWasWrittenAgainStays) {
  tree_.file("song", "old");
  const Int32 file = addFile(root(), "song");
  tree_.file("song", "longer");
  EXPECT_FALSE(remove(file));
  EXPECT_EQ(tree_.content("song"), "longer");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Unable to delete file " + tree_.programPath("song") +
                          "\r\nReason: The file has changed since the scan"));
}

TEST_F(DeletionOnDisk, FileOfAnotherDateStays) {
  tree_.file("song", "old");
  const Int32 file = addFile(root(), "song");
  const std::filesystem::path path = tree_.path("song");
  last_write_time(path, last_write_time(path) - std::chrono::seconds(2));
  EXPECT_FALSE(remove(file));
  EXPECT_TRUE(tree_.exists("song"));
}

// The file is listed twice, and each row would take the other's content with it.
TEST_F(DeletionOnDisk, FileBehindTwoNamedDirectoriesStays) {
  tree_.file("real/song", "x");
  tree_.link("named", tree_.path("real"));
  const Int32 first = addFile(directory(tree_.programPath("real")), "song", 1);
  const Int32 second = addFile(directory(tree_.programPath("named")), "song", 1);
  EXPECT_FALSE(remove(first));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Unable to delete file " + tree_.programPath("real/song") +
                          "\r\nReason: It is the same file as " + tree_.programPath("named/song")));
  EXPECT_FALSE(remove(second));
  EXPECT_TRUE(tree_.exists("real/song"));
}

TEST_F(DeletionOnDisk, HardLinksAreFilesOfTheirOwn) {
  tree_.file("song", "x");
  std::filesystem::create_hard_link(tree_.path("song"), tree_.path("copy"));
  const Int32 song = addFile(root(), "song", 1);
  addFile(root(), "copy", 1);
  EXPECT_TRUE(remove(song));
  EXPECT_FALSE(tree_.exists("song"));
  EXPECT_EQ(tree_.content("copy"), "x");
}

TEST_F(DeletionOnDisk, OddNamesGoAndTheirLikesStay) {
  for (const std::string name : {"a*", "a?b", "back\\slash", "new\nline", "caf\xE9", " blank ",
                                 "-rf", "quo\"te", "\xEF\x80\xBA", "dot."}) {
    SCOPED_TRACE(name);
    tree_.file(name);
    tree_.file("ab");
    tree_.file("back/slash");
    EXPECT_TRUE(remove(root(), name));
    EXPECT_FALSE(tree_.exists(name));
    EXPECT_TRUE(tree_.exists("ab"));
    EXPECT_TRUE(tree_.exists("back/slash"));
  }
}

// A damaged list may hold any name.
TEST_F(DeletionOnDisk, NamesThatLeadAwayAreNotFollowed) {
  tree_.file("sub/inner/file");
  tree_.file("sub/other");
  tree_.file("song");
  for (const char* name : {"..\\song", "inner\\..\\..\\song", ".", "..", "", "*", "?????"}) {
    EXPECT_FALSE(remove(addFile(inRoot("sub"), name))) << name;
  }
  EXPECT_TRUE(tree_.exists("song"));
  EXPECT_TRUE(tree_.exists("sub/inner/file"));
  EXPECT_TRUE(tree_.exists("sub/other"));
}

}  // namespace
}  // namespace quernstoke
