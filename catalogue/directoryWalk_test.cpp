#include "catalogue/directoryWalk.h"

#include <algorithm>
#include <string>
#include <vector>

#include "catalogue/dirTable.h"
#include "catalogue/extensions.h"
#include "catalogue/fileTable.h"
#include "core/log.h"
#include "core/modMain.h"
#include "core/scanState.h"
#include "progress/scanStatus.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

using Texts = std::vector<std::string>;

const std::string walkFailedOnDevice =
    procedureError("basScanThisDirectory", "Device I/O error(57)");
const std::string walkFailedOnSubscript =
    procedureError("basScanThisDirectory", "Subscript out of range(9)");

// A scan that has come to its walk: an empty catalogue, limits that all files keep to, and the
// details of the status window hidden.
class DirectoryWalkTest : public EngineTest {
 protected:
  DirectoryWalkTest() {
    openLog();
    RunState = runState::buildingList;
    ScanAttributes = attributeReadOnly | attributeDirectory | attributeArchive;
    MaxSizeBytes = FixedPoint::fromWhole(std::int64_t{1} << 40);
    basRedimFilesArrays(1000, false);
    DirTable.redim(1024, false);
  }

  // Fill the next slot of the profile.
  void include(const std::string& path, const std::string& extensions = "*.*") {
    setDirectory(nextSlot_++, path, "I", true, extensions);
  }
  void exclude(const std::string& path, bool recurse) {
    setDirectory(nextSlot_++, path, "E", recurse);
  }
  void empty(const std::string& path) { disk.file(path, ""); }
  // Directories path1, path2, ... with a file each.
  void numberedDirectories(const std::string& path, int count) {
    for (int i = 1; i <= count; ++i)
      empty(path + std::to_string(i) + "\\f");
  }
  // Walks C:\top alone and returns the directories and zip files met below it, without "C:\top\".
  Texts metBelowTop() {
    include("C:\\top");
    basBuildDirectoryList();
    Texts met;
    for (Int32 row = 2; row <= DirCount; ++row)
      met.push_back(DirTable[row].name.substr(sizeof("C:\\top\\") - 1));
    return met;
  }
  // Likewise for the names of the files.
  Texts filesBelowTop() {
    include("C:\\top");
    basBuildDirectoryList();
    return fileNames();
  }
  // Makes the n-th yield a press of Abort.
  void abortAtYield(int n) {
    eventLoop.onYield = [this, n] {
      if (eventLoop.yields == n) RunState = runState::abortRequested;
    };
  }

 private:
  int nextSlot_ = 1;
};

TEST_F(DirectoryWalkTest, EntriesComeBeforeSubtreesAndSubtreesOneAfterTheOther) {
  include("C:\\a");
  empty("C:\\a\\sub2\\x");
  empty("C:\\a\\sub2\\deep\\y");
  empty("C:\\a\\m");
  empty("C:\\a\\sub1\\z");
  empty("C:\\a\\b");
  basBuildDirectoryList();
  EXPECT_THAT(filePaths(), ElementsAre("C:\\a\\m", "C:\\a\\b", "C:\\a\\sub2\\x",
                                       "C:\\a\\sub2\\deep\\y", "C:\\a\\sub1\\z"));
  EXPECT_THAT(directoryNames(),
              ElementsAre("C:\\a", "C:\\a\\sub2", "C:\\a\\sub1", "C:\\a\\sub2\\deep"));
  EXPECT_EQ(DirTable[1].parent, noParent);
  EXPECT_EQ(DirTable[2].parent, 1);
  EXPECT_EQ(DirTable[3].parent, 1);
  EXPECT_EQ(DirTable[4].parent, 2);
  EXPECT_THAT(statusWindow.statusTexts, ElementsAre("Building file list...  "));
}

TEST_F(DirectoryWalkTest, OneDirectoryIsReadToItsEndBeforeTheNextIsOpened) {
  include("C:\\a");
  empty("C:\\a\\sub\\x");
  empty("C:\\a\\last");
  basBuildDirectoryList();
  const auto opened = std::find_if(disk.calls.begin(), disk.calls.end(), [](const DiskCall& call) {
    return call.action == DiskAction::list && call.path == "C:\\a\\sub";
  });
  ASSERT_NE(opened, disk.calls.end());
  EXPECT_TRUE(std::none_of(opened, disk.calls.end(),
                           [](const DiskCall& call) { return call.path == "C:\\a"; }));
}

