#include "mainui/profileSelection.h"

#include <string>

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "catalogue/snapshots.h"
#include "core/modMain.h"
#include "core/scanState.h"
#include "settings/profileStore.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ProfileSelectionTest : public EngineTest {
 protected:
  // The profile "Music" with what a scan left of two files in two directories; the tables and
  // settings in memory are then those of some other profile.
  void leaveScan() {
    makeProfile("Music");
    ProfileSettings.NumDuplicates = 1;
    basSaveProfile("PROFILE");
    buildCatalogue({{"a.mp3", "C:\\A", 10, 0}, {"b.mp3", "C:\\B", 10, 0}});
    basSaveFilesList();
    basSaveDirTable();
    buildCatalogue({{"other", "C:\\Other"}});
    DuplicateCount = 99;
    ProfileSettings = {};
  }
  static bool select(const std::string& name) {
    ProfileName = name;
    bool ok = false;
    basProcessProfileSelection(ok);
    return ok;
  }
};

TEST_F(ProfileSelectionTest, BringsBackWhatTheLastScanLeft) {
  leaveScan();
  EXPECT_TRUE(select("Music"));

  EXPECT_EQ(ProfileSettings.NumDuplicates, 1);
  EXPECT_EQ(DuplicateCount, 1);
  EXPECT_THAT(fileNames(), ElementsAre("a.mp3", "b.mp3"));
  EXPECT_THAT(matchNumbers(), ElementsAre(0, 0));
  EXPECT_EQ(basGetDirnameFromFilenum(2), "C:\\B");
  EXPECT_EQ(FileTable.FileName.upperBound(), 2);
  EXPECT_EQ(DirTable.upperBound(), 2);
  // The positions of local copies are not those of an unused row.
  EXPECT_EQ(FileTable.FileLocalPos[localPosLowest][1], -1);
}

// While the window is painted, the person may close it or start a scan, which has its own tables.
TEST_F(ProfileSelectionTest, EndsIfTheWindowIsGoneMeanwhile) {
  leaveScan();
  windows.clear();
  eventLoop.onYield = [this] { mainWindow.loaded = false; };
  EXPECT_FALSE(select("Music"));

  EXPECT_THAT(windows, ElementsAre("frmMain basUpdateProfileObjects Music"));
  EXPECT_THAT(fileNames(), ElementsAre("other"));
}

TEST_F(ProfileSelectionTest, ShowsTheSettingsBeforeTheListsAndTheStatusBarAfterThem) {
  leaveScan();
  eventLoop.onYield = [this] {
    EXPECT_THAT(windows, ElementsAre("frmMain basUpdateProfileObjects Music"));
    EXPECT_EQ(DuplicateCount, 1);
    EXPECT_THAT(fileNames(), ElementsAre("other"));
  };
  select("Music");

  EXPECT_EQ(eventLoop.yields, 1);
  EXPECT_THAT(windows,
              ElementsAre("frmMain basUpdateProfileObjects Music", "frmMain basUpdateStatusBar"));
}

TEST_F(ProfileSelectionTest, ProfileThatWasNeverScannedHasEmptyTables) {
  makeProfile("Music");
  buildCatalogue({{"other", "C:\\Other"}});
  EXPECT_TRUE(select("Music"));

  EXPECT_EQ(DuplicateCount, -1);
  EXPECT_EQ(FileCount, 0);
  EXPECT_EQ(DirCount, 0);
  EXPECT_EQ(FileTable.FileName.upperBound(), 5000);
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ProfileSelectionTest, WithoutANameOrAFileNothingChanges) {
  leaveScan();
  disk.calls.clear();
  EXPECT_FALSE(select(""));
  EXPECT_THAT(disk.calls, IsEmpty());
  EXPECT_FALSE(select("Nobody"));

  EXPECT_THAT(fileNames(), ElementsAre("other"));
  EXPECT_EQ(DuplicateCount, 99);
  EXPECT_EQ(eventLoop.yields, 0);
  EXPECT_THAT(windows, IsEmpty());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ProfileSelectionTest, FailureOnTheWayIsToldAndReportedAsFalse) {
  leaveScan();
  eventLoop.onYield = [] { fail(FailureNumber::outOfMemory); };

  EXPECT_FALSE(select("Music"));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basProcessProfileSelection", "Out of memory(7)")));
}

}  // namespace
}  // namespace quernstoke
