#include "results/fileActionsTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// Deleting.

using DeletionTest = FileActionsTest;

TEST_F(DeletionTest, SelectedFilesGoWithoutAQuestion) {
  showFiles(5);
  select(2, 3);
  deleteSelected();
  EXPECT_THAT(left(5), ElementsAre(1, 4, 5));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(dialogBoxes.beeps, 0);
  for (const int row : {2, 3}) {
    EXPECT_TRUE(isStruck(row));
    EXPECT_EQ(stateOf(row), fileState::deleted);
  }
  EXPECT_FALSE(isStruck(1));
  EXPECT_FALSE(isStruck(4));
}

TEST_F(DeletionTest, NothingElseChanges) {
  showFiles(5);
  const Int32 duplicates = DuplicateCount;
  const Int32 groups = MatchGroupCount;
  const int updates = form.statusBarUpdates;
  select(2, 2);
  deleteSelected();
  EXPECT_EQ(FileCount, 5);
  EXPECT_EQ(DuplicateCount, duplicates);
  EXPECT_EQ(MatchGroupCount, groups);
  EXPECT_EQ(form.statusBarUpdates, updates);
  EXPECT_EQ(page().size(), 5u);
  EXPECT_EQ(disk.count(DiskAction::open, ProfilesDir + "\\Music.files"), 0);
}

TEST_F(DeletionTest, SelectionDraggedUpwardsIsTheSame) {
  showFiles(5);
  select(3, 2);
  deleteSelected();
  EXPECT_THAT(left(5), ElementsAre(1, 4, 5));
}

TEST_F(DeletionTest, TickOfADeletedFileGoes) {
  showFiles(5);
  tickAll({2});
  EXPECT_EQ(grid.cell(2, 0).picture, "SmallTick");
  select(2, 2);
  deleteSelected();
  EXPECT_EQ(tickOf(2), 0);
  EXPECT_EQ(grid.cell(2, 0).picture, "SmallUnTick");
}

TEST_F(DeletionTest, CursorStaysAtTheNameOfTheLastDeletedFile) {
  showFiles(5);
  select(2, 4);
  disk.erase("C:\\music\\f4");
  deleteSelected();
  EXPECT_EQ(grid.row(), 3);
  EXPECT_EQ(grid.rowSel(), 3);
  EXPECT_EQ(grid.col(), 1);
  EXPECT_EQ(grid.colSel(), 1);
}

TEST_F(DeletionTest, GridIsPaintedAgainAndHasTheFocus) {
  showFiles(5);
  form.screen.log.clear();
  deleteSelected();
  EXPECT_TRUE(grid.redraw());
  EXPECT_THAT(form.screen.log, ElementsAre("focus"));
}

TEST_F(DeletionTest, GridIsNotPaintedUntilAllIsDone) {
  showFiles(3);
  std::vector<bool> painted;
  disk.before = [&](const DiskCall& call) {
    if (call.action == DiskAction::remove) painted.push_back(grid.redraw());
  };
  select(1, 2);
  deleteSelected();
  EXPECT_THAT(painted, ElementsAre(false, false));
}

TEST_F(DeletionTest, FileOfTwoLinesIsDeletedOnce) {
  showTwoLines(5);
  select(3, 4);
  deleteSelected();
  EXPECT_THAT(left(5), ElementsAre(1, 3, 4, 5));
  EXPECT_TRUE(isStruck(3));
  EXPECT_FALSE(isStruck(4));
  EXPECT_EQ(grid.cell(3, 0).picture, "BigUnTick1");
}

