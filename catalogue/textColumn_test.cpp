#include "catalogue/textColumn.h"

#include <gtest/gtest.h>
#include <string>

#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

class TextColumnTest : public testing::Test {
 protected:
  TextColumnTest() { column.redim(4, false); }

  TextColumn column;
};

TEST_F(TextColumnTest, RowsAreEmptyUntilSet) {
  column.set(2, "two");

  EXPECT_EQ(column[0], "");
  EXPECT_EQ(column[1], "");
  EXPECT_EQ(column[2], "two");
}

TEST_F(TextColumnTest, TextCanBeReplacedAndEmptied) {
  column.set(1, "a");
  column.set(1, "longer than before");
  EXPECT_EQ(column[1], "longer than before");

  column.set(1, "");
  EXPECT_EQ(column[1], "");
}

TEST_F(TextColumnTest, EveryByteIsKept) {
  const std::string bytes("\0\t\r\n\xff", 5);
  column.set(1, bytes);

  EXPECT_EQ(column[1], bytes);
}

TEST_F(TextColumnTest, TextsBeyondTheFirstPieceStandAsGiven) {
  constexpr int rows = 20000;
  column.redim(rows, true);
  for (int row = 1; row <= rows; ++row)
    column.set(row, "text " + std::to_string(row));

  for (int row = 1; row <= rows; ++row)
    ASSERT_EQ(column[row], "text " + std::to_string(row));
}

TEST_F(TextColumnTest, TextLargerThanAPieceIsTaken) {
  const std::string large(200000, 'x');
  column.set(1, "before");
  column.set(2, large);
  column.set(3, "behind");

  EXPECT_EQ(column[1], "before");
  EXPECT_EQ(column[2], large);
  EXPECT_EQ(column[3], "behind");
}

TEST_F(TextColumnTest, RowCanTakeTheTextOfAnother) {
  column.set(1, "one");
  column.copy(1, 2);
  column.set(3, column[1]);
  column.set(1, "new");

  EXPECT_EQ(column[2], "one");
  EXPECT_EQ(column[3], "one");
}

TEST_F(TextColumnTest, PreservingResizeKeepsTheRowsThatRemain) {
  column.set(1, "one");
  column.set(4, "four");
  column.redim(2, true);
  column.redim(4, true);

  EXPECT_EQ(column[1], "one");
  EXPECT_EQ(column[4], "");
}

TEST_F(TextColumnTest, ResizeThatEmptiesLeavesAColumnToUseAgain) {
  column.set(1, "one");
  column.redim(4, false);
  EXPECT_EQ(column[1], "");

  column.set(2, "two");
  EXPECT_EQ(column[2], "two");
}

TEST_F(TextColumnTest, RowOutsideTheBoundsFails) {
  EXPECT_FAILURE(subscriptOutOfRange, (void)column[5]);
  EXPECT_FAILURE(subscriptOutOfRange, column.set(-1, "x"));
  EXPECT_FAILURE(subscriptOutOfRange, column.copy(1, 5));
}

TEST_F(TextColumnTest, PermutingMovesTheTexts) {
  column.set(1, "a");
  column.set(2, "b");
  column.set(4, "stays");
  Table<Int32> order;
  order.redim(3, false);
  order[1] = 2;
  order[2] = 3;
  order[3] = 1;
  column.permute(order, 3);

  EXPECT_EQ(column[1], "b");
  EXPECT_EQ(column[2], "");
  EXPECT_EQ(column[3], "a");
  EXPECT_EQ(column[4], "stays");
}

}  // namespace
}  // namespace quernstoke
