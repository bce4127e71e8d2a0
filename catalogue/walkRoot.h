#pragma once

#include <optional>
#include <string_view>

namespace quernstoke {

// Where the walk that found a directory began: the nearest of the directories that the person has
// named, which alone may be reached by links. None if the directory lies below none of them.
std::optional<std::string_view> walkRootOf(std::string_view directory);

}  // namespace quernstoke