TEST_F(DirectoryWalkTest, FileRowHoldsWhatTheDirectoryTells) {
  include("C:\\a");
  disk.file("C:\\a\\b\\report.doc", "12345", dateTime({1999, 12, 31, 23, 59, 58}));
  basBuildDirectoryList();
  ASSERT_THAT(fileNames(), ElementsAre("report.doc"));
  EXPECT_EQ(FileTable.FileDirNum[1], 2);
  EXPECT_EQ(FileTable.FileSize[1], 5);
  EXPECT_EQ(FileTable.FileDate[1], dateTime({1999, 12, 31, 23, 59, 58}));
  EXPECT_EQ(FileTable.FileStatus[statusTemporary][1], 0);
}

TEST_F(DirectoryWalkTest, GoesAsDeepAsTheTree) {
  std::string path = "C:\\a";
  for (int level = 0; level < 200; ++level)
    path += "\\d";
  empty(path + "\\bottom");
  include("C:\\a");
  basBuildDirectoryList();
  EXPECT_THAT(filePaths(), ElementsAre(path + "\\bottom"));
  EXPECT_EQ(DirCount, 201);
}

TEST_F(DirectoryWalkTest, HoldsMorePendingDirectoriesThanItStartsWith) {
  numberedDirectories("C:\\a\\d", 600);
  include("C:\\a");
  basBuildDirectoryList();
  EXPECT_EQ(FileCount, 600);
  EXPECT_EQ(filePaths().back(), "C:\\a\\d600\\f");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirectoryWalkTest, DirectoryTableEndsAtItsLastRow) {
  include("C:\\a");
  basBuildDirectoryList();
  EXPECT_EQ(DirTable.upperBound(), 1);
}

TEST_F(DirectoryWalkTest, DirectoryTableKeepsItsSizeWithoutIncludes) {
  exclude("C:\\a", true);
  basBuildDirectoryList();
  EXPECT_EQ(DirTable.upperBound(), 1024);
  EXPECT_EQ(eventLoop.yields, 1);
}

TEST_F(DirectoryWalkTest, IncludeIsWalkedWithItsSubdirectoriesWhateverItsFlag) {
  setDirectory(1, "C:\\a", "I", false);
  empty("C:\\a\\b\\c\\x");
  basBuildDirectoryList();
  EXPECT_THAT(filePaths(), ElementsAre("C:\\a\\b\\c\\x"));
}

TEST_F(DirectoryWalkTest, OneTrailingBackslashOfAnIncludeIsRemoved) {
  include("C:\\a\\");
  include("C:\\b\\\\");
  basBuildDirectoryList();
  EXPECT_THAT(directoryNames(), ElementsAre("C:\\a", "C:\\b\\"));
}

TEST_F(DirectoryWalkTest, DriveRootIsNamedWithoutItsBackslash) {
  empty("D:\\x");
  empty("D:\\a\\y");
  include("D:\\");
  basBuildDirectoryList();
  EXPECT_THAT(directoryNames(), ElementsAre("D:", "D:\\a"));
  EXPECT_THAT(filePaths(), ElementsAre("D:\\x", "D:\\a\\y"));
}

TEST_F(DirectoryWalkTest, NothingBehindAnEmptySlotCounts) {
  empty("C:\\top\\a\\x");
  empty("C:\\b\\y");
  setDirectory(3, "C:\\top\\a", "E");
  setDirectory(4, "C:\\b", "I");
  EXPECT_THAT(metBelowTop(), ElementsAre("a"));
  EXPECT_THAT(fileNames(), ElementsAre("x"));
}

TEST_F(DirectoryWalkTest, HalvesOfAPairAreReachedThroughTheIncludeAboveThem) {
  empty("C:\\top\\one\\x");
  empty("C:\\top\\two\\y");
  empty("C:\\elsewhere\\z");
  setDirectory(2, "C:\\top\\one", "1");
  setDirectory(3, "C:\\top\\two", "2");
  setDirectory(4, "C:\\elsewhere", "1");
  EXPECT_THAT(filesBelowTop(), ElementsAre("x", "y"));
}

