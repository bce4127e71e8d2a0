#include "dirmatch/dirMatchActions.h"

#include <utility>

#include "detect/refinement.h"
#include "dirmatch/dirMatchTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* subDirectoryQuestion =
    "The file is being moved from the sub-directory:\r\n  sub\r\nDo you want to move it to the "
    "same sub-directory in the destination directory:\r\n  C:\\right\\sub\r\n(Answering 'No' will "
    "move it to the parent directory.)";

class DirMatchActionsTest : public DirMatchTest {
 protected:
  void answer(const std::vector<Answer>& answers) { dialogBoxes.answers = answers; }
  void deleteRows(int from, int to, int side, const std::vector<Answer>& answers) {
    answer(answers);
    select(from, to, side == left ? 0 : 6);
    cmdDelete_Click(form, side);
  }
  void moveRows(int from, int to, int side, const std::vector<Answer>& answers) {
    answer(answers);
    select(from, to, side == left ? 0 : 6);
    cmdMove_Click(form, side);
  }
  std::string content(const std::string& path) const { return disk.content("C:\\" + path); }
  std::string lastMessage() const { return dialogBoxes.messages.back(); }
  // Files of these names in a directory on the left, in one group with a file on the right.
  void showOnTheLeft(const std::vector<std::string>& names, const std::string& directory) {
    std::vector<CatalogueFile> files;
    for (const std::string& name : names)
      files.push_back({name, directory, 1, 0});
    files.push_back({"z", "C:\\right", 1, 0});
    show(files);
  }
};

// Deleting.

TEST_F(DirMatchActionsTest, FileIsDeletedAfterAQuestion) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right", 1, 0}});
  deleteRows(1, 1, left, {Answer::yes});
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Are you sure you want to delete the file: \r\n  C:\\left\\sub\\a"));
  EXPECT_THAT(dialogBoxes.titles, ElementsAre("Delete file"));
  EXPECT_THAT(dialogBoxes.buttons, ElementsAre(Buttons::yesNo));
  EXPECT_FALSE(onDisk("left\\sub\\a"));
  EXPECT_TRUE(onDisk("right\\b"));
  EXPECT_EQ(stateOf(1), fileState::deleted);
  EXPECT_EQ(stateOf(2), fileState::normal);
  EXPECT_THAT(lines(), ElementsAre(" | b"));
  EXPECT_EQ(text(1, 10), "1(2)");
}

TEST_F(DirMatchActionsTest, ButtonSaysOfWhichSide) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  answer({Answer::yes});
  select(1, 1, 0);
  cmdDelete_Click(form, right);
  EXPECT_TRUE(onDisk("left\\a"));
  EXPECT_FALSE(onDisk("right\\b"));
}

TEST_F(DirMatchActionsTest, RefusedDeletionChangesNothing) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  deleteRows(1, 1, left, {Answer::no});
  EXPECT_TRUE(onDisk("left\\a"));
  EXPECT_EQ(stateOf(1), fileState::normal);
  EXPECT_THAT(lines(), ElementsAre("a | b"));
}

TEST_F(DirMatchActionsTest, RefusedDeletionGoesOnWithTheNextFile) {
  showOnTheLeft({"a", "b", "c"}, "C:\\left");
  deleteRows(1, 3, left, {Answer::no, Answer::no, Answer::yes});
  EXPECT_THAT(lines(), ElementsAre("a | z", "b | "));
}

// A failure is not mentioned, and the list takes the file for deleted.
TEST_F(DirMatchActionsTest, FileThatCannotBeDeletedLeavesTheListAllTheSame) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.failOn(DiskAction::remove, "C:\\left\\a", FailureNumber::permissionDenied);
  deleteRows(1, 1, left, {Answer::yes});
  EXPECT_THAT(dialogBoxes.messages, SizeIs(1));
  EXPECT_TRUE(onDisk("left\\a"));
  EXPECT_EQ(stateOf(1), fileState::deleted);
  EXPECT_THAT(lines(), ElementsAre(" | b"));
}

// The lines of the selection count from the top of a grid that is one line shorter each time, so
// every other file is passed over.
TEST_F(DirMatchActionsTest, GridIsFilledInTheMiddleOfADeletion) {
  showOnTheLeft({"a", "b", "c", "d"}, "C:\\left");
  deleteRows(1, 4, left, {Answer::yes, Answer::yes, Answer::yes, Answer::yes});
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Are you sure you want to delete the file: \r\n  C:\\left\\a",
                          "Are you sure you want to delete the file: \r\n  C:\\left\\c"));
  EXPECT_THAT(lines(), ElementsAre("b | z", "d | "));
  EXPECT_TRUE(onDisk("left\\b"));
  EXPECT_TRUE(onDisk("left\\d"));
}

