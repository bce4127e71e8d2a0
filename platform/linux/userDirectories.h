#pragma once

#include <optional>
#include <string>

namespace quernstoke {

// The Linux path of the person's documents: the directory chosen in user-dirs.dirs, else
// ~/Documents, else the home directory; the first of them that is there. Nothing without a home.
std::optional<std::string> documentsDirectory();

}  // namespace quernstoke
