// Runs of the program, from its start to the end of a scan, in which one call to the disk or to the
// archive library fails, each of those calls in its turn; of the reads of settings, a byte each,
// only some, and of a full disk only the calls that take room.

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <map>
#include <new>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "core/scanDriver.h"
#include "core/scanState.h"
#include "core/startUpState.h"
#include "mainui/profileSelection.h"
#include "settings/profileStore.h"
#include "settings/settings.h"
#include "testing/standIns.h"

namespace quernstoke {
namespace {

const std::string logPath = "C:\\Quernstoke\\quernstoke.log";
const std::string tempPath = "C:\\Quernstoke\\temp\\";
const std::string filesPath = "C:\\Quernstoke\\Profiles\\Tree.files";

enum class Fault { usual, diskFull, outOfMemory };

// A paused scan is broken on its way to the pause, a continued one after it.
enum class Scan { whole, paused, continued };

struct Case {
  Scan scan;
  Fault fault;
};

std::string nameOf(const Case& given) {
  constexpr const char* faults[] = {"Usual", "DiskFull", "OutOfMemory"};
  constexpr const char* scans[] = {"Whole", "Paused", "Continued"};
  return std::string(scans[static_cast<int>(given.scan)]) + faults[static_cast<int>(given.fault)];
}
void PrintTo(const Case& given, std::ostream* out) {
  *out << nameOf(given);
}

FailureNumber usualFailure(DiskAction action) {
  switch (action) {
    case DiskAction::list:
    case DiskAction::canEnter:
      return FailureNumber::pathNotFound;
    case DiskAction::entryAttributes:
    case DiskAction::entrySize:
    case DiskAction::entryDate:
    case DiskAction::nameOnDisk:
      return FailureNumber::fileNotFound;
    case DiskAction::makeDirectory:
    case DiskAction::removeDirectory:
    case DiskAction::copy:
    case DiskAction::rename:
      return FailureNumber::pathFileAccess;
    case DiskAction::clearAttributes:
    case DiskAction::look:
    case DiskAction::remove:
    case DiskAction::open:
      return FailureNumber::permissionDenied;
    case DiskAction::attributes:
    case DiskAction::length:
    case DiskAction::modified:
    case DiskAction::sameFile:
    case DiskAction::nextEntry:
    case DiskAction::read:
    case DiskAction::write:
    case DiskAction::seek:
    case DiskAction::openLength:
    case DiskAction::atEnd:
    case DiskAction::close:
      break;
  }
  return FailureNumber::deviceError;
}

bool takesRoom(const DiskCall& call) {
  return call.action == DiskAction::write || call.action == DiskAction::makeDirectory ||
         call.action == DiskAction::close ||
         (call.action == DiskAction::open &&
          (call.mode == OpenMode::output || call.mode == OpenMode::binary));
}

// Settings are read byte by byte; some of these reads will do.
bool isOneOfMany(const DiskCall& call) {
  constexpr int oneIn = 61;
  return call.action == DiskAction::read && call.position % oneIn != 0 &&
         (call.path.ends_with(".profile") || call.path.ends_with(".settings"));
}

std::string kindOf(const std::string& path) {
  if (path.ends_with(".profile") || path.ends_with(".settings")) return "settings";
  if (path.ends_with(".files") || path.ends_with(".dir")) return "snapshot";
  if (path.starts_with(tempPath) || path.starts_with("C:\\Quernstoke\\Temp")) return "temp";
  return path.starts_with("C:\\Data\\") ? "data" : path;
}

// Breaks the n-th call that it is told of; with a full disk the n-th of those that take room.
class Saboteur {
 public:
  Saboteur(Fault fault, int nth) : fault_(fault), left_(nth) {}

  void seeDisk(const DiskCall& call) {
    if (isOneOfMany(call) || (fault_ == Fault::diskFull && !takesRoom(call))) return;
    if (!isDue(describe(call))) return;
    brokenPath_ = call.path;
    kind_ = describe({call.action, kindOf(call.path)});
    if (fault_ == Fault::outOfMemory) throw std::bad_alloc();
    fail(fault_ == Fault::diskFull ? FailureNumber::diskFull : usualFailure(call.action));
  }
  int seeArchives(const ScriptedArchives::Call& call) {
    if (!isDue("archive library on " + call.options.lpszZipFN +
               (call.included.empty() ? "" : ", entry " + call.included.front())))
      return archiveOk;
    kind_ = call.included.empty() ? "listing of an archive" : "extraction";
    if (fault_ == Fault::outOfMemory) throw std::bad_alloc();
    return fault_ == Fault::diskFull ? archiveDiskFull : archiveDamaged;
  }

