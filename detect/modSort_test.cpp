#include "detect/modSort.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

#include "testing/engineTest.h"
#include "testing/tables.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using SortTest = EngineTest;
using Numbers = std::vector<int>;

TextColumn columnOf(const std::vector<std::string>& texts) {
  TextColumn column;
  column.redim(texts.size() - 1, false);
  for (std::size_t i = 0; i < texts.size(); ++i)
    column.set(i, texts[i]);
  return column;
}

// 0 to `last`.
Numbers upTo(int last) {
  Numbers numbers(static_cast<std::size_t>(last) + 1);
  std::iota(numbers.begin(), numbers.end(), 0);
  return numbers;
}

Numbers sortedByNumber(int lo, int hi, const Numbers& keys, const Numbers& pointers) {
  Table<Int32> table = tableOf(pointers);
  basHeapSortByNumber(lo, hi, tableOf(keys), table);
  return valuesOf(table);
}

Numbers sortedByText(int lo, int hi, const std::vector<std::string>& keys,
                     const Numbers& pointers) {
  Table<Int32> table = tableOf(pointers);
  basHeapSortByText(lo, hi, columnOf(keys), table);
  return valuesOf(table);
}

// The same heap sort once more, as plainly as can be: the order of equal keys must never change
// with the way in which the program gets there.
class PlainHeap {
 public:
  PlainHeap(std::size_t lo, const Numbers& keys, const Numbers& slots)
      : lo_(lo), keys_(keys), slots_(slots) {}

  Numbers sortedUpTo(std::size_t hi) {
    for (std::size_t i = (lo_ + hi) / 2 + 1; i-- > lo_;)
      sink(i, hi);
    for (std::size_t k = hi; k > lo_; --k) {
      std::swap(slots_[lo_], slots_[k]);
      sink(lo_, k - 1);
    }
    return slots_;
  }

 private:
  int key(std::size_t slot) const { return keys_[static_cast<std::size_t>(slots_[slot])]; }

  void sink(std::size_t node, std::size_t hi) {
    std::size_t child = 2 * node + 1 - lo_;
    if (child > hi) return;
    if (child + 1 <= hi && key(child) < key(child + 1)) child += 1;
    if (key(child) < key(node)) return;
    std::swap(slots_[node], slots_[child]);
    sink(child, hi);
  }

  std::size_t lo_;
  Numbers keys_;
  Numbers slots_;
};

// All ways to give `count` slots, behind one that is not used, one of `values` keys.
std::vector<Numbers> allKeys(int count, int values) {
  std::vector<Numbers> all = {{0}};
  for (int i = 0; i < count; ++i) {
    std::vector<Numbers> longer;
    for (Numbers keys : all) {
      keys.push_back(0);
      for (int value = 1; value <= values; ++value) {
        keys.back() = value;
        longer.push_back(keys);
      }
    }
    all = std::move(longer);
  }
  return all;
}

std::vector<std::string> textsFor(const Numbers& keys, const std::vector<std::string>& texts) {
  std::vector<std::string> result;
  for (int key : keys)
    result.push_back(texts[static_cast<std::size_t>(key)]);
  return result;
}

// Slot 0 first, which takes no part.
const std::vector<Numbers> orderOfEqualKeys = {
    {0, 1},
    {0, 1, 2},
    {0, 3, 1, 2},
    {0, 3, 1, 2, 4},
    {0, 3, 5, 1, 2, 4},
    {0, 6, 5, 3, 1, 2, 4},
    {0, 6, 5, 3, 7, 1, 2, 4},
    {0, 6, 5, 3, 7, 1, 2, 4, 8},
};

// Protects the swap of a node with a child that is its equal.
TEST_F(SortTest, HeapSortMixesEqualNumbersInItsOwnWay) {
  for (int count = 1; count <= 8; ++count)
    EXPECT_EQ(sortedByNumber(1, count, Numbers(9, 42), upTo(count)),
              orderOfEqualKeys[static_cast<std::size_t>(count) - 1]);
}

TEST_F(SortTest, HeapSortMixesEqualTextsInTheSameWay) {
  for (int count = 1; count <= 8; ++count)
    for (const std::string text : {"", "a.txt", "a much longer name.txt"})
      EXPECT_EQ(sortedByText(1, count, std::vector<std::string>(9, text), upTo(count)),
                orderOfEqualKeys[static_cast<std::size_t>(count) - 1]);
}

TEST_F(SortTest, TwoKeysComeOutInTheOrderOfTheSteps) {
  EXPECT_THAT(sortedByNumber(1, 5, {0, 10, 10, 20, 20, 20}, upTo(5)),
              ElementsAre(0, 1, 2, 3, 5, 4));
  EXPECT_THAT(sortedByNumber(1, 6, {0, 2, 1, 2, 1, 2, 1}, upTo(6)),
              ElementsAre(0, 2, 6, 4, 3, 1, 5));
}

