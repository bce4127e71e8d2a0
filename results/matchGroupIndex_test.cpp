#include "results/matchGroupIndex.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/scanState.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::Pair;

using MatchGroupIndexTest = EngineTest;

using Groups = std::vector<std::pair<int, int>>;

// The whole table from group 0, as first file and count.
Groups groups() {
  Groups all;
  for (Int32 group = 0; group <= MatchGroupTable.upperBound(); ++group)
    all.emplace_back(MatchGroupTable[group].first.raw(), MatchGroupTable[group].count.raw());
  return all;
}

Groups groupsBy(std::string_view key) {
  basSetupMatchGroupInfo(key, startMode::newScan);
  return groups();
}

void markRemoved(int file) {
  FileTable.FileStatus[statusState][file] = fileState::removed;
}

// Group 0 is (0, 0) in all of these tables.
const auto noGroup = Pair(0, 0);

TEST_F(MatchGroupIndexTest, EveryRunBecomesAGroupAndSoDoesALoneFile) {
  buildSizes({10, 20, 20, 30, 30, 30, 40});
  EXPECT_THAT(groupsBy("SIZE"),
              ElementsAre(noGroup, Pair(1, 1), Pair(2, 2), Pair(4, 3), Pair(7, 1)));
  EXPECT_EQ(MatchGroupCount, 4);
}

TEST_F(MatchGroupIndexTest, EmptyCatalogueLeavesEverythingAsItWas) {
  buildSizes({10, 10, 20});
  basSetupMatchGroupInfo("SIZE", startMode::refresh);
  FileCount = 0;
  DuplicateCount = 99;
  basSetupMatchGroupInfo("SIZE", startMode::refresh);
  EXPECT_THAT(groups(), ElementsAre(noGroup, Pair(1, 2), Pair(3, 1)));
  EXPECT_EQ(MatchGroupCount, 2);
  EXPECT_EQ(DuplicateCount, 99);
}

TEST_F(MatchGroupIndexTest, SingleFileIsOneGroupWithoutDuplicates) {
  buildSizes({10});
  DuplicateCount = 99;
  basSetupMatchGroupInfo("SIZE", startMode::refresh);
  EXPECT_THAT(groups(), ElementsAre(noGroup, Pair(1, 1)));
  EXPECT_EQ(DuplicateCount, 0);
}

TEST_F(MatchGroupIndexTest, OnlyARefreshCountsDuplicates) {
  buildSizes({10, 10, 10, 20, 30, 30});
  DuplicateCount = 99;
  for (auto mode : {startMode::none, startMode::newScan, startMode::continueScan}) {
    basSetupMatchGroupInfo("SIZE", mode);
    EXPECT_EQ(DuplicateCount, 99);
  }
  basSetupMatchGroupInfo("SIZE", startMode::refresh);
  EXPECT_EQ(DuplicateCount, 3);
}

TEST_F(MatchGroupIndexTest, NewIndexReplacesTheOldOne) {
  buildCatalogue({{"same", "C:\\", 10}, {"same", "C:\\", 20}, {"same", "C:\\", 30}});
  EXPECT_THAT(groupsBy("SIZE"), ElementsAre(noGroup, Pair(1, 1), Pair(2, 1), Pair(3, 1)));
  EXPECT_THAT(groupsBy("NAME"), ElementsAre(noGroup, Pair(1, 3)));
  EXPECT_EQ(MatchGroupCount, 1);
}

TEST_F(MatchGroupIndexTest, TableGrowsBeyondItsFirstSizeAndKeepsItsGroups) {
  std::vector<int> sizes;
  for (int size = 1; size <= 4500; ++size)
    sizes.push_back(size);
  sizes.push_back(4500);
  buildSizes(sizes);
  basSetupMatchGroupInfo("SIZE", startMode::newScan);

  EXPECT_EQ(MatchGroupCount, 4500);
  EXPECT_EQ(MatchGroupTable.upperBound(), 4500);
  for (int group = 1; group < 4500; ++group) {
    ASSERT_EQ(MatchGroupTable[group].first, group);
    ASSERT_EQ(MatchGroupTable[group].count, 1);
  }
  EXPECT_EQ(MatchGroupTable[4500].first, 4500);
  EXPECT_EQ(MatchGroupTable[4500].count, 2);
}

TEST_F(MatchGroupIndexTest, NamesAreComparedWithTheirCase) {
  buildCatalogue({{"A", "C:\\x"}, {"a", "C:\\x"}, {"a", "C:\\y"}});
  EXPECT_THAT(groupsBy("NAME"), ElementsAre(noGroup, Pair(1, 1), Pair(2, 2)));
}

TEST_F(MatchGroupIndexTest, FilesWithoutMatchAreInNoGroup) {
  buildMatches({noMatch, noMatch, 0, 0, 4});
  EXPECT_THAT(groupsBy("MATCHNUM"), ElementsAre(noGroup, Pair(3, 2), Pair(5, 1)));
}

