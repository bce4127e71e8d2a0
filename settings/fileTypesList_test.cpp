#include "settings/fileTypesList.h"

#include "settings/settings.h"
#include "testing/engineTest.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::Pair;

class FileTypesListTest : public EngineTest {
 protected:
  ScriptedList list;
};

TEST_F(FileTypesListTest, ItemsAreTheDescriptionsWithTheirRows) {
  list.add("left over", 7);
  FileTypeTable.FileTypeDescription[1] = "All files";
  FileTypeTable.FileTypeDescription[3] = "Video";
  FileTypeTable.FileTypesList[2] = "*.mp3";
  basBuildFileTypesList(list);

  EXPECT_THAT(list.items, ElementsAre(Pair("All files", 1), Pair("Video", 3)));
}

// Rows above stay out, though the table has fifty.
TEST_F(FileTypesListTest, OnlyTheFirstTenRowsAreListed) {
  for (Int32 row = 0; row <= lastFileTypeRow; ++row)
    FileTypeTable.FileTypeDescription[row] = "type";
  basBuildFileTypesList(list);

  ASSERT_EQ(list.items.size(), 10U);
  EXPECT_EQ(list.items.front().second, 1);
  EXPECT_EQ(list.items.back().second, 10);
}

TEST_F(FileTypesListTest, LastItemOfARowGivesThePosition) {
  list.items = {{"a", 4}, {"b", 6}, {"c", 4}, {"d", 8}};

  EXPECT_EQ(basGetSetFileTypePos(list, 4), 2);
  EXPECT_EQ(basGetSetFileTypePos(list, 6), 1);
}

TEST_F(FileTypesListTest, PositionOfARowThatIsNotListedIsZero) {
  list.items = {{"a", 4}, {"b", 6}};

  EXPECT_EQ(basGetSetFileTypePos(list, 5), 0);
  EXPECT_EQ(basGetSetFileTypePos(ScriptedList(), 5), 0);
}

}  // namespace
}  // namespace quernstoke