TEST_F(SortTest, ThreeKeysComeOutInTheOrderOfTheSteps) {
  EXPECT_THAT(sortedByNumber(1, 7, {0, 3, 1, 2, 3, 1, 2, 3}, upTo(7)),
              ElementsAre(0, 5, 2, 6, 3, 7, 1, 4));
}

TEST_F(SortTest, EveryMixOfUpToThreeNumbersComesOutInTheOrderOfTheSteps) {
  for (int count = 1; count <= 7; ++count)
    for (const Numbers& keys : allKeys(count, 3))
      ASSERT_EQ(sortedByNumber(1, count, keys, upTo(count)),
                PlainHeap(1, keys, upTo(count)).sortedUpTo(static_cast<std::size_t>(count)))
          << testing::PrintToString(keys);
}

// Texts that differ early, late, past any beginning that may be looked at first, or in length only.
TEST_F(SortTest, EveryMixOfUpToThreeTextsComesOutInTheOrderOfTheSteps) {
  const std::vector<std::vector<std::string>> triples = {
      {"", "a", "b", "c"},
      {"", "", "a", "ab"},
      {"", "photos of 2003.jpg", "photos of 2004.jpg", "photos of 2004.jpg.bak"},
      {"", "twelve bytes", "twelve bytes.", "twelve bytes/"},
  };
  for (const auto& texts : triples)
    for (int count = 1; count <= 6; ++count)
      for (const Numbers& keys : allKeys(count, 3))
        ASSERT_EQ(sortedByText(1, count, textsFor(keys, texts), upTo(count)),
                  PlainHeap(1, keys, upTo(count)).sortedUpTo(static_cast<std::size_t>(count)))
            << testing::PrintToString(textsFor(keys, texts));
}

TEST_F(SortTest, AnyPartOfTheSlotsCanBeSorted) {
  const Numbers keys = {5, 1, 5, 3, 1, 5, 2, 3};
  const Numbers pointers = {3, 7, 0, 5, 1, 2, 4, 6};
  for (int lo = 0; lo <= 6; ++lo) {
    const Numbers expected = PlainHeap(static_cast<std::size_t>(lo), keys, pointers).sortedUpTo(6);
    EXPECT_EQ(sortedByNumber(lo, 6, keys, pointers), expected);
    EXPECT_EQ(sortedByText(lo, 6, textsFor(keys, {"", "1", "2", "3", "", "5"}), pointers),
              expected);
  }
}

TEST_F(SortTest, OneSlotStaysAsItIs) {
  EXPECT_THAT(sortedByNumber(2, 2, {3, 2, 1}, {0, 2, 1}), ElementsAre(0, 2, 1));
  EXPECT_THAT(sortedByText(2, 2, {"c", "b", "a"}, {0, 2, 1}), ElementsAre(0, 2, 1));
}

TEST_F(SortTest, NumbersAreSortedWithTheirSigns) {
  constexpr int lowest = std::numeric_limits<std::int32_t>::min();
  constexpr int highest = std::numeric_limits<std::int32_t>::max();
  EXPECT_THAT(sortedByNumber(1, 5, {0, 0, highest, -2, lowest, 7}, upTo(5)),
              ElementsAre(0, 4, 3, 1, 5, 2));
}

TEST_F(SortTest, TextsAreSortedByTheirBytes) {
  EXPECT_THAT(
      sortedByText(1, 6, {"", "\xC3\xA4.txt", "a.txt", "B.txt", "b.txt", "", "A.txt"}, upTo(6)),
      ElementsAre(0, 5, 6, 3, 2, 4, 1));
}

TEST_F(SortTest, TextsThatDifferInCaseNeedNotBeNeighbours) {
  EXPECT_THAT(sortedByText(1, 3, {"", "readme", "README", "notes"}, upTo(3)),
              ElementsAre(0, 2, 3, 1));
}

