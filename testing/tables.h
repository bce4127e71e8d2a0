#pragma once

#include <vector>

#include "core/table.h"

namespace quernstoke {

// A table of these rows, from row 0 on.
inline Table<Int32> tableOf(const std::vector<int>& values) {
  Table<Int32> table;
  table.redim(Int32(values.size()) - 1, false);
  for (std::size_t i = 0; i < values.size(); ++i)
    table[i] = values[i];
  return table;
}

// All its rows.
inline std::vector<int> valuesOf(const Table<Int32>& table) {
  std::vector<int> values;
  for (Int32 row = 0; row <= table.upperBound(); ++row)
    values.push_back(table[row].raw());
  return values;
}

}  // namespace quernstoke
