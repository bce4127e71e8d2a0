#include <algorithm>
#include <cctype>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

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

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int blockSize = 4;

struct ModelFile {
  std::string directory;
  std::string name;
  std::string content;
  int match = noMatch;

  int size() const { return static_cast<int>(content.size()); }
};

// What a person clicks, and at which yield of the scan.
struct Click {
  int yield = 0;
  std::int16_t request = runState::pauseRequested;
};

// A scan as its rules tell it, over one list and with nothing kept from pair to pair: the engine is
// held against it. It lives through restarts of the program as the profile and the snapshots do.
class ModelScan {
 public:
  ModelScan(std::string letters, std::vector<ModelFile> tree)
      : letters_(std::move(letters)), tree_(std::move(tree)) {}

  void start(Click click) { run(true, click); }
  void goOn(Click click) { run(false, click); }

  int yields = 0;
  int failures = 0;
  std::vector<ModelFile> files;
  int duplicates = 0;
  struct {
    int runMode = 0, matchNum = -1, duplicates = 0;
    int point = 0, group = 0, primary = 0, secondary = 0;
  } saved;

 private:
  struct Group {
    int first = 0, count = 0;
  };

  bool has(char letter) const { return letters_.find(letter) != std::string::npos; }
  bool going() const {
    return state_ != runState::pauseRequested && state_ != runState::abortRequested;
  }
  int fileCount() const { return static_cast<int>(files.size()); }
  ModelFile& file(int number) { return files[static_cast<std::size_t>(number - 1)]; }
  void yield() {
    if (++yields == click_.yield) state_ = click_.request;
  }

  void run(bool isNew, Click click) {
    isNew_ = isNew;
    click_ = click;
    yields = 0;
    state_ = runState::buildingList;
    yield();
    matchNum_ = isNew ? -1 : saved.matchNum;
    duplicates = isNew ? 0 : saved.duplicates;
    if (isNew) files.clear();
    runStages();
    if (state_ == runState::pauseRequested) state_ = runState::paused;
    if (state_ == runState::abortRequested) state_ = runState::aborted;
    if (state_ == runState::comparing) state_ = runState::finished;
    saved.runMode = state_;
  }

  void runStages() {
    if (!going()) return;
    if (isNew_) {
      yield();
      if (!going()) return;
      files = tree_;
    }
    if (has('N') && !runPass(true)) return;
    if (!has('N') || has('C') || has('S')) runPass(false);
  }

  bool runPass(bool byName) {
    byName_ = byName;
    if (state_ == runState::comparing && fileCount() > 0) yield();
    sort();
    groups_ = {{}};
    for (int number = 1; number <= fileCount(); ++number) {
      if (number == 1 || key(number) != key(number - 1)) groups_.push_back({number, 0});
      ++groups_.back().count;
    }
    if (isNew_) prune();
    compare();
    if (!going()) return false;
    std::erase_if(files, [](const ModelFile& each) { return each.match == noMatch; });
    return true;
  }

  std::pair<int, std::string> key(int number) {
    return byName_ ? std::pair(0, file(number).name)
                   : std::pair(file(number).size(), std::string());
  }

  void sort() {
    for (int node = (1 + fileCount()) / 2; node >= 1; --node)
      sift(node, fileCount());
    for (int last = fileCount(); last > 1; --last) {
      std::swap(file(1), file(last));
      sift(1, last - 1);
    }
  }
  void sift(int node, int last) {
    for (int child = 2 * node; child <= last; child = 2 * node) {
      if (child < last && key(child + 1) > key(child)) ++child;
      if (key(node) > key(child)) return;
      std::swap(file(node), file(child));
      node = child;
    }
  }

  // A run that counts one file loses its last; the first run counts one short.
  void prune() {
    std::vector<ModelFile> kept;
    std::vector<Group> keptGroups = {{}};
    for (std::size_t run = 1; run < groups_.size(); ++run) {
      auto [first, count] = groups_[run];
      if (count - (run == 1 ? 1 : 0) == 1) --count;
      if (count == 0) continue;
      keptGroups.push_back({static_cast<int>(kept.size()) + 1, count});
      for (int number = first; number < first + count; ++number)
        kept.push_back(file(number));
    }
    files = kept;
    groups_ = keptGroups;
  }