TEST_F(SortTest, RangeWhoseBoundsOverflowIsLeftAlone) {
  constexpr int highest = std::numeric_limits<std::int32_t>::max();
  EXPECT_THAT(sortedByNumber(1, highest, {0, 2, 1}, upTo(2)), ElementsAre(0, 1, 2));
  EXPECT_THAT(sortedByText(1, highest, {"", "b", "a"}, upTo(2)), ElementsAre(0, 1, 2));
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(SortTest, IndexWithoutTextMovesNothing) {
  EXPECT_THAT(sortedByText(1, 3, {"", "b", "a"}, {0, 1, 2, 3}), ElementsAre(0, 1, 2, 3));
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basHeapSortByText", "Subscript out of range(9)")));
}

TEST_F(SortTest, EachSiftReportsAnIndexWithoutNumber) {
  sortedByNumber(1, 2, {0, 1}, {0, 1, 2});
  EXPECT_THAT(dialogBoxes.messages,
              ElementsAre(procedureError("basHeapSiftByNumber", "Subscript out of range(9)")));
}

// The same keys as texts and as numbers, for a sift of slot `node` of slots 1 to 7.
void expectSift(int node, const Numbers& keys, const Numbers& expected) {
  Table<Int32> byNumber = tableOf(upTo(7));
  basHeapSiftByNumber(node, 1, 7, tableOf(keys), byNumber);
  EXPECT_EQ(valuesOf(byNumber), expected);

  Table<Int32> byText = tableOf(upTo(7));
  basHeapSiftByText(node, 1, 7, columnOf(textsFor(keys, {"", "1", "2", "3", "4", "5"})), byText);
  EXPECT_EQ(valuesOf(byText), expected);
}

TEST_F(SortTest, SiftFollowsTheLargerChild) {
  expectSift(1, {0, 1, 3, 4, 5, 5, 2, 3}, {0, 3, 2, 7, 4, 5, 6, 1});
}

TEST_F(SortTest, SiftTakesTheFirstOfEqualChildren) {
  expectSift(1, {0, 1, 4, 4, 3, 3, 5, 5}, {0, 2, 4, 3, 1, 5, 6, 7});
}

TEST_F(SortTest, SiftGoesOnThroughEqualKeys) {
  expectSift(1, {0, 4, 4, 3, 4, 2, 1, 1}, {0, 2, 4, 3, 1, 5, 6, 7});
}

TEST_F(SortTest, SiftStopsAboveSmallerKeys) {
  expectSift(1, {0, 5, 4, 4, 1, 1, 1, 1}, upTo(7));
  expectSift(2, {0, 1, 3, 5, 2, 2, 1, 1}, upTo(7));
}

// Rows of a matrix: row r names file files[r].
struct Rows {
  Numbers keys;
  Numbers files;
};

Rows rowsWithFewKeys(int count) {
  Rows rows{upTo(count), upTo(count)};
  for (int& key : rows.keys)
    key = key * 7 % 5 - 2;
  std::reverse(rows.files.begin() + 1, rows.files.end());
  return rows;
}

Numbers stablySorted(const Rows& rows, Numbers pointers) {
  const auto key = [&](int row) {
    return rows.keys[static_cast<std::size_t>(rows.files[static_cast<std::size_t>(row)])];
  };
  std::stable_sort(pointers.begin() + 1, pointers.end(),
                   [&](int a, int b) { return key(a) < key(b); });
  return pointers;
}

TEST_F(SortTest, MergeSortKeepsTheOrderOfRowsWithEqualKeys) {
  for (int count = 1; count <= 100; ++count) {
    const Rows rows = rowsWithFewKeys(count);
    Numbers pointers = upTo(count);
    std::reverse(pointers.begin() + 1, pointers.end());
    Table<Int32> table = tableOf(pointers);
    Table<Int32> scratch = tableOf(pointers);
    basMergeSortRows(1, count, tableOf(rows.keys), tableOf(rows.files), table, scratch);
    ASSERT_EQ(valuesOf(table), stablySorted(rows, pointers)) << count << " rows";
  }
}

TEST_F(SortTest, MergeSortLeavesTheSlotsAroundItsRange) {
  Table<Int32> table = tableOf({4, 3, 2, 1, 0});
  Table<Int32> scratch = table;
  basMergeSortRows(1, 3, tableOf(upTo(4)), tableOf(upTo(4)), table, scratch);
  EXPECT_THAT(valuesOf(table), ElementsAre(4, 1, 2, 3, 0));
}

// What a merge sort of `count` rows in falling order leaves in its scratch array.
Numbers scratchAfterSorting(int count) {
  Numbers pointers = upTo(count);
  std::reverse(pointers.begin() + 1, pointers.end());
  Table<Int32> table = tableOf(pointers);
  Table<Int32> scratch = tableOf(Numbers(pointers.size(), 0));
  basMergeSortRows(1, count, tableOf(upTo(count)), tableOf(upTo(count)), table, scratch);
  EXPECT_EQ(valuesOf(table), upTo(count));
  return valuesOf(scratch);
}

TEST_F(SortTest, TenRowsAreSortedByInsertionAndElevenMerged) {
  EXPECT_EQ(scratchAfterSorting(10), Numbers(11, 0));
  EXPECT_EQ(scratchAfterSorting(11), upTo(11));
}

TEST_F(SortTest, InsertionSortKeepsTheOrderOfRowsWithEqualKeys) {
  const Rows rows{{0, 5, -5, 5, 0}, {0, 3, 1, 2, 4, 3}};
  Table<Int32> table = tableOf({0, 5, 4, 3, 2, 1});
  basInsertionSortRows(1, 5, tableOf(rows.keys), tableOf(rows.files), table);
  EXPECT_THAT(valuesOf(table), ElementsAre(0, 3, 4, 5, 2, 1));
}

TEST_F(SortTest, InsertionSortOfOneRowDoesNothing) {
  Table<Int32> table = tableOf({0, 2, 1});
  basInsertionSortRows(2, 2, tableOf(upTo(2)), tableOf(upTo(2)), table);
  EXPECT_THAT(valuesOf(table), ElementsAre(0, 2, 1));
}

}  // namespace
}  // namespace quernstoke
