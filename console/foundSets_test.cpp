#include "console/foundSets.h"

#include <gtest/gtest.h>

#include "catalogue/fileTable.h"
#include "console/machinePaths.h"
#include "core/scanState.h"
#include "platform/linux/pathMapping.h"
#include "platform/linux/temporaryTree.h"
#include "results/matchGroupIndex.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

class FoundSetsTest : public EngineTest {};

TEST_F(FoundSetsTest, FilesOfOneMatchNumberAreASet) {
  buildCatalogue(
      {{"c", "C:\\x", 1, 1}, {"a", "C:\\x", 1, 0}, {"d", "C:\\y", 1, 1}, {"b", "C:\\y", 1, 0}});
  const SetCounts counts = groupSets();
  EXPECT_EQ(counts.sets, 2);
  EXPECT_EQ(counts.files, 4);
  EXPECT_EQ(MatchGroupCount, 2);
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, 1, 1));
}

TEST_F(FoundSetsTest, SetOfOneFileIsNone) {
  buildCatalogue(
      {{"a", "C:\\x", 1, 0}, {"b", "C:\\x", 1, 1}, {"b", "C:\\x", 1, 1}, {"c", "C:\\x", 1, 2}});
  const SetCounts counts = groupSets();
  EXPECT_EQ(counts.sets, 1);
  EXPECT_EQ(counts.files, 2);
  EXPECT_EQ(MatchGroupTable.upperBound(), 1);
  EXPECT_EQ(MatchGroupTable[1].first, 2);
  EXPECT_EQ(MatchGroupTable[1].count, 2);
}

TEST_F(FoundSetsTest, FileWithoutANumberIsInNoSet) {
  buildCatalogue({{"a", "C:\\x"}, {"b", "C:\\x"}});
  EXPECT_EQ(groupSets().sets, 0);
}

TEST_F(FoundSetsTest, EmptyCatalogueHasNoGroupsOfAnEarlierPass) {
  buildCatalogue({});
  MatchGroupTable.redim(1, false);
  MatchGroupTable[1] = {1, 2};
  MatchGroupCount = 1;
  EXPECT_EQ(groupSets().sets, 0);
  EXPECT_EQ(MatchGroupCount, 0);
  EXPECT_EQ(MatchGroupTable.upperBound(), 0);
}

TEST_F(FoundSetsTest, CountOfDuplicatesStaysAsTheScanLeftIt) {
  buildCatalogue({{"a", "C:\\x", 1, 0}, {"b", "C:\\x", 1, 0}});
  DuplicateCount = 7;
  groupSets();
  EXPECT_EQ(DuplicateCount, 7);
}

class LeaveOutTest : public FoundSetsTest {
 protected:
  LeaveOutTest() {
    for (const char* name : {"a", "b", "c"})
      tree.file(name, "the same");
    buildCatalogue({{"a", tree.programPath(), 8, 0},
                    {"b", tree.programPath(), 8, 0},
                    {"c", tree.programPath(), 8, 0}});
  }

  TemporaryTree tree;
  DriveTable drives;
  MachinePaths paths{drives};
};

TEST_F(LeaveOutTest, TakesTheFileOutOfItsSet) {
  EXPECT_TRUE(leaveOut(tree.path("b"), paths));
  EXPECT_THAT(matchNumbers(), ElementsAre(0, noMatch, 0));
}

TEST_F(LeaveOutTest, FollowsLinksAsOpeningItWill) {
  tree.link("link", "c");
  EXPECT_TRUE(leaveOut(tree.path("link"), paths));
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, noMatch));
}

TEST_F(LeaveOutTest, AnyOtherFileChangesNothing) {
  tree.file("other", "the same");
  tree.fifo("fifo");
  for (const char* name : {"other", "fifo", "missing", "."})
    EXPECT_FALSE(leaveOut(tree.path(name), paths)) << name;
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0, 0));
}

}  // namespace
}  // namespace quernstoke
