#include "detect/tempStore.h"

#include <new>
#include <string>

#include "catalogue/modUnzip.h"
#include "core/log.h"
#include "core/scanState.h"
#include "progress/scanStatus.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class TempStoreTest : public EngineTest {
 protected:
  TempStoreTest() {
    openLog();
    TempFileCounter = 1;
    TempSpaceBudgetKB = 100;
    TempUsedKB = 50;
  }

  void write(FileNumber file, std::string_view text) {
    disk.write(file, text);
    disk.close(file);
  }

  static std::string inTempDir(const std::string& name) { return std::string(temp) + "\\" + name; }

  static constexpr const char* temp = "C:\\Quernstoke\\Temp";
};

// Names and handles.

TEST_F(TempStoreTest, NewFilesAreNumbered) {
  std::string first;
  std::string second;
  write(basOpenTempFile(first), "one");
  write(basOpenTempFile(second), "two");
  EXPECT_EQ(first, inTempDir("TMP1"));
  EXPECT_EQ(second, inTempDir("TMP2"));
  EXPECT_EQ(disk.content(second), "two");
  EXPECT_EQ(TempFileCounter, 3);
}

TEST_F(TempStoreTest, NamesLeftFromAnEarlierRunAreSkipped) {
  disk.file(inTempDir("TMP1"), "old");
  disk.file(inTempDir("TMP2"), "old");
  std::string name;
  write(basOpenTempFile(name), "new");
  EXPECT_EQ(name, inTempDir("TMP3"));
  EXPECT_EQ(TempFileCounter, 4);
  EXPECT_EQ(disk.content(inTempDir("TMP1")), "old");
}

TEST_F(TempStoreTest, ExistingFileIsOpenedAtItsBeginning) {
  disk.file(inTempDir("TMP7"), "abcdef");
  std::string name = inTempDir("TMP7");
  write(basOpenTempFile(name), "XY");
  EXPECT_EQ(disk.content(name), "XYcdef");
  EXPECT_EQ(TempFileCounter, 1);
}

TEST_F(TempStoreTest, GivenNameWithoutAFileIsAProcedureError) {
  std::string name = inTempDir("TMP7");
  EXPECT_EQ(basOpenTempFile(name), 0);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(HasSubstr("Procedure error in 'basOpenTempFile'.  Reason: ")));
  EXPECT_FALSE(disk.exists(inTempDir("TMP7")));
}