  bool hasBroken() const { return left_ <= 0; }
  const std::string& broken() const { return broken_; }
  const std::string& brokenPath() const { return brokenPath_; }  // Empty: not the disk's.
  const std::string& kindOfBroken() const { return kind_; }

 private:
  bool isDue(const std::string& call) {
    if (--left_ != 0) return false;
    broken_ = call;
    return true;
  }

  Fault fault_;
  int left_;
  std::string broken_;
  std::string brokenPath_;
  std::string kind_;
};

Saboteur nothingBreaks(Fault::usual, std::numeric_limits<int>::max());

using Files = std::map<std::string, std::string>;
using Directories = std::set<std::string>;
using Words = std::multiset<std::string>;

struct Tree {
  Files files;
  Directories directories;
};

const std::string zipPath = "C:\\Data\\z.zip";
const std::string equal20 = "aaaabbbbccccddddeeee";
const std::string near20 = "aaaabbbbccccddddeeef";

// A tree that takes a scan through the pool, local copies and an archive, and files that it has
// nothing to do with, one of which has the name of an archive's entry.
const Tree userTree = {
    {
        {"C:\\Data\\a\\same", equal20},
        {"C:\\Data\\a\\near", near20},
        {"C:\\Data\\b\\same", equal20},
        {"C:\\Data\\c\\same", equal20},
        {"C:\\Data\\c\\copy of near", near20},
        {"C:\\Data\\a\\pair", "12345678"},
        {"C:\\Data\\b\\pair", "12345678"},
        {"C:\\Data\\b\\lone", "1"},
        {"C:\\Data\\a\\between", "in between 1"},
        {"C:\\Data\\c\\between", "in between 2"},
        {zipPath, "an archive"},
        {"C:\\Other\\same", equal20},
        {tempPath + "same", "a person's own"},
        {tempPath + "notes.txt", "as well"},
    },
    {"C:\\Data", "C:\\Data\\a", "C:\\Data\\b", "C:\\Data\\c", "C:\\Data\\empty", "C:\\Other",
     tempPath + "album", tempPath + "album\\near"},
};

bool isGivenWord(const std::string& message) {
  const auto is = [&](std::string_view start, std::string_view end) {
    return message.starts_with(start) && message.ends_with(end);
  };
  return message == "Error loading old files list. List ignored" ||
         is("Error loading results from file '", ".dir'. Process aborted") ||
         is("Config setting ", " is not numeric, zero used") ||
         is("Invalid config setting ", " data ignored") ||
         is("Procedure error in 'basConfigRead'.  Reason: ", ").") ||
         is("Procedure error in 'basLoadProfile'.  Reason: ", ").");
}

// The program over a disk of these files.
class SabotagedScan : private StandIns {
 public:
  explicit SabotagedScan(const Tree& tree) {
    disk.erase("C:\\Quernstoke\\Temp");  // That of the settings is written otherwise.
    for (const std::string& path : tree.directories)
      disk.directory(path);
    for (const auto& [path, content] : tree.files)
      disk.file(path, content);
    archiveLibrary.contents[zipPath] = {{"in/same", equal20}, {"near", near20}};
  }

  // Makes the profile and, for a scan that is to be continued, pauses one. What the disk holds then
  // is where each scan begins.
  Tree prepare(Scan scan) {
    startProgram();
    ProfileName = "Tree";
    basSaveProfile(std::string_view("NEWPROFILE"));
    ProfileSettings.MatchingCriteria = scan == Scan::whole ? "NC" : "C";
    ProfileSettings.MinimumSize = 0;
    ProfileSettings.ProcessZip = true;
    ProfileSettings.SlowNetwork = true;
    GlobalSettings.FileBufferSize = 4;
    GlobalSettings.NumberOfFileBuffers = 2;
    ProfileDirList[1] = {"C:\\Data", "I", "*.*", true};
    basSaveProfile(std::string_view(""));
    if (scan == Scan::continued) run(Scan::paused, nothingBreaks);
    return {disk.allFiles(), disk.allDirectories()};
  }

  // Starts the program, selects the profile and, if that could be had, scans.
  void run(Scan scan, Saboteur& saboteur) {
    disk.before = [&](const DiskCall& call) { saboteur.seeDisk(call); };
    archiveLibrary.before = [&](const ScriptedArchives::Call& call) {
      return saboteur.seeArchives(call);
    };
    if (scan == Scan::paused) eventLoop.onYield = [] { pauseAfterTheFirstMatch(); };
    if (restart()) {
      StartMode = scan == Scan::continued ? startMode::continueScan : startMode::newScan;
      basStartScan();
    }
    eventLoop.onYield = nullptr;
    disk.before = nullptr;
    archiveLibrary.before = nullptr;
  }
  void breakReadOfFilesSnapshot() {
    disk.failOn(DiskAction::read, filesPath, FailureNumber::deviceError);
  }
  std::string filesSnapshot() const { return disk.content(filesPath); }
  // What the program has said since it started, and in the log of the scan.
  Words told() const {
    Words words(dialogBoxes.messages.begin(), dialogBoxes.messages.end());
    if (!disk.exists(logPath)) return words;
    std::istringstream lines(disk.content(logPath));
    for (std::string line; std::getline(lines, line);)
      words.insert(line);
    return words;
  }
  // A profile loses the setting whose record could not be written, and may ask for less then.
  bool canGoOnByContent() const {
    return ProfileSettings.RunMode == runState::paused && ProfileSettings.MatchingCriteria == "C" &&
           ProfileSettings.ContentMatchingPercent == 100;
  }

