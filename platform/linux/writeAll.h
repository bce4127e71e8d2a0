#pragma once

#include <cerrno>
#include <cstddef>
#include <unistd.h>

namespace quernstoke {

// Writes all of the bytes at the position of an open file. Returns 0 or the error as a negative
// number.
inline int writeAll(int target, const char* bytes, std::size_t length) {
  while (length > 0) {
    const ssize_t written = ::write(target, bytes, length);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return -errno;
    bytes += written;
    length -= static_cast<std::size_t>(written);
  }
  return 0;
}

}  // namespace quernstoke
