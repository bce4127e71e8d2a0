#include "catalogue/snapshots.h"

#include <string>
#include <vector>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "core/scanState.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr const char* filesPath = "C:\\Quernstoke\\Profiles\\Music.files";
constexpr const char* dirPath = "C:\\Quernstoke\\Profiles\\Music.dir";
constexpr const char* listIgnored = "Error loading old files list. List ignored";
constexpr const char* filesNotSaved =
    "Error saving results to file 'C:\\Quernstoke\\Profiles\\Music.files'. Process aborted";
constexpr const char* dirNotSaved =
    "Error saving results to file 'C:\\Quernstoke\\Profiles\\Music.dir'. Process aborted";
constexpr const char* dirNotLoaded =
    "Error loading results from file 'C:\\Quernstoke\\Profiles\\Music.dir'. Process aborted";

struct SavedFile {
  std::string name;
  int directory = 1;
  int size = 0;
  CivilTime date = {};
  int match = noMatch;
  int tick = 0;
  int state = fileState::normal;
  std::string localName = {};
};

class SnapshotsTest : public EngineTest {
 protected:
  SnapshotsTest() {
    ProfileName = "Music";
    basRedimFilesArrays(1000, false);
    DirTable.redim(1024, false);
  }

  static void addFile(const SavedFile& file) {
    ++FileCount;
    FileTable.FileName.set(FileCount, file.name);
    FileTable.FileDirNum[FileCount] = file.directory;
    FileTable.FileSize[FileCount] = file.size;
    FileTable.FileDate[FileCount] = dateTime(file.date);
    FileTable.FileStatus[statusMatch][FileCount] = file.match;
    FileTable.FileStatus[statusTick][FileCount] = file.tick;
    FileTable.FileStatus[statusState][FileCount] = file.state;
    FileTable.FileLocalName.set(FileCount, file.localName);
  }
  static void addDirectory(const std::string& name, char kind, int parent) {
    ++DirCount;
    DirTable.set(DirCount, {name, kind, parent});
  }
  // The line of a file that has this name and state and is empty otherwise.
  static std::string fileLine(const std::string& name, int state = fileState::normal) {
    return "\"" + name + "\",1,0,#2004-11-02 16:41:08#,-2,0," + std::to_string(state) + ",\"\"\r\n";
  }
  static std::string dirLine(int row, const std::string& name) {
    return std::to_string(row) + ",\"" + name + "\",\"D\",-1\r\n";
  }
  static std::vector<std::string> dirNames() {
    std::vector<std::string> names;
    for (Int32 row = 1; row <= DirTable.upperBound(); ++row)
      names.push_back(DirTable[row].name);
    return names;
  }

  bool loadFiles(const std::string& content) {
    disk.file(filesPath, content);
    return basLoadFilesList();
  }
  void loadDirs(const std::string& content) {
    disk.file(dirPath, content);
    basLoadDirTable();
  }
};

TEST_F(SnapshotsTest, FilesAreWrittenOneALine) {
  addFile({"report.doc", 12, 48128, {2004, 11, 2, 16, 41, 8}, 7});
  addFile({"a, b.txt", 3, 2147483647, {1999, 1, 2, 3, 4, 5}, -2, 1, 4, "C:\\Temp\\TMP1"});
  basSaveFilesList();
  EXPECT_EQ(disk.content(filesPath),
            "\"report.doc\",12,48128,#2004-11-02 16:41:08#,7,0,0,\"\"\r\n"
            "\"a, b.txt\",3,2147483647,#1999-01-02 03:04:05#,-2,1,4,\"C:\\Temp\\TMP1\"\r\n");
  EXPECT_EQ(disk.openFiles(), 0);
}

TEST_F(SnapshotsTest, DirectoriesAreWrittenOneALine) {
  addDirectory("C:\\docs", dirKind::directory, noParent);
  addDirectory("C:\\docs\\old", dirKind::directory, 1);
  addDirectory("C:\\docs\\a, b.zip", dirKind::zipFile, 1);
  addDirectory("in/side", dirKind::zipFolder, 3);
  addDirectory("", dirKind::zipFolder, 3);
  basSaveDirTable();
  EXPECT_EQ(disk.content(dirPath),
            "1,\"C:\\docs\",\"D\",-1\r\n"
            "2,\"C:\\docs\\old\",\"D\",1\r\n"
            "3,\"C:\\docs\\a, b.zip\",\"Z\",1\r\n"
            "4,\"in/side\",\"z\",3\r\n"
            "5,\"\",\"z\",3\r\n");
  EXPECT_EQ(disk.openFiles(), 0);
}

