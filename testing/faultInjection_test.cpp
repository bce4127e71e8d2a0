// Runs of the program, from its start to the end of a scan, in which a call to the disk or to the
// archive library fails: each call in its turn, or all from one on. Of reads of settings only some
// fail; on a full disk, only calls that take room; where only a part of the program goes another
// way, only that part's calls.

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
#include "mainui/profileSelection.h"
#include "settings/profileStore.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

const std::string tempPath = "C:\\Quernstoke\\temp\\";
const std::string filesPath = "C:\\Quernstoke\\Profiles\\Tree.files";
const std::string dirsPath = "C:\\Quernstoke\\Profiles\\Tree.dir";

// The last two go on from the call that they break.
enum class Fault { usual, diskFull, outOfMemory, staysFull, mediumGone };

// A paused scan is broken on its way to the pause, a continued one after it. The first scan of all
// begins with no settings and no directories of the program's.
enum class Scan { whole, paused, continued, first };

// What the scan compares and how.
enum class Way {
  slowMedium,  // Content, block by small block, with local copies. A whole scan compares names too.
  names,       // The same with names, also in a scan that is paused.
  inPlace,     // Content of long files in large blocks, the beginnings of which are remembered.
  extracted,   // Names and content, also of entries that can be read: behind a thousand files.
};

struct Case {
  Scan scan;
  Fault fault;
  Way way = Way::slowMedium;
};

std::string nameOf(const Case& given) {
  constexpr const char* faults[] = {"Usual", "DiskFull", "OutOfMemory", "StaysFull", "MediumGone"};
  constexpr const char* scans[] = {"Whole", "Paused", "Continued", "First"};
  constexpr const char* ways[] = {"", "Names", "InPlace", "Extracted"};
  return std::string(scans[static_cast<int>(given.scan)]) + faults[static_cast<int>(given.fault)] +
         ways[static_cast<int>(given.way)];
}
void PrintTo(const Case& given, std::ostream* out) {
  *out << nameOf(given);
}

