#include "catalogue/walkedFiles.h"

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

using Outcome = Deletion::Outcome;

class WalkedFilesTest : public EngineTest {
 protected:
  // A file "song" of one byte that two drives lead to, with a row for each.
  void listTwice(int match, int otherMatch, int otherSize = 1) {
    disk.file("C:\\music\\song", "x");
    disk.mountAgain("C:\\music", "D:");
    buildCatalogue({{"song", "C:\\music", 1, match}, {"song", "D:", otherSize, otherMatch}});
  }
  void listOne(char kind = dirKind::directory, Int32 parent = noParent) {
    disk.file("C:\\music\\song", "x");
    buildCatalogue({{"song", "C:\\music", 1, 2}});
    DirTable.set(1, {"C:\\music", kind, parent, false});
  }
  bool isThere() const { return disk.exists("C:\\music\\song"); }
};

TEST_F(WalkedFilesTest, FileIsDeletedAndItsRowLeftAsItIs) {
  listOne();
  const Deletion deletion = deleteWalkedFile(1);
  EXPECT_EQ(deletion.outcome, Outcome::done);
  EXPECT_EQ(deletion.reason, "");
  EXPECT_FALSE(isThere());
  EXPECT_EQ(FileTable.FileStatus[statusState][1], fileState::normal);
}

TEST_F(WalkedFilesTest, FileThatIsNotThereIsAbsent) {
  listOne();
  disk.erase("C:\\music\\song");
  disk.file("C:\\music\\SONG", "x");
  EXPECT_EQ(deleteWalkedFile(1).outcome, Outcome::absent);
  disk.erase("C:\\music");
  EXPECT_EQ(deleteWalkedFile(1).outcome, Outcome::absent);
}

TEST_F(WalkedFilesTest, FileBelowNoDirectoryOfTheProfileIsNotTouched) {
  listOne(dirKind::directory, 1);
  EXPECT_EQ(deleteWalkedFile(1).outcome, Outcome::absent);
  EXPECT_TRUE(isThere());
}

// Nor is one in its match refused because of it.
TEST_F(WalkedFilesTest, FileOfANamelessDirectoryIsNotLookedForInTheRoot) {
  disk.file("C:\\music\\song", "x");
  disk.file("C:\\song", "x");
  buildCatalogue({{"song", "C:\\music", 1, 2}, {"song", "C:\\lost", 1, 2}});
  DirTable.set(2, {});
  EXPECT_EQ(deleteWalkedFile(2).outcome, Outcome::absent);
  EXPECT_THROW(pathOnDisk(2), Failure);
  EXPECT_EQ(deleteWalkedFile(1).outcome, Outcome::done);
  EXPECT_TRUE(disk.exists("C:\\song"));
}

// A folder in an archive may have any name.
TEST_F(WalkedFilesTest, FileInAnArchiveIsNotTakenForOneOnDisk) {
  listOne(dirKind::zipFolder);
  EXPECT_EQ(deleteWalkedFile(1).outcome, Outcome::absent);
  EXPECT_TRUE(isThere());
}

TEST_F(WalkedFilesTest, FileThatHasChangedIsRefused) {
  listOne();
  disk.file("C:\\music\\song", "y", DateTime{1});
  const Deletion deletion = deleteWalkedFile(1);
  EXPECT_EQ(deletion.outcome, Outcome::refused);
  EXPECT_EQ(deletion.reason, "The file has changed since the scan");
  EXPECT_TRUE(isThere());
}

TEST_F(WalkedFilesTest, DiskThatDoesNotDeleteIsAFailure) {
  listOne();
  disk.failOn(DiskAction::remove, "", FailureNumber::permissionDenied);
  const Deletion deletion = deleteWalkedFile(1);
  EXPECT_EQ(deletion.outcome, Outcome::failed);
  EXPECT_EQ(deletion.reason, "Permission denied");
}

TEST_F(WalkedFilesTest, FileThatAnotherRowLeadsToIsRefused) {
  for (const auto& [match, other] : {std::pair(2, 2), {-2, -2}, {2, -2}, {-2, 2}}) {
    listTwice(match, other);
    const Deletion deletion = deleteWalkedFile(1);
    EXPECT_EQ(deletion.outcome, Outcome::refused);
    EXPECT_EQ(deletion.reason, "It is the same file as D:\\song");
    EXPECT_TRUE(isThere());
  }
}

// It may have been marked so without having gone.
TEST_F(WalkedFilesTest, RowThatCountsAsDeletedIsAskedAfterToo) {
  listTwice(2, 2);
  FileTable.FileStatus[statusState][2] = fileState::deleted;
  EXPECT_EQ(deleteWalkedFile(1).outcome, Outcome::refused);
  EXPECT_TRUE(isThere());
}

TEST_F(WalkedFilesTest, RowsThatCannotBeCopiesAreNotAskedAfter) {
  for (const auto& [otherMatch, otherSize] : {std::pair(3, 1), {-2, 5}}) {
    listTwice(2, otherMatch, otherSize);
    EXPECT_EQ(deleteWalkedFile(1).outcome, Outcome::done);
    EXPECT_EQ(disk.count(DiskAction::sameFile, "C:\\music\\song"), 0);
  }
}

TEST_F(WalkedFilesTest, FileThatCannotBeToldFromAnotherIsRefused) {
  listTwice(2, 2);
  disk.failOn(DiskAction::sameFile, "", FailureNumber::deviceError);
  const Deletion deletion = deleteWalkedFile(1);
  EXPECT_EQ(deletion.outcome, Outcome::refused);
  EXPECT_EQ(deletion.reason, "Device I/O error");
  EXPECT_TRUE(isThere());
}

TEST_F(WalkedFilesTest, FileWithoutADirectoryOfTheListFails) {
  listOne();
  DirCount = 0;
  EXPECT_THROW(deleteWalkedFile(1), Failure);
  EXPECT_THROW(pathOnDisk(1), Failure);
  EXPECT_TRUE(isThere());
}

TEST_F(WalkedFilesTest, RefusalIsTold) {
  showUndeleted("C:\\music\\song", "Permission denied");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Unable to delete file C:\\music\\song\r\nReason: Permission denied"));
}

}  // namespace
}  // namespace quernstoke