  void compare() {
    state_ = runState::comparing;
    if (fileCount() == 0) return;
    yield();
    bool takePrimary = !isNew_;
    bool takeSecondary = !isNew_;
    bool due = true;  // The status moves at every second primary.
    std::size_t group = isNew_ ? 1 : static_cast<std::size_t>(saved.group);
    int primary = 0;
    int secondary = 0;
    for (; going() && group < groups_.size(); ++group) {
      const int last = groups_[group].first + groups_[group].count - 1;
      primary = takePrimary ? saved.primary : groups_[group].first;
      takePrimary = false;
      if (primary > fileCount()) {
        ++failures;
        return;
      }
      if (primary == 0 || file(primary).match != noMatch) continue;
      for (; going() && primary <= last; ++primary) {
        due = !due;
        if (due) yield();
        secondary = takeSecondary ? saved.secondary : primary + 1;
        takeSecondary = false;
        compareRow(primary, secondary, last);
      }
    }
    saved.point = going() ? 0 : byName_ ? 1 : 2;
    if (!going()) {
      saved.group = static_cast<int>(group);
      saved.primary = primary;
      saved.secondary = secondary;
      saved.duplicates = duplicates;
    }
    saved.matchNum = matchNum_;
  }

  void compareRow(int primary, int& secondary, int last) {
    bool numbered = false;
    for (; secondary <= last; ++secondary) {
      if (secondary == 0 || secondary == primary || file(secondary).match != noMatch) continue;
      if (!matches(file(primary), file(secondary))) continue;
      if (!std::exchange(numbered, true)) file(primary).match = ++matchNum_;
      file(secondary).match = matchNum_;
      ++duplicates;
    }
  }

  bool matches(const ModelFile& primary, const ModelFile& secondary) {
    const auto sameLetter = [](char a, char b) { return std::tolower(a) == std::tolower(b); };
    if (byName_ && !std::equal(primary.name.begin(), primary.name.end(), secondary.name.begin(),
                               secondary.name.end(), sameLetter))
      return false;
    if (!byName_ && (secondary.size() == 0 || secondary.size() != primary.size())) return false;
    return !has('C') || sameContent(primary.content, secondary.content);
  }

  bool sameContent(const std::string& primary, const std::string& secondary) {
    const auto block = [](const std::string& content, std::size_t number) {
      return content.substr(std::min(content.size(), number * blockSize), blockSize);
    };
    std::size_t number = 0;
    bool same = true;
    for (; same && number * blockSize < primary.size(); number += same ? 1 : 0) {
      if (number == 10) yield();
      same = block(primary, number) == block(secondary, number);
    }
    if (number >= 10) yield();
    return same;
  }

  const std::string letters_;
  const std::vector<ModelFile> tree_;
  bool isNew_ = true;
  bool byName_ = false;
  int state_ = runState::idle;
  int matchNum_ = -1;
  Click click_;
  std::vector<Group> groups_;
};

class PausedScanTest : public EngineTest {
 protected:
  // A program that was never started before, with a profile of these letters over this tree.
  void makeScan(const std::string& letters, const std::vector<ModelFile>& tree) {
    for (const char* path : {"C:\\Quernstoke\\Profiles", "C:\\Quernstoke\\temp", "C:\\Data"}) {
      if (disk.exists(path)) disk.erase(path);
      disk.directory(path);
    }
    for (const ModelFile& file : tree)
      disk.file("C:\\Data\\" + file.directory + "\\" + file.name, file.content);
    startProgram();
    makeProfile("Tree");
    ProfileSettings.MatchingCriteria = letters;
    ProfileSettings.MinimumSize = 0;
    GlobalSettings.FileBufferSize = blockSize;
    setDirectory(1, "C:\\Data", "I");
    basSaveProfile("");
  }
  void startProgram() {
    newProcess();
    disk.calls.clear();
    dialogBoxes.messages.clear();
    start();
  }
  void scan(Int16 mode, std::vector<Click> clicks) {
    StartMode = mode;
    eventLoop.yields = 0;
    eventLoop.onYield = [this, clicks] {
      for (const Click& click : clicks)
        if (eventLoop.yields == click.yield) RunState = click.request;
    };
    basStartScan();
    eventLoop.onYield = nullptr;
  }
  void startScan(std::vector<Click> clicks) { scan(startMode::newScan, std::move(clicks)); }
  // Ends the program, starts it again and continues the profile's scan.
  void goOn(std::vector<Click> clicks = {}) {
    startProgram();
    ProfileName = "Tree";
    bool ok = false;
    basProcessProfileSelection(ok);
    ASSERT_TRUE(ok);
    scan(startMode::continueScan, std::move(clicks));
  }

