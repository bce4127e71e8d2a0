#include "catalogue/walkRoot.h"

#include "catalogue/dirTable.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

class WalkRootTest : public EngineTest {
 protected:
  static Int32 add(const char* name, Int32 parent = noParent) {
    bool existed = false;
    return basAddDirToList(name, dirKind::directory, parent, existed);
  }
};

TEST_F(WalkRootTest, IsTheNearestDirectoryThatWasNamed) {
  add("C:\\a");
  const Int32 inner = add("C:\\a\\b");
  add("C:\\a\\b\\c", inner);
  EXPECT_EQ(walkRootOf("C:\\a\\b\\c"), "C:\\a\\b");
  EXPECT_EQ(walkRootOf("C:\\a\\b"), "C:\\a\\b");
  EXPECT_EQ(walkRootOf("C:\\a\\bb"), "C:\\a");
}

TEST_F(WalkRootTest, IsNoneWhereNoDirectoryAboveWasNamed) {
  add("C:\\a");
  EXPECT_EQ(walkRootOf("C:\\ab"), std::nullopt);
}

}  // namespace
}  // namespace quernstoke
