#include "mainui/frmMain.h"

#include <gtest/gtest.h>

#include "mainui/frmMainWindow.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

class MainWindowTest : public EngineTest {
 protected:
};

TEST_F(MainWindowTest, Loads) {
  FormsMainWindow window;
  window.load();
  EXPECT_TRUE(window.isLoaded());
  window.unload();
}

}  // namespace
}  // namespace quernstoke
