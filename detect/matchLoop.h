#pragma once

#include <string_view>

#include "core/integers.h"

namespace quernstoke {

// One pass over the groups of the catalogue, "NAME" or "SIZE": files that match get a common match
// number. A pass that is stopped leaves its restart points in the profile, which is saved at the
// end of each pass.
void basCompareFiles(std::string_view mode);

// Whether the profile keeps these two files apart for the directories that they lie in.
bool basCompareFilesCheckExclusion(Int32 primary, Int32 secondary);

}  // namespace quernstoke