TEST_F(DirMatchActionsTest, SeparatorsAndEmptyCellsArePassedOver) {
  show({{"a", "C:\\left", 1, 0},
        {"b", "C:\\right", 1, 0},
        {"c", "C:\\right", 1, 0},
        {"d", "C:\\left", 1, 1},
        {"e", "C:\\right", 1, 1}});
  ASSERT_THAT(lines(), ElementsAre("a | b", " | c", "--", "d | e"));
  deleteRows(2, 4, left, {Answer::yes});
  EXPECT_THAT(dialogBoxes.messages, SizeIs(1));
  EXPECT_FALSE(onDisk("left\\d"));
  EXPECT_EQ(disk.names("C:\\right").size(), 3u);
}

TEST_F(DirMatchActionsTest, SelectionDraggedUpwardIsTakenFromAbove) {
  showOnTheLeft({"a", "b"}, "C:\\left");
  deleteRows(2, 1, left, {Answer::no, Answer::no});
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Are you sure you want to delete the file: \r\n  C:\\left\\a",
                          "Are you sure you want to delete the file: \r\n  C:\\left\\b"));
}

TEST_F(DirMatchActionsTest, TitlesAndLinesOutsideTheMapArePassedOver) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  grid.setRows(5000);
  deleteRows(0, 4999, left, {Answer::no});
  EXPECT_THAT(dialogBoxes.messages, SizeIs(1));
  EXPECT_THAT(dialogBoxes.answers, IsEmpty());
}

// Deletions that must not be.

TEST_F(DirMatchActionsTest, FileThatHasChangedSinceTheScanIsNotDeleted) {
  for (const auto& [changed, date] : {std::pair("longer", DateTime{}), {"a", DateTime{7}}}) {
    show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
    disk.file("C:\\left\\a", changed, date);
    deleteRows(1, 1, left, {Answer::yes});
    EXPECT_EQ(lastMessage(),
              "Unable to delete file C:\\left\\a\r\nReason: The file has changed since the scan");
    EXPECT_EQ(content("left\\a"), changed);
    EXPECT_EQ(stateOf(1), fileState::normal);
    EXPECT_THAT(lines(), ElementsAre("a | b"));
  }
}

TEST_F(DirMatchActionsTest, FileThatBothSidesLeadToIsNotDeleted) {
  disk.mountAgain("C:\\left", "D:");
  for (const int match : {0, noMatch}) {
    build({{"a", "C:\\left", 1, match}, {"a", "D:", 1, match}});
    choose("C:\\left", "D:");
    form.showAll = true;
    basProcessFiles(form);
    deleteRows(1, 1, left, {Answer::yes});
    EXPECT_EQ(lastMessage(),
              "Unable to delete file C:\\left\\a\r\nReason: It is the same file as D:\\a");
    deleteRows(1, 1, right, {Answer::yes});
    EXPECT_EQ(lastMessage(),
              "Unable to delete file D:\\a\r\nReason: It is the same file as C:\\left\\a");
    EXPECT_TRUE(onDisk("left\\a"));
    EXPECT_THAT(lines(), ElementsAre("a | a"));
  }
}

// The list takes it for deleted, and what is shown on the other side for the copy that is left.
TEST_F(DirMatchActionsTest, RowOfAFileThatCouldNotBeDeletedStillCounts) {
  disk.mountAgain("C:\\left", "D:");
  build({{"a", "C:\\left", 1, 0}, {"a", "D:", 1, 0}});
  choose("C:\\left", "D:");
  FileTable.FileStatus[statusState][1] = fileState::deleted;
  basProcessFiles(form);
  deleteRows(1, 1, right, {Answer::yes});
  EXPECT_TRUE(onDisk("left\\a"));
  EXPECT_THAT(lines(), ElementsAre(" | a"));
}

// What has taken its place since is another file.
TEST_F(DirMatchActionsTest, FileOfAnotherCaseIsNotDeleted) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.erase("C:\\left\\a");
  disk.file("C:\\left\\A", "another");
  deleteRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(content("left\\A"), "another");
  EXPECT_EQ(stateOf(1), fileState::deleted);
}

// Moving.

