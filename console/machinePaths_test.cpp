#include "console/machinePaths.h"

#include <gtest/gtest.h>

#include "catalogue/dirTable.h"
#include "platform/linux/pathMapping.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

class MachinePathsTest : public EngineTest {
 protected:
  DriveTable drives;
  MachinePaths paths{drives};
};

TEST_F(MachinePathsTest, TellsPathNameAndDirectory) {
  buildCatalogue({{"a", "C:\\x\\y"}, {"b", "C:"}});
  EXPECT_EQ(paths.path(1), "/x/y/a");
  EXPECT_EQ(paths.name(1), "a");
  EXPECT_EQ(paths.directory(1), "/x/y");
  EXPECT_EQ(paths.path(2), "/b");
  EXPECT_EQ(paths.directory(2), "/");
}

TEST_F(MachinePathsTest, NamesAreThoseOfTheMachine) {
  const std::string raw = "a:b\n\"c\\d\xFF";
  buildCatalogue({{windowsName(raw), "C:\\" + windowsName("q?")}});
  EXPECT_EQ(paths.name(1), raw);
  EXPECT_EQ(paths.directory(1), "/q?");
}

// A paused scan may be continued where one of its drives is missing.
TEST_F(MachinePathsTest, DirectoryOfAMissingDriveIsToldAsItIs) {
  buildCatalogue({{"a", "Q:\\x"}});
  EXPECT_EQ(paths.directory(1), "Q:\\x");
  EXPECT_EQ(paths.path(1), "Q:\\x/a");
}

TEST_F(MachinePathsTest, EntriesOfAnArchiveStandBehindIt) {
  buildCatalogue({{"one", "C:\\x\\a.zip"}, {"two", "docs"}, {"three", ""}});
  DirTable.set(1, {"C:\\x\\a.zip", dirKind::zipFile, noParent, false});
  DirTable.set(2, {"docs/old", dirKind::zipFolder, 1, false});
  DirTable.set(3, {"", dirKind::zipFolder, 1, false});
  EXPECT_EQ(paths.path(2), "/x/a.zip >> docs/old/two");
  EXPECT_EQ(paths.directory(2), "/x/a.zip >> docs/old");
  EXPECT_EQ(paths.path(3), "/x/a.zip >> three");
  EXPECT_EQ(paths.directory(3), "/x/a.zip");
}

}  // namespace
}  // namespace quernstoke