bool goesOn(Fault fault) {
  return fault == Fault::staysFull || fault == Fault::mediumGone;
}
bool isOfRoom(Fault fault) {
  return fault == Fault::diskFull || fault == Fault::staysFull;
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

// The directory's name is that of its first maker, who may have a capital.
bool isInTemp(const std::string& path) {
  return path.starts_with(tempPath.substr(0, tempPath.size() - 1)) ||
         path.starts_with("C:\\Quernstoke\\Temp");
}

std::string kindOf(const std::string& path) {
  if (path.ends_with(".profile") || path.ends_with(".settings")) return "settings";
  if (path.ends_with(".files") || path.ends_with(".dir")) return "snapshot";
  if (isInTemp(path)) return "temp";
  return path.starts_with("C:\\Data\\") ? "data" : path;
}

// Whether a call is of the part of the program in which a way differs from the others.
bool isOfWay(Way way, const DiskCall& call) {
  switch (way) {
    case Way::inPlace:
      return kindOf(call.path) == "data";
    case Way::extracted:
      return kindOf(call.path) == "temp";
    case Way::slowMedium:
    case Way::names:
      break;
  }
  return true;
}

// Breaks the n-th call that it is told of, or all calls from that on; with a full disk of those
// that take room.
class Saboteur {
 public:
  Saboteur(Fault fault, int nth, Way way = Way::slowMedium)
      : fault_(fault), way_(way), left_(nth) {}

  void seeDisk(const DiskCall& call) {
    if (hasBroken() ? !goesOn(fault_) : isOneOfMany(call)) return;
    if (!isOfWay(way_, call) || (isOfRoom(fault_) && !takesRoom(call)) || !isDue()) return;
    if (broken_.empty()) {
      broken_ = describe(call);
      brokenPath_ = call.path;
      kind_ = describe({call.action, kindOf(call.path)});
    }
    if (fault_ == Fault::outOfMemory) throw std::bad_alloc();
    fail(isOfRoom(fault_) ? FailureNumber::diskFull : usualFailure(call.action));
  }
  int seeArchives(const ScriptedArchives::Call& call) {
    const bool isListing = call.included.empty();
    if (way_ == Way::inPlace || (way_ == Way::extracted && isListing) || !isDue()) return archiveOk;
    if (broken_.empty()) {
      broken_ = "archive library on " + call.options.lpszZipFN +
                (isListing ? "" : ", entry " + call.included.front());
      kind_ = isListing ? "listing of an archive" : "extraction";
    }
    if (fault_ == Fault::outOfMemory) throw std::bad_alloc();
    return isOfRoom(fault_) ? archiveDiskFull : archiveDamaged;
  }

  bool hasBroken() const { return left_ <= 0; }
  const std::string& broken() const { return broken_; }
  const std::string& brokenPath() const { return brokenPath_; }  // Empty: not the disk's.
  const std::string& kindOfBroken() const { return kind_; }

 private:
  bool isDue() { return hasBroken() ? goesOn(fault_) : --left_ == 0; }

  Fault fault_;
  Way way_;
  int left_;
  std::string broken_;
  std::string brokenPath_;
  std::string kind_;
};

Saboteur nothingBreaks(Fault::usual, std::numeric_limits<int>::max());

// A file as it stands on the disk.
struct StoredFile {
  std::string content;
  DateTime modified;
  int attributes = attributeArchive;

  friend bool operator==(const StoredFile&, const StoredFile&) = default;
};

using Files = std::map<std::string, StoredFile>;
using Directories = std::set<std::string>;
using Words = std::multiset<std::string>;

struct Tree {
  Files files;
  Directories directories;
};

constexpr int blockInPlace = 5000;  // More than is read to tell two files apart.

std::string longContent(std::size_t length, std::size_t differsAt) {
  std::string content;
  while (content.size() < length)
    content += std::to_string(content.size()) + ' ';
  content.resize(length);
  if (differsAt < length) content[differsAt] = '#';
  return content;
}

// Long files of two lengths, three blocks and less than one. Of each three are equal and the others
// differ from them in a place that is read at once, or later, or in the last block.
Files longFiles() {
  constexpr std::size_t blocks = 3 * blockInPlace;
  constexpr std::size_t part = blockInPlace - 100;
  constexpr std::size_t readLater = part - 100;
  Files files;
  const auto add = [&](const std::string& name, std::size_t length, std::size_t differsAt) {
    files["C:\\Data\\long\\" + name] = {longContent(length, differsAt), {}};
  };
  for (const char* name : {"equal 1", "equal 2", "equal 3"}) {
    add(name, blocks, blocks);
    add("part " + std::string(name), part, part);
  }
  add("at once", blocks, 0);
  add("at once too", blocks, 1);
  add("later", blocks, readLater);
  add("last block", blocks, blocks - 10);
  // One of these is compared first, so that all beginnings are known before two are alike.
  add("a part at once", part, 0);
  add("part at once", part, 1);
  add("z part at once", part, 2);
  add("part later", part, readLater);
  add("part later too", part, readLater + 1);
  return files;
}

const std::string zipPath = "C:\\Data\\z.zip";
const std::string equal20 = "aaaabbbbccccddddeeee";
const std::string near20 = "aaaabbbbccccddddeeef";

// A tree that takes a scan through the pool, local copies and an archive, and files that it has
// nothing to do with, one of which has the name of an archive's entry.
Tree makeUserTree() {
  constexpr int readOnly = attributeArchive | attributeReadOnly;
  const DateTime old = dateTime({1999, 12, 31, 23, 59, 58});
  const DateTime older = dateTime({1980, 1, 1, 0, 0, 0});
  return {
      {
          {"C:\\Data\\a\\same", {equal20, old}},
          {"C:\\Data\\a\\near", {near20, old}},
          {"C:\\Data\\b\\same", {equal20, older, readOnly}},
          {"C:\\Data\\c\\same", {equal20, old}},
          {"C:\\Data\\c\\copy of near", {near20, older}},
          {"C:\\Data\\a\\pair", {"12345678", old, readOnly}},
          {"C:\\Data\\b\\pair", {"12345678", old}},
          {"C:\\Data\\b\\lone", {"1", old}},
          {"C:\\Data\\a\\between", {"in between 1", old}},
          {"C:\\Data\\c\\between", {"in between 2", old}},
          {zipPath, {"an archive", old}},
          {"C:\\Other\\same", {equal20, old, readOnly}},
          {tempPath + "same", {"a person's own", older}},
          {tempPath + "notes.txt", {"as well", old, readOnly}},
      },
      {"C:\\Data", "C:\\Data\\a", "C:\\Data\\b", "C:\\Data\\c", "C:\\Data\\empty", "C:\\Other",
       tempPath + "album", tempPath + "album\\near"},
  };
}

// The tree that a scan begins with.
Tree userTreeFor(const Case& given) {
  Tree tree = makeUserTree();
  if (given.way == Way::inPlace) {
    tree.files.merge(longFiles());
    tree.directories.insert("C:\\Data\\long");
  }
  // A scan goes on with the wrong files of the group behind its pause, and is itself after that.
  if (given.way == Way::names)
    for (const char* directory : {"C:\\Data\\a\\", "C:\\Data\\b\\", "C:\\Data\\c\\"}) {
      tree.files[std::string(directory) + "tail 1"] = {near20 + "+", {}};
      tree.files[std::string(directory) + "tail 2"] = {near20 + "++", {}};
    }
  if (given.scan == Scan::first) {
    std::erase_if(tree.files, [](const auto& file) { return isInTemp(file.first); });
    std::erase_if(tree.directories, isInTemp);
  }
  return tree;
}

// Entries that fill the rows that a catalogue has to begin with: of no length, so that they match
// unread, and of names that come before those of the tree.
std::vector<ScriptedEntry> thousandEntries() {
  std::vector<ScriptedEntry> entries;
  for (const char* folder : {"one/", "two/"})
    for (int i = 0; i < 500; ++i)
      entries.push_back({folder + ("!" + std::to_string(i)), ""});
  return entries;
}

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
  // `user` is what of the tree is a person's own. It must last as long as this.
  SabotagedScan(const Case& given, const Tree& user, const Tree& tree)
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

  // Makes the profile and, for a scan that is to be continued, pauses one. What the disk holds then
  // is where each scan begins.
  Tree prepare() {
    if (scan_ != Scan::first) {
      startProgram();
      makeProfile();
    }
    if (scan_ == Scan::continued) runAs(Scan::paused, nothingBreaks);
    return {allStoredFiles(), disk.allDirectories()};
  }

  // Starts the program, selects the profile and, if that could be had, scans.
  void run(Saboteur& saboteur) { runAs(scan_, saboteur); }
  void goOn() { runAs(Scan::continued, nothingBreaks); }

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
    return ProfileSettings.RunMode == runState::paused &&
           ProfileSettings.MatchingCriteria == criteria() &&
           ProfileSettings.ContentMatchingPercent == 100;
  }

  // That a scan in which nothing broke has gone everywhere.
  void expectAFullScan() const {
    EXPECT_EQ(ProfileSettings.RunMode,
              scan_ == Scan::paused ? runState::paused : runState::finished);
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
        EXPECT_EQ(countNumbered([](Int32 file) { return FileTable.FileName[file] == "tail 2"; }),
                  3);
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
        EXPECT_EQ(countNumbered([&](Int32 file) { return isEntry(file) && contentOf(file) != ""; }),
                  2);
        EXPECT_GT(LocalReads, 0);
        break;
    }
  }
  void expectTrueMatches() const {
    std::map<Int32, std::string> contentOfNumber;
    for (Int32 file = 1; file <= FileCount; ++file) {
      const Int32 number = FileTable.FileStatus[statusMatch][file];
      if (number == noMatch || !hasDirectory(file)) continue;
      const auto known = contentOfNumber.try_emplace(number, contentOf(file));
      EXPECT_EQ(known.first->second, contentOf(file)) << FileTable.FileName[file];
    }
  }
  void expectUserFilesAsTheyWere() {
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
  // Of a file whose directory is lost the bare name is none of another file. A temp file that
  // vanished is opened by no name.
  void expectOnlyKnownPathsOpened() const {
    for (const DiskCall& call : disk.calls)
      EXPECT_TRUE(call.action != DiskAction::open || call.path.empty() ||
                  call.path.starts_with("C:\\Data\\") || call.path.starts_with("C:\\Quern"))
          << call.path;
  }
  // No others are ever cleared away.
  void expectOnlyTempNamesLeftInTemp() const {
    for (const auto& [path, content] : disk.allFiles())
      EXPECT_TRUE(isOwn(path) || user_.files.contains(path)) << path;
  }
  // What fails on the program's own files leaves them open, which the end of the program mends.
  void expectOnlyOwnFilesOpen() const {
    for (const std::string& path : disk.openPaths())
      EXPECT_TRUE(isOwn(path)) << path;
  }
  void expectOnlyTheBrokenFileOpen(const std::string& brokenPath) const {
    for (const std::string& path : disk.openPaths())
      EXPECT_TRUE(path == brokenPath || path == logPath) << path;
  }
  // Ends the program and starts it again. What was torn is read, or refused in words; a profile is
  // missing only after words in the scan.
  void expectAUsableProgram() {
    const bool hasProfile = disk.exists("C:\\Quernstoke\\Profiles\\Tree.profile");
    const bool wasTold = !dialogBoxes.messages.empty();
    const bool selected = restart();
    EXPECT_TRUE(selected || (hasProfile ? !dialogBoxes.messages.empty() : wasTold));
    EXPECT_THAT(windows, testing::Contains("frmMain show"));
    for (const std::string& message : dialogBoxes.messages)
      EXPECT_TRUE(isGivenWord(message)) << message;
    expectTrueMatches();
  }

 private:
  static bool isOwn(const std::string& path) {
    return path.starts_with("C:\\Quernstoke\\") &&
           (!isInTemp(path) || path.compare(tempPath.size(), 3, "TMP") == 0);
  }

  std::string criteria() const {
    if (way_ == Way::inPlace) return "C";
    const bool isPaused = scan_ == Scan::paused || scan_ == Scan::continued;
    return isPaused && way_ == Way::slowMedium ? "C" : "NC";
  }

  void makeProfile() {
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
  // As the first person does who starts the program. The temp directory goes once more, as a scan
  // can make it too.
  bool startForTheFirstTime() {
    startProgram();
    if (!hasWindow()) return false;
    makeProfile();
    disk.erase("C:\\Quernstoke\\Temp");
    return true;
  }
  void runAs(Scan scan, Saboteur& saboteur) {
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

  void startProgram() {
    newProcess();
    dialogBoxes.messages.clear();
    windows.clear();
    Main();
  }
  bool hasWindow() const { return std::ranges::find(windows, "frmMain show") != windows.end(); }
  // Whether there is a window, and a profile that could be selected.
  bool restart() {
    startProgram();
    if (!hasWindow()) return false;
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
  static bool isEntry(Int32 file) {
    return DirTable[FileTable.FileDirNum[file]].kind == dirKind::zipFolder;
  }
  std::string contentOf(Int32 file) const {
    const DirRow& directory = DirTable[FileTable.FileDirNum[file]];
    const std::string name(FileTable.FileName[file]);
    if (!isEntry(file)) return disk.content(directory.name + "\\" + name);
    return contentOfEntry_.at(directory.name.empty() ? name : directory.name + "/" + name);
  }
  // How many files have a match number and meet the condition.
  template <class Condition>
  static int countNumbered(Condition condition) {
    int count = 0;
    for (Int32 file = 1; file <= FileCount; ++file)
      if (FileTable.FileStatus[statusMatch][file] != noMatch && condition(file)) ++count;
    return count;
  }
  std::int64_t readsOfData() const {
    return std::ranges::count_if(disk.calls, [](const DiskCall& call) {
      return call.action == DiskAction::read && kindOf(call.path) == "data";
    });
  }
  Files allStoredFiles() {
    Files stored;
    for (const auto& [path, content] : disk.allFiles())
      stored[path] = {content, disk.modified(path), disk.attributes(path)};
    return stored;
  }

  const Scan scan_;
  const Way way_;
  const Tree& user_;
  std::map<std::string, std::string> contentOfEntry_;  // There is one archive.
};

Words wordsOfAnUnbrokenScan(const Case& given, const Tree& user, const Tree& prepared) {
  SabotagedScan scan(given, user, prepared);
  scan.run(nothingBreaks);
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
// The same of scans that find files of an earlier one, and of a program without directories.
const std::set<std::string> silentAtLeftovers = {"remove temp"};
const std::set<std::string> silentAtTheFirstStart = {"can enter C:\\Quernstoke\\Profiles",
                                                     "can enter temp"};

std::set<std::string> silentFailuresOf(Scan scan) {
  std::set<std::string> kinds = silentFailures;
  if (scan == Scan::continued) kinds.insert(silentAtLeftovers.begin(), silentAtLeftovers.end());
  if (scan == Scan::first) kinds.insert(silentAtTheFirstStart.begin(), silentAtTheFirstStart.end());
  return kinds;
}

class FaultInjectionTest : public testing::TestWithParam<Case> {};

TEST_P(FaultInjectionTest, OneBrokenCallHarmsNothing) {
  const auto [kind, fault, way] = GetParam();
  const bool isOfPart = way == Way::inPlace || way == Way::extracted;
  const int fewestCalls = isOfPart ? 5 : isOfRoom(fault) ? 20 : 100;
  const Tree user = userTreeFor(GetParam());
  const Tree prepared = SabotagedScan(GetParam(), user, user).prepare();
  const Words usual = wordsOfAnUnbrokenScan(GetParam(), user, prepared);
  std::set<std::string> silent;
  Words refusals;
  int continuations = 0;
  for (int nth = 1;; ++nth) {
    Saboteur saboteur(fault, nth, way);
    SabotagedScan scan(GetParam(), user, prepared);
    scan.run(saboteur);
    if (!saboteur.hasBroken()) {
      EXPECT_GT(nth, fewestCalls);
      scan.expectAFullScan();
      break;
    }
    SCOPED_TRACE("call " + std::to_string(nth) + ": " + saboteur.broken());
    if (std::ranges::includes(usual, scan.told())) silent.insert(saboteur.kindOfBroken());
    scan.expectOnlyOwnFilesOpen();
    if (!goesOn(fault)) scan.expectOnlyTheBrokenFileOpen(saboteur.brokenPath());
    scan.expectTrueMatches();
    scan.expectOnlyKnownPathsOpened();
    scan.expectAUsableProgram();
    refusals.merge(scan.told());
    scan.expectUserFilesAsTheyWere();
    if (fault != Fault::mediumGone) scan.expectOnlyTempNamesLeftInTemp();
    if (kind == Scan::paused && scan.canGoOnByContent()) {
      ++continuations;
      scan.goOn();
      scan.expectOnlyKnownPathsOpened();
      scan.expectTrueMatches();
      scan.expectUserFilesAsTheyWere();
    }
  }
  EXPECT_THAT(silent, testing::IsSubsetOf(silentFailuresOf(kind)));
  if (way == Way::slowMedium && !goesOn(fault)) {
    EXPECT_THAT(refusals, testing::IsSupersetOf(wordsOnTornSnapshots));
  }
  if (kind == Scan::whole && fault == Fault::usual && way == Way::slowMedium) {
    EXPECT_EQ(silent, silentFailures);
  }
  if (kind == Scan::paused) {
    EXPECT_GT(continuations, 0);
  }
}

// What the program does with it: it goes on with what it has.
TEST(BrokenSnapshotTest, SnapshotThatCouldNotBeReadIsLostToTheScanThatIsContinued) {
  const Case given = {Scan::continued, Fault::usual};
  const Tree user = userTreeFor(given);
  SabotagedScan scan(given, user, SabotagedScan(given, user, user).prepare());
  ASSERT_NE(scan.filesSnapshot(), "");
  scan.breakReadOfFilesSnapshot();
  scan.run(nothingBreaks);
  EXPECT_EQ(scan.told().count(procedureError("basLoadFilesList", "Device I/O error(57)")), 1U);
  EXPECT_EQ(scan.filesSnapshot(), "");
  scan.expectAUsableProgram();
  scan.expectUserFilesAsTheyWere();
}

// Wherever it ends, a line that was begun is a directory without a name.
TEST(BrokenSnapshotTest, FilesOfALostDirectoryAreNotTakenForThoseOfTheRoot) {
  const Case given = {Scan::continued, Fault::usual};
  const Tree user = userTreeFor(given);
  const Tree prepared = SabotagedScan(given, user, user).prepare();
  const std::string whole = prepared.files.at(dirsPath).content;
  for (std::size_t length = 0; length < whole.size(); length += 5) {
    SCOPED_TRACE(length);
    Tree torn = prepared;
    torn.files.at(dirsPath).content.resize(length);
    SabotagedScan scan(given, user, torn);
    scan.run(nothingBreaks);
    scan.expectOnlyKnownPathsOpened();
    scan.expectTrueMatches();
    scan.expectUserFilesAsTheyWere();
  }
}

INSTANTIATE_TEST_SUITE_P(
    Scans, FaultInjectionTest,
    testing::Values(Case{Scan::whole, Fault::usual}, Case{Scan::whole, Fault::diskFull},
                    Case{Scan::whole, Fault::outOfMemory}, Case{Scan::whole, Fault::staysFull},
                    Case{Scan::whole, Fault::mediumGone}, Case{Scan::paused, Fault::usual},
                    Case{Scan::paused, Fault::diskFull}, Case{Scan::paused, Fault::outOfMemory},
                    Case{Scan::continued, Fault::usual}, Case{Scan::continued, Fault::diskFull},
                    Case{Scan::continued, Fault::outOfMemory}, Case{Scan::first, Fault::usual},
                    Case{Scan::first, Fault::diskFull}, Case{Scan::first, Fault::outOfMemory}),
    [](const auto& given) { return nameOf(given.param); });

INSTANTIATE_TEST_SUITE_P(WithNames, FaultInjectionTest,
                         testing::Values(Case{Scan::paused, Fault::usual, Way::names},
                                         Case{Scan::paused, Fault::outOfMemory, Way::names},
                                         Case{Scan::continued, Fault::usual, Way::names},
                                         Case{Scan::continued, Fault::outOfMemory, Way::names}),
                         [](const auto& given) { return nameOf(given.param); });

INSTANTIATE_TEST_SUITE_P(PartsOfTheComparison, FaultInjectionTest,
                         testing::Values(Case{Scan::whole, Fault::usual, Way::inPlace},
                                         Case{Scan::whole, Fault::outOfMemory, Way::inPlace},
                                         Case{Scan::whole, Fault::mediumGone, Way::inPlace},
                                         Case{Scan::whole, Fault::usual, Way::extracted},
                                         Case{Scan::whole, Fault::diskFull, Way::extracted},
                                         Case{Scan::whole, Fault::outOfMemory, Way::extracted},
                                         Case{Scan::whole, Fault::mediumGone, Way::extracted}),
                         [](const auto& given) { return nameOf(given.param); });

}  // namespace
}  // namespace quernstoke