  // That a scan in which nothing broke has gone everywhere.
  void expectAFullScan(Scan scan) const {
    EXPECT_EQ(ProfileSettings.RunMode,
              scan == Scan::paused ? runState::paused : runState::finished);
    EXPECT_GE(CurrentMatchNum, 0);
    if (scan == Scan::paused) return;

    std::map<std::string, int> numbered;
    for (Int32 file = 1; file <= FileCount; ++file)
      if (FileTable.FileStatus[statusMatch][file] != noMatch) ++numbered[contentOf(file)];
    EXPECT_GE(numbered[equal20], 2);
    EXPECT_GT(LocalReads, 0);
    EXPECT_GT(BufferReads, 0);
    EXPECT_FALSE(archiveLibrary.calls.back().included.empty());
  }
  void expectTrueMatches() const {
    Files contentOfNumber;
    for (Int32 file = 1; file <= FileCount; ++file) {
      const Int32 number = FileTable.FileStatus[statusMatch][file];
      if (number == noMatch || !hasDirectory(file)) continue;
      const auto known = contentOfNumber.try_emplace(std::to_string(number.raw()), contentOf(file));
      EXPECT_EQ(known.first->second, contentOf(file)) << FileTable.FileName[file];
    }
  }
  void expectUserFilesAsTheyWere() const {
    Files files = disk.allFiles();
    for (const auto& [path, content] : userTree.files) {
      EXPECT_EQ(files[path], content) << path;
      files.erase(path);
    }
    for (const auto& [path, content] : files)
      EXPECT_THAT(path, testing::StartsWith("C:\\Quernstoke\\"));

    Directories directories = disk.allDirectories();
    for (const std::string& path : userTree.directories)
      EXPECT_EQ(directories.erase(path), 1U) << path;
    EXPECT_THAT(directories,
                testing::IsSubsetOf(Directories{"C:\\Quernstoke", "C:\\Quernstoke\\Profiles",
                                                tempPath.substr(0, tempPath.size() - 1)}));
  }
  // What fails on the program's own files leaves them open, which the end of the program mends.
  void expectNoForeignFileOpen(const std::string& brokenPath) const {
    for (const std::string& path : disk.openPaths()) {
      EXPECT_TRUE(path == brokenPath || path == logPath) << path;
      EXPECT_TRUE(isOwn(path)) << path;
    }
  }
  // Ends the program and starts it again. What was torn is read, or refused in words.
  void expectAUsableProgram() {
    const bool hasProfile = disk.exists("C:\\Quernstoke\\Profiles\\Tree.profile");
    const bool selected = restart();
    EXPECT_TRUE(selected || !hasProfile || !dialogBoxes.messages.empty());
    for (const std::string& message : dialogBoxes.messages)
      EXPECT_TRUE(isGivenWord(message)) << message;
    expectTrueMatches();
  }

 private:
  static bool isOwn(const std::string& path) {
    return path.starts_with("C:\\Quernstoke\\") &&
           (!path.starts_with(tempPath) || path.starts_with(tempPath + "TMP"));
  }

  void startProgram() {
    resetToStartUpState();
    AppPath = "C:\\Quernstoke";
    ExeName = "quernstoke";
    dialogBoxes.messages.clear();
    windows.clear();
    Main();
  }
  // Whether there is a window, and a profile that could be selected.
  bool restart() {
    startProgram();
    if (std::ranges::find(windows, "frmMain show") == windows.end()) return false;
    ProfileName = "Tree";
    bool ok = false;
    basProcessProfileSelection(ok);
    return ok;
  }
  static void pauseAfterTheFirstMatch() {
    if (RunState == runState::comparing && CurrentMatchNum >= 0)
      RunState = runState::pauseRequested;
  }

