#pragma once

#include <cstddef>
#include <vector>

#include "core/integers.h"
#include "platform/failure.h"

namespace quernstoke {

// A bounds-checked array with lower bound 0. It always has at least row 0.
template <class T>
class Table {
 public:
  // The upper bound becomes `upper`. With `preserve` the rows that remain keep their content, and
  // new ones are empty; without it all are. Fails with a subscript out of range below 0.
  void redim(Int32 upper, bool preserve) {
    if (upper < 0) fail(FailureNumber::subscriptOutOfRange);
    const auto count = static_cast<std::size_t>(upper.raw()) + 1;
    if (!preserve) rows_.clear();
    rows_.resize(count);
    if (rows_.capacity() / 2 > count) rows_.shrink_to_fit();
  }

  Int32 upperBound() const { return Int32(rows_.size()) - 1; }

  // Fail with a subscript out of range.
  const T& operator[](Int32 row) const { return rows_[checked(row)]; }
  T& operator[](Int32 row) { return rows_[checked(row)]; }

  // Row 0, with the rows up to the upper bound behind it.
  const T* data() const { return rows_.data(); }
  T* data() { return rows_.data(); }

  void swap(Table& other) noexcept { rows_.swap(other.rows_); }

 private:
  std::size_t checked(Int32 row) const {
    const auto index = static_cast<std::size_t>(row.raw());
    if (index >= rows_.size()) fail(FailureNumber::subscriptOutOfRange);
    return index;
  }

  std::vector<T> rows_ = std::vector<T>(1);
};

}  // namespace quernstoke