  // All that a scan leaves, line by line.
  std::vector<std::string> outcome() const {
    std::vector<std::string> lines = filePaths();
    const std::vector<int> numbers = matchNumbers();
    for (std::size_t i = 0; i < lines.size(); ++i)
      lines[i] += " " + std::to_string(numbers[i]);
    lines.push_back(summary(eventLoop.yields, static_cast<int>(dialogBoxes.messages.size()),
                            ProfileSettings.RunMode.raw(), DuplicateCount.raw()));
    lines.push_back(
        record(ProfileSettings.RestartPoint.raw(), ProfileSettings.RestartPointMatchGroup.raw(),
               ProfileSettings.RestartPointPrimaryFile.raw(),
               ProfileSettings.RestartPointSecondaryFile.raw(),
               ProfileSettings.RestartPointNumDuplicates.raw(), ProfileSettings.MatchNum.raw()));
    return lines;
  }
  static std::vector<std::string> outcome(const ModelScan& model) {
    std::vector<std::string> lines;
    for (const ModelFile& file : model.files)
      lines.push_back("C:\\Data\\" + file.directory + "\\" + file.name + " " +
                      std::to_string(file.match));
    const auto& saved = model.saved;
    lines.push_back(summary(model.yields, model.failures, saved.runMode, model.duplicates));
    lines.push_back(record(saved.point, saved.group, saved.primary, saved.secondary,
                           saved.duplicates, saved.matchNum));
    return lines;
  }

  // Pauses a scan at the first click, and once more at the second, and lets it run to its end.
  void expectAsModelled(const std::string& letters, const std::vector<ModelFile>& tree, Click first,
                        Click second = {}) {
    SCOPED_TRACE("letters " + letters + ", clicks at yields " + std::to_string(first.yield) +
                 " and " + std::to_string(second.yield));
    ModelScan model(letters, tree);
    makeScan(letters, tree);
    model.start(first);
    startScan({first});
    ASSERT_EQ(outcome(), outcome(model));
    for (Click click = second; model.saved.runMode == runState::paused; click = {}) {
      model.failures = 0;
      model.goOn(click);
      goOn({click});
      ASSERT_EQ(outcome(), outcome(model));
    }
    ASSERT_EQ(disk.openFiles(), 0);
  }

  static int yieldsOf(const std::string& letters, const std::vector<ModelFile>& tree) {
    ModelScan model(letters, tree);
    model.start({});
    return model.yields;
  }

 private:
  static std::string summary(int yields, int boxes, int runMode, int duplicates) {
    return std::to_string(yields) + " yields, " + std::to_string(boxes) + " boxes, run mode " +
           std::to_string(runMode) + ", " + std::to_string(duplicates) + " duplicates";
  }
  static std::string record(int point, int group, int primary, int secondary, int duplicates,
                            int matchNum) {
    return "restart " + std::to_string(point) + ": " + std::to_string(group) + " " +
           std::to_string(primary) + " " + std::to_string(secondary) + ", " +
           std::to_string(duplicates) + " duplicates, match number " + std::to_string(matchNum);
  }
};

constexpr Click pauseAt(int yield) {
  return {yield, runState::pauseRequested};
}
constexpr Click abortAt(int yield) {
  return {yield, runState::abortRequested};
}

// Long enough for a comparison of two to yield twice; equal up to the last of eleven blocks.
std::string longContent(char last) {
  return std::string(40, '.') + std::string(4, last);
}