  // False after a snapshot of the directories that could not be written, or only in part.
  static bool hasDirectory(Int32 file) {
    const Int32 row = FileTable.FileDirNum[file];
    return row <= DirCount && DirTable[row].kind != dirKind::none;
  }
  std::string contentOf(Int32 file) const {
    const DirRow& directory = DirTable[FileTable.FileDirNum[file]];
    const std::string name(FileTable.FileName[file]);
    if (directory.kind != dirKind::zipFolder) return disk.content(directory.name + "\\" + name);
    const std::string entry = directory.name.empty() ? name : directory.name + "/" + name;
    for (const ScriptedEntry& each : archiveLibrary.contents.at(DirTable[directory.parent].name))
      if (each.name == entry) return each.content;
    return "no such entry";
  }
};

Words wordsOfAnUnbrokenScan(Scan kind, const Tree& prepared) {
  SabotagedScan scan(prepared);
  scan.run(kind, nothingBreaks);
  return scan.told();
}

const std::vector<std::string> wordsOnTornSnapshots = {
    "Error loading old files list. List ignored",
    "Error loading results from file 'C:\\Quernstoke\\Profiles\\Tree.dir'. Process aborted",
};

// Calls whose failure may leave no word: what is only looked for, what is only passed over, and
// what of the person's files can't be opened, for which it is the comparison that fails.
const std::set<std::string> silentFailures = {
    "attributes of entry temp",
    "attributes of settings",
    "attributes of snapshot",
    "attributes of temp",
    "clear attributes of temp",
    "close data",
    "close temp",
    "list temp",
    "listing of an archive",
    "next entry of temp",
    "open data",
    "open temp",
    "size of entry data",
};

class FaultInjectionTest : public testing::TestWithParam<Case> {};

TEST_P(FaultInjectionTest, OneBrokenCallHarmsNothing) {
  const auto [kind, fault] = GetParam();
  const int fewestCalls = fault == Fault::diskFull ? 20 : 100;
  const Tree prepared = SabotagedScan(userTree).prepare(kind);
  const Words usual = wordsOfAnUnbrokenScan(kind, prepared);
  std::set<std::string> silent;
  Words refusals;
  int continuations = 0;
  for (int nth = 1;; ++nth) {
    Saboteur saboteur(fault, nth);
    SabotagedScan scan(prepared);
    scan.run(kind, saboteur);
    if (!saboteur.hasBroken()) {
      EXPECT_GT(nth, fewestCalls);
      scan.expectAFullScan(kind);
      break;
    }
    SCOPED_TRACE("call " + std::to_string(nth) + ": " + saboteur.broken());
    if (std::ranges::includes(usual, scan.told())) silent.insert(saboteur.kindOfBroken());
    scan.expectNoForeignFileOpen(saboteur.brokenPath());
    scan.expectTrueMatches();
    scan.expectAUsableProgram();
    refusals.merge(scan.told());
    scan.expectUserFilesAsTheyWere();
    if (kind == Scan::paused && scan.canGoOnByContent()) {
      ++continuations;
      scan.run(Scan::continued, nothingBreaks);
      scan.expectTrueMatches();
      scan.expectUserFilesAsTheyWere();
    }
  }
  EXPECT_THAT(refusals, testing::IsSupersetOf(wordsOnTornSnapshots));
  EXPECT_THAT(silent, testing::IsSubsetOf(silentFailures));
  if (kind == Scan::whole && fault == Fault::usual) {
    EXPECT_EQ(silent, silentFailures);
  }
  if (kind == Scan::paused) {
    EXPECT_GT(continuations, 0);
  }
}

// What the program does with it: it goes on with what it has.
TEST(BrokenSnapshotTest, SnapshotThatCouldNotBeReadIsLostToTheScanThatIsContinued) {
  SabotagedScan scan(SabotagedScan(userTree).prepare(Scan::continued));
  ASSERT_NE(scan.filesSnapshot(), "");
  scan.breakReadOfFilesSnapshot();
  scan.run(Scan::continued, nothingBreaks);
  EXPECT_EQ(
      scan.told().count("Procedure error in 'basLoadFilesList'.  Reason: Device I/O error(57)."),
      1U);
  EXPECT_EQ(scan.filesSnapshot(), "");
  scan.expectAUsableProgram();
  scan.expectUserFilesAsTheyWere();
}

INSTANTIATE_TEST_SUITE_P(
    Scans, FaultInjectionTest,
    testing::Values(Case{Scan::whole, Fault::usual}, Case{Scan::whole, Fault::diskFull},
                    Case{Scan::whole, Fault::outOfMemory}, Case{Scan::paused, Fault::usual},
                    Case{Scan::paused, Fault::diskFull}, Case{Scan::paused, Fault::outOfMemory},
                    Case{Scan::continued, Fault::usual}, Case{Scan::continued, Fault::diskFull},
                    Case{Scan::continued, Fault::outOfMemory}),
    [](const auto& given) { return nameOf(given.param); });

}  // namespace
}  // namespace quernstoke
