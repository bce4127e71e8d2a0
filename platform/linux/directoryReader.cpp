#include "platform/linux/directoryReader.h"

#include <cerrno>
#include <dirent.h>
#include <string_view>
#include <utility>

namespace quernstoke {

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): see the buffer's comment.
DirectoryReader::DirectoryReader(Descriptor directory) : directory_(std::move(directory)) {}

bool DirectoryReader::next() {
  if (position_ >= filled_ && !fill()) return false;
  const auto* entry = reinterpret_cast<const dirent64*>(buffer_ + position_);
  position_ += entry->d_reclen;
  type_ = entry->d_type;
  name_ = entry->d_name;
  return true;
}

bool DirectoryReader::fill() {
  position_ = 0;
  filled_ = 0;
  if (error_ != 0) return false;
  const ssize_t length = ::getdents64(directory_.get(), buffer_, bufferSize);
  if (length > 0) {
    filled_ = static_cast<std::size_t>(length);
    return true;
  }
  // A directory removed meanwhile has no entries left, and that is not an error.
  if (length < 0 && errno != ENOENT) error_ = errno;
  return false;
}

bool DirectoryReader::isDots() const {
  const std::string_view name = name_;
  return name == "." || name == "..";
}

}  // namespace quernstoke