class EachPlaceTest : public PausedScanTest, public testing::WithParamInterface<const char*> {
 protected:
  const std::string letters = GetParam();
  const std::vector<ModelFile> tree = {
      {"a", "song", longContent('1')}, {"a", "text", "4444"},  {"a", "zero", ""},
      {"b", "song", longContent('1')}, {"b", "text", "4444"},  {"b", "tiny", "1"},
      {"c", "song", longContent('2')}, {"c", "text", "55555"}, {"c", "copy", longContent('1')},
      {"d", "Song", longContent('2')}, {"d", "Text", "4444"},  {"d", "zero", ""},
  };
};

TEST_P(EachPlaceTest, PausedScanGoesOnAsItsRestartRecordSays) {
  for (int place = 1; place <= yieldsOf(letters, tree) + 1 && !HasFatalFailure(); ++place)
    for (const int next : {0, 2, place})
      expectAsModelled(letters, tree, pauseAt(place), pauseAt(next));
}

TEST_P(EachPlaceTest, AbortedScanLeavesWhatItHasFound) {
  for (int place = 1; place <= yieldsOf(letters, tree) && !HasFatalFailure(); ++place)
    expectAsModelled(letters, tree, abortAt(place));
}

INSTANTIATE_TEST_SUITE_P(Letters, EachPlaceTest,
                         testing::Values("", "N", "C", "S", "NC", "NS", "CS", "NCS"));

TEST_F(PausedScanTest, SmallCataloguesOfAllKindsGoAsModelled) {
  const std::vector<std::string> allLetters = {"", "N", "C", "S", "NC", "NS", "CS", "NCS"};
  const std::vector<std::string> names = {"a", "A", "b", "c"};
  const std::vector<std::string> contents = {
      "", "1", "2", "11", "22", longContent('1'), longContent('2')};
  std::mt19937 random(20041102);
  const auto anyOf = [&](const std::vector<std::string>& texts) {
    return texts[random() % texts.size()];
  };
  for (int round = 0; round < 30 && !HasFatalFailure(); ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    const std::string letters = anyOf(allLetters);
    std::vector<ModelFile> tree(1 + random() % 12);
    for (std::size_t i = 0; i < tree.size(); ++i)
      tree[i] = {"d" + std::to_string(i), anyOf(names), anyOf(contents)};
    const int yields = yieldsOf(letters, tree);
    for (int place = 3; place <= yields && !HasFatalFailure(); ++place)
      expectAsModelled(letters, tree, pauseAt(place), pauseAt(1 + static_cast<int>(random() % 8)));
  }
}

// Seven files of 10, 20 and 30 bytes. The fourth yield is in the row of the second.
const std::vector<ModelFile> threeSizes = {
    {"a", "1", "1234567890"},
    {"a", "2", "1234567890"},
    {"a", "3", "1234567890"},
    {"b", "1", "12345678901234567890"},
    {"b", "2", "12345678901234567890"},
    {"c", "1", "123456789012345678901234567890"},
    {"c", "2", "123456789012345678901234567890"},
};

TEST_F(PausedScanTest, ScanThatGoesOnPassesOverTheGroupBehindItsPlace) {
  makeScan("S", threeSizes);
  startScan({pauseAt(4)});
  EXPECT_EQ(ProfileSettings.RunMode, runState::paused);
  EXPECT_EQ(windows.back(), "frmMain show");
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, 0, -2, -2, -2, -2));

  // The third file, which was next, has a number: that skips the stored group.
  goOn();
  EXPECT_EQ(ProfileSettings.RunMode, runState::finished);
  EXPECT_EQ(windows.back(), "frmResults show");
  EXPECT_THAT(fileSizes(), ElementsAre(10, 10, 10, 30, 30));
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, 0, 1, 1));
  EXPECT_EQ(ProfileSettings.NumDuplicates, 3);
}

TEST_F(PausedScanTest, ScanPausedInItsLastGroupComparesNothingMore) {
  makeScan("C", {{"a", "1", longContent('1')},
                 {"a", "2", longContent('1')},
                 {"a", "3", longContent('2')},
                 {"a", "4", longContent('2')}});
  startScan({pauseAt(4)});  // In the row of the first file, which finds its partner.
  goOn();

  EXPECT_EQ(ProfileSettings.RunMode, runState::finished);
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0));
  EXPECT_EQ(ActualReads, 0);
}

