// Moves of files from one side to the other.

#include <utility>

#include "dirmatch/dirMatchActionsTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

constexpr const char* subDirectoryQuestion =
    "The file is being moved from the sub-directory:\r\n  sub\r\nDo you want to move it to the "
    "same sub-directory in the destination directory:\r\n  C:\\right\\sub\r\n(Answering 'No' will "
    "move it to the parent directory.)";

using DirMatchMoveTest = DirMatchActionsTest;

// Moving.

TEST_F(DirMatchMoveTest, FileMovesToTheOtherDirectory) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Are you sure you want to move the file \r\n  a\r\nFrom directory:\r\n  "
                          "C:\\left\r\nTo directory: \r\n  C:\\right"));
  EXPECT_THAT(dialogBoxes.titles, ElementsAre("Move file"));
  EXPECT_THAT(dialogBoxes.buttons, ElementsAre(Buttons::yesNoCancel));
  EXPECT_FALSE(onDisk("left\\a"));
  EXPECT_EQ(content("right\\a"), contentOf("a"));
  EXPECT_EQ(directoryOf(1), "C:\\right");
  EXPECT_EQ(stateOf(1), fileState::normal);
  EXPECT_THAT(lines(), ElementsAre(" | a", " | b"));
}

TEST_F(DirMatchMoveTest, DateBecomesThatOfADiskOfCoarseDates) {
  build({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.file("C:\\left\\a", "a", DateTime{1001});
  FileTable.FileDate[1] = DateTime{1001};
  basProcessFiles(form);
  disk.dateStep = 2;
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(FileTable.FileDate[1], DateTime{1000});
  deleteRows(1, 1, right, {Answer::yes});
  EXPECT_FALSE(onDisk("right\\a"));
}

// It is not what the scan compared, and later deletions are to know.
TEST_F(DirMatchMoveTest, FileThatChangedBeforeItsMoveStillCountsAsChanged) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.file("C:\\left\\a", "x", DateTime{1000});
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(content("right\\a"), "x");
  EXPECT_EQ(FileTable.FileDate[1], DateTime{});
  deleteRows(1, 1, right, {Answer::yes});
  EXPECT_EQ(content("right\\a"), "x");
}

TEST_F(DirMatchMoveTest, FileMovesFromRightToLeft) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  moveRows(1, 1, right, {Answer::yes});
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Are you sure you want to move the file \r\n  b\r\nFrom directory:\r\n  "
                          "C:\\right\r\nTo directory: \r\n  C:\\left"));
  EXPECT_THAT(lines(), ElementsAre("a | ", "b | "));
}

// Also on one disk, where a new name would do.
TEST_F(DirMatchMoveTest, MoveIsACopyAndADeletion) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.calls.clear();
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(disk.count(DiskAction::copy, "C:\\left\\a"), 1);
  EXPECT_EQ(disk.count(DiskAction::remove, "C:\\left\\a"), 1);
  EXPECT_EQ(disk.count(DiskAction::rename, "C:\\left\\a"), 0);
}

TEST_F(DirMatchMoveTest, RefusedMoveGoesOnWithTheNextFile) {
  showOnTheLeft({"a", "b"}, "C:\\left");
  moveRows(1, 2, left, {Answer::no, Answer::yes});
  EXPECT_TRUE(onDisk("left\\a"));
  EXPECT_TRUE(onDisk("right\\b"));
  EXPECT_THAT(lines(), ElementsAre("a | b", " | z"));
}

TEST_F(DirMatchMoveTest, CancelEndsTheMoveAndShowsWhatWasMoved) {
  showOnTheLeft({"a", "b", "c"}, "C:\\left");
  moveRows(1, 3, left, {Answer::yes, Answer::cancel});
  EXPECT_THAT(dialogBoxes.messages, SizeIs(2));
  EXPECT_TRUE(onDisk("right\\a"));
  EXPECT_THAT(lines(), ElementsAre("b | a", "c | z"));
}

TEST_F(DirMatchMoveTest, MoveTakesTheLinesAsTheyWere) {
  showOnTheLeft({"a", "b", "c"}, "C:\\left");
  moveRows(1, 3, left, {Answer::yes, Answer::yes, Answer::yes});
  EXPECT_THAT(lines(), ElementsAre(" | a", " | b", " | c", " | z"));
}

TEST_F(DirMatchMoveTest, MovePassesOverSeparatorsAndTheOtherSide) {
  show({{"a", "C:\\left", 1, 0},
        {"b", "C:\\right", 1, 0},
        {"c", "C:\\right", 1, 1},
        {"d", "C:\\right", 1, 1}});
  moveRows(1, 4, left, {Answer::yes});
  EXPECT_THAT(dialogBoxes.messages, SizeIs(1));
  EXPECT_THAT(lines(), ElementsAre(" | a", " | b", "--", " | c", " | d"));
}

