#pragma once

#include <string>

#include "platform/linux/descriptor.h"

namespace quernstoke {

// Where a path leads when each component is taken as it is written or, failing that, is the first
// entry of its directory that differs in letter case only.
struct Place {
  Descriptor directory;  // The directory that holds, or would hold, the last component.
  std::string name;      // Its name there; as written when nothing fits.
  std::string path;      // The whole path with the names as they are.
  bool exists = false;   // A link counts as itself.
  bool exact = false;    // The last component exists as it is written.
  int error = 0;         // ENOENT: only the last component is missing. Others: the way to it.
};

// Also the way round the system's limit on a path's length, as it takes one component at a time.
Place locate(const std::string& linuxPath);

}  // namespace quernstoke