TEST_F(DeletionTest, EmptyRowsAreNoFiles) {
  showFiles(3);
  select(5, 8);
  deleteSelected();
  EXPECT_THAT(left(3), SizeIs(3));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// The drag leaves a selection from its first empty row up to the last file.
TEST_F(DeletionTest, DragOverEmptyRowsAloneDeletesNothing) {
  for (const bool twoLines : {false, true}) {
    twoLines ? showTwoLines(5) : showFiles(5);
    select(12, 15);
    gridMatches_Click(form);
    ASSERT_LT(grid.rowSel(), grid.row());
    deleteSelected();
    EXPECT_THAT(left(5), SizeIs(5)) << twoLines;
  }
}

TEST_F(DeletionTest, LastFileOfAMatchGoesWithoutAWarning) {
  disk.file("C:\\a", "x");
  disk.file("C:\\b", "x");
  buildCatalogue({{"a", "C:", 1, 2}, {"b", "C:", 1, 2}});
  build();
  select(1, 2);
  deleteSelected();
  EXPECT_FALSE(disk.exists("C:\\a"));
  EXPECT_FALSE(disk.exists("C:\\b"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DeletionTest, ReadOnlyFileIsDeleted) {
  showFiles(3);
  disk.setAttributes("C:\\music\\f2", attributeReadOnly);
  select(2, 2);
  deleteSelected();
  EXPECT_FALSE(onDisk(2));
  EXPECT_TRUE(isStruck(2));
}

TEST_F(DeletionTest, FileThatHasGoneIsLeftAsItIs) {
  showFiles(3);
  disk.erase("C:\\music\\f2");
  select(2, 2);
  deleteSelected();
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(stateOf(2), fileState::normal);
  EXPECT_FALSE(isStruck(2));
}

TEST_F(DeletionTest, DeletingTwiceDoesNothingMore) {
  showFiles(3);
  select(2, 2);
  deleteSelected();
  deleteSelected();
  EXPECT_EQ(disk.count(DiskAction::remove, "C:\\music\\f2"), 1);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(stateOf(2), fileState::deleted);
}

TEST_F(DeletionTest, RefusalIsToldAndTheOthersGo) {
  showFiles(4);
  tickAll({2});
  disk.failOn(DiskAction::remove, "C:\\music\\f2", FailureNumber::permissionDenied);
  select(1, 3);
  deleteSelected();
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Unable to delete file C:\\music\\f2\r\nReason: Permission denied"));
  EXPECT_THAT(left(4), ElementsAre(2, 4));
  EXPECT_EQ(stateOf(2), fileState::normal);
  EXPECT_EQ(tickOf(2), 1);
  EXPECT_FALSE(isStruck(2));
}

TEST_F(DeletionTest, RefusedFileKeepsItsReadOnlyMark) {
  showFiles(3);
  disk.setAttributes("C:\\music\\f2", attributeReadOnly);
  disk.failOn(DiskAction::remove, "C:\\music\\f2", FailureNumber::permissionDenied);
  select(2, 2);
  deleteSelected();
  EXPECT_NE(disk.attributes("C:\\music\\f2") & attributeReadOnly, 0);
}

// The look-up that finds a file in any letter case must not decide what is deleted.
TEST_F(DeletionTest, NameInAnotherCaseIsAnotherFile) {
  disk.file("C:\\music\\SONG", "x");
  buildCatalogue({{"song", "C:\\music", 1, 2}});
  build();
  deleteSelected();
  EXPECT_TRUE(disk.exists("C:\\music\\SONG"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_FALSE(isStruck(1));
}

TEST_F(DeletionTest, DirectoryInAnotherCaseIsAnotherDirectory) {
  disk.file("C:\\music\\OLD\\song", "x");
  buildCatalogue({{"other", "C:\\music", 1, 2}, {"song", "C:\\music\\old", 1, 2}});
  DirTable.setParent(2, 1);
  build();
  select(2, 2);
  deleteSelected();
  EXPECT_TRUE(disk.exists("C:\\music\\OLD\\song"));
}

// Its path leads to the other file of its match, but it is not that file.
TEST_F(DeletionTest, FileThatHasGoneBesideOneInAnotherCaseIsLeftAsItIs) {
  disk.file("C:\\music\\Old\\Song", "x");
  buildCatalogue({{"Song", "C:\\music\\Old", 1, 2},
                  {"song", "C:\\music\\Old", 1, 2},
                  {"Song", "C:\\music\\old", 1, 2},
                  {"first", "C:\\music", 1, 4}});
  DirTable.setParent(1, 3);
  DirTable.setParent(2, 3);
  basBuildWholeGrid(form, 0, 1);
  select(2, 3);
  deleteSelected();
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_FALSE(isStruck(2));
  EXPECT_FALSE(isStruck(3));
  EXPECT_TRUE(disk.exists("C:\\music\\Old\\Song"));
}

// A person may have typed it so.
TEST_F(DeletionTest, DirectoryOfTheProfileMayBeInAnotherCase) {
  disk.file("C:\\Music\\Old\\song", "x");
  buildCatalogue({{"other", "C:\\music", 1, 2}, {"song", "C:\\music\\Old", 1, 2}});
  DirTable.setParent(2, 1);
  build();
  select(2, 2);
  deleteSelected();
  EXPECT_FALSE(disk.exists("C:\\Music\\Old\\song"));
  EXPECT_TRUE(isStruck(2));
}

TEST_F(DeletionTest, DriveMayBeWrittenInEitherCase) {
  disk.file("C:\\music\\song", "x");
  buildCatalogue({{"song", "c:\\music", 1, 2}});
  build();
  deleteSelected();
  EXPECT_FALSE(disk.exists("C:\\music\\song"));
}

// Edited since the scan, or of another card that was put into the drive.
TEST_F(DeletionTest, FileOfAnotherSizeOrDateStays) {
  showFiles(4);
  disk.file("C:\\music\\f1", contentOfSize(11));
  disk.file("C:\\music\\f2", contentOfSize(20), DateTime{1});
  select(1, 3);
  deleteSelected();
  const std::string reason = "\r\nReason: The file has changed since the scan";
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Unable to delete file C:\\music\\f1" + reason,
                                                "Unable to delete file C:\\music\\f2" + reason));
  EXPECT_THAT(left(4), ElementsAre(1, 2, 4));
  EXPECT_EQ(stateOf(1), fileState::normal);
  EXPECT_FALSE(isStruck(1));
}

TEST_F(DeletionTest, NewFileOfADeletedOnesNameStays) {
  showFiles(3);
  select(2, 2);
  deleteSelected();
  disk.file("C:\\music\\f2", "new");
  deleteSelected();
  EXPECT_TRUE(onDisk(2));
}

// The directories of another list may still stand in the table behind those that count.
TEST_F(DeletionTest, FileWithoutADirectoryOfItsListStays) {
  showFiles(3);
  DirCount = 0;
  select(1, 3);
  deleteSelected();
  EXPECT_THAT(left(3), SizeIs(3));
  DirCount = 1;
  FileTable.FileDirNum[1] = 0;
  FileTable.FileDirNum[2] = -1;
  FileTable.FileDirNum[3] = 2;
  deleteSelected();
  EXPECT_THAT(left(3), SizeIs(3));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DeletionTest, FileBelowNoDirectoryOfTheProfileStays) {
  showFiles(3);
  DirTable.setParent(1, 1);
  select(1, 3);
  deleteSelected();
  EXPECT_THAT(left(3), SizeIs(3));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// It is listed as its own duplicate, and would be the only copy.
TEST_F(DeletionTest, FileThatTwoDrivesLeadToStays) {
  disk.file("C:\\music\\song", "x");
  disk.mountAgain("C:\\music", "D:");
  buildCatalogue({{"song", "C:\\music", 1, 2}, {"song", "D:", 1, 2}});
  build();
  select(1, 2);
  deleteSelected();
  EXPECT_TRUE(disk.exists("C:\\music\\song"));
  EXPECT_THAT(
      dialogBoxes.messages,
      ElementsAre(
          "Unable to delete file C:\\music\\song\r\nReason: It is the same file as D:\\song",
          "Unable to delete file D:\\song\r\nReason: It is the same file as C:\\music\\song"));
  EXPECT_FALSE(isStruck(1));
}

TEST_F(DeletionTest, FileOfADirectoryThatIsNamedTwiceStays) {
  disk.file("C:\\music\\song", "x");
  buildCatalogue({{"song", "C:\\music", 1, 2}, {"song", "C:\\MUSIC", 1, 2}});
  build();
  select(1, 2);
  deleteSelected();
  EXPECT_TRUE(disk.exists("C:\\music\\song"));
  EXPECT_THAT(dialogBoxes.messages, SizeIs(2));
}

TEST_F(DeletionTest, FileThatTwoDrivesLeadToStaysWhereItCannotBeLookedAt) {
  disk.file("C:\\music\\song", "x");
  disk.mountAgain("C:\\music", "D:");
  buildCatalogue({{"song", "C:\\music", 1, 2}, {"song", "D:", 1, 2}});
  build();
  disk.failOn(DiskAction::look, "C:\\music\\song", FailureNumber::permissionDenied);
  select(1, 1);
  deleteSelected();
  EXPECT_TRUE(disk.exists("C:\\music\\song"));
  EXPECT_THAT(dialogBoxes.messages, SizeIs(1));
}

TEST_F(DeletionTest, OnlyFilesOfTheSameMatchAreAskedAfter) {
  disk.file("C:\\music\\song", "x");
  disk.mountAgain("C:\\music", "D:");
  buildCatalogue({{"song", "C:\\music", 1, 2}, {"song", "D:", 1, 4}});
  bool deleted = false;
  basDeleteFileFromGrid(1, deleted);
  EXPECT_TRUE(deleted);
}

TEST_F(DeletionTest, FileOfThePageIsDeletedNotThatOfTheRowsNumber) {
  showFiles(60);
  fill("PGDN");
  select(2, 2);
  deleteSelected();
  EXPECT_FALSE(onDisk(21));
  EXPECT_TRUE(onDisk(2));
}

TEST_F(DeletionTest, DirectoryThatTookAFilesPlaceStays) {
  showFiles(3);
  disk.erase("C:\\music\\f2");
  disk.file("C:\\music\\f2\\inner", "x");
  select(2, 2);
  deleteSelected();
  EXPECT_TRUE(disk.exists("C:\\music\\f2\\inner"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DeletionTest, FileInAZipIsRefusedOnceAFile) {
  showZipEntry("song");
  disk.file("in\\song", "not this one");
  FileTable.FileSize[2] = 12;
  deleteSelected();
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Unable to delete from a zip file"));
  EXPECT_TRUE(disk.exists("C:\\data\\a.zip"));
  EXPECT_EQ(stateOf(2), fileState::normal);
  EXPECT_TRUE(disk.exists("in\\song"));
}

TEST_F(DeletionTest, OddNamesAreDeletedAsTheyAre) {
  const std::string odd = "caf\xE9 \xEF\x80\xBA [1] %n";  // No UTF-8, and a stand-in.
  disk.file("C:\\music\\" + odd, "x");
  disk.file("C:\\music\\cafe", "x");
  buildCatalogue({{odd, "C:\\music", 1, 2}});
  build();
  deleteSelected();
  EXPECT_THAT(disk.names("C:\\music"), ElementsAre("cafe"));
}

TEST_F(DeletionTest, StrikeThroughComesBackWithAFill) {
  showFiles(60);
  select(2, 2);
  deleteSelected();
  fill("PGDN");
  EXPECT_FALSE(isStruck(2));
  fill("POS", 1);
  EXPECT_TRUE(isStruck(2));
}

// Ticked files.

using TickedDeletionTest = FileActionsTest;

TEST_F(TickedDeletionTest, NothingTickedIsTold) {
  showFiles(3);
  basDeleteFile(form, deletionMode::ticked);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Nothing selected"));
  EXPECT_THAT(left(3), SizeIs(3));
}

TEST_F(TickedDeletionTest, QuestionComesFirst) {
  showFiles(5);
  tickAll({2, 4});
  deleteTicked(Answer::no);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Delete all 2 selected files?"));
  EXPECT_THAT(dialogBoxes.titles, ElementsAre("Delete warning"));
  EXPECT_THAT(dialogBoxes.buttons, ElementsAre(Buttons::yesNo));
  EXPECT_THAT(left(5), SizeIs(5));
  EXPECT_EQ(tickOf(2), 1);
  EXPECT_TRUE(grid.redraw());
}

TEST_F(TickedDeletionTest, GridHasTheFocusAtItsEnd) {
  showFiles(5);
  form.screen.log.clear();
  basDeleteFile(form, deletionMode::ticked);
  EXPECT_THAT(form.screen.log, ElementsAre("focus"));
  for (const Answer answer : {Answer::no, Answer::yes}) {
    tickAll({2});
    form.screen.log.clear();
    deleteTicked(answer);
    EXPECT_THAT(form.screen.log, ElementsAre("focus"));
  }
}

TEST_F(TickedDeletionTest, TickedFilesGoWhateverIsSelected) {
  showFiles(5);
  tickAll({2, 4});
  select(1, 3);
  deleteTicked();
  EXPECT_THAT(left(5), ElementsAre(1, 3, 5));
  EXPECT_TRUE(isStruck(2));
  EXPECT_TRUE(isStruck(4));
  EXPECT_FALSE(isStruck(3));
}

// The question counts the list, the deletion reaches the page: a list is worked through by pages.
TEST_F(TickedDeletionTest, OtherPagesKeepTheirFilesAndTicks) {
  showFiles(60);
  tickAll({2, 3, 40});
  deleteTicked();
  EXPECT_EQ(dialogBoxes.messages.back(), "Delete all 3 selected files?");
  EXPECT_FALSE(onDisk(2));
  EXPECT_FALSE(onDisk(3));
  EXPECT_TRUE(onDisk(40));
  EXPECT_EQ(tickOf(40), 1);

  deleteTicked();
  EXPECT_EQ(dialogBoxes.messages.back(), "Delete all 1 selected files?");
  EXPECT_TRUE(onDisk(40));

  fill("POS", 35);
  deleteTicked();
  EXPECT_FALSE(onDisk(40));
}

TEST_F(TickedDeletionTest, FilesOfTwoLinesGo) {
  showTwoLines(5);
  tickAll({1, 3});
  deleteTicked();
  EXPECT_THAT(left(5), ElementsAre(2, 4, 5));
}

TEST_F(TickedDeletionTest, MoreThanTheCountHoldsDeletesNothing) {
  makeFiles(32768);
  disk.file("C:\\music\\f1", contentOfSize(10));
  basBuildWholeGrid(form, 0, 1);
  for (int file = 1; file <= 32768; ++file)
    tick(file);
  deleteTicked();
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("basDeleteFile", "Overflow(6)")));
  EXPECT_TRUE(onDisk(1));
  EXPECT_TRUE(grid.redraw());
}

}  // namespace
}  // namespace quernstoke
