#include "catalogue/textColumn.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "catalogue/permute.h"

namespace quernstoke {

namespace {

using Length = std::uint32_t;
constexpr std::size_t pieceSize = std::size_t{64} * 1024;

}  // namespace

void TextColumn::redim(Int32 upper, bool preserve) {
  texts_.redim(upper, preserve);
  if (preserve) return;
  pieces_.clear();
  free_ = nullptr;
  freeSize_ = 0;
}

std::string_view TextColumn::operator[](Int32 row) const {
  const char* text = texts_[row];
  if (text == nullptr) return {};
  Length length = 0;
  std::memcpy(&length, text, sizeof length);
  return {text + sizeof length, length};
}

void TextColumn::set(Int32 row, std::string_view text) {
  const char*& place = texts_[row];
  if (text.empty()) {
    place = nullptr;
    return;
  }
  const std::size_t needed = sizeof(Length) + text.size();
  if (needed > freeSize_) {
    const std::size_t size = std::max(needed, pieceSize);
    pieces_.push_back(std::make_unique_for_overwrite<char[]>(size));
    free_ = pieces_.back().get();
    freeSize_ = size;  // Last, so that a piece that memory is too short for is not written to.
  }
  const auto length = static_cast<Length>(text.size());
  std::memcpy(free_, &length, sizeof length);
  std::memcpy(free_ + sizeof length, text.data(), text.size());
  place = free_;
  free_ += needed;
  freeSize_ -= needed;
}

void TextColumn::permute(const Table<Int32>& order, Int32 count) {
  permuteRows(texts_, order, count);
}

}  // namespace quernstoke
