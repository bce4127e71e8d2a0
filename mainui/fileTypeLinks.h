#pragma once

#include <optional>
#include <string>

#include "core/integers.h"

namespace quernstoke {

// The first profile of ProfileList that is linked to this row of FileTypeTable. The slots from 1 on
// are looked into up to that one, and one without a profile fails with a file not found.
std::optional<std::string> profileLinkedTo(Int32 fileType);

}  // namespace quernstoke