TEST_F(MatchGroupIndexTest, CatalogueWithoutMatchHasNoGroup) {
  buildMatches({noMatch, noMatch});
  EXPECT_THAT(groupsBy("MATCHNUM"), ElementsAre(noGroup));
  EXPECT_EQ(MatchGroupCount, 0);
}

// The duplicates are then the files less the directories, which is no count of duplicates.
TEST_F(MatchGroupIndexTest, GroupingByDirectoryCountsDuplicatesByDirectory) {
  buildCatalogue({{"a", "C:\\x", 1, 0}, {"b", "C:\\y", 1, 0}});
  basSetupMatchGroupInfo("MATCHNUM", startMode::refresh);
  EXPECT_THAT(groups(), ElementsAre(noGroup, Pair(1, 2)));
  EXPECT_EQ(DuplicateCount, 1);
  basSetupMatchGroupInfo("DIRECTORY", startMode::refresh);
  EXPECT_THAT(groups(), ElementsAre(noGroup, Pair(1, 1), Pair(2, 1)));
  EXPECT_EQ(DuplicateCount, 0);
}

TEST_F(MatchGroupIndexTest, FilesWithoutMatchAreInTheGroupOfTheirDirectory) {
  buildCatalogue({{"a", "C:\\x", 1, 0}, {"b", "C:\\x", 1, noMatch}});
  EXPECT_THAT(groupsBy("DIRECTORY"), ElementsAre(noGroup, Pair(1, 2)));
}

TEST_F(MatchGroupIndexTest, RemovedFilesAtTheFrontMoveTheStart) {
  buildSizes({10, 20, 20});
  markRemoved(1);
  EXPECT_THAT(groupsBy("SIZE"), ElementsAre(noGroup, Pair(2, 2)));
}

// The span of the group is 1 to 3, its count 2.
TEST_F(MatchGroupIndexTest, RemovedFileInsideARunLeavesTheCountShort) {
  buildSizes({10, 10, 10, 20});
  markRemoved(2);
  EXPECT_THAT(groupsBy("SIZE"), ElementsAre(noGroup, Pair(1, 2), Pair(4, 1)));
}

// A group that starts behind the front keeps its start, since the file that opens it is no
// skipped one.
TEST_F(MatchGroupIndexTest, RemovedFileBetweenTwoRunsHidesTheChangeOfKey) {
  buildSizes({10, 10, 20, 20});
  markRemoved(3);
  EXPECT_THAT(groupsBy("SIZE"), ElementsAre(noGroup, Pair(1, 3)));
}

// A removed first file of a run has set the key, so that the next file opens nothing.
TEST_F(MatchGroupIndexTest, RunWhoseFirstFileIsRemovedIsNotOpened) {
  buildSizes({10, 10});
  markRemoved(1);
  EXPECT_THAT(groupsBy("SIZE"), ElementsAre(noGroup));

  buildSizes({10, 10, 20, 30});
  markRemoved(1);
  EXPECT_THAT(groupsBy("SIZE"), ElementsAre(noGroup, Pair(2, 2), Pair(4, 1)));
}

// Files in the root of an archive have a directory without a name, as nothing has before the
// first file: such a run at the front goes into one group with the run behind it.
TEST_F(MatchGroupIndexTest, FirstRunWithAnEmptyKeyJoinsTheNext) {
  buildCatalogue({{"a", "root"}, {"b", "root"}, {"c", "C:\\x"}, {"d", "C:\\y"}});
  DirTable.set(1, {"", dirKind::zipFolder, noParent});
  EXPECT_THAT(groupsBy("DIRECTORY"), ElementsAre(noGroup, Pair(1, 3), Pair(4, 1)));
}

// Seen where a failure keeps the table from being cut to its groups.
TEST_F(MatchGroupIndexTest, GroupPastTheEndMakesRoomFor2000More) {
  std::vector<CatalogueFile> files(2002);
  for (std::size_t i = 0; i < files.size(); ++i)
    files[i].directory = "C:\\" + std::to_string(i);
  files.push_back({"broken", "C:\\"});
  buildCatalogue(files);
  FileTable.FileDirNum[FileCount] = 1'000'000;
  basSetupMatchGroupInfo("DIRECTORY", startMode::newScan);
  EXPECT_EQ(MatchGroupCount, 2001);
  EXPECT_EQ(MatchGroupTable.upperBound(), 4001);
}

TEST_F(MatchGroupIndexTest, FailureLeavesTheTableAsFarAsItGot) {
  buildCatalogue({{"a", "C:\\x"}, {"b", "C:\\y"}, {"c", "C:\\z"}});
  FileTable.FileDirNum[3] = 1'000'000;
  basSetupMatchGroupInfo("DIRECTORY", startMode::newScan);
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basSetupMatchGroupInfo", "Subscript out of range(9)")));
  EXPECT_EQ(MatchGroupCount, 1);
  EXPECT_EQ(MatchGroupTable.upperBound(), 2000);
}

}  // namespace
}  // namespace quernstoke