// No primary had begun, so row 0 is taken up, which holds no file and does not count as unnumbered.
TEST_F(PausedScanTest, ScanPausedBeforeItsFirstGroupLosesThatGroup) {
  makeScan("S", threeSizes);
  startScan({pauseAt(3)});
  EXPECT_THAT(matchNumbers(), ElementsAre(-2, -2, -2, -2, -2, -2, -2));
  goOn();

  EXPECT_THAT(fileSizes(), ElementsAre(20, 20, 30, 30));
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, 1, 1));
}

// Both passes of a scan that goes on take the restart points up: the pass by size, too, begins
// behind its first group here.
TEST_F(PausedScanTest, RestartPointsOfThePassByNameServeThePassBySizeToo) {
  makeScan("NS", {{"a", "x", "1"}, {"b", "x", "1"}, {"c", "x", "1"}, {"a", "y", "1"}});
  startScan({pauseAt(4)});
  EXPECT_EQ(ProfileSettings.RestartPoint, 1);
  goOn();

  EXPECT_EQ(ProfileSettings.RunMode, runState::finished);
  EXPECT_EQ(ProfileSettings.RestartPoint, 0);
  EXPECT_EQ(ProfileSettings.RestartPointMatchGroup, 2);
  EXPECT_EQ(StatusFileNumber, 0);  // No primary at all.
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, 0));
}

// The second pass sets the run state after its sort, whatever was clicked there.
TEST_F(PausedScanTest, PauseDuringTheSortForTheSecondPassIsForgotten) {
  makeScan("NS", {{"a", "x", "1"}, {"b", "x", "1"}, {"c", "x", "1"}});
  startScan({pauseAt(5)});

  EXPECT_EQ(statusWindow.statusTexts.at(4), "Refining file list...");
  EXPECT_EQ(ProfileSettings.RunMode, runState::finished);
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, 0));
}

TEST_F(PausedScanTest, PauseAfterAbortInTheSameRowPauses) {
  makeScan(
      "C",
      {{"a", "1", longContent('1')}, {"a", "2", longContent('1')}, {"a", "3", longContent('1')}});
  startScan({abortAt(4), pauseAt(5)});

  EXPECT_EQ(ProfileSettings.RunMode, runState::paused);
}

TEST_F(PausedScanTest, PauseBeforeTheWalkLeavesNothingToGoOnWith) {
  makeScan("S", threeSizes);
  startScan({pauseAt(2)});
  EXPECT_EQ(ProfileSettings.RunMode, runState::paused);
  goOn();

  EXPECT_EQ(ProfileSettings.RunMode, runState::finished);
  EXPECT_EQ(FileCount, 0);
}

TEST_F(PausedScanTest, RestartRecordOutsideTheTablesIsToldAndTheStagesGoOn) {
  makeScan("S", threeSizes);
  startScan({pauseAt(4)});
  ProfileSettings.RestartPointPrimaryFile = 8;
  basSaveProfile("PROFILE");
  goOn();

  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basCompareFiles", "Subscript out of range(9)")));
  EXPECT_EQ(ProfileSettings.RunMode, runState::finished);
  EXPECT_EQ(ProfileSettings.RestartPoint, 2);
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, 0));
  EXPECT_EQ(windows.back(), "frmResults show");
}

TEST_F(PausedScanTest, LocalCopiesOfAnUnfinishedGroupAreClearedWhenItGoesOn) {
  makeScan(
      "C",
      {{"a", "1", longContent('1')}, {"a", "2", longContent('1')}, {"a", "3", longContent('1')}});
  ProfileSettings.SlowNetwork = true;
  GlobalSettings.NumberOfFileBuffers = 1;
  startScan({pauseAt(4)});
  EXPECT_THAT(disk.names("C:\\Quernstoke\\temp"), testing::Not(IsEmpty()));
  goOn();

  EXPECT_THAT(disk.names("C:\\Quernstoke\\temp"), IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

}  // namespace
}  // namespace quernstoke
