#include "detect/modSort.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <utility>

#include "core/procedure.h"

namespace quernstoke {

namespace {

// A max-heap in the order of `greater`. A node equal to its larger child is still swapped with it:
// which of equal keys comes first depends on it.
template <class Slot, class Greater>
void siftDown(Int32 node, Int32 lo, Int32 hi, Table<Slot>& slots, const Greater& greater) {
  for (;;) {
    Int32 child = node * 2 - (lo - 1);
    if (child > hi) return;
    if (child < hi && greater(slots[child + 1], slots[child])) ++child;
    if (greater(slots[node], slots[child])) return;
    std::swap(slots[node], slots[child]);
    node = child;
  }
}

// `sift` sinks a node of the heap that ends at a slot.
template <class Slot, class Sift>
void heapSort(Int32 lo, Int32 hi, Table<Slot>& slots, const Sift& sift) {
  for (Int32 i = (lo + hi) / 2; i >= lo; --i)
    sift(i, hi);
  for (Int32 k = hi; k >= lo + 1; --k) {
    std::swap(slots[lo], slots[k]);
    sift(lo, k - 1);
  }
}

// Ranges whose middle can't be computed stay as they are.
bool canBeSorted(Int32 lo, Int32 hi) {
  return std::in_range<std::int32_t>(std::int64_t{lo.raw()} + hi.raw());
}

// The order of two indices by their keys.
template <class Keys>
auto greaterKey(const Keys& keys) {
  return [&keys](Int32 a, Int32 b) { return keys[a] > keys[b]; };
}

// An index with the first bytes of its text, zeros behind a short one. They settle most comparisons
// without a look at the texts, which lie scattered: a million names take a quarter of the time.
struct TextSlot {
  std::array<char, 12> head{};
  Int32 index;
};

Table<TextSlot> textSlots(Int32 lo, Int32 hi, const TextColumn& keys,
                          const Table<Int32>& pointers) {
  Table<TextSlot> slots;
  slots.redim(hi, false);
  for (Int32 slot = lo; slot <= hi; ++slot) {
    TextSlot& to = slots[slot];
    to.index = pointers[slot];
    keys[to.index].copy(to.head.data(), to.head.size());
  }
  return slots;
}

auto greaterText(const TextColumn& keys) {
  return [&keys](const TextSlot& a, const TextSlot& b) {
    const int heads = std::memcmp(a.head.data(), b.head.data(), a.head.size());
    return heads != 0 ? heads > 0 : keys[a.index] > keys[b.index];
  };
}

}  // namespace

void basHeapSortByText(Int32 lo, Int32 hi, const TextColumn& keys, Table<Int32>& pointers) {
  procedure("basHeapSortByText", [&] {
    if (!canBeSorted(lo, hi) || lo > hi) return;
    Table<TextSlot> slots = textSlots(lo, hi, keys, pointers);
    heapSort(lo, hi, slots,
             [&](Int32 node, Int32 last) { siftDown(node, lo, last, slots, greaterText(keys)); });
    for (Int32 slot = lo; slot <= hi; ++slot)
      pointers[slot] = slots[slot].index;
  });
}

void basHeapSortByNumber(Int32 lo, Int32 hi, const Table<Int32>& keys, Table<Int32>& pointers) {
  procedure("basHeapSortByNumber", [&] {
    if (!canBeSorted(lo, hi)) return;
    heapSort(lo, hi, pointers,
             [&](Int32 node, Int32 last) { basHeapSiftByNumber(node, lo, last, keys, pointers); });
  });
}

void basHeapSiftByText(Int32 node, Int32 lo, Int32 hi, const TextColumn& keys,
                       Table<Int32>& pointers) {
  procedure("basHeapSiftByText", [&] { siftDown(node, lo, hi, pointers, greaterKey(keys)); });
}

void basHeapSiftByNumber(Int32 node, Int32 lo, Int32 hi, const Table<Int32>& keys,
                         Table<Int32>& pointers) {
  procedure("basHeapSiftByNumber", [&] { siftDown(node, lo, hi, pointers, greaterKey(keys)); });
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