// Only what a walk comes upon is tested.
TEST_F(DirectoryWalkTest, IncludeInsideAnExcludedDirectoryIsWalked) {
  empty("C:\\a\\b\\c\\x");
  exclude("C:\\a\\b", false);
  include("C:\\a");
  include("C:\\a\\b");
  basBuildDirectoryList();
  EXPECT_THAT(directoryNames(), ElementsAre("C:\\a", "C:\\a\\b", "C:\\a\\b\\c"));
  EXPECT_THAT(filePaths(), ElementsAre("C:\\a\\b\\c\\x"));
}

// Such files compare as duplicates of themselves, whichever include comes first.
TEST_F(DirectoryWalkTest, FilesOfOverlappingIncludesAreAddedTwice) {
  empty("C:\\a\\b\\x");
  include("C:\\a");
  include("C:\\a\\b");
  basBuildDirectoryList();
  EXPECT_THAT(filePaths(), ElementsAre("C:\\a\\b\\x", "C:\\a\\b\\x"));
  EXPECT_EQ(DirCount, 2);
  EXPECT_EQ(FileTable.FileDirNum[1], FileTable.FileDirNum[2]);
}

TEST_F(DirectoryWalkTest, FilesOfAnEarlierInnerIncludeAreAddedTwice) {
  empty("C:\\a\\b\\x");
  include("C:\\a\\b");
  include("C:\\a");
  basBuildDirectoryList();
  EXPECT_THAT(directoryNames(), ElementsAre("C:\\a\\b", "C:\\a"));
  EXPECT_THAT(filePaths(), ElementsAre("C:\\a\\b\\x", "C:\\a\\b\\x"));
}

TEST_F(DirectoryWalkTest, IncludesLookAtTheirOwnExtensions) {
  for (const char* file : {"C:\\a\\1.mp3", "C:\\a\\2.txt", "C:\\b\\3.mp3", "C:\\b\\4.TXT"})
    empty(file);
  include("C:\\a", "*.mp3");
  include("C:\\b", "*.txt");
  basBuildDirectoryList();
  EXPECT_THAT(fileNames(), ElementsAre("1.mp3", "4.TXT"));
}

// The box is all that tells of it: the walk goes on with the extensions of the include before.
TEST_F(DirectoryWalkTest, IncludeWithANumberBeyondTheFileTypesTakesThoseOfTheOneBefore) {
  for (const char* file : {"C:\\a\\1.mp3", "C:\\b\\2.mp3", "C:\\b\\3.txt"})
    empty(file);
  include("C:\\a", "*.mp3");
  include("C:\\b", "51");
  basBuildDirectoryList();
  EXPECT_THAT(fileNames(), ElementsAre("1.mp3", "2.mp3"));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basBuildExtensionList", "Subscript out of range(9)")));
}

TEST_F(DirectoryWalkTest, LastPointOfANameBeginsItsExtension) {
  for (const char* name : {"a.tar.gz", "gz", "b.gz.", ".gz"})
    empty("C:\\a\\" + std::string(name));
  ScanAttributes = 49 + attributeHidden;
  include("C:\\a", "*.gz");
  basBuildDirectoryList();
  EXPECT_THAT(fileNames(), ElementsAre("a.tar.gz", ".gz"));
}

TEST_F(DirectoryWalkTest, HiddenAndSystemEntriesNeedTheirBitInTheMask) {
  const std::vector<std::pair<std::string, int>> entries = {
      {"plain", 0}, {"hidden", attributeHidden}, {"system", attributeSystem}};
  for (const auto& [name, attributes] : entries) {
    empty("C:\\top\\file " + name);
    empty("C:\\top\\" + name + "\\in " + name);
    disk.setAttributes("C:\\top\\file " + name, attributes);
    disk.setAttributes("C:\\top\\" + name, attributes);
  }
  disk.setAttributes("C:\\top\\file plain", attributeReadOnly);
  EXPECT_THAT(filesBelowTop(), ElementsAre("file plain", "in plain"));

  FileCount = 0;
  ScanAttributes = 49 + attributeHidden;
  basBuildDirectoryList();
  EXPECT_THAT(fileNames(), ElementsAre("file plain", "file hidden", "in plain", "in hidden"));

  FileCount = 0;
  ScanAttributes = 49 + attributeSystem;
  basBuildDirectoryList();
  EXPECT_THAT(fileNames(), ElementsAre("file plain", "file system", "in plain", "in system"));
}