// Moving out of a sub-directory.

TEST_F(DirMatchMoveTest, SubDirectoryIsMadeOnTheOtherSide) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right", 1, 0}});
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(subDirectoryQuestion));
  EXPECT_THAT(dialogBoxes.titles, ElementsAre(""));
  EXPECT_THAT(dialogBoxes.buttons, ElementsAre(Buttons::yesNoCancel));
  EXPECT_EQ(content("right\\sub\\a"), contentOf("a"));
  EXPECT_EQ(directoryOf(1), "C:\\right\\sub");
  const DirRow& made = DirTable[FileTable.FileDirNum[1]];
  EXPECT_EQ(made.parent, DirMatchDir2);
  EXPECT_FALSE(made.temporary);
  EXPECT_THAT(lines(), ElementsAre(" | sub/a", " | b"));
}

TEST_F(DirMatchMoveTest, SubDirectoryThatIsThereIsUsed) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right\\sub", 1, 0}});
  const Int32 directories = DirCount;
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(FileTable.FileDirNum[1], FileTable.FileDirNum[2]);
  EXPECT_EQ(DirCount, directories);
  EXPECT_THAT(lines(), ElementsAre(" | sub/a", " | sub/b"));
}

TEST_F(DirMatchMoveTest, DeepSubDirectoryIsMadeWithAllAboveIt) {
  show({{"a", "C:\\left\\s\\t\\u", 1, 0}, {"b", "C:\\right\\s", 1, 0}});
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_TRUE(onDisk("right\\s\\t\\u\\a"));
  EXPECT_EQ(directoryOf(1), "C:\\right\\s\\t\\u");
  EXPECT_NE(basFindDirInList("C:\\right\\s\\t"), -1);
}

TEST_F(DirMatchMoveTest, SubDirectoryOfAnotherCaseKeepsItsRow) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right\\SUB", 1, 0}});
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(directoryOf(1), "C:\\right\\SUB");
  EXPECT_TRUE(onDisk("right\\SUB\\a"));
}

TEST_F(DirMatchMoveTest, NewSubDirectoryLiesBelowThoseOfAnotherCase) {
  show({{"a", "C:\\left\\s\\t\\u", 1, 0}, {"b", "C:\\right\\S", 1, 0}});
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(directoryOf(1), "C:\\right\\S\\t\\u");
  EXPECT_TRUE(onDisk("right\\S\\t\\u\\a"));
  EXPECT_THAT(lines(), ElementsAre(" | S\\t\\u/a", " | S/b"));
}

TEST_F(DirMatchMoveTest, DirectoryThatCannotBeLookedAtIsTold) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.failOn(DiskAction::nameOnDisk, "C:\\right\\sub", FailureNumber::deviceError);
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), procedureError("lstFileExtensions_DblClick", "Device I/O error(57)"));
  EXPECT_TRUE(onDisk("left\\sub\\a"));
}

TEST_F(DirMatchMoveTest, SubDirectoryThatNoScanHasEnteredGetsARow) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.directory("C:\\right\\sub");
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(directoryOf(1), "C:\\right\\sub");
  EXPECT_THAT(lines(), ElementsAre(" | sub/a", " | b"));
}

TEST_F(DirMatchMoveTest, NoMovesToTheDirectoryItself) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right", 1, 0}});
  moveRows(1, 1, left, {Answer::no});
  EXPECT_EQ(content("right\\a"), contentOf("a"));
  EXPECT_FALSE(onDisk("right\\sub"));
  EXPECT_EQ(directoryOf(1), "C:\\right");
}

TEST_F(DirMatchMoveTest, CancelLeavesTheFileInItsSubDirectory) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right", 1, 0}});
  moveRows(1, 1, left, {Answer::cancel});
  EXPECT_TRUE(onDisk("left\\sub\\a"));
  EXPECT_THAT(disk.names("C:\\right"), ElementsAre("b"));
}

TEST_F(DirMatchMoveTest, SubDirectoriesAreAskedAboutOnceACommand) {
  show({{"a", "C:\\left\\sub", 1, 0},
        {"b", "C:\\left\\other", 1, 0},
        {"c", "C:\\left", 1, 0},
        {"d", "C:\\left\\sub", 1, 0},
        {"z", "C:\\right", 1, 0}});
  moveRows(1, 4, left, {Answer::no, Answer::yes});
  EXPECT_THAT(dialogBoxes.messages, SizeIs(2));
  EXPECT_EQ(dialogBoxes.messages[0], subDirectoryQuestion);
  EXPECT_THAT(dialogBoxes.titles, ElementsAre("", "Move file"));
  EXPECT_THAT(lines(), ElementsAre(" | a", " | b", " | c", " | d", " | z"));
}

