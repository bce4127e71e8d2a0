// Scans in which one call to the platform fails, for each call that they make.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <new>
#include <ostream>
#include <string>

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
      return FailureNumber::fileNotFound;
    case DiskAction::makeDirectory:
    case DiskAction::removeDirectory:
    case DiskAction::copy:
    case DiskAction::rename:
      return FailureNumber::pathFileAccess;
    case DiskAction::clearAttributes:
    case DiskAction::remove:
    case DiskAction::open:
      return FailureNumber::permissionDenied;
    case DiskAction::attributes:
    case DiskAction::length:
    case DiskAction::modified:
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

// Breaks the n-th call that it is told of; with a full disk the n-th of those that take room.
class Saboteur {
 public:
  Saboteur(Fault fault, int nth) : fault_(fault), left_(nth) {}

  void seeDisk(const DiskCall& call) {
    if (fault_ == Fault::diskFull && !takesRoom(call)) return;
    if (!isDue(describe(call))) return;
    brokenPath_ = call.path;
    if (fault_ == Fault::outOfMemory) throw std::bad_alloc();
    fail(fault_ == Fault::diskFull ? FailureNumber::diskFull : usualFailure(call.action));
  }
  int seeArchives(const ScriptedArchives::Call& call) {
    if (!isDue("archive library on " + call.options.lpszZipFN +
               (call.included.empty() ? "" : ", entry " + call.included.front())))
      return archiveOk;
    if (fault_ == Fault::outOfMemory) throw std::bad_alloc();
    return fault_ == Fault::diskFull ? archiveDiskFull : archiveDamaged;
  }

  bool hasBroken() const { return left_ <= 0; }
  const std::string& broken() const { return broken_; }
  const std::string& brokenPath() const { return brokenPath_; }

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
};

Saboteur nothingBreaks(Fault::usual, std::numeric_limits<int>::max());

using Files = std::map<std::string, std::string>;

const std::string logPath = "C:\\Quernstoke\\quernstoke.log";
const std::string tempPath = "C:\\Quernstoke\\temp\\";
const std::string zipPath = "C:\\Data\\z.zip";
const std::string equal20 = "aaaabbbbccccddddeeee";
const std::string near20 = "aaaabbbbccccddddeeef";

// A tree that takes a scan through the pool, local copies and an archive, and files that it has
// nothing to do with, one of which has the name of an archive's entry.
const Files userFiles = {
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
};

// The program over a disk of these files.
class SabotagedScan : private StandIns {
 public:
  explicit SabotagedScan(const Files& files) {
    disk.erase("C:\\Quernstoke\\Temp");  // That of the settings is written otherwise.
    for (const auto& [path, content] : files)
      disk.file(path, content);
    archiveLibrary.contents[zipPath] = {{"in/same", equal20}, {"near", near20}};
  }

  // Makes the profile and, for a scan that is to be continued, pauses one. What the disk holds then
  // is where each scan begins.
  Files prepare(Scan scan) {
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
    return disk.allFiles();
  }

  void run(Scan scan, Saboteur& saboteur) {
    EXPECT_TRUE(restart());
    disk.before = [&](const DiskCall& call) { saboteur.seeDisk(call); };
    archiveLibrary.before = [&](const ScriptedArchives::Call& call) {
      return saboteur.seeArchives(call);
    };
    if (scan == Scan::paused) eventLoop.onYield = [] { pauseAfterTheFirstMatch(); };
    StartMode = scan == Scan::continued ? startMode::continueScan : startMode::newScan;
    basStartScan();
    eventLoop.onYield = nullptr;
    disk.before = nullptr;
    archiveLibrary.before = nullptr;
    log_ = disk.content(logPath);
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
      if (number == noMatch) continue;
      const auto known = contentOfNumber.try_emplace(std::to_string(number.raw()), contentOf(file));
      EXPECT_EQ(known.first->second, contentOf(file)) << FileTable.FileName[file];
    }
  }
  void expectUserFilesAsTheyWere() const {
    Files found = disk.allFiles();
    for (const auto& [path, content] : userFiles) {
      EXPECT_EQ(found[path], content) << path;
      found.erase(path);
    }
    for (const auto& [path, content] : found)
      EXPECT_THAT(path, testing::StartsWith("C:\\Quernstoke\\"));
  }
  // What fails on the program's own files leaves them open, which the end of the program mends.
  void expectNoForeignFileOpen(const std::string& brokenPath) const {
    for (const std::string& path : disk.openPaths()) {
      EXPECT_TRUE(path == brokenPath || path == logPath) << path;
      EXPECT_TRUE(isOwn(path)) << path;
    }
  }
  // Ends the program and starts it again.
  void expectAUsableProgram() {
    const bool hasProfile = disk.exists("C:\\Quernstoke\\Profiles\\Tree.profile");
    EXPECT_EQ(restart(), hasProfile);
    EXPECT_THAT(dialogBoxes.messages, testing::IsEmpty());
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
    Main();
  }
  // Whether there is a profile that could be selected.
  bool restart() {
    startProgram();
    ProfileName = "Tree";
    bool ok = false;
    basProcessProfileSelection(ok);
    return ok;
  }
  static void pauseAfterTheFirstMatch() {
    if (RunState == runState::comparing && CurrentMatchNum >= 0)
      RunState = runState::pauseRequested;
  }

  // Empty for a file whose directory is not known, as after a snapshot that could not be written.
  std::string contentOf(Int32 file) const {
    if (FileTable.FileDirNum[file] > DirCount) return {};
    const DirRow& directory = DirTable[FileTable.FileDirNum[file]];
    const std::string name(FileTable.FileName[file]);
    if (directory.kind != dirKind::zipFolder) return disk.content(directory.name + "\\" + name);
    const std::string entry = directory.name.empty() ? name : directory.name + "/" + name;
    for (const ScriptedEntry& each : archiveLibrary.contents.at(DirTable[directory.parent].name))
      if (each.name == entry) return each.content;
    return "no such entry";
  }

  std::string log_;  // Of the scan.
};

class FaultInjectionTest : public testing::TestWithParam<Case> {};

TEST_P(FaultInjectionTest, OneBrokenCallHarmsNothing) {
  const auto [kind, fault] = GetParam();
  const int fewestCalls = fault == Fault::diskFull ? 20 : 100;
  const Files prepared = SabotagedScan(userFiles).prepare(kind);
  for (int nth = 1;; ++nth) {
    Saboteur saboteur(fault, nth);
    SabotagedScan scan(prepared);
    scan.run(kind, saboteur);
    if (!saboteur.hasBroken()) {
      EXPECT_GT(nth, fewestCalls);
      scan.expectAFullScan(kind);
      return;
    }
    SCOPED_TRACE("call " + std::to_string(nth) + ": " + saboteur.broken());
    scan.expectNoForeignFileOpen(saboteur.brokenPath());
    scan.expectTrueMatches();
    scan.expectAUsableProgram();
    scan.expectUserFilesAsTheyWere();
    if (kind == Scan::paused && scan.canGoOnByContent()) {
      scan.run(Scan::continued, nothingBreaks);
      scan.expectTrueMatches();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Scans, FaultInjectionTest,
    testing::Values(Case{Scan::whole, Fault::usual}, Case{Scan::whole, Fault::diskFull},
                    Case{Scan::whole, Fault::outOfMemory}, Case{Scan::paused, Fault::usual},
                    Case{Scan::continued, Fault::usual}, Case{Scan::continued, Fault::diskFull},
                    Case{Scan::continued, Fault::outOfMemory}),
    [](const auto& given) { return nameOf(given.param); });

}  // namespace
}  // namespace quernstoke
