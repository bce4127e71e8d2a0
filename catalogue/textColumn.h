#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "core/integers.h"
#include "core/table.h"

namespace quernstoke {

// A column of texts that costs a row eight bytes and each text its bytes and four more: the texts
// lie one behind the other in large pieces. The room of a text that is replaced is not used again
// before the column is emptied.
class TextColumn {
 public:
  // As redim of a Table. Without `preserve` all room is given back.
  void redim(Int32 upper, bool preserve);
  Int32 upperBound() const { return texts_.upperBound(); }

  // Valid until the column is emptied. Fails with a subscript out of range.
  std::string_view operator[](Int32 row) const;
  void set(Int32 row, std::string_view text);
  // Row `to` takes the text of row `from`.
  void copy(Int32 from, Int32 to) { texts_[to] = texts_[from]; }

  // Row i, from 1 to `count`, takes the text that row order[i] had.
  void permute(const Table<Int32>& order, Int32 count);

 private:
  // Points at the length of a text, with its bytes behind it; null for empty text.
  Table<const char*> texts_;
  std::vector<std::unique_ptr<char[]>> pieces_;
  char* free_ = nullptr;  // What is left of the last piece.
  std::size_t freeSize_ = 0;
};

}  // namespace quernstoke
