#pragma once

#include <string>

namespace quernstoke {

// Where the walk that found a directory began: the nearest of the directories that the person has
// named, which alone may be reached by links. A list without one vouches for nothing above the
// directory itself.
std::string walkRootOf(const std::string& directory);

}  // namespace quernstoke
