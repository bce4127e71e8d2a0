#include "core/table.h"

#include <gtest/gtest.h>
#include <string>

#include "testing/expectFailure.h"

namespace quernstoke {
namespace {

TEST(TableTest, ANewTableHasRowZeroAlone) {
  Table<Int32> table;
  EXPECT_EQ(table.upperBound(), 0);
  EXPECT_EQ(table[0], 0);
}

TEST(TableTest, SubscriptsOutsideTheBoundsFail) {
  Table<Int32> table;
  table.redim(3, false);
  EXPECT_NO_THROW(table[0] = 1);
  EXPECT_NO_THROW(table[3] = 1);
  EXPECT_FAILURE(subscriptOutOfRange, table[4] = 1);
  EXPECT_FAILURE(subscriptOutOfRange, table[-1] = 1);
}

TEST(TableTest, PreservingKeepsTheRowsThatRemain) {
  Table<std::string> table;
  table.redim(2, false);
  table[1] = "one";
  table[2] = "two";
  table.redim(1, true);
  table.redim(2, true);
  EXPECT_EQ(table[1], "one");
  EXPECT_EQ(table[2], "");
}

TEST(TableTest, WithoutPreservingAllRowsAreEmpty) {
  Table<std::string> table;
  table.redim(2, false);
  table[1] = "one";
  table.redim(2, false);
  EXPECT_EQ(table.upperBound(), 2);
  EXPECT_EQ(table[1], "");
}

TEST(TableTest, AnUpperBoundBelowZeroFailsAndChangesNothing) {
  Table<Int32> table;
  table.redim(2, false);
  EXPECT_THROW(table.redim(-1, false), Failure);
  EXPECT_EQ(table.upperBound(), 2);
}

TEST(TableTest, SwapExchangesRowsAndBounds) {
  Table<Int32> a;
  Table<Int32> b;
  b.redim(1, false);
  b[1] = 5;
  a.swap(b);
  EXPECT_EQ(a[1], 5);
  EXPECT_EQ(b.upperBound(), 0);
}

}  // namespace
}  // namespace quernstoke
