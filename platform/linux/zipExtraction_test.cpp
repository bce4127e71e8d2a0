// What the engine makes of real archives on a real disk.

#include <filesystem>
#include <string>
#include <vector>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "detect/contentCompare.h"
#include "detect/modLinkedList.h"
#include "detect/tempStore.h"
#include "platform/linux/handMadeArchive.h"
#include "platform/linux/linuxFileSystem.h"
#include "platform/linux/packArchive.h"
#include "platform/linux/temporaryTree.h"
#include "platform/linux/zipArchives.h"
#include "platform/platform.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class ZipExtractionTest : public EngineTest {
 protected:
  ZipExtractionTest() {
    platform.files = &realDisk;
    platform.archives = &realArchives;
    usePlatform(platform);
    tree.directory("temp");
    TempDir = tree.programPath("temp");
    TempFileCounter = 1;
    TempSpaceBudgetKB = 100;
  }

  std::string extract(const std::string& folder, const std::string& name, bool keepName = false) {
    return basExtractZipEntry(tree.programPath("a.zip"), folder, name, keepName);
  }
  std::string inTempDir(const std::string& name) const { return TempDir + "\\" + name; }
  // No log is open, so that it comes in a box.
  void expectToldOfFailure() const {
    EXPECT_THAT(dialogBoxes.messages, ElementsAre(HasSubstr("Unable to extract file ")));
  }

  TemporaryTree tree;
  LinuxFileSystem realDisk{DriveTable()};
  ZipArchives realArchives{DriveTable()};
};

TEST_F(ZipExtractionTest, EntryBecomesATempFile) {
  packArchive(tree.path("a.zip"), {{"docs/x[1].txt", "in docs"}, {"x[1].txt", "of the root"}});
  EXPECT_EQ(extract("docs", "x[1].txt"), inTempDir("TMP1"));
  EXPECT_EQ(extract("", "x[1].txt"), inTempDir("TMP2"));
  EXPECT_EQ(tree.content("temp/TMP1"), "in docs");
  EXPECT_EQ(tree.content("temp/TMP2"), "of the root");
  EXPECT_EQ(tree.names("temp").size(), 2U);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ZipExtractionTest, EntryThatKeepsItsNameReplacesNothing) {
  packArchive(tree.path("a.zip"), {{"docs/a.txt", "new"}});
  tree.file("temp/a.txt", "old and longer");
  EXPECT_EQ(extract("docs", "a.txt", true), "");
  EXPECT_EQ(tree.content("temp/a.txt"), "old and longer");
}

TEST_F(ZipExtractionTest, LinkThatLeadsNowhereIsPassedOverAndStays) {
  packArchive(tree.path("a.zip"), {{"a.txt", "of the archive"}});
  tree.link("temp/TMP1", tree.path("gone"));
  tree.link("temp/TMP3", tree.path("gone"));
  EXPECT_EQ(extract("", "a.txt"), inTempDir("TMP2"));
  std::string name;
  realDisk.close(basOpenTempFile(name));
  EXPECT_EQ(name, inTempDir("TMP4"));
  EXPECT_THAT(tree.names("temp"), UnorderedElementsAre("TMP1", "TMP2", "TMP3", "TMP4"));
  EXPECT_FALSE(tree.exists("gone"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ZipExtractionTest, DamagedEntryIsNoFile) {
  std::string bytes = madeByHand({{"a.txt", "12345678"}});
  tree.file("a.zip", bytes.replace(bytes.find("12345678"), 8, "12345679"));
  EXPECT_EQ(extract("", "a.txt"), "");
  EXPECT_THAT(tree.names("temp"), IsEmpty());
  expectToldOfFailure();
}

// Its parent is where a careless look-up would end, and a file there may have the entry's name.
TEST_F(ZipExtractionTest, NothingIsWrittenElsewhereWhenTheTempDirectoryVanishes) {
  packArchive(tree.path("a.zip"), {{"a.txt", "of the archive"}});
  tree.file("a.txt", "a person's own");
  TempDir = tree.programPath("home/temp");
  for (const char* vanishing : {"home/temp", "home"}) {
    tree.directory("home/temp");
    EXPECT_NE(extract("", "a.txt"), "");
    std::filesystem::remove_all(tree.path(vanishing));
    EXPECT_EQ(extract("", "a.txt"), "") << vanishing;
    EXPECT_EQ(extract("", "a.txt", true), "") << vanishing;
  }
  EXPECT_EQ(tree.content("a.txt"), "a person's own");
  EXPECT_FALSE(tree.exists("home"));
  EXPECT_THAT(dialogBoxes.messages, testing::Each(HasSubstr("cannot create a.txt")));
  EXPECT_EQ(dialogBoxes.messages.size(), 4U);
}

// Rows that a growing table added say of block 0 that it is in the copy.
TEST_F(ZipExtractionTest, EntryOfOneBlockInAnAddedRowIsComparedByItsContent) {
  packArchive(tree.path("a.zip"), {{"in/a", "12345"}, {"in/b", "54321"}});
  tree.file("d/c", "12345");
  allocateBlockPool(8, 10);
  buildCatalogue({{"c", tree.programPath("d"), 5}, {"a", "", 5}, {"b", "", 5}});
  bool existed = false;
  const Int32 zip = basAddDirToList(tree.programPath("a.zip"), dirKind::zipFile, noParent, existed);
  for (const int entry : {2, 3}) {
    FileTable.FileDirNum[entry] = basAddDirToList("in", dirKind::zipFolder, zip, existed);
    FileTable.FileLocalPos[localPosLowest][entry] = 0;
    FileTable.FileLocalPos[localPosHighest][entry] = 0;
  }
  EXPECT_EQ(basCompareFileContent(1, 2, 1, 2), 100);
  EXPECT_EQ(basCompareFileContent(1, 3, 1, 2), 0);
  EXPECT_EQ(FileTable.FileStatus[statusState][3], fileState::normal);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

}  // namespace
}  // namespace quernstoke
