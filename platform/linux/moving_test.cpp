// Moving files between two directories of a real disk: one whole copy of a file must be there
// whatever happens.

#include <sys/stat.h>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/procedure.h"
#include "core/scanState.h"
#include "dirmatch/dirMatchActions.h"
#include "dirmatch/dirMatchGrid.h"
#include "dirmatch/dirMatchRows.h"
#include "platform/linux/linuxFileSystem.h"
#include "platform/linux/smallDisk.h"
#include "platform/linux/temporaryTree.h"
#include "platform/linux/withoutPrivileges.h"
#include "platform/platform.h"
#include "results/matchGroupIndex.h"
#include "testing/dirMatchControls.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MovingOnDisk : public EngineTest {
 protected:
  MovingOnDisk() {
    platform.files = &files_;
    usePlatform(platform);
    tree_.directory("left");
    tree_.directory("right");
  }

  static Int32 rowOf(const std::string& path, Int32 parent = noParent) {
    bool existed = false;
    return basAddDirToList(path, dirKind::directory, parent, existed);
  }
  // Moves a file of a directory below the left one, or of that itself, to the right one.
  // Returns where the catalogue has it then.
  std::string move(const std::string& name, const std::string& sub = "") {
    RunState = runState::buildingList;
    basRedimFilesArrays(10, false);
    DirTable.redim(10, false);
    FileCount = DirCount = 0;
    DirMatchDir1 = rowOf(at(left_));
    DirMatchDir2 = rowOf(at(right_));
    DirMatchBase = {at(left_), at(right_)};
    const Int32 directory =
        sub.empty() ? DirMatchDir1 : rowOf(at(left_) + "\\" + sub, DirMatchDir1);
    const Int32 file = listed(name, directory);
    FileTable.FileStatus[statusMatch][file] = 0;
    basSetupMatchGroupInfo("MATCHNUM", startMode::none);
    RunState = runState::finished;
    basProcessFiles(form_);
    form_.grid.setRow(1);
    cmdMove_Click(form_, dirMatchSide::left);
    return DirTable[FileTable.FileDirNum[file]].name;
  }
  // The row of a file, with the size and date of what stands there.
  Int32 listed(const std::string& name, Int32 directory) {
    const std::string path = DirTable[directory].name + '\\' + windowsName(name);
    Int32 size;
    DateTime modified;
    ignoringFailure([&] {
      size = files_.length(path);
      modified = files_.modified(path);
    });
    return basAddFileToList(windowsName(name), directory, size, modified);
  }
  std::string at(const std::string& directory) const { return tree_.programPath(directory); }
  void expectMoved(const std::string& from, const std::string& to, const std::string& content) {
    EXPECT_FALSE(tree_.exists(from));
    EXPECT_TRUE(content == tree_.content(to));
    EXPECT_THAT(failures(), IsEmpty());
  }
  // The file is where it was, and the directory on the right has what it had.
  void expectStayed(const std::string& from, const std::string& content, const std::string& message,
                    const std::set<std::string>& onTheRight = {}) {
    EXPECT_TRUE(content == tree_.content(from));
    EXPECT_THAT(failures(), ElementsAre(message));
    EXPECT_EQ(tree_.exists(right_) ? tree_.names(right_) : std::set<std::string>(), onTheRight);
  }
  std::vector<std::string> failures() const {
    std::vector<std::string> found;
    for (std::size_t i = 0; i < dialogBoxes.messages.size(); ++i)
      if (dialogBoxes.buttons[i] == Buttons::ok) found.push_back(dialogBoxes.messages[i]);
    return found;
  }
  static std::string failed(const std::string& name, const std::string& reason) {
    return "Move of file '" + name + "' has failed.\r\nReason: " + reason;
  }

  TemporaryTree tree_;
  LinuxFileSystem files_{DriveTable()};
  ScriptedDirMatchControls form_;
  std::string left_ = "left";
  std::string right_ = "right";
};