// Which has its name, though it looks like nothing.
TEST_F(TempStoreTest, LinkThatLeadsNowhereIsPassedOver) {
  disk.failOn(DiskAction::open, inTempDir("TMP1"), FailureNumber::fileNotFound);
  disk.failOn(DiskAction::open, inTempDir("TMP2"), FailureNumber::fileAlreadyExists);
  std::string name;
  write(basOpenTempFile(name), "new");
  EXPECT_EQ(name, inTempDir("TMP3"));
  EXPECT_EQ(TempFileCounter, 4);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// Its owner would delete what lies there.
TEST_F(TempStoreTest, NameThatCannotBeLookedAtIsNotTaken) {
  disk.failOn(DiskAction::open, inTempDir("TMP1"), FailureNumber::fileNotFound);
  disk.failOn(DiskAction::attributes, inTempDir("TMP2"), FailureNumber::deviceError);
  std::string name;
  EXPECT_EQ(basOpenTempFile(name), 0);
  EXPECT_EQ(name, "");
}

// Zip entries.

class TempEntryTest : public TempStoreTest {
 protected:
  TempEntryTest() { pack("one"); }

  void pack(const std::string& content) {
    archiveLibrary.contents["C:\\d\\a.zip"] = {{"in/a.txt", content}, {"a.txt", "of the root"}};
  }

  std::string extract(bool keepName = false, const std::string& folder = "in",
                      const std::string& archive = "C:\\d\\a.zip") {
    return basExtractZipEntry(archive, folder, "a.txt", keepName);
  }
};

TEST_F(TempEntryTest, FailedExtractionIsLoggedWithWhatTheArchiveSaid) {
  archiveLibrary.duringCall = [](ArchiveCallbacks& callbacks) { callbacks.print("no luck"); };
  archiveLibrary.contents["C:\\d\\a.zip"].clear();
  EXPECT_EQ(extract(), "");
  EXPECT_THAT(logLines(),
              ElementsAre(HasSubstr("Unable to extract file in/a.txt from zip file C:\\d\\a.zip. "
                                    "Reason: no luck")));
  EXPECT_EQ(TempUsedKB, 50);
  EXPECT_EQ(TempFileCounter, 1);
}

// The log has the entry as the library was asked for it.
TEST_F(TempEntryTest, BracketsAreEscapedInTheLog) {
  basExtractZipEntry("C:\\d\\gone.zip", "", "x[1].txt", false);
  EXPECT_THAT(logLines(), ElementsAre(HasSubstr("Unable to extract file x\\[1\\].txt from zip")));
}

TEST_F(TempEntryTest, EntryOfTheRootIsNamedWithoutAFolder) {
  EXPECT_EQ(disk.content(extract(false, "")), "of the root");
}

// Only a running comparison has a window to tell it.
TEST_F(TempEntryTest, ExtractionIsReportedWhileComparing) {
  extract();
  EXPECT_THAT(statusWindow.statusTexts, IsEmpty());
  RunState = runState::comparing;
  extract();
  EXPECT_THAT(statusWindow.statusTexts, ElementsAre("Extracting data from Zip file a.zip"));
  EXPECT_EQ(eventLoop.yields, 1);
}

TEST_F(TempEntryTest, ReportLeavesTheFileOfTheComparisonInTheWindow) {
  RunState = runState::comparing;
  ScanDetailsShown = true;
  extract();
  EXPECT_FALSE(statusWindow.labels.contains("labFile1"));
  EXPECT_EQ(statusWindow.labels["labBufferReads"], "0");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(TempEntryTest, ReportWritesNoDetailsThatAreNotShown) {
  RunState = runState::comparing;
  extract();
  EXPECT_THAT(statusWindow.labels, IsEmpty());
}

TEST_F(TempEntryTest, NothingIsExtractedBeyondTheBudget) {
  TempUsedKB = 101;
  EXPECT_EQ(extract(), "");
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre("Temp directory Full. File not extracted from Zip or compared"));
  EXPECT_THAT(archiveLibrary.calls, IsEmpty());
}

// The entry's size is not asked for, so one extraction may overrun the budget.
TEST_F(TempEntryTest, ExactlyTheBudgetStillExtracts) {
  TempUsedKB = TempSpaceBudgetKB = 0;
  pack(std::string(5000, 'x'));
  EXPECT_EQ(extract(), inTempDir("TMP1"));
  EXPECT_EQ(TempUsedKB, 4);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(TempEntryTest, ExtractedFileIsTakenUnderANewName) {
  pack(std::string(2047, 'x'));
  disk.file(inTempDir("TMP1"), "old");
  EXPECT_EQ(extract(), inTempDir("TMP2"));
  EXPECT_THAT(disk.names(temp), ElementsAre("TMP1", "TMP2"));
  EXPECT_EQ(TempUsedKB, 51);
  EXPECT_EQ(TempFileCounter, 3);
}

// What counts is whether the file is there, as after an extraction that broke off at its end.
TEST_F(TempEntryTest, FileIsTakenThoughTheExtractionFailed) {
  archiveLibrary.before = [&](const ScriptedArchives::Call&) {
    disk.file(inTempDir("a.txt"), "one");
    return static_cast<int>(archiveDamaged);
  };
  EXPECT_EQ(extract(), inTempDir("TMP1"));
  EXPECT_THAT(logLines(), ElementsAre(HasSubstr("Unable to extract file in/a.txt")));
}

TEST_F(TempEntryTest, ReadOnlyFileIsMadeWritable) {
  archiveLibrary.before = [&](const ScriptedArchives::Call&) {
    disk.file(inTempDir("a.txt"), "one");
    return static_cast<int>(archiveOk);
  };
  extract();
  EXPECT_EQ(disk.count(DiskAction::clearAttributes, inTempDir("a.txt")), 1);
}

TEST_F(TempEntryTest, TwoEntriesOfOneNameGetNamesOfTheirOwn) {
  extract();
  extract(false, "");
  EXPECT_EQ(disk.content(inTempDir("TMP1")), "one");
  EXPECT_EQ(disk.content(inTempDir("TMP2")), "of the root");
  EXPECT_EQ(TempUsedKB, 50);  // Less than a kilobyte each.
}

TEST_F(TempEntryTest, EntryKeepsItsNameIfAskedTo) {
  pack(std::string(1024, 'x'));
  EXPECT_EQ(extract(true), inTempDir("a.txt"));
  EXPECT_TRUE(disk.exists(inTempDir("a.txt")));
  EXPECT_EQ(TempUsedKB, 51);
  EXPECT_EQ(TempFileCounter, 2);
}

// The temp directory may be one in which a person keeps files.
TEST_F(TempEntryTest, FileOfAPersonIsNeitherOverwrittenNorTakenForTheEntry) {
  for (const char* name : {"a.txt", "A.TXT"}) {
    disk.file(inTempDir(name), "a person's");
    ZipMessages = "of another extraction";
    EXPECT_EQ(extract(), "") << name;
    EXPECT_EQ(ZipMessages, "") << name;
    EXPECT_EQ(extract(true), "") << name;
    EXPECT_EQ(disk.content(inTempDir(name)), "a person's") << name;
    EXPECT_THAT(disk.names(temp), ElementsAre(name));
    disk.erase(inTempDir(name));
  }
  EXPECT_THAT(archiveLibrary.calls, IsEmpty());
  EXPECT_THAT(logLines(),
              testing::Each("Unable to extract file in/a.txt from zip file C:\\d\\a.zip. Reason: " +
                            inTempDir("a.txt") + " exists"));
}

TEST_F(TempEntryTest, NothingIsExtractedWhereAFileCannotBeLookedAt) {
  disk.failOn(DiskAction::attributes, inTempDir("a.txt"), FailureNumber::deviceError);
  EXPECT_EQ(extract(), "");
  EXPECT_THAT(archiveLibrary.calls, IsEmpty());
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basExtractZipEntry", "Device I/O error(57)")));
}

TEST_F(TempEntryTest, DirectoryOfAPersonStaysToo) {
  disk.directory(inTempDir("a.txt"));
  EXPECT_EQ(extract(), "");
  EXPECT_TRUE(disk.exists(inTempDir("a.txt")));
}

TEST_F(TempEntryTest, DirectoryOfATempNameIsPassedOver) {
  disk.directory(inTempDir("TMP1"));
  EXPECT_EQ(extract(), inTempDir("TMP2"));
}

TEST_F(TempEntryTest, EntryThatCannotBeRenamedIsAProcedureErrorAndLeavesNoFile) {
  disk.failOn(DiskAction::rename, inTempDir("a.txt"), FailureNumber::permissionDenied);
  EXPECT_EQ(extract(), "");
  EXPECT_THAT(disk.names(temp), IsEmpty());
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basExtractZipEntry", "Permission denied(70)")));
  EXPECT_EQ(TempUsedKB, 50);
}

// As with a link that leads nowhere.
TEST_F(TempEntryTest, TempNameThatProvesToBeTakenIsPassedOver) {
  disk.failOn(DiskAction::rename, inTempDir("a.txt"), FailureNumber::fileAlreadyExists);
  EXPECT_EQ(extract(), inTempDir("TMP2"));
  EXPECT_THAT(disk.names(temp), ElementsAre("TMP2"));
  EXPECT_EQ(TempFileCounter, 3);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(TempEntryTest, EntryForWhichMemoryFailsLeavesNoFile) {
  disk.before = [](const DiskCall& call) {
    if (call.action == DiskAction::rename) throw std::bad_alloc();
  };
  EXPECT_EQ(extract(), "");
  EXPECT_THAT(disk.names(temp), IsEmpty());
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basExtractZipEntry", "Out of memory(7)")));
}

TEST_F(TempEntryTest, EntryThatIsNotSeenAfterItsExtractionLeavesNoFile) {
  disk.failOn(DiskAction::attributes, inTempDir("a.txt"), FailureNumber::deviceError, 2);
  EXPECT_EQ(extract(true), "");
  EXPECT_THAT(disk.names(temp), IsEmpty());
}

TEST_F(TempEntryTest, EntryWhoseLengthIsNotToldLeavesNoFile) {
  disk.failOn(DiskAction::length, inTempDir("a.txt"), FailureNumber::deviceError);
  EXPECT_EQ(extract(true), "");
  disk.failOn(DiskAction::length, inTempDir("TMP1"), FailureNumber::deviceError);
  EXPECT_EQ(extract(), "");
  EXPECT_THAT(disk.names(temp), IsEmpty());
  EXPECT_EQ(TempUsedKB, 50);
}

// Deletion.

TEST_F(TempStoreTest, DeletedFileGivesItsWholeKilobytesBack) {
  disk.file(inTempDir("TMP1"), std::string(3000, 'x'));
  basDeleteTempFile(inTempDir("TMP1"));
  EXPECT_THAT(disk.names(temp), IsEmpty());
  EXPECT_EQ(TempUsedKB, 48);
}

TEST_F(TempStoreTest, FileBelowAKilobyteGivesNothingBack) {
  disk.file(inTempDir("TMP1"), std::string(1023, 'x'));
  basDeleteTempFile(inTempDir("TMP1"));
  EXPECT_THAT(disk.names(temp), IsEmpty());
  EXPECT_EQ(TempUsedKB, 50);
}

TEST_F(TempStoreTest, ReadOnlyFileIsDeletedToo) {
  disk.file(inTempDir("TMP1"), "x");
  disk.setAttributes(inTempDir("TMP1"), attributeReadOnly);
  basDeleteTempFile(inTempDir("TMP1"));
  EXPECT_THAT(disk.names(temp), IsEmpty());
  EXPECT_THAT(logLines(), IsEmpty());
}

TEST_F(TempStoreTest, DeletionClimbsOutOfTheDirectories) {
  disk.file(inTempDir("sub\\dir\\file.txt"), "x");
  basDeleteTempFile(inTempDir("sub\\dir\\file.txt"));
  EXPECT_TRUE(disk.exists(temp));
  EXPECT_THAT(disk.names(temp), IsEmpty());
  EXPECT_EQ(disk.count(DiskAction::clearAttributes, inTempDir("sub\\dir")), 1);
  EXPECT_EQ(disk.count(DiskAction::removeDirectory, temp), 0);
  EXPECT_THAT(logLines(), IsEmpty());
}

TEST_F(TempStoreTest, SlashesDivideAPathToo) {
  disk.file(inTempDir("sub\\dir\\file.txt"), "x");
  basDeleteTempFile(inTempDir("sub/dir/file.txt"));
  EXPECT_THAT(disk.names(temp), IsEmpty());
}

TEST_F(TempStoreTest, DirectoryWithOtherFilesStaysAndTheClimbGoesOn) {
  disk.file(inTempDir("sub\\dir\\file.txt"), "x");
  disk.file(inTempDir("sub\\dir\\other.txt"), "x");
  basDeleteTempFile(inTempDir("sub\\dir\\file.txt"));
  EXPECT_THAT(disk.names(inTempDir("sub\\dir")), ElementsAre("other.txt"));
  EXPECT_THAT(logLines(), ElementsAre("Error deleting directory " + inTempDir("sub\\dir"),
                                      "Error deleting directory " + inTempDir("sub")));
}

TEST_F(TempStoreTest, MissingFileStillHasItsDirectoriesRemoved) {
  disk.directory(inTempDir("sub"));
  basDeleteTempFile(inTempDir("sub\\gone.txt"));
  EXPECT_THAT(disk.names(temp), IsEmpty());
  EXPECT_THAT(logLines(), IsEmpty());
}

// The budget counts what was meant to go.
TEST_F(TempStoreTest, FileThatCannotBeDeletedGivesItsKilobytesBackAllTheSame) {
  disk.file(inTempDir("TMP1"), std::string(2048, 'x'));
  disk.failOn(DiskAction::remove, inTempDir("TMP1"), FailureNumber::permissionDenied);
  basDeleteTempFile(inTempDir("TMP1"));
  EXPECT_TRUE(disk.exists(inTempDir("TMP1")));
  EXPECT_EQ(TempUsedKB, 48);
  EXPECT_THAT(logLines(), ElementsAre("Unable to delete temp file " + inTempDir("TMP1") +
                                      ". Reason=Permission denied"));
}

TEST_F(TempStoreTest, OtherLetterCaseIsOutsideTheTempDirectory) {
  disk.file(inTempDir("TMP1"), "x");
  basDeleteTempFile("c:\\quernstoke\\temp\\TMP1");
  EXPECT_TRUE(disk.exists(inTempDir("TMP1")));
  EXPECT_THAT(logLines(), IsEmpty());
}

TEST_F(TempStoreTest, NothingOutsideTheTempDirectoryIsDeleted) {
  disk.file("C:\\d\\a", "x");
  disk.file("C:\\Quernstoke\\Temperature\\a", "x");
  disk.file("C:\\Quernstoke\\a", "x");
  disk.file(inTempDir("TMP3"), "x");
  const auto before = disk.allFiles();
  for (const std::string path :
       {"", "C:\\d\\a", "C:\\Quernstoke\\Temp", "C:\\Quernstoke\\Temp\\",
        "C:\\Quernstoke\\Temp\\\\", "C:\\Quernstoke\\Temp1\\TMP3", "C:\\Quernstoke\\Temperature\\a",
        "C:\\Quernstoke\\Temp\\..\\a", "C:\\Quernstoke\\Temp\\sub/../../a"})
    basDeleteTempFile(path);
  EXPECT_EQ(disk.allFiles(), before);
  EXPECT_TRUE(disk.exists(temp));
  EXPECT_THAT(logLines(), IsEmpty());
}

TEST_F(TempStoreTest, PathThatLeadsOutOfTheTempDirectoryAgainIsLeftAlone) {
  disk.calls.clear();
  basDeleteTempFile(inTempDir("..\\a"));
  basDeleteTempFile(inTempDir("sub/../../a"));
  EXPECT_THAT(disk.calls, IsEmpty());
}

TEST_F(TempStoreTest, DotsWithinANameDoNotLeadUpward) {
  disk.file(inTempDir("a..\\..b"), "x");
  basDeleteTempFile(inTempDir("a..\\..b"));
  EXPECT_THAT(disk.names(temp), IsEmpty());
}

}  // namespace
}  // namespace quernstoke
