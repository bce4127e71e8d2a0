// Runs of the built program that read the content of entries of archives.

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "console/runScan.h"
#include "platform/linux/packArchive.h"
#include "platform/linux/temporaryTree.h"

namespace quernstoke {
namespace {

using testing::HasSubstr;

class ZipContentTest : public testing::Test {
 protected:
  ZipContentTest() {
    for (const char* directory : {"tmp", "ann"})
      tree.directory(directory);
    program.environment = {{"TMPDIR", tree.path("tmp")},
                           {"HOME", tree.path("ann")},
                           {"XDG_CONFIG_HOME", ""},
                           {"QUERNSTOKE_HOME", ""},
                           {"QUERNSTOKE_DRIVES", ""}};
    tree.file("in/equal", content);
    packArchive(
        tree.path("in/a.zip"),
        {{"docs/equal", content}, {"docs/other", content.substr(1) + "y"}, {"equal", content}});
    archive = tree.content("in/a.zip");
  }

  RunResult scan() {
    program.arguments = {"--zip", "--match", "C", tree.path("many"), tree.path("in")};
    return program.run();
  }
  // So many pairs of files of one size that are not equal, all smaller than the entries.
  void unequalPairs(int count) const {
    for (int size = 1; size <= count; ++size)
      for (const char letter : {'x', 'y'})
        tree.file("many/" + std::to_string(size) + letter,
                  std::string(static_cast<std::size_t>(size), letter));
  }
  void expectNothingElseWritten() const {
    EXPECT_TRUE(std::filesystem::is_empty(tree.path("tmp")));
    EXPECT_EQ(tree.content("in/a.zip"), archive);
    EXPECT_EQ(tree.content("in/equal"), content);
    const std::filesystem::directory_iterator in(tree.path("in"));
    EXPECT_EQ(std::distance(begin(in), end(in)), 2);
  }

  TemporaryTree tree;
  RunScan program;
  const std::string content = std::string(1999, 'x') + "y" + std::string(500, 'x');
  std::string archive;
};

// The first thousand rows of the catalogue know no place of an extracted entry's blocks.
TEST_F(ZipContentTest, EntriesInASmallCatalogueEqualNothing) {
  unequalPairs(10);
  const RunResult result = scan();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "");
  expectNothingElseWritten();
}

TEST_F(ZipContentTest, EntriesInALargeCatalogueAreComparedByTheirContent) {
  unequalPairs(600);
  const RunResult result = scan();
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.out, HasSubstr(tree.path("in/equal") + "\n"));
  EXPECT_THAT(result.out, HasSubstr(tree.path("in/a.zip >> docs/equal") + "\n"));
  EXPECT_THAT(result.out, HasSubstr(tree.path("in/a.zip >> equal") + "\n"));
  EXPECT_THAT(result.out, testing::Not(HasSubstr("other")));
  expectNothingElseWritten();
}

}  // namespace
}  // namespace quernstoke
