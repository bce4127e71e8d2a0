#include "core/modMain.h"

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "catalogue/modUnzip.h"
#include "core/log.h"
#include "core/text.h"
#include "core/version.h"
#include "detect/modLinkedList.h"
#include "detect/refinement.h"
#include "detect/tempStore.h"
#include "mainui/modalForms.h"
#include "results/matchGroupIndex.h"
#include "settings/profileStore.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ModMainTest : public EngineTest {
 protected:
  std::vector<std::string> madeDirectories() const { return disk.paths(DiskAction::makeDirectory); }
};

TEST_F(ModMainTest, AFirstStartMakesItsDirectoriesAndSettings) {
  disk.erase("C:\\Quernstoke\\Profiles");
  disk.erase("C:\\Quernstoke\\Temp");
  start();
  EXPECT_THAT(madeDirectories(), ElementsAre("C:\\Quernstoke\\Profiles", "C:\\Quernstoke\\Temp"));
  EXPECT_THAT(disk.names("C:\\Quernstoke\\Profiles"),
              ElementsAre("MyDocs.profile", "global.settings"));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ModMainTest, DirectoriesThatAreThereStay) {
  disk.file("C:\\Quernstoke\\Temp\\TMP1", "left over");
  start();
  EXPECT_THAT(madeDirectories(), IsEmpty());
  // Only the next scan clears the local copies.
  EXPECT_TRUE(disk.exists("C:\\Quernstoke\\Temp\\TMP1"));
}

TEST_F(ModMainTest, EveryPathFollowsFromWhereTheProgramLies) {
  AppPath = "C:\\Elsewhere";
  ExeName = "finder";
  disk.directory("C:\\Elsewhere");
  start();
  EXPECT_EQ(ProfilesDir, "C:\\Elsewhere\\Profiles");
  EXPECT_EQ(TempDir, "C:\\Elsewhere\\Temp");
  EXPECT_TRUE(disk.exists("C:\\Elsewhere\\Profiles\\global.settings"));
  EXPECT_EQ(disk.content("C:\\Elsewhere\\finder.log"), "2004-11-02 16:41:08 - Starting finder\r\n");
}

TEST_F(ModMainTest, AStartCutsTheLogOfTheOneBefore) {
  disk.file(logPath, "2004-11-01 09:00:00 - old\r\n");
  start();
  EXPECT_THAT(logLines(), ElementsAre("Starting quernstoke"));
  EXPECT_GT(LogFileNumber, 0);
}

TEST_F(ModMainTest, AStartWithoutALogEndsInTheBox) {
  disk.failOn(DiskAction::open, logPath, FailureNumber::permissionDenied);
  start();
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("Main", "Permission denied(70)")));
  EXPECT_THAT(windows, IsEmpty());
}

TEST_F(ModMainTest, AStartThatCannotMakeADirectoryIsLoggedAndEndsInTheBox) {
  disk.erase("C:\\Quernstoke\\Profiles");
  disk.failOn(DiskAction::makeDirectory, "C:\\Quernstoke\\Profiles",
              FailureNumber::permissionDenied);
  start();
  EXPECT_THAT(dialogBoxes.messages, ElementsAre(procedureError("Main", "Permission denied(70)")));
  EXPECT_THAT(logLines(), ElementsAre("Starting quernstoke"));
  EXPECT_THAT(windows, IsEmpty());
}

// A first start would allocate some of them once more, when it makes its first settings.
TEST_F(ModMainTest, EveryStartAllocatesTheTables) {
  start();
  buildCatalogue({{"a.txt", "C:\\Data", 1}});
  MatchGroupTable.redim(5, false);
  FilePointerArray.redim(5, false);
  allocateBlockPool(16, 4);
  ProfileDirList.redim(0, false);
  ZipEntryList.redim(0, false);
  FileTypeTable.FileTypeDescription.redim(0, false);
  FileTypeTable.FileTypesList.redim(0, false);
  TempUsedKB = 9;
  start();
  EXPECT_EQ(FileTable.FileName.upperBound(), 0);
  EXPECT_EQ(DirTable.upperBound(), 0);
  EXPECT_EQ(MatchGroupTable.upperBound(), 0);
  EXPECT_EQ(FilePointerArray.upperBound(), 0);
  EXPECT_EQ(BlockPoolNext.upperBound(), 0);
  EXPECT_EQ(BlockPoolCount, 0);
  EXPECT_THROW(BlockPoolData[1], Failure);
  EXPECT_EQ(ProfileDirList.upperBound(), 128);
  EXPECT_EQ(ZipEntryList.upperBound(), 128);
  EXPECT_EQ(FileTypeTable.FileTypeDescription.upperBound(), 50);
  EXPECT_EQ(FileTypeTable.FileTypesList.upperBound(), 50);
  EXPECT_EQ(TempUsedKB, 0);
  EXPECT_TRUE(dialogBoxes.messages.empty());
}

TEST_F(ModMainTest, TheMainWindowIsCalledByTheProgramsVersion) {
  start();
  EXPECT_EQ(mainWindow.caption, mainCaption(programVersion));
}

TEST_F(ModMainTest, AStartLoadsTheGlobalSettings) {
  start();
  GlobalSettings.FileBufferSize = 4096;
  basSaveProfile("GLOBAL");
  GlobalSettings = {};
  start();
  EXPECT_EQ(GlobalSettings.FileBufferSize, 4096);
}

TEST_F(ModMainTest, SplashScreenComesBetweenTheSettingsAndTheMainWindow) {
  modalForms.frmSplashScreen = [this] {
    windows.push_back("splash with " + toText(GlobalSettings.NumberOfFileBuffers) + " buffers");
  };
  start();
  modalForms = {};
  EXPECT_THAT(windows, ElementsAre("splash with 500 buffers", "frmMain load", "frmMain show"));
}

TEST_F(ModMainTest, NoProfileIsSelectedAfterAStart) {
  start();  // A first one clears the name for its own reasons.
  ProfileName = "Music";
  start();
  EXPECT_EQ(ProfileName, "");
}

TEST_F(ModMainTest, AProfileKnownBeforeTheWindowLoadsIsTaken) {
  CommandLineProfile = "Music";
  start();
  EXPECT_EQ(ProfileName, "Music");
  EXPECT_THAT(windows, ElementsAre("frmMain load", "frmMain show"));
}

}  // namespace
}  // namespace quernstoke
