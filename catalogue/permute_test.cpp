#include "catalogue/permute.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "testing/expectFailure.h"
#include "testing/tables.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;

std::vector<int> permuted(const std::vector<int>& values, const std::vector<int>& order,
                          Int32 count) {
  Table<Int32> column = tableOf(values);
  permuteRows(column, tableOf(order), count);
  return valuesOf(column);
}

TEST(PermuteRows, EachRowTakesWhatTheNamedRowHad) {
  EXPECT_THAT(permuted({0, 10, 20, 30}, {0, 3, 1, 2}, 3), ElementsAre(0, 30, 10, 20));
}

TEST(PermuteRows, RowZeroAndRowsBeyondTheCountStay) {
  EXPECT_THAT(permuted({5, 10, 20, 30, 40}, {1, 2, 1, 4, 3}, 2), ElementsAre(5, 20, 10, 30, 40));
  EXPECT_THAT(permuted({5, 10}, {0, 0}, 0), ElementsAre(5, 10));
}

TEST(PermuteRows, RowNumberOutsideTheColumnFails) {
  EXPECT_FAILURE(subscriptOutOfRange, permuted({0, 10}, {0, 2}, 1));
}

}  // namespace
}  // namespace quernstoke
