#pragma once

#include <string>
#include <string_view>

#include "platform/linux/descriptor.h"

namespace quernstoke {

// Goes down a relative path from an open directory to the one that holds its last component, which
// `name` takes. The names are taken as they are written and lead through no link, nor upward.
// Returns 0 or the error as a negative number: ENOTDIR if there is no such way, ENOENT if the last
// component is no name.
int enterExactly(Descriptor& directory, std::string_view relativePath, std::string& name);

}  // namespace quernstoke
