#include "testing/startUpState.h"

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/log.h"
#include "core/modMain.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using StartUpStateTest = EngineTest;

TEST_F(StartUpStateTest, AllThatWasDoneIsForgotten) {
  start();
  makeProfile("Music");
  buildCatalogue({{"a.txt", "C:\\Data", 1}});
  resetToStartUpState();
  EXPECT_EQ(AppPath + ExeName + ProfilesDir + TempDir + ProfileName, "");
  EXPECT_EQ(LogFileNumber, 0);
  EXPECT_EQ(FileCount, 0);
  EXPECT_EQ(DirCount, 0);
  EXPECT_EQ(FileTable.FileName.upperBound(), 0);
  EXPECT_EQ(ProfileSettings.MatchingCriteria, "");
  EXPECT_EQ(GlobalSettings.TempPath, "");
  EXPECT_EQ(ProfileList.ProfileNameList[1], "");
}

}  // namespace
}  // namespace quernstoke