TEST_F(DirMatchActionsTest, FileMovesToTheOtherDirectory) {
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

TEST_F(DirMatchActionsTest, DateBecomesThatOfADiskOfCoarseDates) {
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
TEST_F(DirMatchActionsTest, FileThatChangedBeforeItsMoveStillCountsAsChanged) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.file("C:\\left\\a", "x", DateTime{1000});
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(content("right\\a"), "x");
  EXPECT_EQ(FileTable.FileDate[1], DateTime{});
  deleteRows(1, 1, right, {Answer::yes});
  EXPECT_EQ(content("right\\a"), "x");
}

TEST_F(DirMatchActionsTest, FileMovesFromRightToLeft) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  moveRows(1, 1, right, {Answer::yes});
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Are you sure you want to move the file \r\n  b\r\nFrom directory:\r\n  "
                          "C:\\right\r\nTo directory: \r\n  C:\\left"));
  EXPECT_THAT(lines(), ElementsAre("a | ", "b | "));
}

// Also on one disk, where a new name would do.
TEST_F(DirMatchActionsTest, MoveIsACopyAndADeletion) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.calls.clear();
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(disk.count(DiskAction::copy, "C:\\left\\a"), 1);
  EXPECT_EQ(disk.count(DiskAction::remove, "C:\\left\\a"), 1);
  EXPECT_EQ(disk.count(DiskAction::rename, "C:\\left\\a"), 0);
}

TEST_F(DirMatchActionsTest, RefusedMoveGoesOnWithTheNextFile) {
  showOnTheLeft({"a", "b"}, "C:\\left");
  moveRows(1, 2, left, {Answer::no, Answer::yes});
  EXPECT_TRUE(onDisk("left\\a"));
  EXPECT_TRUE(onDisk("right\\b"));
  EXPECT_THAT(lines(), ElementsAre("a | b", " | z"));
}

TEST_F(DirMatchActionsTest, CancelEndsTheMoveAndShowsWhatWasMoved) {
  showOnTheLeft({"a", "b", "c"}, "C:\\left");
  moveRows(1, 3, left, {Answer::yes, Answer::cancel});
  EXPECT_THAT(dialogBoxes.messages, SizeIs(2));
  EXPECT_TRUE(onDisk("right\\a"));
  EXPECT_THAT(lines(), ElementsAre("b | a", "c | z"));
}

TEST_F(DirMatchActionsTest, MoveTakesTheLinesAsTheyWere) {
  showOnTheLeft({"a", "b", "c"}, "C:\\left");
  moveRows(1, 3, left, {Answer::yes, Answer::yes, Answer::yes});
  EXPECT_THAT(lines(), ElementsAre(" | a", " | b", " | c", " | z"));
}

TEST_F(DirMatchActionsTest, MovePassesOverSeparatorsAndTheOtherSide) {
  show({{"a", "C:\\left", 1, 0},
        {"b", "C:\\right", 1, 0},
        {"c", "C:\\right", 1, 1},
        {"d", "C:\\right", 1, 1}});
  moveRows(1, 4, left, {Answer::yes});
  EXPECT_THAT(dialogBoxes.messages, SizeIs(1));
  EXPECT_THAT(lines(), ElementsAre(" | a", " | b", "--", " | c", " | d"));
}

// Moving out of a sub-directory.

TEST_F(DirMatchActionsTest, SubDirectoryIsMadeOnTheOtherSide) {
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

TEST_F(DirMatchActionsTest, SubDirectoryThatIsThereIsUsed) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right\\sub", 1, 0}});
  const Int32 directories = DirCount;
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(FileTable.FileDirNum[1], FileTable.FileDirNum[2]);
  EXPECT_EQ(DirCount, directories);
  EXPECT_THAT(lines(), ElementsAre(" | sub/a", " | sub/b"));
}

TEST_F(DirMatchActionsTest, DeepSubDirectoryIsMadeWithAllAboveIt) {
  show({{"a", "C:\\left\\s\\t\\u", 1, 0}, {"b", "C:\\right\\s", 1, 0}});
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_TRUE(onDisk("right\\s\\t\\u\\a"));
  EXPECT_EQ(directoryOf(1), "C:\\right\\s\\t\\u");
  EXPECT_NE(basFindDirInList("C:\\right\\s\\t"), -1);
}

TEST_F(DirMatchActionsTest, SubDirectoryOfAnotherCaseKeepsItsRow) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right\\SUB", 1, 0}});
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(directoryOf(1), "C:\\right\\SUB");
  EXPECT_TRUE(onDisk("right\\SUB\\a"));
}

