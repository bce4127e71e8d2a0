#include "testing/sabotagedScan.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "core/scanDriver.h"
#include "core/scanState.h"
#include "mainui/profileSelection.h"
#include "settings/profileStore.h"
#include "settings/settings.h"

namespace quernstoke::sabotage {

namespace {

const std::string filesPath = "C:\\Quernstoke\\Profiles\\Tree.files";

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

}  // namespace

SabotagedScan::SabotagedScan(const Case& given, const Tree& user, const Tree& tree)
    : scan_(given.scan), way_(given.way), user_(user) {
  disk.erase("C:\\Quernstoke\\Temp");
  disk.erase("C:\\Quernstoke\\Profiles");
  for (const std::string& path : tree.directories)
    disk.directory(path);
  for (const auto& [path, file] : tree.files) {
    disk.file(path, file.content, file.modified);
    disk.setAttributes(path, file.attributes);
  }
  std::vector<ScriptedEntry>& entries = archiveLibrary.contents[zipPath];
  if (way_ == Way::extracted) {
    entries = thousandEntries();
    entries.push_back({"in/near", near20});
  }
  entries.push_back({"in/same", equal20});
  entries.push_back({"near", near20});
  for (const ScriptedEntry& entry : entries)
    contentOfEntry_[entry.name] = entry.content;
}

Tree SabotagedScan::prepare() {
  if (scan_ != Scan::first) {
    startProgram();
    makeProfile();
  }
  if (scan_ == Scan::continued) runAs(Scan::paused, nothingBreaks);
  return {allStoredFiles(), disk.allDirectories()};
}

void SabotagedScan::breakReadOfFilesSnapshot() {
  disk.failOn(DiskAction::read, filesPath, FailureNumber::deviceError);
}

std::string SabotagedScan::filesSnapshot() const {
  return disk.content(filesPath);
}

Words SabotagedScan::told() const {
  Words words(dialogBoxes.messages.begin(), dialogBoxes.messages.end());
  if (!disk.exists(logPath)) return words;
  std::istringstream lines(disk.content(logPath));
  for (std::string line; std::getline(lines, line);)
    words.insert(line);
  return words;
}

bool SabotagedScan::canGoOnByContent() const {
  return ProfileSettings.RunMode == runState::paused &&
         ProfileSettings.MatchingCriteria == criteria() &&
         ProfileSettings.ContentMatchingPercent == 100;
}

void SabotagedScan::expectAFullScan() const {
  EXPECT_EQ(ProfileSettings.RunMode, scan_ == Scan::paused ? runState::paused : runState::finished);
  EXPECT_GE(CurrentMatchNum, 0);
  if (scan_ == Scan::paused) {
    EXPECT_EQ(ProfileSettings.RestartPoint, way_ == Way::names ? 1 : 2);
    return;
  }
  switch (way_) {
    case Way::slowMedium:
      EXPECT_GE(countNumbered([&](Int32 file) { return contentOf(file) == equal20; }), 2);
      EXPECT_GT(LocalReads, 0);
      EXPECT_GT(BufferReads, 0);
      EXPECT_FALSE(archiveLibrary.calls.back().included.empty());
      break;
    case Way::names:
      EXPECT_EQ(countNumbered([](Int32 file) { return FileTable.FileName[file] == "tail 2"; }), 3);
      EXPECT_GT(LocalReads, 0);
      EXPECT_GT(BufferReads, 0);
      break;
    case Way::inPlace:
      EXPECT_EQ(countNumbered([](Int32 file) {
                  return FileTable.FileName[file].find("equal ") != std::string_view::npos;
                }),
                6);
      EXPECT_EQ(LocalReads, 0);
      EXPECT_GT(ActualReads, readsOfData());  // Some were told apart by memory alone.
      break;
    case Way::extracted:
      EXPECT_EQ(
          countNumbered([&](Int32 file) { return isEntry(file) && !contentOf(file).empty(); }), 2);
      EXPECT_GT(LocalReads, 0);
      break;
  }
}

void SabotagedScan::expectTrueMatches() const {
  std::map<Int32, std::string> contentOfNumber;
  for (Int32 file = 1; file <= FileCount; ++file) {
    const Int32 number = FileTable.FileStatus[statusMatch][file];
    if (number == noMatch || !hasDirectory(file)) continue;
    const auto known = contentOfNumber.try_emplace(number, contentOf(file));
    EXPECT_EQ(known.first->second, contentOf(file)) << FileTable.FileName[file];
  }
}

void SabotagedScan::expectUserFilesAsTheyWere() {
  Files files = allStoredFiles();
  for (const auto& [path, file] : user_.files) {
    EXPECT_EQ(files[path], file) << path;
    files.erase(path);
  }
  for (const auto& [path, file] : files)
    EXPECT_THAT(path, testing::StartsWith("C:\\Quernstoke\\"));

  Directories directories = disk.allDirectories();
  for (const std::string& path : user_.directories)
    EXPECT_EQ(directories.erase(path), 1U) << path;
  for (const char* path : {"C:\\Quernstoke", "C:\\Quernstoke\\Profiles", "C:\\Quernstoke\\Temp",
                           "C:\\Quernstoke\\temp"})
    directories.erase(path);
  // The path of the temp directory may have been torn when it was first written.
  for (const std::string& path : directories)
    EXPECT_TRUE(scan_ == Scan::first && path.starts_with("C:\\Quern")) << path;
}

void SabotagedScan::expectOnlyKnownPathsOpened() const {
  for (const DiskCall& call : disk.calls)
    EXPECT_TRUE(call.action != DiskAction::open || call.path.empty() ||
                call.path.starts_with("C:\\Data\\") || call.path.starts_with("C:\\Quern"))
        << call.path;
}

void SabotagedScan::expectOnlyTempNamesLeftInTemp() const {
  for (const auto& [path, content] : disk.allFiles())
    EXPECT_TRUE(isOwn(path) || user_.files.contains(path)) << path;
}

void SabotagedScan::expectOnlyOwnFilesOpen() const {
  for (const std::string& path : disk.openPaths())
    EXPECT_TRUE(isOwn(path)) << path;
}

void SabotagedScan::expectOnlyTheBrokenFileOpen(const std::string& brokenPath) const {
  for (const std::string& path : disk.openPaths())
    EXPECT_TRUE(path == brokenPath || path == logPath) << path;
}

void SabotagedScan::expectAUsableProgram() {
  const bool hasProfile = disk.exists("C:\\Quernstoke\\Profiles\\Tree.profile");
  const bool wasTold = !dialogBoxes.messages.empty();
  const bool selected = restart();
  EXPECT_TRUE(selected || (hasProfile ? !dialogBoxes.messages.empty() : wasTold));
  EXPECT_THAT(windows, testing::Contains("frmMain show"));
  for (const std::string& message : dialogBoxes.messages)
    EXPECT_TRUE(isGivenWord(message)) << message;
  expectTrueMatches();
}

bool SabotagedScan::isOwn(const std::string& path) {
  return path.starts_with("C:\\Quernstoke\\") &&
         (!isInTemp(path) || path.compare(tempPath.size(), 3, "TMP") == 0);
}

std::string SabotagedScan::criteria() const {
  if (way_ == Way::inPlace) return "C";
  const bool isPaused = scan_ == Scan::paused || scan_ == Scan::continued;
  return isPaused && way_ == Way::slowMedium ? "C" : "NC";
}

void SabotagedScan::makeProfile() {
  ProfileName = "Tree";
  basSaveProfile("NEWPROFILE");
  ProfileSettings.MatchingCriteria = criteria();
  ProfileSettings.MinimumSize = 0;
  ProfileSettings.ProcessZip = true;
  ProfileSettings.SlowNetwork = way_ == Way::slowMedium || way_ == Way::names;
  GlobalSettings.FileBufferSize = ProfileSettings.SlowNetwork ? 4 : blockInPlace;
  GlobalSettings.NumberOfFileBuffers = 2;
  ProfileDirList[1] = {"C:\\Data", "I", "*.*", true};
  basSaveProfile("");
}

bool SabotagedScan::startForTheFirstTime() {
  startProgram();
  if (!hasWindow()) return false;
  makeProfile();
  disk.erase("C:\\Quernstoke\\Temp");
  return true;
}

void SabotagedScan::runAs(Scan scan, Saboteur& saboteur) {
  disk.before = [&](const DiskCall& call) { saboteur.seeDisk(call); };
  archiveLibrary.before = [&](const ScriptedArchives::Call& call) {
    return saboteur.seeArchives(call);
  };
  if (scan == Scan::paused) eventLoop.onYield = [] { pauseAfterTheFirstMatch(); };
  if (scan == Scan::first ? startForTheFirstTime() : restart()) {
    StartMode = scan == Scan::continued ? startMode::continueScan : startMode::newScan;
    basStartScan();
  }
  eventLoop.onYield = nullptr;
  disk.before = nullptr;
  archiveLibrary.before = nullptr;
}

void SabotagedScan::startProgram() {
  newProcess();
  dialogBoxes.messages.clear();
  windows.clear();
  Main();
}

bool SabotagedScan::hasWindow() const {
  return std::ranges::find(windows, "frmMain show") != windows.end();
}

bool SabotagedScan::restart() {
  startProgram();
  if (!hasWindow()) return false;
  ProfileName = "Tree";
  bool ok = false;
  basProcessProfileSelection(ok);
  return ok;
}

void SabotagedScan::pauseAfterTheFirstMatch() {
  if (RunState == runState::comparing && CurrentMatchNum >= 0) RunState = runState::pauseRequested;
}

bool SabotagedScan::hasDirectory(Int32 file) {
  const Int32 row = FileTable.FileDirNum[file];
  return row <= DirCount && DirTable[row].kind != dirKind::none;
}

bool SabotagedScan::isEntry(Int32 file) {
  return DirTable[FileTable.FileDirNum[file]].kind == dirKind::zipFolder;
}

std::string SabotagedScan::contentOf(Int32 file) const {
  const DirRow& directory = DirTable[FileTable.FileDirNum[file]];
  const std::string name(FileTable.FileName[file]);
  if (!isEntry(file)) return disk.content(directory.name + "\\" + name);
  return contentOfEntry_.at(directory.name.empty() ? name : directory.name + "/" + name);
}

std::int64_t SabotagedScan::readsOfData() const {
  return std::ranges::count_if(disk.calls, [](const DiskCall& call) {
    return call.action == DiskAction::read && kindOf(call.path) == "data";
  });
}

Files SabotagedScan::allStoredFiles() {
  Files stored;
  for (const auto& [path, content] : disk.allFiles())
    stored[path] = {content, disk.modified(path), disk.attributes(path)};
  return stored;
}

}  // namespace quernstoke::sabotage
