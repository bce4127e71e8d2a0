#include "results/fileActionsTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// Opening.

using OpeningTest = FileActionsTest;

TEST_F(OpeningTest, SelectedFileIsOpened) {
  showFiles(5);
  select(3, 3);
  basOpenFile(form);
  ASSERT_THAT(desk.opened, SizeIs(1));
  EXPECT_EQ(desk.opened[0].operation, "open");
  EXPECT_EQ(desk.opened[0].file, "C:\\music\\f3");
  EXPECT_EQ(desk.opened[0].window, 0);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(dialogBoxes.beeps, 0);
}

TEST_F(OpeningTest, GridHasTheFocusWhateverComesOfIt) {
  showFiles(5);
  for (const int last : {2, 3}) {
    select(2, last);
    form.screen.log.clear();
    basOpenFile(form);
    EXPECT_THAT(form.screen.log, ElementsAre("focus"));
  }
  grid.setVisible(false);
  form.screen.log.clear();
  basOpenFile(form);
  EXPECT_THAT(form.screen.log, IsEmpty());
}

TEST_F(OpeningTest, SeveralFilesBeep) {
  showFiles(5);
  select(2, 3);
  basOpenFile(form);
  basOpenDir(form);
  EXPECT_EQ(dialogBoxes.beeps, 2);
  EXPECT_THAT(desk.opened, IsEmpty());
}

TEST_F(OpeningTest, EmptyRowBeeps) {
  showFiles(3);
  select(9, 9);
  basOpenFile(form);
  basOpenDir(form);
  EXPECT_EQ(dialogBoxes.beeps, 2);
  EXPECT_THAT(desk.opened, IsEmpty());
}

TEST_F(OpeningTest, FileOfTwoLinesNeedsBoth) {
  showTwoLines(5);
  select(3, 4);
  basOpenFile(form);
  basOpenDir(form);
  ASSERT_THAT(desk.opened, SizeIs(2));
  EXPECT_EQ(desk.opened[0].file, "C:\\music\\f2");
  EXPECT_EQ(dialogBoxes.beeps, 0);
  select(3, 3);
  basOpenFile(form);
  basOpenDir(form);
  EXPECT_EQ(dialogBoxes.beeps, 2);
}

TEST_F(OpeningTest, SecondLineAndTheNextFileBeep) {
  showTwoLines(5);
  select(4, 5);
  basOpenFile(form);
  EXPECT_EQ(dialogBoxes.beeps, 1);
  EXPECT_THAT(desk.opened, IsEmpty());
}

TEST_F(OpeningTest, MissingFileIsTold) {
  showFiles(3);
  disk.erase("C:\\music\\f1");
  basOpenFile(form);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Can't open file 'C:\\music\\f1'"));
  EXPECT_THAT(desk.opened, IsEmpty());
}

TEST_F(OpeningTest, FileWithoutAProgramIsTold) {
  showFiles(3);
  desk.shellAnswer = shellNoAssociation;
  basOpenFile(form);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("This file has no associated application"));
}

TEST_F(OpeningTest, OtherFailuresAreNotTold) {
  showFiles(3);
  desk.shellAnswer = shellAccessDenied;
  basOpenFile(form);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(OpeningTest, FileInAZipIsExtractedOnce) {
  showZipEntry("song.mp3");
  basOpenFile(form);
  basOpenFile(form);
  const std::string copy = TempDir + "\\song.mp3";
  ASSERT_THAT(desk.opened, SizeIs(2));
  EXPECT_EQ(desk.opened[0].file, copy);
  EXPECT_EQ(desk.opened[1].file, copy);
  EXPECT_THAT(archiveLibrary.calls, SizeIs(1));
  EXPECT_EQ(archiveLibrary.calls[0].options.lpszZipFN, "C:\\data\\a.zip");
  EXPECT_EQ(FileTable.FileLocalName[2], copy);
}

// The temporary directory may be one in which a person keeps files.
TEST_F(OpeningTest, FileOfAPersonIsNotTakenForACopy) {
  showZipEntry("song");
  disk.file(TempDir + "\\song", "a person's");
  basOpenFile(form);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre("Can't open file '" + TempDir + "\\song'"));
  EXPECT_EQ(disk.content(TempDir + "\\song"), "a person's");
  EXPECT_EQ(FileTable.FileLocalName[2], "");
  EXPECT_THAT(desk.opened, IsEmpty());
}