// What an exclude leaves of a tree. An exclude with its subdirectories is a mere prefix.
struct ExcludeCase {
  std::string path;
  bool recurse;
  Texts left;
};

class ExcludeTest : public DirectoryWalkTest, public testing::WithParamInterface<ExcludeCase> {};

TEST_P(ExcludeTest, KeepsTheWalkOut) {
  disk.directory("C:\\top\\foo\\below");
  disk.directory("C:\\top\\foobar");
  disk.directory("C:\\top\\other\\foo");
  exclude(GetParam().path, GetParam().recurse);
  EXPECT_EQ(metBelowTop(), GetParam().left);
}

INSTANTIATE_TEST_SUITE_P(
    Excludes, ExcludeTest,
    testing::Values(
        ExcludeCase{"C:\\top\\foo", true, {"other", "other\\foo"}},
        ExcludeCase{"C:\\top\\foo", false, {"foobar", "other", "other\\foo"}},
        ExcludeCase{"C:\\top\\foo\\", true, {"foo", "foobar", "other", "other\\foo"}},
        ExcludeCase{
            "C:\\top\\foo\\", false, {"foo", "foobar", "other", "foo\\below", "other\\foo"}},
        ExcludeCase{"C:\\top\\foo\\below", false, {"foo", "foobar", "other", "other\\foo"}},
        ExcludeCase{"c:\\TOP\\Foo", true, {"other", "other\\foo"}},
        ExcludeCase{"c:\\TOP\\Foo", false, {"foobar", "other", "other\\foo"}},
        ExcludeCase{"C:\\top\\f", true, {"other", "other\\foo"}},
        ExcludeCase{"C:\\top\\f", false, {"foo", "foobar", "other", "foo\\below", "other\\foo"}},
        ExcludeCase{"C:\\top", true, {}},
        ExcludeCase{
            "C:\\top\\foobarbaz", true, {"foo", "foobar", "other", "foo\\below", "other\\foo"}}));

TEST_F(DirectoryWalkTest, AnyOfSeveralExcludesKeepsTheWalkOut) {
  for (const char* name : {"a", "b", "c"})
    disk.directory("C:\\top\\" + std::string(name));
  exclude("C:\\top\\a", true);
  exclude("C:\\top\\b", false);
  EXPECT_THAT(metBelowTop(), ElementsAre("c"));
}

TEST_F(DirectoryWalkTest, ExcludesDoNotConcernFiles) {
  ProfileSettings.ProcessZip = true;
  empty("C:\\top\\foo.txt");
  empty("C:\\top\\foo.zip");
  exclude("C:\\top\\foo", true);
  EXPECT_THAT(metBelowTop(), ElementsAre("foo.zip"));
  EXPECT_THAT(fileNames(), ElementsAre("foo.txt"));
}

TEST_F(DirectoryWalkTest, TempDirIsPassedOverWhateverItsLetterCase) {
  empty("C:\\top\\Temp\\TMP1");
  empty("C:\\top\\temporary\\x");
  TempDir = "c:\\TOP\\tEMP";
  EXPECT_THAT(metBelowTop(), ElementsAre("temporary"));
}

// The two names would have to be whole paths, which nothing found in a walk ever is.
TEST_F(DirectoryWalkTest, SystemDirectoriesOfADriveAreWalked) {
  empty("C:\\top\\RECYCLED\\x");
  empty("C:\\top\\System Volume Information\\y");
  EXPECT_THAT(filesBelowTop(), ElementsAre("x", "y"));
}

TEST_F(DirectoryWalkTest, RelativeIncludeNamedRecycledIsWalked) {
  empty("recycled\\x");
  include("recycled");
  basBuildDirectoryList();
  EXPECT_THAT(filePaths(), ElementsAre("recycled\\x"));
}

