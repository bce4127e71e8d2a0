#include "core/probes.h"

#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

using ProbesTest = EngineTest;

TEST_F(ProbesTest, ADirectoryIsWhatCanBeEntered) {
  disk.file("C:\\Data\\a.txt", "a");
  EXPECT_TRUE(basDirExists("C:\\Data"));
  EXPECT_TRUE(basDirExists("C:\\"));
  EXPECT_FALSE(basDirExists("C:\\Data\\a.txt"));
  EXPECT_FALSE(basDirExists("C:\\Gone"));
  EXPECT_FALSE(basDirExists("Q:\\"));
  EXPECT_FALSE(basDirExists(""));
  EXPECT_TRUE(dialogBoxes.messages.empty());
}

TEST_F(ProbesTest, AFileExistsAndADirectoryIsNone) {
  disk.file("C:\\Data\\a.txt", "a");
  EXPECT_TRUE(basFileExists("C:\\Data\\a.txt"));
  EXPECT_FALSE(basFileExists("C:\\Data"));
  EXPECT_FALSE(basFileExists("C:\\Data\\b.txt"));
  EXPECT_FALSE(basFileExists("C:\\Gone\\a.txt"));
  EXPECT_FALSE(basFileExists(""));
  EXPECT_TRUE(dialogBoxes.messages.empty());
}

TEST_F(ProbesTest, HiddenReadOnlyAndSystemFilesExist) {
  for (const int attribute : {attributeReadOnly, attributeHidden, attributeSystem}) {
    disk.file("C:\\Data\\a.txt", "a");
    disk.setAttributes("C:\\Data\\a.txt", attribute);
    EXPECT_TRUE(basFileExists("C:\\Data\\a.txt")) << attribute;
    EXPECT_TRUE(basFileExists("C:\\Data\\*.txt")) << attribute;
  }
}

TEST_F(ProbesTest, WildcardsAreHonoured) {
  disk.file("C:\\Data\\Report.TXT", "a");
  EXPECT_TRUE(basFileExists("C:\\Data\\rep*.txt"));
  EXPECT_TRUE(basFileExists("C:\\Data\\Repor?.*"));
  EXPECT_FALSE(basFileExists("C:\\Data\\*.doc"));
  EXPECT_FALSE(basFileExists("C:\\Gone\\*.*"));
}

TEST_F(ProbesTest, WildcardsFindNoDirectory) {
  disk.directory("C:\\Data\\sub");
  EXPECT_FALSE(basFileExists("C:\\Data\\*.*"));
}

TEST_F(ProbesTest, AProbeThatFailsFindsNothing) {
  disk.file("C:\\Data\\a.txt", "a");
  disk.failOn(DiskAction::attributes, "", FailureNumber::deviceError);
  disk.failOn(DiskAction::list, "", FailureNumber::deviceError);
  EXPECT_FALSE(basFileExists("C:\\Data\\a.txt"));
  EXPECT_FALSE(basFileExists("C:\\Data\\*.txt"));
  EXPECT_TRUE(dialogBoxes.messages.empty());
}

TEST_F(ProbesTest, DeletesTheFilesThatFit) {
  for (const char* name : {"TMP", "TMP1", "tmp2.x", "TMPlate.doc", "ATMP1", "TM1"})
    disk.file("C:\\Data\\" + std::string(name), "");
  deleteFiles("C:\\Data\\TMP*.*");
  EXPECT_THAT(disk.names("C:\\Data"), ElementsAre("ATMP1", "TM1"));
}

TEST_F(ProbesTest, DeletingLeavesDirectoriesAndHiddenFiles) {
  disk.directory("C:\\Data\\TMP1");
  disk.file("C:\\Data\\TMP2", "");
  disk.setAttributes("C:\\Data\\TMP2", attributeHidden);
  deleteFiles("C:\\Data\\TMP*.*");
  EXPECT_THAT(disk.names("C:\\Data"), ElementsAre("TMP1", "TMP2"));
}

TEST_F(ProbesTest, AFileThatCannotBeDeletedKeepsNoOtherAlive) {
  disk.file("C:\\Data\\TMP1", "");
  disk.setAttributes("C:\\Data\\TMP1", attributeReadOnly);
  disk.file("C:\\Data\\TMP2", "");
  deleteFiles("C:\\Data\\TMP*.*");
  EXPECT_THAT(disk.names("C:\\Data"), ElementsAre("TMP1"));
}

TEST_F(ProbesTest, DeletingInAMissingDirectoryIsNoFailure) {
  EXPECT_NO_THROW(deleteFiles("C:\\Gone\\TMP*.*"));
  EXPECT_TRUE(dialogBoxes.messages.empty());
}

}  // namespace
}  // namespace quernstoke
