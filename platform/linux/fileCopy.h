#pragma once

#include <string>
#include <string_view>

#include "platform/linux/descriptor.h"

namespace quernstoke {

// Copies a regular file below an open directory, found as removeBelow finds it, to a new entry of
// another open directory, with its dates, permissions and extended attributes as far as the file
// system there keeps them. The copy gets its name when it is complete and on the disk, and only if
// the name is free and the file is still the same one, unchanged. Returns 0 or the error as a
// negative number, with nothing left of the copy.
int copyBelow(Descriptor directory, std::string_view relativePath, int targetDirectory,
              const std::string& targetName);

}  // namespace quernstoke