TEST_F(DirMatchActionsTest, NewSubDirectoryLiesBelowThoseOfAnotherCase) {
  show({{"a", "C:\\left\\s\\t\\u", 1, 0}, {"b", "C:\\right\\S", 1, 0}});
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(directoryOf(1), "C:\\right\\S\\t\\u");
  EXPECT_TRUE(onDisk("right\\S\\t\\u\\a"));
  EXPECT_THAT(lines(), ElementsAre(" | S\\t\\u/a", " | S/b"));
}

TEST_F(DirMatchActionsTest, DirectoryThatCannotBeLookedAtIsTold) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.failOn(DiskAction::nameOnDisk, "C:\\right\\sub", FailureNumber::deviceError);
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(),
            "Procedure error in 'lstFileExtensions_DblClick'.  Reason: Device I/O error(57).");
  EXPECT_TRUE(onDisk("left\\sub\\a"));
}

TEST_F(DirMatchActionsTest, SubDirectoryThatNoScanHasEnteredGetsARow) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.directory("C:\\right\\sub");
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(directoryOf(1), "C:\\right\\sub");
  EXPECT_THAT(lines(), ElementsAre(" | sub/a", " | b"));
}

TEST_F(DirMatchActionsTest, NoMovesToTheDirectoryItself) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right", 1, 0}});
  moveRows(1, 1, left, {Answer::no});
  EXPECT_EQ(content("right\\a"), contentOf("a"));
  EXPECT_FALSE(onDisk("right\\sub"));
  EXPECT_EQ(directoryOf(1), "C:\\right");
}

TEST_F(DirMatchActionsTest, CancelLeavesTheFileInItsSubDirectory) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\right", 1, 0}});
  moveRows(1, 1, left, {Answer::cancel});
  EXPECT_TRUE(onDisk("left\\sub\\a"));
  EXPECT_THAT(disk.names("C:\\right"), ElementsAre("b"));
}

TEST_F(DirMatchActionsTest, SubDirectoriesAreAskedAboutOnceACommand) {
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

TEST_F(DirMatchActionsTest, YesCountsForOtherSubDirectoriesToo) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\left\\other", 1, 0}, {"z", "C:\\right", 1, 0}});
  moveRows(1, 2, left, {Answer::yes});
  EXPECT_THAT(dialogBoxes.messages, SizeIs(1));
  EXPECT_THAT(lines(), ElementsAre(" | sub/a", " | other/b", " | z"));
}

TEST_F(DirMatchActionsTest, EachCommandAsksAnew) {
  showOnTheLeft({"a", "b"}, "C:\\left\\sub");
  moveRows(1, 1, left, {Answer::no});
  moveRows(1, 1, left, {Answer::no});
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(subDirectoryQuestion, subDirectoryQuestion));
}

TEST_F(DirMatchActionsTest, SubDirectoryThatCannotBeMadeLeavesTheFile) {
  show({{"a", "C:\\left\\sub", 1, 0}, {"b", "C:\\left", 1, 0}, {"z", "C:\\right", 1, 0}});
  disk.failOn(DiskAction::makeDirectory, "C:\\right\\sub", FailureNumber::permissionDenied);
  moveRows(1, 2, left, {Answer::yes, Answer::yes});
  EXPECT_TRUE(onDisk("left\\sub\\a"));
  EXPECT_EQ(directoryOf(1), "C:\\left\\sub");
  EXPECT_TRUE(onDisk("right\\b"));
}

TEST_F(DirMatchActionsTest, TemporaryFileKeepsItsNewDirectoryInTheList) {
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

TEST_F(DirMatchActionsTest, FileOfAScanLeavesItsNewDirectoryAsItIs) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  DirTable.setTemporary(DirMatchDir2, true);
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_TRUE(DirTable[DirMatchDir2].temporary);
}

// A directory beside the one on the left passes for one below it. Its files are then looked for
// where they would be.
TEST_F(DirMatchActionsTest, FileOfADirectoryBesideIsNotFound) {
  show({{"a", "C:\\left2\\x", 1, 0}, {"b", "C:\\right", 1, 0}});
  moveRows(1, 1, left, {Answer::no});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: File not found");
  EXPECT_EQ(content("left2\\x\\a"), contentOf("a"));
  EXPECT_EQ(directoryOf(1), "C:\\left2\\x");
}

