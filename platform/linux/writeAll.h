#pragma once

#include <cerrno>
#include <cstddef>
#include <string_view>
#include <unistd.h>

namespace quernstoke {

// Writes all of the bytes at the position of an open file. Returns 0 or the error as a negative
// number.
inline int writeAll(int target, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(target, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return -errno;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

}  // namespace quernstoke