TEST_F(DirMatchMoveTest, YesCountsForOtherSubDirectoriesToo) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\left\\other", 1, 0}, {"z", "C:\\right", 1, 0}});
  moveRows(1, 2, left, {Answer::yes});
  EXPECT_THAT(dialogBoxes.messages, SizeIs(1));
  EXPECT_THAT(lines(), ElementsAre(" | sub/a", " | other/b", " | z"));
}

TEST_F(DirMatchMoveTest, EachCommandAsksAnew) {
  showOnTheLeft({"a", "b"}, "C:\\left\\sub");
  moveRows(1, 1, left, {Answer::no});
  moveRows(1, 1, left, {Answer::no});
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(subDirectoryQuestion, subDirectoryQuestion));
}

TEST_F(DirMatchMoveTest, SubDirectoryThatCannotBeMadeLeavesTheFile) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\left", 1, 0}, {"z", "C:\\right", 1, 0}});
  disk.failOn(DiskAction::makeDirectory, "C:\\right\\sub", FailureNumber::permissionDenied);
  moveRows(1, 2, left, {Answer::yes, Answer::yes});
  EXPECT_TRUE(onDisk("left\\sub\\a"));
  EXPECT_EQ(directoryOf(1), "C:\\left\\sub");
  EXPECT_TRUE(onDisk("right\\b"));
}

TEST_F(DirMatchMoveTest, TemporaryFileKeepsItsNewDirectoryInTheList) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}, {"loose", "C:\\left\\sub", 1}}, true);
  disk.directory("C:\\right\\sub");
  RunState = runState::idle;
  bool existed = false;
  const Int32 row = basAddDirToList("C:\\right\\sub", dirKind::directory, DirMatchDir2, existed);
  RunState = runState::finished;
  ASSERT_TRUE(DirTable[row].temporary);
  moveRows(2, 2, left, {Answer::yes});
  EXPECT_EQ(FileTable.FileDirNum[3], row);
  EXPECT_FALSE(DirTable[row].temporary);
  EXPECT_EQ(FileTable.FileStatus[statusTemporary][3], 1);
}

TEST_F(DirMatchMoveTest, FileOfAScanLeavesItsNewDirectoryAsItIs) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  DirTable.setTemporary(DirMatchDir2, true);
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_TRUE(DirTable[DirMatchDir2].temporary);
}

// A directory beside the one on the left passes for one below it. Its files are then looked for
// where they would be.
TEST_F(DirMatchMoveTest, FileOfADirectoryBesideIsNotFound) {
  show({{"a", "C:\\left2\\x", 1, 0}, {"b", "C:\\right", 1, 0}});
  moveRows(1, 1, left, {Answer::no});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: File not found");
  EXPECT_EQ(content("left2\\x\\a"), contentOf("a"));
  EXPECT_EQ(directoryOf(1), "C:\\left2\\x");
}

// That of the same name, in the directory where the other one is looked for, is nobody's to move.
TEST_F(DirMatchMoveTest, StrangerIsNotMovedForAFileOfADirectoryBeside) {
  show({{"a", "C:\\left2\\x", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.file("C:\\left\\2\\x\\a", "stranger");
  moveRows(1, 1, left, {Answer::no});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: File not found");
  EXPECT_EQ(content("left\\2\\x\\a"), "stranger");
  EXPECT_FALSE(onDisk("right\\a"));
  EXPECT_EQ(directoryOf(1), "C:\\left2\\x");
}

// The name of a drive has no final backslash, so the rule above must not take it for a neighbour.
TEST_F(DirMatchMoveTest, FileOfADirectoryBelowADriveMoves) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}, {"c", "C:", 1, 0}});
  choose("C:", "C:\\right");
  basProcessFiles(form);
  moveRows(1, 1, left, {Answer::no});
  EXPECT_EQ(content("right\\a"), contentOf("a"));
  EXPECT_EQ(directoryOf(1), "C:\\right");
}

// Moves that fail.

TEST_F(DirMatchMoveTest, TargetIsNeverReplaced) {
  show({{"a", "C:\\left", 1, 0}, {"A", "C:\\right", 1, 0}});
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Destination file already exists. Move failed");
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_EQ(content("right\\A"), contentOf("A"));
  EXPECT_EQ(directoryOf(1), "C:\\left");
}