// That of the same name, in the directory where the other one is looked for, is nobody's to move.
TEST_F(DirMatchActionsTest, StrangerIsNotMovedForAFileOfADirectoryBeside) {
  show({{"a", "C:\\left2\\x", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.file("C:\\left\\2\\x\\a", "stranger");
  moveRows(1, 1, left, {Answer::no});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: File not found");
  EXPECT_EQ(content("left\\2\\x\\a"), "stranger");
  EXPECT_FALSE(onDisk("right\\a"));
  EXPECT_EQ(directoryOf(1), "C:\\left2\\x");
}

// The name of a drive has no final backslash, so the rule above must not take it for a neighbour.
TEST_F(DirMatchActionsTest, FileOfADirectoryBelowADriveMoves) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}, {"c", "C:", 1, 0}});
  choose("C:", "C:\\right");
  basProcessFiles(form);
  moveRows(1, 1, left, {Answer::no});
  EXPECT_EQ(content("right\\a"), contentOf("a"));
  EXPECT_EQ(directoryOf(1), "C:\\right");
}

// Moves that fail.

TEST_F(DirMatchActionsTest, TargetIsNeverReplaced) {
  show({{"a", "C:\\left", 1, 0}, {"A", "C:\\right", 1, 0}});
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Destination file already exists. Move failed");
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_EQ(content("right\\A"), contentOf("A"));
  EXPECT_EQ(directoryOf(1), "C:\\left");
}

TEST_F(DirMatchActionsTest, TargetThatAppearsMeanwhileIsNotReplacedEither) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.before = [this](const DiskCall& call) {
    if (call.action == DiskAction::copy) disk.file("C:\\right\\a", "another");
  };
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: File already exists");
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_EQ(content("right\\a"), "another");
}

TEST_F(DirMatchActionsTest, FailedMoveGoesOnWithTheNextFile) {
  showOnTheLeft({"a", "b"}, "C:\\left");
  disk.file("C:\\right\\a", "another");
  moveRows(1, 2, left, {Answer::yes, Answer::yes});
  EXPECT_TRUE(onDisk("left\\a"));
  EXPECT_FALSE(onDisk("left\\b"));
  EXPECT_TRUE(onDisk("right\\b"));
}

TEST_F(DirMatchActionsTest, FileLargerThanTheFreeSpaceStays) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.freeBytes = 0;
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: Disk full");
  EXPECT_TRUE(onDisk("left\\a"));
  EXPECT_FALSE(onDisk("right\\a"));
  EXPECT_EQ(directoryOf(1), "C:\\left");
}

TEST_F(DirMatchActionsTest, DirectoryThatHasGoneIsTold) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.erase("C:\\right");
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: Path not found");
  EXPECT_TRUE(onDisk("left\\a"));
}

TEST_F(DirMatchActionsTest, FileThatHasGoneIsTold) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.erase("C:\\left\\a");
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: File not found");
  EXPECT_EQ(directoryOf(1), "C:\\left");
}

TEST_F(DirMatchActionsTest, EqualDirectoriesMoveNothing) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\left\\sub", 1, 0}});
  choose("C:\\left", "C:\\left");
  basProcessFiles(form);
  moveRows(1, 2, right, {Answer::yes, Answer::yes});
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_EQ(content("left\\sub\\b"), contentOf("b"));
  EXPECT_EQ(lastMessage(), "Destination file already exists. Move failed");
}

TEST_F(DirMatchActionsTest, OriginalThatCannotBeDeletedTakesTheCopyBack) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.failOn(DiskAction::remove, "C:\\left\\a", FailureNumber::permissionDenied);
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(),
            "Unable to delete original file. Move aborted!. Reason: Permission denied");
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_FALSE(onDisk("right\\a"));
  EXPECT_EQ(directoryOf(1), "C:\\left");
}

TEST_F(DirMatchActionsTest, CopyThatCannotBeTakenBackIsToldAsAProcedureError) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  for (const char* path : {"C:\\left\\a", "C:\\right\\a"})
    disk.failOn(DiskAction::remove, path, FailureNumber::permissionDenied);
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(),
            "Procedure error in 'lstFileExtensions_DblClick'.  Reason: Permission denied(70).");
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_EQ(content("right\\a"), contentOf("a"));
}