TEST_F(OpeningTest, CopyOfAnotherFileGivesWay) {
  showZipEntry("song");
  const std::string copy = TempDir + "\\song";
  disk.file(copy, "of another archive");
  FileTable.FileLocalName.set(1, copy);
  basOpenFile(form);
  EXPECT_EQ(disk.content(copy), "content");
  EXPECT_EQ(FileTable.FileLocalName[1], "");
  EXPECT_EQ(FileTable.FileLocalName[2], copy);
  EXPECT_THAT(desk.opened, SizeIs(1));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(OpeningTest, CopyOfAnotherFileGivesWayWhateverItsLetterCase) {
  showZipEntry("song");
  disk.file(TempDir + "\\SONG", "of another archive");
  FileTable.FileLocalName.set(1, TempDir + "\\SONG");
  basOpenFile(form);
  EXPECT_EQ(FileTable.FileLocalName[1], "");
  EXPECT_EQ(disk.content(TempDir + "\\song"), "content");
}

TEST_F(OpeningTest, CopyThatDoesNotGiveWayIsRemembered) {
  showZipEntry("song");
  const std::string copy = TempDir + "\\song";
  disk.file(copy, "of another archive");
  FileTable.FileLocalName.set(1, copy);
  disk.failOn(DiskAction::remove, copy, FailureNumber::permissionDenied);
  basOpenFile(form);
  EXPECT_EQ(FileTable.FileLocalName[1], copy);
  EXPECT_EQ(dialogBoxes.messages.back(), "Can't open file '" + copy + "'");
}

TEST_F(OpeningTest, FileWithoutADirectoryOfItsListIsAProcedureError) {
  showFiles(3);
  DirCount = 0;
  basOpenFile(form);
  basOpenDir(form);
  EXPECT_THAT(desk.opened, IsEmpty());
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basOpenFile", "Subscript out of range(9)"),
                          procedureError("basOpenDir", "Subscript out of range(9)")));
}

// Archives write what they will.
TEST_F(OpeningTest, PasswordIsToldHoweverItIsWritten) {
  showZipEntry("song");
  archiveLibrary.contents.clear();
  archiveLibrary.duringCall = [](ArchiveCallbacks& callbacks) {
    callbacks.print("skipping: song  INCORRECT Password");
  };
  basOpenFile(form);
  EXPECT_THAT(dialogBoxes.messages,
              testing::Contains("Can not launch file as the Zip file requires a password"));
}

TEST_F(OpeningTest, PasswordIsTold) {
  showZipEntry("song");
  archiveLibrary.contents["C:\\data\\a.zip"][0].encrypted = true;
  basOpenFile(form);
  EXPECT_EQ(dialogBoxes.messages.back(), "Can not launch file as the Zip file requires a password");
  EXPECT_EQ(FileTable.FileLocalName[2], "");
  EXPECT_THAT(desk.opened, IsEmpty());
}

TEST_F(OpeningTest, EntryThatCannotBeExtractedOpensNothing) {
  showZipEntry("song");
  archiveLibrary.contents.clear();
  basOpenFile(form);
  EXPECT_THAT(desk.opened, IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, testing::Not(testing::Contains(testing::HasSubstr("Can not"))));
}

TEST_F(OpeningTest, DirectoryIsExplored) {
  showFiles(5);
  select(3, 3);
  form.screen.log.clear();
  basOpenDir(form);
  ASSERT_THAT(desk.opened, SizeIs(1));
  EXPECT_EQ(desk.opened[0].operation, "explore");
  EXPECT_EQ(desk.opened[0].file, "\"C:\\music\"");
  EXPECT_EQ(desk.opened[0].window, form.hWnd());
  EXPECT_THAT(form.screen.log, ElementsAre("focus"));
}

TEST_F(OpeningTest, DirectoryOfAZipEntryIsThatOfItsArchive) {
  showZipEntry("song");
  basOpenDir(form);
  ASSERT_THAT(desk.opened, SizeIs(1));
  EXPECT_EQ(desk.opened[0].file, "\"C:\\data\"");
}

}  // namespace
}  // namespace quernstoke
