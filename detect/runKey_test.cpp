#include "detect/runKey.h"

#include <vector>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

using RunKeyTest = EngineTest;

enum Step { other, same, skipped, skippedOther };

std::vector<Step> stepsBy(std::string_view key) {
  RunKey runKey(key);
  std::vector<Step> steps;
  for (Int32 file = 1; file <= FileCount; ++file) {
    const RunStep step = runKey.next(file);
    if (step.skip)
      steps.push_back(step.same ? skipped : skippedOther);
    else
      steps.push_back(step.same ? same : other);
  }
  return steps;
}

void markRemoved(int file) {
  FileTable.FileStatus[statusState][file] = fileState::removed;
}

TEST_F(RunKeyTest, RunBySizeEndsWhereTheSizeChanges) {
  buildCatalogue({{"a", "C:\\", 0}, {"b", "C:\\", 0}, {"c", "C:\\", 7}, {"d", "C:\\", 0}});
  EXPECT_THAT(stepsBy("SIZE"), ElementsAre(other, same, other, other));
}

TEST_F(RunKeyTest, NamesThatDifferInCaseAreDifferentKeys) {
  buildCatalogue({{"A", "C:\\"}, {"a", "C:\\"}, {"a", "D:\\"}});
  EXPECT_THAT(stepsBy("NAME"), ElementsAre(other, other, same));
}

TEST_F(RunKeyTest, DirectoriesAreComparedByTheirText) {
  buildCatalogue({{"a", "C:\\x"}, {"b", "C:\\y"}, {"c", "C:\\X"}, {"d", "C:\\z"}});
  DirTable.set(2, DirTable[1]);
  EXPECT_THAT(stepsBy("DIRECTORY"), ElementsAre(other, same, other, other));
}

TEST_F(RunKeyTest, FileWithoutMatchIsSkippedAndDoesNotEndARun) {
  buildCatalogue(
      {{"a", "C:\\", 1, 0}, {"b", "C:\\", 1, noMatch}, {"c", "C:\\", 1, 0}, {"d", "C:\\", 1, 1}});
  EXPECT_THAT(stepsBy("MATCHNUM"), ElementsAre(other, skipped, same, other));
}

// Its key is looked at all the same, so that the next file of that key begins no run.
TEST_F(RunKeyTest, RemovedFileIsSkippedButItsKeyCounts) {
  buildCatalogue({{"a", "C:\\1", 10, 0}, {"b", "C:\\2", 20, 1}, {"b", "C:\\2", 20, 1}});
  markRemoved(2);
  for (const char* key : {"NAME", "SIZE", "MATCHNUM", "DIRECTORY"})
    EXPECT_THAT(stepsBy(key), ElementsAre(other, skippedOther, same)) << key;
}

// Nothing stands before the first file: no text, and -1 for a number.
TEST_F(RunKeyTest, FirstFileWithAnEmptyKeyIsInARunAlready) {
  buildCatalogue({{"", "root", -1, -1}, {"a", "C:\\", 0, 0}});
  DirTable.set(1, {});
  for (const char* key : {"NAME", "SIZE", "MATCHNUM", "DIRECTORY"})
    EXPECT_THAT(stepsBy(key), ElementsAre(same, other)) << key;
}

TEST_F(RunKeyTest, AnyOtherKeyMakesAllFilesOneRun) {
  buildCatalogue({{"a", "C:\\1", 10, 0}, {"b", "C:\\2", 20, 1}, {"c", "C:\\3", 30, noMatch}});
  markRemoved(2);
  EXPECT_THAT(stepsBy("DATE"), ElementsAre(same, skipped, same));
}

}  // namespace
}  // namespace quernstoke
