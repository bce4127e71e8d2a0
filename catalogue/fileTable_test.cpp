#include "catalogue/fileTable.h"

#include "catalogue/dirTable.h"
#include "core/scanState.h"
#include "testing/engineTest.h"
#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

class FileTableTest : public EngineTest {
 protected:
  FileTableTest() { RunState = runState::buildingList; }

  static std::vector<int> statusOf(Int32 file) { return columnsOf(FileTable.FileStatus, file); }
  static std::vector<int> localPosOf(Int32 row) { return columnsOf(FileTable.FileLocalPos, row); }
  // The upper bound of all arrays, which has to be one.
  static Int32 upperBound() {
    const Int32 upper = FileTable.FileName.upperBound();
    EXPECT_EQ(FileTable.FileSize.upperBound(), upper);
    EXPECT_EQ(FileTable.FileDirNum.upperBound(), upper);
    EXPECT_EQ(FileTable.FileDate.upperBound(), upper);
    EXPECT_EQ(FileTable.FileLocalName.upperBound(), upper);
    for (const auto& column : FileTable.FileStatus)
      EXPECT_EQ(column.upperBound(), upper);
    for (const auto& column : FileTable.FileLocalPos)
      EXPECT_EQ(column.upperBound(), upper);
    return upper;
  }
  // A row in which nothing is empty.
  static void fillRow(Int32 row) {
    FileTable.FileName.set(row, "name");
    FileTable.FileSize[row] = 11;
    FileTable.FileDirNum[row] = 12;
    FileTable.FileDate[row] = DateTime{13};
    FileTable.FileLocalName.set(row, "C:\\TMP1");
    for (auto& column : FileTable.FileStatus)
      column[row] = 14;
    for (auto& column : FileTable.FileLocalPos)
      column[row] = 15;
  }
  static void addFiles(int count) {
    for (int i = 0; i < count; ++i)
      basAddFileToList("f", 1, 0, {});
  }

 private:
  template <class Columns>
  static std::vector<int> columnsOf(const Columns& columns, Int32 row) {
    std::vector<int> values;
    values.reserve(columns.size());
    for (const auto& column : columns)
      values.push_back(column[row].raw());
    return values;
  }
};

TEST_F(FileTableTest, ResizingWithoutPreservingEmptiesEveryRow) {
  basRedimFilesArrays(3, false);
  fillRow(0);
  fillRow(2);
  basRedimFilesArrays(2, false);

  EXPECT_EQ(upperBound(), 2);
  for (const int row : {0, 2}) {
    EXPECT_EQ(FileTable.FileName[row], "");
    EXPECT_EQ(FileTable.FileSize[row], 0);
    EXPECT_EQ(FileTable.FileDirNum[row], 0);
    EXPECT_EQ(FileTable.FileDate[row], DateTime{});
    EXPECT_EQ(FileTable.FileLocalName[row], "");
    EXPECT_THAT(statusOf(row), ElementsAre(0, 0, 0, 0, 0));
    EXPECT_THAT(localPosOf(row), ElementsAre(0, -1, -1));
  }
}

// Unlike those of a resize that empties, the positions of its new rows are 0.
TEST_F(FileTableTest, ResizingWithPreservingKeepsRowsAndAddsEmptyOnes) {
  basRedimFilesArrays(1, false);
  fillRow(1);
  basRedimFilesArrays(2, true);

  EXPECT_EQ(upperBound(), 2);
  EXPECT_EQ(FileTable.FileName[1], "name");
  EXPECT_EQ(FileTable.FileSize[1], 11);
  EXPECT_EQ(FileTable.FileDirNum[1], 12);
  EXPECT_EQ(FileTable.FileDate[1], DateTime{13});
  EXPECT_EQ(FileTable.FileLocalName[1], "C:\\TMP1");
  EXPECT_THAT(statusOf(1), ElementsAre(14, 14, 14, 14, 14));
  EXPECT_THAT(localPosOf(1), ElementsAre(15, 15, 15));
  EXPECT_EQ(FileTable.FileName[2], "");
  EXPECT_THAT(localPosOf(2), ElementsAre(0, 0, 0));
}

TEST_F(FileTableTest, RowsCutOffByAPreservingResizeAreGone) {
  basRedimFilesArrays(5, false);
  fillRow(2);
  fillRow(5);
  basRedimFilesArrays(2, true);
  EXPECT_EQ(upperBound(), 2);
  EXPECT_FAILURE(subscriptOutOfRange, FileTable.FileSize[3] = 1);

  basRedimFilesArrays(5, true);
  EXPECT_EQ(FileTable.FileName[2], "name");
  EXPECT_EQ(FileTable.FileName[5], "");
  EXPECT_THAT(localPosOf(5), ElementsAre(0, 0, 0));
}

TEST_F(FileTableTest, ResizingBelowZeroIsToldAndChangesNothing) {
  basRedimFilesArrays(1, false);
  fillRow(1);
  basRedimFilesArrays(-1, false);

  EXPECT_EQ(FileTable.FileName[1], "name");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basRedimFilesArrays", "Subscript out of range(9)")));
}

