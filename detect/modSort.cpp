#include "detect/modSort.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "core/procedure.h"

namespace quernstoke {

namespace {

// A max-heap on the keys of the slots' indices. A node equal to its larger child is still swapped
// with it: which of equal keys comes first depends on it.
template <class Keys>
void siftDown(Int32 node, Int32 lo, Int32 hi, const Keys& keys, Table<Int32>& pointers) {
  for (;;) {
    Int32 child = node * 2 - (lo - 1);
    if (child > hi) return;
    if (child < hi && keys[pointers[child + 1]] > keys[pointers[child]]) ++child;
    if (keys[pointers[node]] > keys[pointers[child]]) return;
    std::swap(pointers[node], pointers[child]);
    node = child;
  }
}

template <class Keys>
void heapSort(Int32 lo, Int32 hi, const Keys& keys, Table<Int32>& pointers) {
  const std::int64_t sum = std::int64_t{lo.raw()} + hi.raw();
  if (!std::in_range<std::int32_t>(sum)) return;
  for (Int32 i = Int32(sum) / 2; i >= lo; --i)
    siftDown(i, lo, hi, keys, pointers);
  for (Int32 k = hi; k >= lo + 1; --k) {
    std::swap(pointers[lo], pointers[k]);
    siftDown(lo, lo, k - 1, keys, pointers);
  }
}

}  // namespace

void basHeapSortByText(Int32 lo, Int32 hi, const TextColumn& keys, Table<Int32>& pointers) {
  procedure("basHeapSortByText", [&] { heapSort(lo, hi, keys, pointers); });
}

void basHeapSortByNumber(Int32 lo, Int32 hi, const Table<Int32>& keys, Table<Int32>& pointers) {
  procedure("basHeapSortByNumber", [&] { heapSort(lo, hi, keys, pointers); });
}

void basHeapSiftByText(Int32 node, Int32 lo, Int32 hi, const TextColumn& keys,
                       Table<Int32>& pointers) {
  procedure("basHeapSiftByText", [&] { siftDown(node, lo, hi, keys, pointers); });
}

void basHeapSiftByNumber(Int32 node, Int32 lo, Int32 hi, const Table<Int32>& keys,
                         Table<Int32>& pointers) {
  procedure("basHeapSiftByNumber", [&] { siftDown(node, lo, hi, keys, pointers); });
}

void basMergeSortRows(Int32 lo, Int32 hi, const Table<Int32>& keys, const Table<Int32>& files,
                      Table<Int32>& pointers, Table<Int32>& scratch) {
  procedure("basMergeSortRows", [&] {
    constexpr int shortRange = 10;
    if (hi - lo < shortRange) {
      basInsertionSortRows(lo, hi, keys, files, pointers);
      return;
    }
    const Int32 mid = (lo + hi) / 2;
    basMergeSortRows(lo, mid, keys, files, pointers, scratch);
    basMergeSortRows(mid + 1, hi, keys, files, pointers, scratch);

    const auto key = [&](Int32 slot) { return keys[files[pointers[slot]]]; };
    Int32 left = lo;
    Int32 right = mid + 1;
    for (Int32 to = lo; to <= hi; ++to) {
      const bool takeRight = left > mid || (right <= hi && key(left) > key(right));
      Int32& from = takeRight ? right : left;
      scratch[to] = pointers[from];
      ++from;
    }
    for (Int32 slot = lo; slot <= hi; ++slot)
      pointers[slot] = scratch[slot];
  });
}

void basInsertionSortRows(Int32 lo, Int32 hi, const Table<Int32>& keys, const Table<Int32>& files,
                          Table<Int32>& pointers) {
  procedure("basInsertionSortRows", [&] {
    const auto keyOf = [&](Int32 row) { return keys[files[row]]; };
    for (Int32 i = lo + 1; i <= hi; ++i) {
      const Int32 moving = pointers[i];
      const Int32 key = keyOf(moving);
      Int32 j = i;
      for (; j >= lo + 1 && key < keyOf(pointers[j - 1]); --j)
        pointers[j] = pointers[j - 1];
      pointers[j] = moving;
    }
  });
}

}  // namespace quernstoke
