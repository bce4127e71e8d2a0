#pragma once

#include <string_view>

namespace quernstoke {

// Whether the path can be made the current directory, which it is for a moment.
bool basDirExists(std::string_view path);

// Whether there is a file of this path, hidden and read-only ones included. The last component may
// hold wildcards. A directory is no file.
bool basFileExists(std::string_view path);

// Deletes the files that a path with wildcards in its last component names, hidden ones left out.
// What can't be listed or deleted stays, without a word.
void deleteFiles(std::string_view path);

}  // namespace quernstoke