TEST_F(SnapshotsTest, SavingReplacesAllThatWasThere) {
  disk.file(filesPath, "old and long");
  disk.file(dirPath, "old and long");
  basSaveFilesList();
  basSaveDirTable();
  EXPECT_EQ(disk.content(filesPath), "");
  EXPECT_EQ(disk.content(dirPath), "");
}

TEST_F(SnapshotsTest, SavingStopsAtTheFirstEmptyName) {
  for (const char* name : {"a", "", "c"})
    addFile({name});
  basSaveFilesList();
  EXPECT_THAT(disk.content(filesPath), AllOf(StartsWith("\"a\","), Not(testing::HasSubstr("c"))));
}

TEST_F(SnapshotsTest, FilesComeBack) {
  EXPECT_TRUE(
      loadFiles("\"report.doc\",12,48128,#2004-11-02 16:41:08#,7,1,4,\"C:\\T\\TMP1\"\r\n"
                "\"b\",3,0,#1999-01-02 03:04:05#,-2,0,3,\"\"\r\n"));
  EXPECT_THAT(fileNames(), ElementsAre("report.doc", "b"));
  EXPECT_THAT(fileSizes(), ElementsAre(48128, 0));
  EXPECT_THAT(matchNumbers(), ElementsAre(7, -2));
  EXPECT_EQ(FileTable.FileDirNum[1], 12);
  EXPECT_EQ(FileTable.FileDate[1], dateTime({2004, 11, 2, 16, 41, 8}));
  EXPECT_EQ(FileTable.FileStatus[statusTick][1], 1);
  EXPECT_EQ(FileTable.FileStatus[statusState][1], fileState::unreadable);
  EXPECT_EQ(FileTable.FileStatus[statusState][2], fileState::deleted);
  EXPECT_EQ(FileTable.FileLocalName[1], "C:\\T\\TMP1");
  EXPECT_EQ(FileTable.FileName.upperBound(), 2);
  EXPECT_EQ(disk.openFiles(), 0);
}

// A chain of 0 names no block; whoever adds a file would have written -1.
TEST_F(SnapshotsTest, ReloadedFilesHaveAChainOfZero) {
  loadFiles(fileLine("a"));
  EXPECT_EQ(FileTable.FileStatus[statusChain][1], 0);
  EXPECT_EQ(FileTable.FileStatus[statusTemporary][1], 0);
}

TEST_F(SnapshotsTest, DirectoriesComeBack) {
  loadDirs("1,\"C:\\docs\",\"D\",-1\r\n2,\"C:\\docs\\b.zip\",\"Z\",1\r\n3,\"\",\"z\",2\r\n");
  ASSERT_EQ(DirCount, 3);
  EXPECT_THAT(dirNames(), ElementsAre("C:\\docs", "C:\\docs\\b.zip", ""));
  EXPECT_EQ(DirTable[1].kind, dirKind::directory);
  EXPECT_EQ(DirTable[2].kind, dirKind::zipFile);
  EXPECT_EQ(DirTable[3].kind, dirKind::zipFolder);
  EXPECT_EQ(DirTable[1].parent, noParent);
  EXPECT_EQ(DirTable[3].parent, 2);
  EXPECT_EQ(DirTable.upperBound(), 3);
  EXPECT_EQ(disk.openFiles(), 0);
}

