#pragma once

#include <sys/stat.h>

namespace quernstoke {

// Whether two looks saw one and the same entry of the disk.
inline bool isSameEntry(const struct stat& left, const struct stat& right) {
  return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

}  // namespace quernstoke