// The count is raised first, and reaching the bound is enough.
TEST_F(FileTableTest, ThousandthFileOfANewScanGrowsTheTable) {
  basRedimFilesArrays(1000, false);
  addFiles(999);
  EXPECT_EQ(upperBound(), 1000);

  addFiles(1);
  EXPECT_EQ(upperBound(), 6000);
  EXPECT_EQ(FileCount, 1000);
}

TEST_F(FileTableTest, FirstFileOfTheTableAtStartUpGrowsIt) {
  addFiles(1);

  EXPECT_EQ(upperBound(), 5001);
}

TEST_F(FileTableTest, AddingFillsTheRowButLeavesItsLocalCopy) {
  basRedimFilesArrays(1000, false);
  fillRow(1);

  EXPECT_EQ(basAddFileToList("Song.mp3", 7, 4096, DateTime{99}), 1);
  EXPECT_EQ(FileCount, 1);
  EXPECT_EQ(FileTable.FileName[1], "Song.mp3");
  EXPECT_EQ(FileTable.FileDirNum[1], 7);
  EXPECT_EQ(FileTable.FileSize[1], 4096);
  EXPECT_EQ(FileTable.FileDate[1], DateTime{99});
  EXPECT_THAT(statusOf(1), ElementsAre(0, -2, -1, 0, 0));
  EXPECT_EQ(FileTable.FileLocalName[1], "C:\\TMP1");
  EXPECT_THAT(localPosOf(1), ElementsAre(15, 15, 15));
}

TEST_F(FileTableTest, OnlyFilesAddedOutsideAScanAreTemporary) {
  addFiles(1);
  RunState = runState::idle;
  basAddFileToList("g", 1, 0, {});

  EXPECT_THAT(statusOf(1), ElementsAre(0, -2, -1, 0, 0));
  EXPECT_THAT(statusOf(2), ElementsAre(0, -2, -1, 1, 0));
}

TEST_F(FileTableTest, ScanAddsTheSameNameTwice) {
  EXPECT_EQ(basAddFileToList("a", 1, 0, {}), 1);
  EXPECT_EQ(basAddFileToList("a", 1, 0, {}), 2);
}

TEST_F(FileTableTest, OutsideAScanANameInAnotherCaseIsTheOldFile) {
  basAddFileToList("other", 1, 0, {});
  basAddFileToList("Song.MP3", 1, 5, {});
  RunState = runState::idle;

  EXPECT_EQ(basAddFileToList("sONG.mp3", 1, 6, {}), 2);
  EXPECT_EQ(FileCount, 2);
  EXPECT_EQ(FileTable.FileName[2], "Song.MP3");
  EXPECT_EQ(FileTable.FileSize[2], 5);
}

TEST_F(FileTableTest, OutsideAScanTheSameNameInAnotherDirectoryIsAdded) {
  basAddFileToList("a", 1, 0, {});
  RunState = runState::idle;

  EXPECT_EQ(basAddFileToList("a", 2, 0, {}), 2);
}

class DirectoryNames : public FileTableTest {
 protected:
  DirectoryNames() {
    DirTable.redim(10, false);
    basRedimFilesArrays(10, false);
    DirTable.set(1, {"C:\\a", dirKind::directory, noParent});
    DirTable.set(2, {"C:\\a\\b.zip", dirKind::zipFile, 1});
    DirTable.set(3, {"docs/old", dirKind::zipFolder, 2});
    DirTable.set(4, {"", dirKind::zipFolder, 2});
  }
  static std::string nameOfRow(Int32 row) {
    FileTable.FileDirNum[1] = row;
    return basGetDirnameFromFilenum(1);
  }
};

TEST_F(DirectoryNames, DirectoryOrZipFileShowsAsItsPath) {
  EXPECT_EQ(nameOfRow(1), "C:\\a");
  EXPECT_EQ(nameOfRow(2), "C:\\a\\b.zip");
}

TEST_F(DirectoryNames, FolderInAZipShowsBehindTheArchive) {
  EXPECT_EQ(nameOfRow(3), "C:\\a\\b.zip >> docs/old");
}

TEST_F(DirectoryNames, RootOfAZipShowsAsTheArchiveAlone) {
  EXPECT_EQ(nameOfRow(4), "C:\\a\\b.zip");
}

TEST_F(DirectoryNames, RowOutsideTheTableIsToldAndShowsAsNothing) {
  EXPECT_EQ(nameOfRow(11), "");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basGetDirnameFromFilenum", "Subscript out of range(9)")));
}

// A local copy is found by its row, so it must not wander with the file.
TEST_F(FileTableTest, CopyingARowLeavesTheLocalCopyBehind) {
  basRedimFilesArrays(2, false);
  fillRow(1);
  copyFileRow(1, 2);

  EXPECT_EQ(FileTable.FileName[2], "name");
  EXPECT_EQ(FileTable.FileSize[2], 11);
  EXPECT_EQ(FileTable.FileDirNum[2], 12);
  EXPECT_EQ(FileTable.FileDate[2], DateTime{13});
  EXPECT_THAT(statusOf(2), ElementsAre(14, 14, 14, 14, 14));
  EXPECT_EQ(FileTable.FileLocalName[2], "");
  EXPECT_THAT(localPosOf(2), ElementsAre(0, -1, -1));
}

}  // namespace
}  // namespace quernstoke
