#pragma once

#include <string_view>

#include "core/integers.h"

namespace quernstoke {

// Makes the directories of a relative path below `base`, one after the other; those that exist are
// passed over. With `addToTable` each new one becomes a row of DirTable below `parent`, and `row`
// the last of them. Returns true on failure.
bool basCreateDirectories(std::string_view base, std::string_view relative, bool addToTable,
                          Int32 parent, Int32& row);

}  // namespace quernstoke