TEST_F(DirMatchMoveTest, TargetThatAppearsMeanwhileIsNotReplacedEither) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.before = [this](const DiskCall& call) {
    if (call.action == DiskAction::copy) disk.file("C:\\right\\a", "another");
  };
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: File already exists");
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_EQ(content("right\\a"), "another");
}

TEST_F(DirMatchMoveTest, FailedMoveGoesOnWithTheNextFile) {
  showOnTheLeft({"a", "b"}, "C:\\left");
  disk.file("C:\\right\\a", "another");
  moveRows(1, 2, left, {Answer::yes, Answer::yes});
  EXPECT_TRUE(onDisk("left\\a"));
  EXPECT_FALSE(onDisk("left\\b"));
  EXPECT_TRUE(onDisk("right\\b"));
}

TEST_F(DirMatchMoveTest, FileLargerThanTheFreeSpaceStays) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.freeBytes = 0;
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: Disk full");
  EXPECT_TRUE(onDisk("left\\a"));
  EXPECT_FALSE(onDisk("right\\a"));
  EXPECT_EQ(directoryOf(1), "C:\\left");
}

TEST_F(DirMatchMoveTest, DirectoryThatHasGoneIsTold) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.erase("C:\\right");
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: Path not found");
  EXPECT_TRUE(onDisk("left\\a"));
}

TEST_F(DirMatchMoveTest, FileThatHasGoneIsTold) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.erase("C:\\left\\a");
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: File not found");
  EXPECT_EQ(directoryOf(1), "C:\\left");
}

TEST_F(DirMatchMoveTest, EqualDirectoriesMoveNothing) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\left\\sub", 1, 0}});
  choose("C:\\left", "C:\\left");
  basProcessFiles(form);
  moveRows(1, 2, right, {Answer::yes, Answer::yes});
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_EQ(content("left\\sub\\b"), contentOf("b"));
  EXPECT_EQ(lastMessage(), "Destination file already exists. Move failed");
}

TEST_F(DirMatchMoveTest, OriginalThatCannotBeDeletedTakesTheCopyBack) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.failOn(DiskAction::remove, "C:\\left\\a", FailureNumber::permissionDenied);
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(),
            "Unable to delete original file. Move aborted!. Reason: Permission denied");
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_FALSE(onDisk("right\\a"));
  EXPECT_EQ(directoryOf(1), "C:\\left");
}

TEST_F(DirMatchMoveTest, CopyThatCannotBeTakenBackIsToldAsAProcedureError) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  for (const char* path : {"C:\\left\\a", "C:\\right\\a"})
    disk.failOn(DiskAction::remove, path, FailureNumber::permissionDenied);
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), procedureError("lstFileExtensions_DblClick", "Permission denied(70)"));
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_EQ(content("right\\a"), contentOf("a"));
}

TEST_F(DirMatchMoveTest, CopyStaysWhenSomebodyElseDeletesTheOriginal) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.before = [this](const DiskCall& call) {
    if (call.action == DiskAction::remove) disk.erase("C:\\left\\a");
  };
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_THAT(dialogBoxes.messages, SizeIs(1));
  EXPECT_EQ(content("right\\a"), contentOf("a"));
  EXPECT_EQ(directoryOf(1), "C:\\right");
}

// As on a failing disk: the deletion was carried out, and told as a failure.
TEST_F(DirMatchMoveTest, CopyStaysWhenTheOriginalIsNotToBeSeen) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.before = [this](const DiskCall& call) {
    if (call.action != DiskAction::remove) return;
    disk.erase("C:\\left\\a");
    fail(FailureNumber::deviceError);
  };
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(),
            "Unable to delete original file. Move aborted!. Reason: Device I/O error");
  EXPECT_EQ(content("right\\a"), contentOf("a"));
}

// Another file has taken its place, of a name that is found for the original's.
TEST_F(DirMatchMoveTest, CopyStaysWhenOnlyAFileOfAnotherCaseIsToBeSeen) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  bool done = false;
  disk.before = [&](const DiskCall& call) {
    if (call.action != DiskAction::remove || std::exchange(done, true)) return;
    disk.erase("C:\\left\\a");
    disk.file("C:\\left\\A", "another");
    fail(FailureNumber::deviceError);
  };
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(),
            "Unable to delete original file. Move aborted!. Reason: Device I/O error");
  EXPECT_EQ(content("right\\a"), contentOf("a"));
  EXPECT_EQ(content("left\\A"), "another");
}

