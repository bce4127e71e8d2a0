#include "results/resultsWindow.h"

#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "core/scanState.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::HasSubstr;
using testing::Not;

class LeavingResultsTest : public EngineTest {
 protected:
  LeavingResultsTest() { ProfileName = "Music"; }
  std::string snapshot(const std::string& extension) const {
    return disk.content(ProfilesDir + "\\Music" + extension);
  }
};

using ResultsStatusTest = EngineTest;

TEST_F(ResultsStatusTest, PanelsTellTheFiguresOfTheScan) {
  ProfileName = "Music";
  FileCount = 12;
  DuplicateCount = 7;
  ProfileSettings.ElapsedTime = 3661;
  const auto panels = resultsStatusPanels();
  const char* const texts[] = {"Profile:Music", "Files:12", "Duplicates:7", "Scan time: 1h 1m 1s"};
  for (std::size_t i = 0; i < panels.size(); ++i) {
    EXPECT_EQ(panels[i].number, static_cast<int>(2 * i + 1));
    EXPECT_EQ(panels[i].text, texts[i]);
    EXPECT_EQ(panels[i].tag, "");
  }
}

TEST_F(LeavingResultsTest, CopiesOfZipEntriesGo) {
  buildCatalogue({{"a", "C:\\"}, {"b", "C:\\"}, {"c", "C:\\"}});
  disk.file(TempDir + "\\a", "copy");
  disk.file(TempDir + "\\other", "a person's");
  disk.file("C:\\mine\\b", "not in the directory for copies");
  FileTable.FileLocalName.set(1, TempDir + "\\a");
  FileTable.FileLocalName.set(2, "C:\\mine\\b");
  FileTable.FileLocalName.set(3, TempDir + "\\gone");
  leaveResults();
  EXPECT_FALSE(disk.exists(TempDir + "\\a"));
  EXPECT_TRUE(disk.exists("C:\\mine\\b"));
  EXPECT_TRUE(disk.exists(TempDir + "\\other"));
}

// A copy that is gone can be made again, and a later file of its name is a person's own.
TEST_F(LeavingResultsTest, CopiesThatAreGoneAreForgotten) {
  buildCatalogue({{"a", "C:\\"}, {"b", "C:\\"}});
  disk.file(TempDir + "\\a", "copy");
  FileTable.FileLocalName.set(1, TempDir + "\\a");
  FileTable.FileLocalName.set(2, TempDir + "\\gone");
  leaveResults();
  EXPECT_THAT(snapshot(".files"), Not(HasSubstr(TempDir)));
  disk.file(TempDir + "\\a", "a person's");
  disk.file(TempDir + "\\gone", "a person's");
  leaveResults();
  EXPECT_EQ(disk.content(TempDir + "\\a"), "a person's");
  EXPECT_EQ(disk.content(TempDir + "\\gone"), "a person's");
}

TEST_F(LeavingResultsTest, CopyThatCannotBeDeletedIsRemembered) {
  buildCatalogue({{"a", "C:\\"}});
  disk.file(TempDir + "\\a", "copy");
  FileTable.FileLocalName.set(1, TempDir + "\\a");
  disk.failOn(DiskAction::remove, TempDir + "\\a", FailureNumber::permissionDenied);
  leaveResults();
  EXPECT_EQ(FileTable.FileLocalName[1], TempDir + "\\a");
}

TEST_F(LeavingResultsTest, TicksAndDeletionsReachTheDisk) {
  buildCatalogue({{"a", "C:\\", 5, 2}});
  leaveResults();
  const std::string before = snapshot(".files");
  EXPECT_THAT(snapshot(".dir"), HasSubstr("C:\\"));
  FileTable.FileStatus[statusTick][1] = 1;
  leaveResults();
  const std::string ticked = snapshot(".files");
  EXPECT_NE(ticked, before);
  FileTable.FileStatus[statusState][1] = fileState::deleted;
  leaveResults();
  EXPECT_NE(snapshot(".files"), ticked);
}

}  // namespace
}  // namespace quernstoke
