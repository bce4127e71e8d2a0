#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

TEST_F(EngineTest, FirstStartMakesSettingsAndShowsTheMainWindow) {
  start();

  EXPECT_TRUE(disk.exists("C:\\Quernstoke\\Profiles\\global.settings"));
  EXPECT_TRUE(disk.exists("C:\\Quernstoke\\Profiles\\MyDocs.profile"));
  EXPECT_THAT(logLines(), ElementsAre("Starting quernstoke"));
  EXPECT_THAT(windows, ElementsAre("frmMain load", "frmMain show"));
  EXPECT_TRUE(dialogBoxes.messages.empty());
}

}  // namespace
}  // namespace quernstoke