TEST_F(DirMatchMoveTest, CopyStaysWhenAnotherFileHasTakenTheOriginalsPlace) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  bool done = false;
  disk.before = [&](const DiskCall& call) {
    if (call.action != DiskAction::remove || std::exchange(done, true)) return;
    disk.erase("C:\\left\\a");
    disk.file("C:\\left\\a", contentOf("a"));
    fail(FailureNumber::deviceError);
  };
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_TRUE(onDisk("left\\a"));
  EXPECT_TRUE(onDisk("right\\a"));
}

// What is new in it is in no copy. The change may be of the same size and in the same second.
TEST_F(DirMatchMoveTest, OriginalThatChangesAfterItsCopyStays) {
  const std::pair<std::string, DateTime> changes[] = {
      {"longer", {}}, {"x", DateTime{7}}, {"x", {}}, {contentOf("a"), {}}};
  for (const auto& [changed, date] : changes) {
    SCOPED_TRACE(changed);
    show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
    disk.before = [&](const DiskCall& call) {
      if (call.action == DiskAction::remove) disk.file("C:\\left\\a", changed, date);
    };
    moveRows(1, 1, left, {Answer::yes});
    disk.before = nullptr;
    EXPECT_EQ(lastMessage(),
              "Unable to delete original file. Move aborted!. Reason: The file has changed since "
              "the scan");
    EXPECT_EQ(content("left\\a"), changed);
    EXPECT_EQ(content("right\\a"), contentOf("a"));
    EXPECT_EQ(directoryOf(1), "C:\\left");
    disk.erase("C:\\right\\a");
  }
}

TEST_F(DirMatchMoveTest, CopyThatIsNotAtItsPlaceIsNone) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.before = [&](const DiskCall& call) {
    if (call.action == DiskAction::look) disk.rename("C:\\right", "C:\\trash");
  };
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: Path not found");
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_EQ(directoryOf(1), "C:\\left");
}

TEST_F(DirMatchMoveTest, CopyThatCannotBeSeenIsTakenBack) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.failOn(DiskAction::look, "C:\\right\\a", FailureNumber::deviceError);
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: Device I/O error");
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_FALSE(disk.exists("C:\\right\\a"));
}

TEST_F(DirMatchMoveTest, OtherFileAtTheCopysPlaceIsNoCopy) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.before = [&](const DiskCall& call) {
    if (call.action != DiskAction::look) return;
    disk.rename("C:\\right\\a", "C:\\right\\mine");
    disk.file("C:\\right\\a", contentOf("a"));
  };
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: File not found");
  EXPECT_TRUE(onDisk("left\\a"));
  EXPECT_EQ(directoryOf(1), "C:\\left");
}

TEST_F(DirMatchMoveTest, FilesBelowNoDirectoryOfTheProfileAreNeitherMovedNorDeleted) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  DirTable.setParent(DirMatchDir1, DirMatchDir1);
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: Path not found");
  deleteRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_FALSE(onDisk("right\\a"));
}

TEST_F(DirMatchMoveTest, FailureInTheMidstOfAMoveShowsWhatWasMoved) {
  showOnTheLeft({"a", "b", "c"}, "C:\\left");
  for (const char* path : {"C:\\left\\b", "C:\\right\\b"})
    disk.failOn(DiskAction::remove, path, FailureNumber::permissionDenied);
  moveRows(1, 3, left, {Answer::yes, Answer::yes, Answer::yes});
  EXPECT_THAT(lastMessage(), testing::StartsWith("Procedure error in"));
  EXPECT_THAT(lines(), ElementsAre("b | a", "c | z"));
}

// Whichever call to the disk fails.
TEST_F(DirMatchMoveTest, OneWholeCopyIsThereAfterEveryFailure) {
  for (const FailureNumber number :
       {FailureNumber::fileNotFound, FailureNumber::permissionDenied, FailureNumber::deviceError,
        FailureNumber::diskFull, FailureNumber::pathNotFound})
    for (int nth = 0;; ++nth) {
      show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right", 1, 0}});
      dialogBoxes.messages.clear();
      int callsLeft = nth;
      disk.before = [&](const DiskCall&) {
        if (callsLeft-- == 0) fail(number);
      };
      moveRows(1, 1, left, {Answer::yes});
      disk.before = nullptr;
      const bool stayed = onDisk("left\\sub\\a");
      const bool moved = onDisk("right\\sub\\a");
      EXPECT_TRUE(stayed || moved) << nth;
      EXPECT_TRUE(!stayed || content("left\\sub\\a") == contentOf("a")) << nth;
      EXPECT_TRUE(!moved || content("right\\sub\\a") == contentOf("a")) << nth;
      disk.erase("C:\\right");
      if (callsLeft >= 0) break;  // No call was left to fail.
    }
}

}  // namespace
}  // namespace quernstoke
