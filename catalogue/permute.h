#pragma once

#include "core/integers.h"
#include "core/table.h"

namespace quernstoke {

// Row i of `column`, from 1 to `count`, takes what row order[i] had.
template <class T>
void permuteRows(Table<T>& column, const Table<Int32>& order, Int32 count) {
  const Table<T> before = column;
  for (Int32 row = 1; row <= count; ++row)
    column[row] = before[order[row]];
}

}  // namespace quernstoke