TEST_F(DirectoryWalkTest, ZipFileIsEnteredWhateverItsSizeAndTheExtensions) {
  ProfileSettings.ProcessZip = true;
  disk.file("C:\\a\\b.Zip", "far too large");
  disk.file("C:\\a\\zip", "");
  disk.directory("C:\\a\\c.zip");
  MaxSizeBytes = Int32(1);
  include("C:\\a", "*.txt");
  basBuildDirectoryList();
  EXPECT_THAT(directoryNames(), ElementsAre("C:\\a", "C:\\a\\b.Zip", "C:\\a\\c.zip"));
  EXPECT_EQ(DirTable[2].kind, dirKind::zipFile);
  EXPECT_EQ(DirTable[2].parent, 1);
  EXPECT_EQ(DirTable[3].kind, dirKind::directory);
  EXPECT_EQ(FileCount, 0);
  EXPECT_EQ(disk.count(DiskAction::entrySize, "C:\\a\\b.Zip"), 0);
}

TEST_F(DirectoryWalkTest, ZipFileIsAnOrdinaryFileUnlessArchivesAreProcessed) {
  disk.file("C:\\a\\small.zip", "1");
  disk.file("C:\\a\\large.zip", "12345");
  disk.file("C:\\b\\small.zip", "1");
  MaxSizeBytes = Int32(4);
  include("C:\\a", "*.zip");
  include("C:\\b", "*.txt");
  basBuildDirectoryList();
  EXPECT_THAT(filePaths(), ElementsAre("C:\\a\\small.zip"));
  EXPECT_EQ(DirCount, 2);
}

TEST_F(DirectoryWalkTest, SizeLimitsAreInclusive) {
  for (const std::size_t size : {9U, 10U, 11U, 19U, 20U, 21U})
    disk.file("C:\\top\\" + std::to_string(size), std::string(size, 'x'));
  MinSizeBytes = Int32(10);
  MaxSizeBytes = Int32(20);
  EXPECT_THAT(filesBelowTop(), ElementsAre("10", "11", "19", "20"));
}

