#include "dirmatch/dirMatchActions.h"

#include <utility>

#include "dirmatch/dirMatchActionsTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

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
