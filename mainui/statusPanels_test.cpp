#include "mainui/statusPanels.h"

#include "catalogue/dirTable.h"
#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "core/scanState.h"
#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

class MainStatusBarTest : public EngineTest {
 protected:
  static std::string text(std::size_t position) { return mainStatusPanels().at(position).text; }
  static std::string wordFor(int runMode) {
    ProfileSettings.RunMode = runMode;
    return text(4);
  }
};

TEST_F(MainStatusBarTest, OddPanelsCarryTheFiguresAndTheirHelp) {
  ProfileName = "Music";
  FileCount = 12000;
  DirCount = 34;
  DuplicateCount = 56;
  std::vector<int> numbers;
  std::vector<std::string> texts, tags;
  for (const PanelText& panel : mainStatusPanels()) {
    numbers.push_back(panel.number);
    texts.push_back(panel.text);
    tags.emplace_back(panel.tag);
  }

  EXPECT_THAT(numbers, ElementsAre(1, 3, 5, 7, 9));
  EXPECT_THAT(texts, ElementsAre("Profile: Music", "Files: 12000", "Directories: 34",
                                 "Duplicates: 56", "State: Finished"));
  EXPECT_THAT(tags, ElementsAre("150", "151", "152", "153", "154"));
}

TEST_F(MainStatusBarTest, DuplicatesOfAProfileNeverScannedAreUnknown) {
  DuplicateCount = -1;
  EXPECT_EQ(text(3), "Duplicates: ?");
  DuplicateCount = 0;
  EXPECT_EQ(text(3), "Duplicates: 0");
}

// A profile that was never scanned reads as finished, one scanned to its end as completed.
TEST_F(MainStatusBarTest, StateIsToldInAWord) {
  EXPECT_EQ(wordFor(0), "State: Finished");
  EXPECT_EQ(wordFor(2), "State: Paused");
  EXPECT_EQ(wordFor(4), "State: Aborted");
  EXPECT_EQ(wordFor(6), "State: Completed");
  for (const int mode : {-1, 1, 3, 5, 7})
    EXPECT_EQ(wordFor(mode), "State: Unknown");
}

}  // namespace
}  // namespace quernstoke