TEST_F(DirectoryWalkTest, FileTooLargeForASizeIsPassedOverWithoutAWord) {
  disk.emptyFileOfLength("C:\\top\\largest", 2147483647);
  disk.emptyFileOfLength("C:\\top\\too large", 2147483648);
  EXPECT_THAT(filesBelowTop(), ElementsAre("largest"));
  EXPECT_THAT(logLines(), IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirectoryWalkTest, OddNamesAreKeptAsTheyAre) {
  const Texts names = {"\xEF\x80\xA2quoted\xEF\x80\xA2.txt",
                       "back\xEF\x81\x9Cslash.txt",
                       "not utf-8 \xFF\xC3.txt",
                       "a,b.txt",
                       " .txt",
                       "ÄÖ.txt"};
  for (const std::string& name : names)
    empty("C:\\top\\d\xFE\\" + name);
  EXPECT_EQ(filesBelowTop(), names);
  EXPECT_EQ(directoryNames().back(), "C:\\top\\d\xFE");
}

TEST_F(DirectoryWalkTest, WithoutDetailsYieldsAtEachRowThatIsAMultipleOf50) {
  numberedDirectories("C:\\a\\d", 120);  // Rows 2 to 121.
  include("C:\\a");
  basBuildDirectoryList();
  EXPECT_EQ(eventLoop.yields, 1 + 2);
  EXPECT_EQ(statusWindow.refreshes, 2);
  EXPECT_EQ(statusWindow.caption, "");
  EXPECT_FALSE(statusWindow.labels.contains("labElapsedTime"));
}

TEST_F(DirectoryWalkTest, MinimisedWindowShowsThePercentageInItsCaption) {
  numberedDirectories("C:\\a\\d", 60);  // 48 files are there when row 50 is entered.
  include("C:\\a");
  StatusFileNumber = 12;
  statusWindow.isMinimised = true;
  basBuildDirectoryList();
  EXPECT_EQ(statusWindow.caption, "Scanning...25%");
  EXPECT_EQ(statusWindow.refreshes, 0);
}

TEST_F(DirectoryWalkTest, WithDetailsYieldsAtEachMultipleOf500Files) {
  for (int i = 0; i < 1002; ++i)
    empty("C:\\a\\" + std::to_string(i));
  include("C:\\a");
  ScanDetailsShown = true;
  ScanStartTime = {clock.time.seconds - 65};
  basBuildDirectoryList();
  EXPECT_EQ(eventLoop.yields, 1 + 3);  // With 0, 500 and 1000 files.
  EXPECT_EQ(statusWindow.labels["labElapsedTime"], "1m 5s");
}

// The one time that runs while the list is built is kept up, so that it is right at once when the
// window is restored; the other figures wait for their next update.
TEST_F(DirectoryWalkTest, WithDetailsTellsTheElapsedTimeEvenWhileMinimised) {
  empty("C:\\a\\x");
  include("C:\\a");
  ScanDetailsShown = true;
  statusWindow.isMinimised = true;
  ScanStartTime = {clock.time.seconds - 65};
  basBuildDirectoryList();
  EXPECT_EQ(statusWindow.labels["labElapsedTime"], "1m 5s");
}

TEST_F(DirectoryWalkTest, WithDetailsYieldsAgainWhileTheCountStands) {
  for (const char* name : {"a", "b", "c"})
    disk.directory("C:\\top\\" + std::string(name));
  ScanDetailsShown = true;
  metBelowTop();
  EXPECT_EQ(eventLoop.yields, 1 + 3);
}

TEST_F(DirectoryWalkTest, AbortIsSeenAtARowThatIsAMultipleOf50) {
  numberedDirectories("C:\\a\\d", 120);
  include("C:\\a");
  abortAtYield(2);  // On entering d49, which has row 50.
  basBuildDirectoryList();
  EXPECT_EQ(filePaths().back(), "C:\\a\\d48\\f");
  EXPECT_EQ(DirCount, 121);
  EXPECT_EQ(disk.count(DiskAction::list, "C:\\a\\d49"), 1);
  EXPECT_EQ(disk.count(DiskAction::list, "C:\\a\\d50"), 0);
}

TEST_F(DirectoryWalkTest, AbortBetweenEntriesTakesTheEntryInHandAndNoMore) {
  for (int i = 0; i < 600; ++i)
    empty("C:\\a\\" + std::to_string(i));
  include("C:\\a");
  ScanDetailsShown = true;
  abortAtYield(3);  // With 500 files.
  basBuildDirectoryList();
  EXPECT_EQ(FileCount, 501);
}

// The first pending directory is opened before the abort is looked at again.
TEST_F(DirectoryWalkTest, AbortBetweenEntriesStillOpensTheFirstPendingDirectory) {
  for (const char* name : {"a", "b", "c"})
    empty("C:\\top\\" + std::string(name) + "\\x");
  ScanDetailsShown = true;
  abortAtYield(3);  // At b.
  EXPECT_THAT(metBelowTop(), ElementsAre("a", "b"));
  EXPECT_EQ(disk.count(DiskAction::list, "C:\\top\\a"), 1);
  EXPECT_EQ(disk.count(DiskAction::list, "C:\\top\\b"), 0);
  EXPECT_EQ(FileCount, 0);
}

TEST_F(DirectoryWalkTest, PauseStopsTheWalkAsWell) {
  empty("C:\\a\\x");
  include("C:\\a");
  eventLoop.onYield = [] { RunState = runState::pauseRequested; };
  basBuildDirectoryList();
  EXPECT_EQ(FileCount, 0);
}

TEST_F(DirectoryWalkTest, RemainingIncludesGetTheirRowAfterAnAbort) {
  for (const char* path : {"C:\\a\\x", "C:\\a\\sub\\x", "C:\\b\\x", "C:\\b\\sub\\x"})
    empty(path);
  include("C:\\a");
  include("C:\\b");
  include("C:\\missing");
  abortAtYield(1);
  basBuildDirectoryList();
  EXPECT_THAT(directoryNames(), ElementsAre("C:\\a", "C:\\b", "C:\\missing"));
  EXPECT_EQ(DirTable.upperBound(), 3);
  EXPECT_EQ(FileCount, 0);
  EXPECT_THAT(logLines(), ElementsAre("Error reading directory C:\\missing"));
}

TEST_F(DirectoryWalkTest, DirectoryThatCannotBeListedIsLogged) {
  empty("C:\\top\\locked\\x");
  empty("C:\\top\\open\\y");
  disk.failOn(DiskAction::list, "C:\\top\\locked", FailureNumber::permissionDenied);
  EXPECT_THAT(filesBelowTop(), ElementsAre("y"));
  EXPECT_THAT(directoryNames(), ElementsAre("C:\\top", "C:\\top\\locked", "C:\\top\\open"));
  EXPECT_THAT(logLines(), ElementsAre("Error reading directory C:\\top\\locked"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// Some disks open a directory that they then can't read.
TEST_F(DirectoryWalkTest, DirectoryWhoseFirstEntryCannotBeReadIsLogged) {
  empty("C:\\top\\broken\\x");
  empty("C:\\top\\sound\\y");
  disk.failOn(DiskAction::nextEntry, "C:\\top\\broken", FailureNumber::deviceError);
  EXPECT_THAT(filesBelowTop(), ElementsAre("y"));
  EXPECT_THAT(logLines(), ElementsAre("Error reading directory C:\\top\\broken"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirectoryWalkTest, MissingIncludeIsLoggedAndKeepsItsRow) {
  empty("C:\\b\\x");
  include("C:\\missing");
  include("C:\\b");
  basBuildDirectoryList();
  EXPECT_THAT(directoryNames(), ElementsAre("C:\\missing", "C:\\b"));
  EXPECT_THAT(filePaths(), ElementsAre("C:\\b\\x"));
  EXPECT_THAT(logLines(), ElementsAre("Error reading directory C:\\missing"));
}

TEST_F(DirectoryWalkTest, ListingThatBreaksInTheMiddleLosesItsSubdirectories) {
  empty("C:\\top\\bad\\taken");
  empty("C:\\top\\bad\\sub\\lost");
  empty("C:\\top\\bad\\never read");
  empty("C:\\top\\good\\x");
  // After ".", "..", "taken" and "sub".
  disk.failOn(DiskAction::nextEntry, "C:\\top\\bad", FailureNumber::deviceError, 5);
  EXPECT_THAT(filesBelowTop(), ElementsAre("taken", "x"));
  EXPECT_EQ(disk.count(DiskAction::list, "C:\\top\\bad\\sub"), 0);
  EXPECT_THAT(directoryNames(),
              ElementsAre("C:\\top", "C:\\top\\bad", "C:\\top\\good", "C:\\top\\bad\\sub"));
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(walkFailedOnDevice));
}

TEST_F(DirectoryWalkTest, VanishedEntryIsLoggedAndPassedOver) {
  for (const char* name : {"a", "gone", "z"})
    empty("C:\\top\\" + std::string(name));
  disk.failOn(DiskAction::entryAttributes, "C:\\top\\gone", FailureNumber::fileNotFound);
  disk.failOn(DiskAction::entrySize, "C:\\top\\gone", FailureNumber::fileNotFound);
  EXPECT_THAT(filesBelowTop(), ElementsAre("a", "z"));
  EXPECT_THAT(logLines(), ElementsAre("Error reading directory entry C:\\top\\gone"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(DirectoryWalkTest, EntryWithoutAttributesIsTakenForAFile) {
  empty("C:\\top\\directory\\x");
  empty("C:\\top\\file");
  disk.failOn(DiskAction::entryAttributes, "C:\\top\\directory", FailureNumber::permissionDenied);
  disk.failOn(DiskAction::entryAttributes, "C:\\top\\file", FailureNumber::permissionDenied);
  EXPECT_THAT(filesBelowTop(), ElementsAre("directory", "file"));
  EXPECT_EQ(logLines().size(), 2U);
}

TEST_F(DirectoryWalkTest, FileWhoseSizeCannotBeReadIsPassedOverWithoutAWord) {
  empty("C:\\top\\a");
  empty("C:\\top\\b");
  disk.failOn(DiskAction::entrySize, "C:\\top\\a", FailureNumber::permissionDenied);
  EXPECT_THAT(filesBelowTop(), ElementsAre("b"));
  EXPECT_THAT(logLines(), IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// Only the size may fail without a word.
TEST_F(DirectoryWalkTest, DateThatCannotBeReadAbandonsTheDirectory) {
  for (const char* path : {"bad\\a", "bad\\sub\\x", "bad\\b", "bad\\c", "good\\y"})
    empty("C:\\top\\" + std::string(path));
  disk.failOn(DiskAction::entryDate, "C:\\top\\bad\\b", FailureNumber::deviceError);
  EXPECT_THAT(filesBelowTop(), ElementsAre("a", "y"));
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(walkFailedOnDevice));
}

// The slots that have a number are all there are: where none is empty, the search for the list's
// end passes the table.
TEST_F(DirectoryWalkTest, FullProfileIsWalkedUpToTheFailureAtItsEnd) {
  for (int slot = 1; slot <= lastDirSlot; ++slot) {
    empty("C:\\" + std::to_string(slot) + "\\f");
    include("C:\\" + std::to_string(slot));
  }
  basBuildDirectoryList();
  EXPECT_EQ(FileCount, lastDirSlot);
  EXPECT_EQ(DirTable.upperBound(), 1024);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basBuildDirectoryList", "Subscript out of range(9)")));
}

TEST_F(DirectoryWalkTest, FullProfileAbandonsADirectoryAtASubdirectoryThatNoExcludeNames) {
  empty("C:\\a\\before");
  disk.directory("C:\\a\\excluded");
  empty("C:\\a\\between");
  empty("C:\\a\\sub\\x");
  empty("C:\\a\\after");
  include("C:\\a");
  for (int slot = 2; slot <= lastDirSlot; ++slot)
    exclude("C:\\a\\excluded", true);
  basBuildDirectoryList();
  EXPECT_THAT(fileNames(), ElementsAre("before", "between"));
  EXPECT_EQ(dialogBoxes.messages.front(), walkFailedOnSubscript);
}

TEST_F(DirectoryWalkTest, OneFreeSlotIsEnoughToEndTheProfile) {
  empty("C:\\a\\sub\\x");
  include("C:\\a");
  for (int slot = 2; slot < lastDirSlot; ++slot)
    exclude("C:\\b", true);
  basBuildDirectoryList();
  EXPECT_THAT(fileNames(), ElementsAre("x"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

// What the side by side view of two directories asks for.
class IdleWalkTest : public DirectoryWalkTest {
 protected:
  IdleWalkTest() {
    RunState = runState::idle;
    basBuildExtensionList("*.*", ExtensionList);
  }
};

TEST_F(IdleWalkTest, RowsAreTemporaryAndFilesAlreadyThereAreNotAdded) {
  buildCatalogue({{"known", "C:\\a"}});
  empty("C:\\a\\KNOWN");
  empty("C:\\a\\new");
  empty("C:\\a\\sub\\x");
  Int32 row = noParent;
  basScanThisDirectory("C:\\a", row);
  EXPECT_THAT(fileNames(), ElementsAre("known", "new", "x"));
  EXPECT_EQ(FileTable.FileStatus[statusTemporary][1], 0);
  EXPECT_EQ(FileTable.FileStatus[statusTemporary][2], 1);
  EXPECT_FALSE(DirTable[1].temporary);
  EXPECT_TRUE(DirTable[2].temporary);
}

TEST_F(IdleWalkTest, RowIsOverwrittenWithTheLastOneEntered) {
  disk.directory("C:\\a\\b");
  disk.directory("C:\\a\\c\\d");
  Int32 row = noParent;
  basScanThisDirectory("C:\\a", row);
  EXPECT_EQ(row, basFindDirInList("C:\\a\\c\\d"));
}

TEST_F(IdleWalkTest, DirectoryWithARowGetsNoOther) {
  buildCatalogue({{"known", "C:\\other"}});
  empty("C:\\a\\x");
  Int32 row = 1;
  basScanThisDirectory("C:\\a", row);
  EXPECT_EQ(DirCount, 1);
  EXPECT_EQ(FileTable.FileDirNum[2], 1);
}

}  // namespace
}  // namespace quernstoke
