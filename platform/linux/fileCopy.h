#pragma once

#include <string>
#include <string_view>
#include <sys/stat.h>

#include "platform/linux/descriptor.h"

namespace quernstoke {

// What copyBelow returns, negative, for a file that was changed during the copy. No error of the
// system's has so high a number.
constexpr int changedMeanwhile = 4096;

// The facts of both files when the copy was complete.
struct CopiedFile {
  struct stat original {};
  struct stat copy {};
};

// Copies a regular file below an open directory, found as removeBelow finds it, to a new entry of
// another open directory, with its dates, permissions and extended attributes as far as the file
// system there keeps them. The copy gets its name when it is complete and on the disk, and only if
// the name is free and the file is still the same one, unchanged; then the directories on the way
// to it are brought to the disk, up to where another one is mounted. Returns 0 or the error as a
// negative number, with nothing left of the copy.
int copyBelow(Descriptor directory, std::string_view relativePath, int targetDirectory,
              const std::string& targetName, CopiedFile& copied);

}  // namespace quernstoke
