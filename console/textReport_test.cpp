#include "console/textReport.h"

#include <gtest/gtest.h>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "console/foundSets.h"
#include "console/machinePaths.h"
#include "console/output.h"
#include "platform/linux/pathMapping.h"
#include "platform/linux/temporaryTree.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

class TextReportTest : public EngineTest {
 protected:
  std::string report(const DriveTable& drives = {}) {
    Output output(tree.path("report"));
    MachinePaths paths(drives);
    groupSets();
    writeTextReport(paths, output);
    output.finish();
    return tree.content("report");
  }

  TemporaryTree tree;
};

TEST_F(TextReportTest, SetsComeInTheOrderOfTheirNumbersWithABlankLineBetween) {
  buildCatalogue(
      {{"c", "C:\\x", 1, 1}, {"a", "C:\\x", 1, 0}, {"d", "C:\\y", 1, 1}, {"b", "C:\\y", 1, 0}});
  const std::string text = report();
  EXPECT_TRUE(text == "/x/a\n/y/b\n\n/x/c\n/y/d\n" || text == "/y/b\n/x/a\n\n/x/c\n/y/d\n" ||
              text == "/x/a\n/y/b\n\n/y/d\n/x/c\n" || text == "/y/b\n/x/a\n\n/y/d\n/x/c\n")
      << text;
}

TEST_F(TextReportTest, WithoutSetsItIsEmpty) {
  buildCatalogue({{"a", "C:\\x"}, {"b", "C:\\x"}});
  EXPECT_EQ(report(), "");
}

TEST_F(TextReportTest, NamesComeBackAsTheyAreOnTheMachine) {
  const std::string name = windowsName("a:b\n\"c\\d\xFF");
  buildCatalogue({{name, "C:", 1, 0}, {name, "C:\\" + windowsName("q?"), 1, 0}});
  const std::string raw = "a:b\n\"c\\d\xFF";
  const std::string text = report();
  EXPECT_TRUE(text == "/" + raw + "\n/q?/" + raw + "\n" ||
              text == "/q?/" + raw + "\n/" + raw + "\n")
      << text;
}

TEST_F(TextReportTest, DrivesLeadToTheirDirectories) {
  buildCatalogue({{"a", "D:\\x", 1, 0}, {"a", "D:\\x", 1, 0}});
  EXPECT_EQ(report(DriveTable::parse("D:=/mnt/data")), "/mnt/data/x/a\n/mnt/data/x/a\n");
}

TEST_F(TextReportTest, DirectoryNamedInAnotherCaseIsShownAsItIs) {
  tree.file("Music/a");
  const std::string directory = tree.programPath("mUSIC");
  buildCatalogue({{"a", directory, 1, 0}, {"a", directory, 1, 0}});
  EXPECT_EQ(report(), tree.path("Music/a\n") + tree.path("Music/a\n"));
}

TEST_F(TextReportTest, ZipEntryIsShownBehindItsArchive) {
  buildCatalogue({{"one", "C:\\x\\a.zip", 1, 0}, {"two", "docs", 1, 0}, {"three", "", 1, 0}});
  DirTable.set(1, {"C:\\x\\a.zip", dirKind::zipFile, noParent, false});
  DirTable.set(2, {"docs", dirKind::zipFolder, 1, false});
  DirTable.set(3, {"", dirKind::zipFolder, 1, false});
  FileTable.FileStatus[statusMatch][1] = noMatch;
  const std::string text = report();
  EXPECT_TRUE(text == "/x/a.zip >> docs/two\n/x/a.zip >> three\n" ||
              text == "/x/a.zip >> three\n/x/a.zip >> docs/two\n")
      << text;
}

}  // namespace
}  // namespace quernstoke
