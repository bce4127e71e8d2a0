// Runs of the program, from its start to the end of a scan, in which a call to the disk or to the
// archive library fails: each call in its turn, or all from one on. Of reads of settings only some
// fail; on a full disk, only calls that take room; where only a part of the program goes another
// way, only that part's calls.

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "testing/engineTest.h"
#include "testing/sabotagedScan.h"
#include "testing/sabotagedTree.h"
#include "testing/saboteur.h"

namespace quernstoke::sabotage {
namespace {

const std::string dirsPath = "C:\\Quernstoke\\Profiles\\Tree.dir";

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
}  // namespace quernstoke::sabotage