TEST_F(MovingOnDisk, FileMovesWithItsDateAndPermissions) {
  tree_.file("left/song", "music");
  tree_.setMode("left/song", 0640);
  const auto date =
      std::filesystem::last_write_time(tree_.path("left/song")) - std::chrono::hours(1000);
  std::filesystem::last_write_time(tree_.path("left/song"), date);
  EXPECT_EQ(move("song"), at("right"));
  expectMoved("left/song", "right/song", "music");
  EXPECT_EQ(std::filesystem::last_write_time(tree_.path("right/song")), date);
  struct stat facts {};
  ASSERT_EQ(::stat(tree_.path("right/song").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 0777u, 0640u);
}

TEST_F(MovingOnDisk, ReadOnlyFileMoves) {
  tree_.file("left/song", "music");
  tree_.setMode("left/song", 0444);
  move("song");
  expectMoved("left/song", "right/song", "music");
}

TEST_F(MovingOnDisk, SubDirectoriesAreMade) {
  tree_.file("left/a/b/song", "music");
  EXPECT_EQ(move("song", "a\\b"), at("right/a/b"));
  expectMoved("left/a/b/song", "right/a/b/song", "music");
}

TEST_F(MovingOnDisk, SubDirectoryOfAnotherCaseIsUsed) {
  tree_.file("left/sub/song", "music");
  tree_.directory("right/SUB");
  EXPECT_EQ(move("song", "sub"), at("right/SUB"));
  expectMoved("left/sub/song", "right/SUB/song", "music");
  EXPECT_THAT(tree_.names("right"), ElementsAre("SUB"));
}

TEST_F(MovingOnDisk, NewSubDirectoryLiesBelowThatOfAnotherCase) {
  tree_.file("left/sub/new/song", "music");
  tree_.directory("right/SUB");
  EXPECT_EQ(move("song", "sub\\new"), at("right/SUB/new"));
  expectMoved("left/sub/new/song", "right/SUB/new/song", "music");
}

// Though the list has the other one, and this one not yet.
TEST_F(MovingOnDisk, SubDirectoryOfTheVeryNameIsPreferred) {
  tree_.file("left/sub/song", "music");
  tree_.directory("right/SUB");
  tree_.directory("right/sub");
  dialogBoxes.onBox = [this] { rowOf(at("right/SUB"), DirMatchDir2); };
  EXPECT_EQ(move("song", "sub"), at("right/sub"));
  expectMoved("left/sub/song", "right/sub/song", "music");
}

TEST_F(MovingOnDisk, FileMovesToAnotherDisk) {
  const SmallDisk small(tree_.path("right"), "tmpfs", "size=1m");
  if (!small.isMounted()) GTEST_SKIP() << "this process may not mount a disk";
  tree_.file("left/song", "music");
  move("song");
  expectMoved("left/song", "right/song", "music");
}

TEST_F(MovingOnDisk, FileLargerThanTheFreeSpaceStays) {
  const SmallDisk small(tree_.path("right"), "tmpfs", "size=64k");
  if (!small.isMounted()) GTEST_SKIP() << "this process may not mount a disk";
  const std::string content(100'000, 'x');
  tree_.file("left/song", content);
  EXPECT_EQ(move("song"), at("left"));
  expectStayed("left/song", content, failed("song", "Disk full"));
}

TEST_F(MovingOnDisk, FullDiskLeavesTheFile) {
  const SmallDisk small(tree_.path("right"), "tmpfs", "size=64k");
  if (!small.isMounted()) GTEST_SKIP() << "this process may not mount a disk";
  tree_.file("right/filling", std::string(65'536, 'x'));
  tree_.file("left/song", "music");
  move("song");
  expectStayed("left/song", "music", failed("song", "Disk full"), {"filling"});
}

TEST_F(MovingOnDisk, DirectoryThatVanishesMeanwhileLeavesTheFile) {
  tree_.file("left/song", "music");
  dialogBoxes.onBox = [this] { std::filesystem::remove(tree_.path("right")); };
  EXPECT_EQ(move("song"), at("left"));
  expectStayed("left/song", "music", failed("song", "Path not found"));
}

TEST_F(MovingOnDisk, SubDirectoryOfADirectoryThatVanishesLeavesTheFile) {
  tree_.file("left/sub/song", "music");
  dialogBoxes.onBox = [this] { std::filesystem::remove(tree_.path("right")); };
  EXPECT_EQ(move("song", "sub"), at("left/sub"));
  EXPECT_EQ(tree_.content("left/sub/song"), "music");
  EXPECT_FALSE(tree_.exists("right"));
}

TEST_F(MovingOnDisk, TargetThatAppearsMeanwhileIsNotReplaced) {
  tree_.file("left/song", "music");
  dialogBoxes.onBox = [this] { tree_.file("right/song", "another"); };
  move("song");
  expectStayed("left/song", "music", "Destination file already exists. Move failed", {"song"});
  EXPECT_EQ(tree_.content("right/song"), "another");
}

TEST_F(MovingOnDisk, TargetOfAnotherCaseIsNotReplacedNorJoined) {
  tree_.file("left/song", "music");
  tree_.file("right/SONG", "another");
  move("song");
  expectStayed("left/song", "music", "Destination file already exists. Move failed", {"SONG"});
}

TEST_F(MovingOnDisk, WhatIsNoFileIsNotReplacedEither) {
  tree_.file("left/directory", "1");
  tree_.file("left/dangling", "2");
  tree_.file("left/fifo", "3");
  tree_.directory("right/directory");
  tree_.link("right/dangling", tree_.path("right/nowhere"));
  tree_.fifo("right/fifo");
  for (const char* name : {"directory", "dangling", "fifo"}) {
    dialogBoxes.messages.clear();
    dialogBoxes.buttons.clear();
    move(name);
    EXPECT_THAT(failures(), ElementsAre(failed(name, "File already exists")));
    EXPECT_TRUE(tree_.exists(std::string("left/") + name));
  }
  EXPECT_THAT(tree_.names("right"), ElementsAre("dangling", "directory", "fifo"));
}

TEST_F(MovingOnDisk, DirectoryOnBothSidesLeavesTheFile) {
  tree_.file("left/song", "music");
  right_ = "left2";
  tree_.link("left2", tree_.path("left"));
  move("song");
  expectStayed("left/song", "music", "Destination file already exists. Move failed", {"song"});
}

TEST_F(MovingOnDisk, SubDirectoryThatLeadsBackLeavesTheFile) {
  tree_.file("left/sub/song", "music");
  tree_.link("right/sub", tree_.path("left/sub"));
  move("song", "sub");
  expectStayed("left/sub/song", "music", "Destination file already exists. Move failed", {"sub"});
}

TEST_F(MovingOnDisk, DirectoryThatIsNamedByALinkIsUsed) {
  tree_.directory("real");
  tree_.link("linked", tree_.path("real"));
  tree_.file("left/song", "music");
  right_ = "linked";
  move("song");
  expectMoved("left/song", "real/song", "music");
}

TEST_F(MovingOnDisk, OtherNameOfTheSameFileStays) {
  tree_.file("left/song", "music");
  std::filesystem::create_hard_link(tree_.path("left/song"), tree_.path("left/other"));
  move("song");
  expectMoved("left/song", "right/song", "music");
  EXPECT_EQ(tree_.content("left/other"), "music");
}

TEST_F(MovingOnDisk, LinkThatTookTheFilesPlaceIsNotMoved) {
  tree_.file("elsewhere", "another");
  tree_.link("left/song", tree_.path("elsewhere"));
  move("song");
  expectStayed("left/song", "another", failed("song", "File not found"));
}

// As when a directory was moved and a link left in its place.
TEST_F(MovingOnDisk, DirectoryThatBecameALinkIsNotFollowed) {
  tree_.file("moved/song", "music");
  tree_.link("left/sub", tree_.path("moved"));
  move("song", "sub");
  expectStayed("moved/song", "music", failed("song", "Path not found"), {"sub"});
}

TEST_F(MovingOnDisk, FileOfAnotherCaseIsNotMovedInstead) {
  tree_.file("left/SONG", "another");
  move("song");
  expectStayed("left/SONG", "another", failed("song", "File not found"));
}

TEST_F(MovingOnDisk, OriginalThatMayNotGoTakesTheCopyBack) {
  tree_.file("left/song", "music");
  tree_.setMode("left/song", 0444);
  tree_.setMode("left", 0555);
  const WithoutPrivileges ordinary(tree_);
  if (!ordinary.areInForce()) GTEST_SKIP() << "nothing is refused to this user";
  EXPECT_EQ(move("song"), at("left"));
  expectStayed("left/song", "music",
               "Unable to delete original file. Move aborted!. Reason: Permission denied");
  tree_.setMode("left", 0755);
}

TEST_F(MovingOnDisk, DirectoryThatMayNotBeWrittenLeavesTheFile) {
  tree_.file("left/song", "music");
  tree_.setMode("right", 0555);
  const WithoutPrivileges ordinary(tree_);
  if (!ordinary.areInForce()) GTEST_SKIP() << "nothing is refused to this user";
  move("song");
  expectStayed("left/song", "music", failed("song", "Permission denied"));
}

// Deleting in the same window.

TEST_F(MovingOnDisk, MovedFileCanBeDeleted) {
  tree_.file("left/song", "music");
  move("song");
  cmdDelete_Click(form_, dirMatchSide::right);
  EXPECT_THAT(tree_.names("right"), IsEmpty());
  EXPECT_THAT(failures(), IsEmpty());
}

TEST_F(MovingOnDisk, ChangedFileIsNotDeleted) {
  tree_.file("left/song", "music");
  move("song");
  tree_.file("right/song", "other music");
  cmdDelete_Click(form_, dirMatchSide::right);
  EXPECT_EQ(tree_.content("right/song"), "other music");
  EXPECT_THAT(failures(), ElementsAre("Unable to delete file " + at("right/song") +
                                      "\r\nReason: The file has changed since the scan"));
}

TEST_F(MovingOnDisk, OddNamesMove) {
  for (const std::string name : {"a*", "a?b", "back\\slash", "new\nline", "caf\xE9", " blank ",
                                 "-rf", "quo\"te", "\xEF\x80\xBA", "dot."}) {
    SCOPED_TRACE(name);
    tree_.file("left/" + name, "music");
    tree_.file("left/ab", "another");
    move(name);
    expectMoved("left/" + name, "right/" + name, "music");
    EXPECT_TRUE(tree_.exists("left/ab"));
  }
}

}  // namespace
}  // namespace quernstoke
