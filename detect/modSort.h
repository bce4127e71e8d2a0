#pragma once

#include "catalogue/textColumn.h"
#include "core/integers.h"
#include "core/table.h"

namespace quernstoke {

// Sorts of pointer arrays: slots `lo` to `hi` hold indices, which are put in ascending order of the
// keys at these indices. Keys do not move.

// Heap sorts. Not stable: the order of equal keys is what their steps give, and the rest of the
// program only counts on equal keys being neighbours. The one by text takes 16 bytes a slot while
// it runs; where a key can't be read, it moves nothing.
void basHeapSortByText(Int32 lo, Int32 hi, const TextColumn& keys, Table<Int32>& pointers);
void basHeapSortByNumber(Int32 lo, Int32 hi, const Table<Int32>& keys, Table<Int32>& pointers);

// Sink one slot of a heap that lies in slots `lo` to `hi` to its place.
void basHeapSiftByText(Int32 node, Int32 lo, Int32 hi, const TextColumn& keys,
                       Table<Int32>& pointers);
void basHeapSiftByNumber(Int32 node, Int32 lo, Int32 hi, const Table<Int32>& keys,
                         Table<Int32>& pointers);

// A stable merge sort, for rows of a matrix. `files` holds column 1 of each row, a file number, and
// the key is the one of that file. `scratch` has the bounds of `pointers`.
void basMergeSortRows(Int32 lo, Int32 hi, const Table<Int32>& keys, const Table<Int32>& files,
                      Table<Int32>& pointers, Table<Int32>& scratch);
// Stable, for ranges of up to ten rows.
void basInsertionSortRows(Int32 lo, Int32 hi, const Table<Int32>& keys, const Table<Int32>& files,
                          Table<Int32>& pointers);

}  // namespace quernstoke
