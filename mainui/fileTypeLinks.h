#pragma once

#include <string>

#include "core/integers.h"

namespace quernstoke {

// The first profile of ProfileList that is linked to this row of FileTypeTable; empty if none is.
// All slots are looked into, so one without a profile fails with a file not found.
std::string profileLinkedTo(Int32 fileType);

}  // namespace quernstoke