// More rows than any step of growth and more text than a reader or writer holds at once.
TEST_F(SnapshotsTest, LoadingAndSavingAgainGivesTheSameFiles) {
  basRedimFilesArrays(13000, false);
  DirTable.redim(3000, false);
  for (int i = 1; i <= 12500; ++i)
    addFile({"file " + std::to_string(i), i, 3 * i, {2004, 2, 29, 1, 2, 3}, i % 7 - 2, i % 2});
  for (int i = 1; i <= 2500; ++i)
    addDirectory("C:\\directory " + std::to_string(i), dirKind::directory, i - 2);
  basSaveFilesList();
  basSaveDirTable();
  const auto saved = disk.allFiles();
  basSaveFilesList();
  basSaveDirTable();
  EXPECT_EQ(disk.allFiles(), saved);

  basRedimFilesArrays(5000, false);
  DirTable.redim(0, false);
  EXPECT_TRUE(basLoadFilesList());
  basLoadDirTable();
  EXPECT_EQ(FileCount, 12500);
  EXPECT_EQ(DirCount, 2500);
  basSaveFilesList();
  basSaveDirTable();
  EXPECT_EQ(disk.allFiles(), saved);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(SnapshotsTest, EveryNameSurvives) {
  const std::vector<std::string> names = {
      "a,b.txt",           " blanks ", "#1", "'quoted'", "1", "\xEF\x80\xA2stand-in\xEF\x80\xA2",
      "not utf-8 \xFF\xC3"};
  for (const std::string& name : names)
    addFile({name});
  basSaveFilesList();
  basLoadFilesList();
  EXPECT_EQ(fileNames(), names);
}

TEST_F(SnapshotsTest, ProfileNeverScannedHasNothing) {
  addFile({"of another profile"});
  addDirectory("C:\\other", dirKind::directory, noParent);
  EXPECT_FALSE(basLoadFilesList());
  basLoadDirTable();
  EXPECT_EQ(FileCount, 0);
  EXPECT_EQ(DirCount, 0);
  EXPECT_EQ(DirTable.upperBound(), 1024);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(disk.count(DiskAction::open, filesPath) + disk.count(DiskAction::open, dirPath), 0);
}

TEST_F(SnapshotsTest, EmptyFilesAreNoFailure) {
  addFile({"of another profile"});
  EXPECT_TRUE(loadFiles(""));
  EXPECT_EQ(FileCount, 0);
  EXPECT_EQ(FileTable.FileName.upperBound(), 1000);
  loadDirs("");
  EXPECT_EQ(DirCount, 0);
  EXPECT_EQ(DirTable.upperBound(), 0);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
  EXPECT_EQ(disk.openFiles(), 0);
}

// Removed rows stay where they are but aren't counted, and the table ends at the count. So a scan
// that was paused between two stages loses its last files; files saved so must load as ever.
TEST_F(SnapshotsTest, EachRemovedRowCutsARowFromTheEnd) {
  EXPECT_TRUE(loadFiles(fileLine("a") + fileLine("removed", 5) + fileLine("c") +
                        fileLine("removed too", 5) + fileLine("e") + fileLine("f", 3)));
  EXPECT_THAT(fileNames(), ElementsAre("a", "removed", "c", "removed too"));
  EXPECT_EQ(FileTable.FileName.upperBound(), 4);
}

TEST_F(SnapshotsTest, RemovedRowsAloneLeaveAnEmptyList) {
  EXPECT_TRUE(loadFiles(fileLine("a", 5) + fileLine("b", 5)));
  EXPECT_EQ(FileCount, 0);
  EXPECT_EQ(FileTable.FileName.upperBound(), 1000);
}

// With nothing counted the table is not cut, so that its growth shows.
TEST_F(SnapshotsTest, TableGrowsBy5000WhenARowReachesItsBound) {
  std::string lines;
  for (int i = 0; i < 9; ++i)
    lines += fileLine("x", 5);
  basRedimFilesArrays(10, false);
  loadFiles(lines);
  EXPECT_EQ(FileTable.FileName.upperBound(), 10);
  loadFiles(lines + fileLine("x", 5));
  EXPECT_EQ(FileTable.FileName.upperBound(), 5010);
}

TEST_F(SnapshotsTest, DamageInAnyFieldEmptiesTheList) {
  for (const char* line : {
           "\"b\"x,1,2,#2004-11-02 16:41:08#,7,0,0,\"\"\r\n",
           "\"b,1,2,#2004-11-02 16:41:08#,7,0,0,\"\"\r\n",
           "\"b\",one,2,#2004-11-02 16:41:08#,7,0,0,\"\"\r\n",
           "\"b\",1,4k8,#2004-11-02 16:41:08#,7,0,0,\"\"\r\n",
           "\"b\",1,2147483648,#2004-11-02 16:41:08#,7,0,0,\"\"\r\n",
           "\"b\",1,2,#2004-02-30 16:41:08#,7,0,0,\"\"\r\n",
           "\"b\",1,2,2004-11-02 16:41:08,7,0,0,\"\"\r\n",
           "\"b\",1,2,#2004-11-02 16:41:08#,?,0,0,\"\"\r\n",
           "\"b\",1,2,#2004-11-02 16:41:08#,7,,0,\"\"\r\n",
           "\"b\",1,2,#2004-11-02 16:41:08#,7,0,-,\"\"\r\n",
           "\"b\",1,2,#2004-11-02 16:41:08#,7,0,0,\"\r\n",
           "\"b\",1,2,#2004-11-02 16:41:08#,7,0,0,\"\",9\r\n",
           "\"b\",1,2,#2004-11-02 16:41:08#\r\n",
           "\r\n",
       }) {
    dialogBoxes.messages.clear();
    EXPECT_TRUE(loadFiles(fileLine("a") + line)) << line;
    EXPECT_EQ(FileCount, 0) << line;
    EXPECT_THAT(dialogBoxes.messages, ElementsAre(listIgnored)) << line;
    EXPECT_EQ(disk.openFiles(), 0) << line;
  }
}

TEST_F(SnapshotsTest, LastLineCutShortAnywhereEmptiesTheList) {
  const std::string line = "\"b\",1,2,#2004-11-02 16:41:08#,7,0,0,\"\"";
  for (std::size_t length = 1; length < line.size(); ++length) {
    dialogBoxes.messages.clear();
    loadFiles(fileLine("a") + line.substr(0, length));
    EXPECT_EQ(FileCount, 0) << length;
    EXPECT_THAT(dialogBoxes.messages, ElementsAre(listIgnored)) << length;
  }
  dialogBoxes.messages.clear();
  loadFiles(fileLine("a") + line);
  EXPECT_THAT(fileNames(), ElementsAre("a", "b"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(SnapshotsTest, DirectoriesAreLoadedEvenIfTheFilesAreDamaged) {
  loadFiles("damaged");
  loadDirs(dirLine(1, "C:\\docs"));
  EXPECT_EQ(FileCount, 0);
  EXPECT_EQ(DirCount, 1);
}

TEST_F(SnapshotsTest, FilesThatCannotBeOpenedAreAProcedureError) {
  disk.failOn(DiskAction::open, filesPath, FailureNumber::permissionDenied);
  EXPECT_FALSE(loadFiles(fileLine("a")));
  EXPECT_EQ(FileCount, 0);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basLoadFilesList", "Permission denied(70)")));
}

TEST_F(SnapshotsTest, ReadingThatBreaksInsideALineIsADamagedLine) {
  disk.failOn(DiskAction::read, filesPath, FailureNumber::deviceError, 2);
  EXPECT_TRUE(loadFiles(fileLine("a") + fileLine(std::string(100000, 'x'))));
  EXPECT_EQ(FileCount, 0);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(listIgnored));
}

TEST_F(SnapshotsTest, DamageInAnyFieldOfADirectoryIsToldAndTheFileStaysOpen) {
  int stillOpen = 0;
  for (const char* line : {
           "two,\"C:\\b\",\"D\",1\r\n",
           "2,\"C:\\b\"x,\"D\",1\r\n",
           "2,\"C:\\b\",\"D,1\r\n",
           "2,\"C:\\b\",\"D\",one\r\n",
           "2,\"C:\\b\",\"D\"\r\n",
           "2147483648,\"C:\\b\",\"D\",1\r\n",
           "\r\n",
       }) {
    dialogBoxes.messages.clear();
    loadDirs(dirLine(1, "C:\\a") + line);
    EXPECT_THAT(dialogBoxes.messages, ElementsAre(dirNotLoaded)) << line;
    EXPECT_EQ(disk.openFiles(), ++stillOpen) << line;
    EXPECT_EQ(DirTable[1].name, "C:\\a");
    EXPECT_EQ(DirTable[2].name, "");
    EXPECT_EQ(DirTable.upperBound(), 1024);
  }
}

TEST_F(SnapshotsTest, DirectoryThatFailsBehindItsNumberIsCounted) {
  loadDirs(dirLine(1, "C:\\a") + "2,\"C:\\b\",\"D\",one\r\n");
  EXPECT_EQ(DirCount, 2);
  loadDirs(dirLine(1, "C:\\a") + "two,\"C:\\b\",\"D\",1\r\n");
  EXPECT_EQ(DirCount, 1);
}

TEST_F(SnapshotsTest, DirectoriesThatCannotBeOpenedAreTold) {
  disk.failOn(DiskAction::open, dirPath, FailureNumber::permissionDenied);
  loadDirs(dirLine(1, "C:\\a"));
  EXPECT_EQ(DirCount, 0);
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(dirNotLoaded));
}

// The numbers in the file say how many directories there are, not where their rows are.
TEST_F(SnapshotsTest, LastNumberIsTheCountOfDirectories) {
  loadDirs(dirLine(1, "C:\\a") + dirLine(4, "C:\\b"));
  EXPECT_EQ(DirCount, 4);
  EXPECT_THAT(dirNames(), ElementsAre("C:\\a", "C:\\b", "", ""));

  loadDirs(dirLine(1, "C:\\a") + dirLine(2, "C:\\b") + dirLine(1, "C:\\c"));
  EXPECT_EQ(DirCount, 1);
  EXPECT_THAT(dirNames(), ElementsAre("C:\\a"));
}

TEST_F(SnapshotsTest, NegativeLastNumberLeavesAnEmptyTable) {
  loadDirs(dirLine(1, "C:\\a") + dirLine(-3, "C:\\b"));
  EXPECT_EQ(DirCount, -3);
  EXPECT_EQ(DirTable.upperBound(), 0);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(SnapshotsTest, TableGrowsBy1024BeyondTheNumberRead) {
  DirTable.redim(0, false);
  loadDirs(dirLine(1, "C:\\a") + "damaged\r\n");
  EXPECT_EQ(DirTable.upperBound(), 1 + 1024);
  DirTable.redim(10, false);
  loadDirs(dirLine(9, "C:\\a") + "damaged\r\n");
  EXPECT_EQ(DirTable.upperBound(), 10);
  loadDirs(dirLine(10, "C:\\a") + "damaged\r\n");
  EXPECT_EQ(DirTable.upperBound(), 10 + 1024);
}

TEST_F(SnapshotsTest, NumberFarAheadOfItsLineIsDamageAndNotCounted) {
  for (const char* rest : {",\"C:\\b\",\"D\",1\r\n", ",\"C:\\cut sh"})
    for (const int number : {2000000, 2147483647}) {
      SCOPED_TRACE(std::to_string(number) + rest);
      dialogBoxes.messages.clear();
      DirTable.redim(0, false);
      loadDirs(dirLine(1, "C:\\a") + std::to_string(number) + rest);
      EXPECT_THAT(dialogBoxes.messages, ElementsAre(dirNotLoaded));
      EXPECT_EQ(DirTable.upperBound(), 1 + 1024);
      EXPECT_EQ(DirCount, 1);
    }
}

TEST_F(SnapshotsTest, LoadedRowsKeepTheirTemporaryFlag) {
  DirTable.setTemporary(2, true);
  loadDirs(dirLine(1, "C:\\a") + dirLine(2, "C:\\b"));
  EXPECT_FALSE(DirTable[1].temporary);
  EXPECT_TRUE(DirTable[2].temporary);
}

TEST_F(SnapshotsTest, FailingToOpenForSavingIsTold) {
  disk.failOn(DiskAction::open, filesPath, FailureNumber::permissionDenied);
  disk.failOn(DiskAction::open, dirPath, FailureNumber::permissionDenied);
  basSaveFilesList();
  basSaveDirTable();
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(filesNotSaved, dirNotSaved));
}

TEST_F(SnapshotsTest, WritingThatBreaksLeavesAPartOfTheFileAndTheFileOpen) {
  for (int i = 0; i < 900; ++i) {
    addFile({std::string(100, 'f')});
    addDirectory("C:\\" + std::string(100, 'd'), dirKind::directory, noParent);
  }
  disk.failOn(DiskAction::write, filesPath, FailureNumber::diskFull, 2);
  disk.failOn(DiskAction::write, dirPath, FailureNumber::diskFull, 2);
  basSaveFilesList();
  basSaveDirTable();
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(filesNotSaved, dirNotSaved));
  EXPECT_THAT(disk.content(filesPath), AllOf(StartsWith("\"fff"), EndsWith("\r\n")));
  EXPECT_THAT(disk.content(dirPath), AllOf(StartsWith("1,\"C:\\ddd"), EndsWith("\r\n")));
  EXPECT_EQ(disk.openFiles(), 2);
}

TEST_F(SnapshotsTest, LocalCopiesAreForgotten) {
  addFile({.name = "a", .localName = "C:\\T\\TMP1"});
  addFile({.name = "b", .localName = "C:\\T\\TMP2"});
  addFile({.name = "not of the list", .localName = "C:\\T\\TMP3"});
  --FileCount;
  basResetLocalFilesList();
  EXPECT_EQ(FileTable.FileLocalName[1], "");
  EXPECT_EQ(FileTable.FileLocalName[2], "");
  EXPECT_EQ(FileTable.FileLocalName[3], "C:\\T\\TMP3");
}

}  // namespace
}  // namespace quernstoke