TEST_F(DirMatchActionsTest, CopyStaysWhenSomebodyElseDeletesTheOriginal) {
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
TEST_F(DirMatchActionsTest, CopyStaysWhenTheOriginalIsNotToBeSeen) {
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
TEST_F(DirMatchActionsTest, CopyStaysWhenOnlyAFileOfAnotherCaseIsToBeSeen) {
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

TEST_F(DirMatchActionsTest, CopyStaysWhenAnotherFileHasTakenTheOriginalsPlace) {
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
TEST_F(DirMatchActionsTest, OriginalThatChangesAfterItsCopyStays) {
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

TEST_F(DirMatchActionsTest, CopyThatIsNotAtItsPlaceIsNone) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.before = [&](const DiskCall& call) {
    if (call.action == DiskAction::look) disk.rename("C:\\right", "C:\\trash");
  };
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: Path not found");
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_EQ(directoryOf(1), "C:\\left");
}

TEST_F(DirMatchActionsTest, CopyThatCannotBeSeenIsTakenBack) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  disk.failOn(DiskAction::look, "C:\\right\\a", FailureNumber::deviceError);
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: Device I/O error");
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_FALSE(disk.exists("C:\\right\\a"));
}

TEST_F(DirMatchActionsTest, OtherFileAtTheCopysPlaceIsNoCopy) {
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

TEST_F(DirMatchActionsTest, FilesBelowNoDirectoryOfTheProfileAreNeitherMovedNorDeleted) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  DirTable.setParent(DirMatchDir1, DirMatchDir1);
  moveRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(lastMessage(), "Move of file 'a' has failed.\r\nReason: Path not found");
  deleteRows(1, 1, left, {Answer::yes});
  EXPECT_EQ(content("left\\a"), contentOf("a"));
  EXPECT_FALSE(onDisk("right\\a"));
}

TEST_F(DirMatchActionsTest, FailureInTheMidstOfAMoveShowsWhatWasMoved) {
  showOnTheLeft({"a", "b", "c"}, "C:\\left");
  for (const char* path : {"C:\\left\\b", "C:\\right\\b"})
    disk.failOn(DiskAction::remove, path, FailureNumber::permissionDenied);
  moveRows(1, 3, left, {Answer::yes, Answer::yes, Answer::yes});
  EXPECT_THAT(lastMessage(), testing::StartsWith("Procedure error in"));
  EXPECT_THAT(lines(), ElementsAre("b | a", "c | z"));
}

// Whichever call to the disk fails.
TEST_F(DirMatchActionsTest, OneWholeCopyIsThereAfterEveryFailure) {
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

// Opening.

TEST_F(DirMatchActionsTest, FileIsOpened) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right\\sub", 1, 0}});
  select(1, 1, 6);
  cmdOpen_Click(form, right);
  ASSERT_EQ(desk.opened.size(), 1u);
  EXPECT_EQ(desk.opened[0].operation, "open");
  EXPECT_EQ(desk.opened[0].file, "C:\\right\\sub\\b");
  EXPECT_EQ(desk.opened[0].window, 77);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(dialogBoxes.beeps, 0);
}

TEST_F(DirMatchActionsTest, FirstLineOfASelectionIsOpened) {
  showOnTheLeft({"a", "b"}, "C:\\left");
  select(2, 1);
  cmdOpen_Click(form, left);
  EXPECT_EQ(desk.opened.at(0).file, "C:\\left\\b");
}

TEST_F(DirMatchActionsTest, WhereThereIsNoFileItBeeps) {
  show({{"a", "C:\\left", 1, 0},
        {"b", "C:\\left", 1, 0},
        {"c", "C:\\right", 1, 1},
        {"d", "C:\\right", 1, 1}});
  ASSERT_THAT(lines(), ElementsAre("a | ", "b | ", "--", " | c", " | d"));
  grid.setRows(5000);
  for (const int row : {0, 3, 4, 4999}) {
    select(row, row);
    cmdOpen_Click(form, left);
  }
  EXPECT_EQ(dialogBoxes.beeps, 4);
  EXPECT_THAT(desk.opened, IsEmpty());
}

TEST_F(DirMatchActionsTest, FileWithoutAnApplicationIsTold) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  desk.shellAnswer = shellNoAssociation;
  select(1, 1);
  cmdOpen_Click(form, left);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("This file has no associated application"));
}

TEST_F(DirMatchActionsTest, FileThatCannotBeOpenedIsTold) {
  show({{"a", "C:\\left", 1, 0}, {"b", "C:\\right", 1, 0}});
  desk.shellAnswer = shellAccessDenied;
  select(1, 1);
  cmdOpen_Click(form, left);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Can't open file 'C:\\left\\a'"));
}

}  // namespace
}  // namespace quernstoke
