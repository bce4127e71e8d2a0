#pragma once

#include <string>
#include <string_view>
#include <sys/stat.h>

#include "platform/linux/descriptor.h"

namespace quernstoke {

// Goes down a relative path from an open directory to the one that holds its last component, which
// `name` takes. The names are taken as they are written and lead through no link, nor upward.
// Returns 0 or the error as a negative number: ENOTDIR if there is no such way, ENOENT if the last
// component is no name.
int enterExactly(Descriptor& directory, std::string_view relativePath, std::string& name);

// The facts of a regular file itself. Both return 0 or the error as a negative number: ENOENT also
// for what is no regular file.
int lookAtFile(const Descriptor& directory, const std::string& name, struct stat& facts);
// The same below an open directory, by a path that enterExactly can go.
int lookBelow(Descriptor directory, std::string_view relativePath, struct stat& facts);

}  // namespace quernstoke
