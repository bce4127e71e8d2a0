#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/linux/descriptor.h"

namespace quernstoke {

// The raw entries of an open directory, in its own order.
class DirectoryReader {
 public:
  explicit DirectoryReader(Descriptor directory);

  // Moves to the next entry; false at the end, and after an error.
  bool next();
  // The error that ended the reading, or 0.
  int error() const { return error_; }

  // The current entry, valid until the next call of next().
  const char* name() const { return name_; }
  unsigned char type() const { return type_; }  // DT_REG and the like, or DT_UNKNOWN.
  bool isDots() const;                          // "." or "..".

  int descriptor() const { return directory_.get(); }

 private:
  static constexpr std::size_t bufferSize = 32768;

  bool fill();

  Descriptor directory_;
  std::size_t position_ = 0;
  std::size_t filled_ = 0;
  int error_ = 0;
  unsigned char type_ = 0;
  const char* name_ = nullptr;
  // Left uninitialised: clearing it would cost more than reading a small directory.
  alignas(std::uint64_t) char buffer_[bufferSize];
};

}  // namespace quernstoke
