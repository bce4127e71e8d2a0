#pragma once

#include <functional>
#include <string_view>
#include <sys/stat.h>

#include "platform/linux/descriptor.h"

namespace quernstoke {

// Removes a regular file below an open directory. The names of the relative path are taken as they
// are written and lead through no link, nor upward. `refuse` sees the file's facts right before it
// goes, and may throw. Returns 0 or the error as a negative number: ENOENT if no regular file is
// there, ENOTDIR if there is no such way to it.
int removeBelow(Descriptor directory, std::string_view relativePath,
                const std::function<void(const struct stat&)>& refuse);

}  // namespace quernstoke
